#!/bin/sh
# Compares what Kestrel.dll and the drivers of both widths say of themselves with what they have to
# say. The argument is the folder that holds the build folders mingw32 and mingw64.
set -eu
build=$1
for preset in mingw32 mingw64; do
  [ -e "$build/$preset/src/Kestrel.dll" ] || { echo "skipped: $preset is not built"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The imports in the headers at hand, each with its library.
list_imports() {
  awk '/DLL Name:/ { library = $3 }
    library && $2 ~ /^[0-9]+$/ && NF == 3 { print library ":" $3 }
    /^$/ { library = "" }' "$work/headers"
}

# Whatever is on standard input should not be there.
refuse() {
  if grep . >"$work/refused"; then
    echo "$1:"
    cat "$work/refused"
    touch "$work/failed"
  fi
}

# The headers that matter, then the exports with their ordinals.
describe() {
  sed -n -E 's/.*file format //p
    s/^(Major|Minor)(SubsystemVersion|OSystemVersion)\t/\1\2 /p
    s/^DllCharacteristics\t/DllCharacteristics /p
    s/^Entry 2 0*[1-9a-f].*/has resources/p
    s/^Entry 9 0+ 0+ .*/has no thread storage/p' "$work/headers"
  awk '/Export RVA/ { ++count }
    /^\[Ordinal\/Name Pointer\]/ { isName = 1; next }
    /^$/ { isName = 0 }
    isName { gsub(/[][]/, ""); print $1 + 1, $2 }
    END { print count, "exports" }' "$work/headers"
}

# Takes the headers to be found from standard input; $2 are the functions that may be imported, with
# their libraries.
check_library() {
  cat - "$work/exports" >"$work/wanted"
  describe >"$work/found"
  diff -u --label "$1, wanted" --label "$1, found" "$work/wanted" "$work/found" || touch "$work/failed"
  for function in $2; do echo "$function"; done >"$work/allowed"
  list_imports >"$work/imports"
  [ -s "$work/imports" ] || echo "nothing" >"$work/imports"
  grep -vxFf "$work/allowed" "$work/imports" | refuse "$1 imports"
}

cat >"$work/exports" <<END
1 CloseSMBios
2 GetSMBiosDate
3 GetSMBiosVendor
4 GetSMBiosVersion
5 GetSMType0Obj
6 OpenSMBios
7 ReadSMObjects
8 SMObjsToMifString
9 SMObjsToString
9 exports
END

in_library() {
  library=$1
  shift
  for name in "$@"; do echo "$library:$name"; done
}

# Windows 95 has all of these.
windows95="$(in_library KERNEL32.dll CloseHandle CreateFileA DeviceIoControl GetModuleFileNameA \
  GetProcAddress GetVersionExA LoadLibraryA Sleep)
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

i686-w64-mingw32-objdump -p "$build/mingw32/src/Kestrel.dll" >"$work/headers"
check_library mingw32 "$windows95" <<END
pei-i386
MajorOSystemVersion 4
MinorOSystemVersion 0
MajorSubsystemVersion 4
MinorSubsystemVersion 0
DllCharacteristics 00000000
has resources
has no thread storage
END

x86_64-w64-mingw32-objdump -p "$build/mingw64/src/Kestrel.dll" >"$work/headers"
check_library mingw64 "$windowsXP" <<END
pei-x86-64
MajorOSystemVersion 4
MinorOSystemVersion 0
MajorSubsystemVersion 5
MinorSubsystemVersion 2
DllCharacteristics 00000160
has resources
END

# Takes what is to be found, all of it, from standard input.
check_driver() {
  cat >"$work/wanted"
  x86_64-w64-mingw32-objdump -p "$build/$1" >"$work/headers"
  {
    sed -n -E 's/.*file format //p
      s/^(Major|Minor)SubsystemVersion\t/\1SubsystemVersion /p
      s/^Subsystem\t+0+([0-9]+)\t.*/Subsystem \1/p
      s/^DllCharacteristics\t/DllCharacteristics /p
      s/^Entry 2 0*[1-9a-f].*/has resources/p
      s/^Entry 5 0*[1-9a-f].*/can be moved/p' "$work/headers"
    list_imports
  } >"$work/found"
  diff -u --label "$1, wanted" --label "$1, found" "$work/wanted" "$work/found" || touch "$work/failed"
  # Windows loads no driver whose checksum is wrong: the sum of its 16-bit words, with the carries
  # added and without the checksum itself, and its length.
  checksum=$(sed -n 's/^CheckSum\t\t/0x/p' "$work/headers")
  words=$(od -A n -v -t u2 "$build/$1" | awk -v sum=$(((checksum & 65535) + (checksum >> 16))) '
    { for (i = 1; i <= NF; ++i) total += $i }
    END { total -= sum; while (total > 65535) total = total % 65536 + int(total / 65536); print total }')
  [ $((words + $(wc -c <"$build/$1"))) -eq $((checksum)) ] || echo "$checksum" | refuse "$1, checksum"
}

# Windows NT 4 has all of these.
windowsNT4="$(in_library ntoskrnl.exe ExAllocatePoolWithTag ExFreePool IoCreateDevice \
  IoCreateSymbolicLink IoDeleteDevice IoDeleteSymbolicLink IofCompleteRequest KeAttachProcess \
  KeDetachProcess KeInitializeMutex KeReleaseMutex KeWaitForSingleObject PsInitialSystemProcess \
  SeAccessCheck SeSinglePrivilegeCheck ZwClose ZwMapViewOfSection ZwOpenSection \
  ZwUnmapViewOfSection)"

check_driver mingw32/drivers/PetrelNt.sys <<END
pei-i386
MajorSubsystemVersion 4
MinorSubsystemVersion 0
Subsystem 1
DllCharacteristics 00000000
has resources
can be moved
$windowsNT4
END

check_driver mingw32/drivers/Petrel.sys <<END
pei-i386
MajorSubsystemVersion 5
MinorSubsystemVersion 0
Subsystem 1
DllCharacteristics 00000000
has resources
can be moved
$windowsNT4
END

check_driver mingw64/drivers/Petrel.sys <<END
pei-x86-64
MajorSubsystemVersion 5
MinorSubsystemVersion 2
Subsystem 1
DllCharacteristics 00000100
has resources
can be moved
$windowsNT4
END

find "$build/mingw32/src" "$build/mingw32/drivers" -name '*.obj' \
  -exec i686-w64-mingw32-objdump -d --no-show-raw-insn {} + |
  grep -E '\b(f?cmov[a-z]+|fu?comip?|sysenter|nop[wl] .*\()|%[xy]?mm[0-7]' |
  refuse "instructions that no Pentium has"

find "$build/mingw32/src" -name '*.obj' -exec i686-w64-mingw32-objdump -h {} + |
  grep -E '\.ctors|\.CRT|\.tls' | refuse "constructed at load, when there is no startup code"

[ ! -e "$work/failed" ]
