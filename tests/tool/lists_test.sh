#!/usr/bin/env bash
# Runs the tool on lists of images. Argument: the tool.
set -uo pipefail
kestrel=$1
. support/tables.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

# expect CODE ARGUMENTS...: what the tool writes is on standard input; standard error is in "err".
expect() {
  local code=$1 actual=0
  shift
  "$kestrel" "$@" >out 2>err <given || actual=$?
  [ "$actual" -eq "$code" ] || { echo "FAILED: $*: exit $actual, not $code"; failures=$((failures + 1)); }
  diff - out || { echo "FAILED: $*"; failures=$((failures + 1)); }
}

end_of_table >good
{ printf '\x09\x04\x02\x00\x00\x00'; end_of_table; } >bad
cp good $'odd\xFF'
printf 'good\nmissing\nodd\xFF\n' >list
: >given

document='"smbios":{"version":"2.3","entry_point":null,"table_length":6},"structures":[{"offset":0,"handle":0,"type":127,"name":"End-of-Table","length":4,"fields":{},"strings":[],"data":"7f040000"}]'
missing='{"schema":1,"source":"missing","error":"'"'missing' cannot be read (No such file or directory): name a file that can"'"}'
expect 1 json --type 127 --images-from list <<END
{"schema":1,"source":"good",$document}
$missing
{"schema":1,"source":"odd�",$document}
END
[ "$(grep -c missing err)" = 1 ] || { echo "FAILED: a message for each file: $(cat err)"; failures=$((failures + 1)); }
expect 0 json --type 127 --lines --image good <<END
{"schema":1,$document}
END

required='"severity":"remark","text":"required types are missing: type 0 (BIOS Information), type 1 (System Information), type 3 (System Enclosure or Chassis), type 4 (Processor Information), type 16 (Physical Memory Array), type 17 (Memory Device), type 19 (Memory Array Mapped Address), type 32 (System Boot Information)"}'
faults='"faults":[{"offset":0,"type":9,"handle":2,"severity":"error","text":"its Length is 04h, 0Ch at least in every version"},{"offset":12,"type":null,"handle":null,'$required']}'
printf 'bad\ngood\n' >given
expect 3 check --images-from - <<END
{"schema":1,"source":"bad",$faults
{"schema":1,"source":"good","faults":[{"offset":6,"type":null,"handle":null,$required]}
END
expect 3 check --lines --image bad <<END
{"schema":1,"source":"bad",$faults
END
expect 1 check --images-from list <<END
{"schema":1,"source":"good","faults":[{"offset":6,"type":null,"handle":null,$required]}
$missing
{"schema":1,"source":"odd�","faults":[{"offset":6,"type":null,"handle":null,$required]}
END

: >given
for arguments in "json --images-from -" "check --images-from -"; do
  # shellcheck disable=SC2086
  expect 0 $arguments </dev/null
done
for arguments in "json --images-from list --image good" "check --images-from list --sample" \
  "json --overview --type 1" "json --images-from no-list"; do
  # shellcheck disable=SC2086
  expect "$([[ $arguments == *no-list ]] && echo 1 || echo 2)" $arguments </dev/null
done

# What each command of the sample begins with.
while read -r line && read -r command; do
  # shellcheck disable=SC2086
  actual=$("$kestrel" $command --sample 2>&1 | head -n 1)
  [ "$actual" = "$line" ] || { echo "FAILED: $command: $actual"; failures=$((failures + 1)); }
done <<'END'
System        Alderwick Computers Tarn 2400, Revision B, serial number AW-2002-004711
overview
Processor Information, type 4, handle 0400h, at 010Fh
show --type processor
<!DOCTYPE html>
html
Mini Tower
get chassis-type bios-vendor
END

[ "$failures" -eq 0 ] || exit 1
