#!/usr/bin/env bash
# Makes the Debian packages, unpacks them into a root of their own, and uses them from there. The
# argument is the build folder.
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root/usr
# Packages can be made in any folder and any locale.
packages=$work/größe
multiarch=$(gcc -print-multiarch)
host=$PWD/package/host

expect() {
  [ "$2" = "$3" ] || { printf 'FAILED: %s:\n%s\nnot:\n%s\n' "$1" "$3" "$2"; exit 1; }
}
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }; }

quietly env LC_ALL=C cpack --config "$build/CPackConfig.cmake" -B "$packages"
for package in "$packages"/*.deb; do dpkg-deb -x "$package" "$work/root"; done
expect packages "kestrel
libkestrel-dev
libkestrel1" "$(for package in "$packages"/*.deb; do dpkg-deb -f "$package" Package; done)"
expect depends "libkestrel1 (= $(dpkg-deb -f "$packages"/libkestrel1_*.deb Version))" \
  "$(dpkg-deb -f "$packages"/libkestrel-dev_*.deb Depends)"
expect tool "$("$build/tools/kestrel/kestrel" bios --sample)" "$("$root/bin/kestrel" bios --sample)"

# Hardened like Debian's own packages. FORTIFY leaves no trace in a file that calls none of what it
# replaces, so it shows only in the commands.
for file in "$root/bin/kestrel" "$root/lib/$multiarch/libkestrel.so.1"; do
  expect "hardening of $file" "BIND_NOW GNU_RELRO GNU_STACK RW __stack_chk_fail" "$({
    readelf --dynamic --wide "$file" | grep -o BIND_NOW
    readelf --segments --wide "$file" | sed -nE 's/^ *(GNU_RELRO) .*/\1/p; s/^ *(GNU_STACK) .* (R[WE]+) .*/\1 \2/p' | sort
    nm --dynamic "$file" | grep -o __stack_chk_fail
  } | xargs)"
done
expect "sources without FORTIFY" "" "$(grep -E '"command":.* -o (src|tools)/' "$build/compile_commands.json" |
  grep -v -e '-D_FORTIFY_SOURCE=2')"

# A host that is built by pkg-config, and one by CMake; neither finds Kestrel anywhere else.
export PKG_CONFIG_LIBDIR=$root/lib/$multiarch/pkgconfig LD_LIBRARY_PATH=$root/lib/$multiarch
read -ra flags < <(pkg-config --cflags --libs kestrel)
cc "$host/host.c" "${flags[@]}" -o "$work/pkg_config_host"
expect "host by pkg-config" "closed" "$("$work/pkg_config_host")"
quietly cmake -S "$host" -B "$work/host" -DCMAKE_PREFIX_PATH="$root" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF
quietly cmake --build "$work/host"
expect "host by CMake" "closed" "$("$work/host/host")"

for page in man1/kestrel.1 man3/kestrel.3 man3/OpenSMBios.3; do
  expect "warnings of $page" "" "$(man --warnings --local-file "$root/share/man/$page.gz" 2>&1 >/dev/null)"
done

# complete WORD...: what completion has for the last word.
complete_words() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
  _kestrel kestrel "${*: -1}" "${*: -2:1}"
  echo "${COMPREPLY[*]}"
}
# shellcheck disable=SC1091
. "$root/share/bash-completion/completions/kestrel"
touch "$work/firmware.bin"
expect commands "report" "$(complete_words kestrel re)"
expect options "--exact" "$(complete_words kestrel report --ex)"
expect kinds "raw rsmb" "$(complete_words kestrel list --image x --format r | xargs -n 1 | sort | xargs)"
expect files "$work/firmware.bin" "$(complete_words kestrel json --image "$work/firm")"
expect "files after =" "$work/firmware.bin" "$(complete_words kestrel json --image = "$work/firm")"
