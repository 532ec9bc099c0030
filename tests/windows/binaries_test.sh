#!/bin/sh
# Compares what Kestrel.dll, kestrel.exe and the drivers of both widths say of themselves with what they
# have to say. The argument is the folder that holds the build folders mingw32 and mingw64.
set -eu
build=$1
for preset in mingw32 mingw64; do
  [ -e "$build/$preset/src/Kestrel.dll" ] || { echo "skipped: $preset is not built"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# What is on standard input should not be there.
refuse() {
  if grep . >"$work/refused"; then
    echo "$1:"
    cat "$work/refused"
    touch "$work/failed"
  fi
}

# What matters of the headers at hand, then the exports with their ordinals.
describe() {
  awk '/file format/ { format = $NF }
    /^M..orOSystemVersion/ { windows = windows "." $2 }
    /^M..orSubsystemVersion/ { version = version "." $2 }
    /^Subsystem\t/ { subsystem = $2 + 0 }
    /Alignment\t/ { sub(/^0*/, "", $2); alignment = alignment " " $2 }
    /^DllCharacteristics/ { flags = $2 }
    /^Entry [259] / && $3 !~ /^0+$/ { parts = parts " " $5 }
    END { print format, windows, "subsystem", subsystem version, "aligned" alignment, flags parts }
  ' "$work/headers"
  awk '/^\[Ordinal\/Name Pointer\]/ { isName = 1; next }
    /^$/ { isName = 0 }
    isName { gsub(/[][]/, ""); print $1 + 1, $2 }
    /Export RVA/ { ++count }
    END { if (count) print count, "exports" }' "$work/headers"
}

# What no file may have: memory that is both written and run, or anything but
# relocations that Windows may discard. Windows loads no driver whose checksum is wrong, either: the
# sum of its 16-bit words, with the carries added and without the checksum itself, and its length.
list_faults() {
  python3 - "$1" <<'END'
import struct, sys

data = open(sys.argv[1], "rb").read()
(header,) = struct.unpack_from("<I", data, 0x3C)
count, size = struct.unpack_from("<6xH12xH", data, header)
for offset in range(header + 24 + size, header + 24 + size + 40 * count, 40):
    name, flags = struct.unpack_from("<8s28xI", data, offset)
    writable_code = flags & 0xA0000000 == 0xA0000000
    discardable = flags & 0x02000000 and name != b".reloc\0\0"
    if writable_code or discardable:
        print(name, hex(flags))
low, high = struct.unpack_from("<2H", data, header + 0x58)
words = sum(struct.unpack(f"<{len(data) // 2}H", data)) - low - high
if sys.argv[1].endswith(".sys") and low + (high << 16) != 1 + (words - 1) % 0xFFFF + len(data):
    print("checksum", hex(low + (high << 16)))
END
}

# check FILE IMPORTS: what is to be found is on standard input. The imports are functions with their
# libraries; those of a driver are all of them, those of the tool are not looked at.
check() {
  x86_64-w64-mingw32-objdump -p "$build/$1" >"$work/headers"
  cat >"$work/wanted"
  describe >"$work/found"
  for function in $2; do echo "$function"; done | sort >"$work/allowed"
  awk '/DLL Name:/ { library = $3 }
    library && $2 ~ /^[0-9]+$/ && NF == 3 { print library ":" $3 }
    /^$/ { library = "" }' "$work/headers" | sort >"$work/imports"
  case $1 in
    *.exe) ;;
    *.sys) cat "$work/imports" >>"$work/found" && cat "$work/allowed" >>"$work/wanted" ;;
    *) { grep . "$work/imports" || echo nothing; } | grep -vxFf "$work/allowed" | refuse "$1 imports" ;;
  esac
  diff -u --label "$1, wanted" --label "$1, found" "$work/wanted" "$work/found" || touch "$work/failed"
  list_faults "$build/$1" | refuse "$1"
}

in_library() {
  library=$1
  shift
  for name in "$@"; do echo "$library:$name"; done
}

# Windows 95 has all of these.
windows95="$(in_library KERNEL32.dll CloseHandle CreateFileA DeviceIoControl GetModuleFileNameA \
  GetProcAddress GetVersionExA IsDBCSLeadByte LoadLibraryA Sleep)
$(in_library msvcrt.dll abort free malloc memchr memcmp memcpy memmove memset strlen)"

# Windows XP has all of these on x64; those beyond the first come with the C++ runtime.
windowsXP="$windows95
$(in_library KERNEL32.dll CreateSemaphoreW DeleteCriticalSection EnterCriticalSection \
  GetCurrentThreadId GetLastError GetModuleHandleW InitializeCriticalSection IsDBCSLeadByteEx \
  LeaveCriticalSection LoadLibraryW MultiByteToWideChar RaiseException ReleaseSemaphore \
  RtlCaptureContext RtlLookupFunctionEntry RtlUnwindEx RtlVirtualUnwind SetLastError TlsAlloc \
  TlsFree TlsGetValue TlsSetValue VirtualProtect VirtualQuery WaitForSingleObject \
  WideCharToMultiByte)
$(in_library msvcrt.dll ___lc_codepage_func ___mb_cur_max_func __iob_func _amsg_exit _close _errno \
  _initterm _lock _read _unlock calloc fputc fputs fwrite localeconv realloc strcmp strerror \
  strncmp vfprintf wcslen)"

exports="1 CloseSMBios
2 GetSMBiosDate
3 GetSMBiosVendor
4 GetSMBiosVersion
5 GetSMType0Obj
6 OpenSMBios
7 ReadSMObjects
8 SMObjsToMifString
9 SMObjsToString
9 exports"

check mingw32/src/Kestrel.dll "$windows95" <<END
pei-i386 .4.0 subsystem 3.4.0 aligned 1000 200 00000000 Resource Base
$exports
END
check mingw64/src/Kestrel.dll "$windowsXP" <<END
pei-x86-64 .4.0 subsystem 3.5.2 aligned 1000 200 00000160 Resource Base Thread
$exports
END

check mingw32/tools/kestrel/kestrel.exe "" <<END
pei-i386 .4.0 subsystem 3.4.0 aligned 1000 200 00000140 Base Thread
END
check mingw64/tools/kestrel/kestrel.exe "" <<END
pei-x86-64 .4.0 subsystem 3.5.2 aligned 1000 200 00000160 Base Thread
END

# Windows NT 4 has all of these; from 2000 on there is a better way to attach.
windowsNT4="$(in_library ntoskrnl.exe ExAllocatePoolWithTag ExFreePool IoCreateDevice \
  IoCreateSymbolicLink IoDeleteDevice IoDeleteSymbolicLink IofCompleteRequest KeAttachProcess \
  KeDetachProcess KeInitializeMutex KeReleaseMutex KeWaitForSingleObject PsInitialSystemProcess \
  SeAccessCheck SeFreePrivileges SeSinglePrivilegeCheck ZwClose ZwMapViewOfSection ZwOpenSection \
  ZwUnmapViewOfSection)"
windows2000=$(echo "$windowsNT4" | sed 's/KeAttach/KeStackAttach/; s/KeDetach/KeUnstackDetach/')

check mingw32/drivers/PetrelNt.sys "$windowsNT4" <<END
pei-i386 .4.0 subsystem 1.4.0 aligned 1000 200 00000000 Resource Base
END
check mingw32/drivers/Petrel.sys "$windows2000" <<END
pei-i386 .4.0 subsystem 1.5.0 aligned 1000 200 00000000 Resource Base
END
check mingw64/drivers/Petrel.sys "$windows2000" <<END
pei-x86-64 .4.0 subsystem 1.5.2 aligned 1000 200 00000100 Resource Base
END

# scan FOLDER OPTION: the objects in a build folder.
scan() {
  find "$build/mingw32/$1" -name '*.obj' -exec i686-w64-mingw32-objdump "$2" --no-show-raw-insn {} +
}

for folder in src drivers; do
  scan "$folder" -d >"$work/code"
  grep -qw ret "$work/code" || echo nothing | refuse "$folder, code"
  grep -E '\b(f?cmov[a-z]+|fu?comip?|sysenter|nop[wl] .*\()|%[xy]?mm[0-7]' "$work/code" |
    refuse "instructions that no Pentium has"
done
scan src -h | grep -E '\.ctors|\.CRT|\.tls' | refuse "constructed at load, when there is no startup code"

[ ! -e "$work/failed" ]
