#!/bin/sh
# Runs wine_test.py with the 32-bit build, on the 32-bit Wine of a 32-bit Debian, as each Windows that
# the library is for. Needs root and, the first time, debootstrap and a network: it makes that Debian
# in a folder, which it keeps. Argument: the folder, unless it is to be build/i386.
set -eu
cd "$(dirname "$0")/../.."
debian=${1:-build/i386}

scripts/runs-32-bit-programs || { echo "skipped: this kernel runs no 32-bit programs"; exit 77; }
scripts/require-packages clang g++-multilib g++-mingw-w64 cmake ninja-build libcli11-dev rapidjson-dev \
  debootstrap
if [ ! -e "$debian/usr/lib/wine/wineserver32" ]; then
  debootstrap --arch=i386 --variant=minbase bookworm "$debian"
  chroot "$debian" apt-get update
  chroot "$debian" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends wine32 python3 libstdc++6
fi

cmake --preset linux32 -DKESTREL_BUILD_TESTS=OFF
cmake --build --preset linux32 --target kestrel_tool
cmake --preset mingw32 -DKESTREL_BUILD_TESTS=ON
cmake --build --preset mingw32 --target kestrel_windows_files

rm -rf "$debian/kestrel"
mkdir "$debian/kestrel"
cp -r build/mingw32/tests/windows/files build/linux32/tools/kestrel/kestrel tests/windows/wine.py \
  tests/windows/wine_test.py "$debian/kestrel"
# What is mounted and left running ends with the namespaces.
exec unshare --mount --pid --fork --kill-child --mount-proc="$debian/proc" chroot "$debian" \
  python3 /kestrel/wine_test.py /kestrel/files /kestrel/kestrel /kestrel/wine \
  winxp win2k nt40 win98 win95
