#!/usr/bin/env bash
# The library as a file: its name for the linker, its exports, and what it needs. Argument: the file.
set -euo pipefail
library=$1

expect() {
  [ "$2" = "$3" ] || { printf 'FAILED: %s:\n%s\nnot:\n%s\n' "$1" "$3" "$2"; exit 1; }
}

dynamic() { objdump --private-headers "$library" | sed -n "s/^ *$1 *//p"; }

expect soname libkestrel.so.1 "$(dynamic SONAME)"
expect needed "libc.so.6
libgcc_s.so.1
libstdc++.so.6" "$(dynamic NEEDED | grep -v '^ld-linux' | sort)"
expect exports "CloseSMBios
GetSMBiosDate
GetSMBiosVendor
GetSMBiosVersion
GetSMType0Obj
OpenSMBios
ReadSMObjects
SMObjsToMifString
SMObjsToString" "$(nm --dynamic --defined-only "$library" | sed -n 's/^[0-9a-f]* [^A] \([^@]*\).*/\1/p' | sort)"
