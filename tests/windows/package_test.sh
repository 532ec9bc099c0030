#!/bin/sh
# Packs what was built for Windows and looks what is in the zips. The argument is the folder that
# holds the build folders mingw32 and mingw64.
set -eu
build=$1
for preset in mingw32 mingw64; do
  [ -e "$build/$preset/src/Kestrel.dll" ] || { echo "skipped: $preset is not built"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# check PRESET WIDTH DRIVERS
check() {
  cpack --config "$build/$1/CPackConfig.cmake" -B "$work" >"$work/log" || {
    cat "$work/log"
    exit 1
  }
  python3 -m zipfile --list "$work"/kestrel-*-windows-"$2".zip |
    sed -n 's/^kestrel-[0-9.]*-windows-[^/]*\/\([^ ]*[^/ ]\) .*/\1/p' | sort >"$work/found"
  { for driver in $3; do echo "bin/$driver"; done; cat; } | sort >"$work/wanted"
  diff -u --label "$2, wanted" --label "$2, found" "$work/wanted" "$work/found"
}

files="README.txt
bin/Kestrel.dll
bin/kestrel.exe
copyright-mingw-w64.txt
copyright.txt
include/kestrel.h
lib/cmake/kestrel/kestrel-config-version.cmake
lib/cmake/kestrel/kestrel-config.cmake
lib/cmake/kestrel/kestrel-targets-release.cmake
lib/cmake/kestrel/kestrel-targets.cmake
lib/libKestrel.dll.a"
echo "$files" | check mingw32 x86 "Petrel.sys PetrelNt.sys"
echo "$files" | check mingw64 x64 Petrel.sys
