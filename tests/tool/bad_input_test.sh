#!/usr/bin/env bash
# Runs the tool on bad input. Each case expects an exit code, one line on standard error and nothing
# on standard output. Argument: the tool.
set -uo pipefail
kestrel=$1
. support/tables.sh
folder=$(mktemp -d)
trap 'chmod -R u+rwX "$folder"; rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# expect CODE MESSAGE ARGUMENTS...: what the tool says to the arguments, after "kestrel: ".
expect() {
  local code=$1 message="kestrel: $2" actual
  shift 2
  actual=0
  "$kestrel" "$@" >out 2>err </dev/null || actual=$?
  [ "$actual" -eq "$code" ] || fail "$*: exit $actual, not $code"
  [ "$(cat err)" = "$message" ] || fail "$*: said '$(cat err)', not '$message'"
  [ ! -s out ] || fail "$*: wrote to standard output"
}

usage=": see 'kestrel --help'"
expect 2 "a command is missing$usage"
expect 2 "there is no command frob$usage" frob
expect 2 "options go after the command$usage" --image x report
usage=": see 'kestrel report --help'"
expect 2 "not expected: --sampel$usage" report --sampel
expect 2 "not expected: dump -- -x: name an image by --image, see 'kestrel report --help'" report dump -- -x
expect 2 "--format: takes auto, memory, dump, rsmb or raw$usage" report --image x --format jpeg
for version in 2 2.x 2.300 -1.0 2. .3 2.3.1 ' 2.3' ''; do
  expect 2 "--smbios-version: takes a version like 2.3$usage" report --image x --smbios-version "$version"
done
expect 2 "--smbios-version: goes with a raw table only$usage" \
  report --image x --format dump --smbios-version 2.3

: >empty
printf '\x7F\x05\x00\x00\x00' >cut-in-structure
printf '\x01\x03\x00\x00\x00\x00' >no-header
{ printf '\x00\x02\x03\x00'; le 4 7; end_of_table; } >longer-than-rsmb
head -c 65536 /dev/zero >zeros-64k
truncate -s 8G zeros-8g
{ head -c 64 zeros-64k; entry_point 6 4096; head -c 65440 zeros-64k; } >below
{ head -c 983040 zeros-8g; entry_point 6 $((0xFFFFFF00)); head -c 65504 zeros-64k; } >beyond
{ entry_point 6 32; end_of_table; } >dump
head -c 20 dump >cut-in-entry-point
entry_point_64 6 24 | head -c 23 >cut-in-entry-point-64
{ entry_point 12 32; end_of_table; } >cut-in-table
{ entry_point 6 4096; printf '\x01\x03\x00\x00\x00\x00'; } >outside
{ entry_point 0 32; end_of_table; } >no-length
{ printf '\x00\x02\x03\x00'; le 4 6; end_of_table; } >rsmb
{ entry_point 6 16; end_of_table; } >overlapping
mkdir folder pair cut-pair no-pair fifo-pair
end_of_table | tee pair/DMI >cut-pair/DMI
entry_point_64 6 4096 | tee pair/smbios_entry_point >fifo-pair/smbios_entry_point
head -c 20 pair/smbios_entry_point >cut-pair/smbios_entry_point
: >no-pair/smbios_entry_point
end_of_table >no-pair/DMI
mkfifo fifo fifo-pair/DMI
cp dump $'\xFF\x1B'
# A table further on than is kept of a pipe, which therefore reads on.
truncate -s 18M far && end_of_table >>far
entry_point 6 $((0x1200000)) | dd of=far bs=983040 seek=1 conv=notrunc status=none

while IFS='|' read -r image message; do
  expect 1 "'$image' $message" report --image "$image"
done <<'END'
missing|cannot be read (No such file or directory): name a file that can
|cannot be read (No such file or directory): name a file that can
folder|is no folder with smbios_entry_point and DMI: name one, or a saved image
fifo|is not a file: name a saved image, or pass it on standard input with --image -
/dev/zero|is not a file: name a saved image, or pass it on standard input with --image -
fifo-pair|has a smbios_entry_point or DMI that is not a file: copy both as files
no-pair|has no entry point of a known kind: read its DMI by --format raw
empty|is empty: save the image again
cut-in-structure|is no image of a known kind: name a saved image, or its kind with --format
no-header|is no image of a known kind: name a saved image, or its kind with --format
longer-than-rsmb|is no image of a known kind: name a saved image, or its kind with --format
zeros-64k|has no SMBIOS entry point between F0000h and FFFFFh: save an image that holds it
zeros-8g|has no SMBIOS entry point between F0000h and FFFFFh: save an image that holds it
cut-in-entry-point|ends inside its entry point: save the image again
cut-in-entry-point-64|ends inside its entry point: save the image again
cut-pair|ends inside its entry point: save the image again
below|does not hold the table that its entry point names: save an image that does
beyond|does not hold the table that its entry point names: save an image that does
outside|does not hold the table that its entry point names: save an image that does
overlapping|does not hold the table that its entry point names: save an image that does
no-length|has a table of no bytes: save the image again
END
expect 1 "'new?line???? é' cannot be read (No such file or directory): name a file that can" \
  report --image $'new\nline\x7F\xC2\x9B\xFF\xC3 é'
expect 1 "standard input is empty: save the image again" report --image -
for format in memory rsmb; do
  expect 1 "'dump' is not of the kind that --format names: leave it to be recognised" report --image dump --format $format
done
expect 1 "'zeros-8g' is too large: a raw table ends at 16 MiB" report --image zeros-8g --format raw
expect 1 "the table has no BIOS Information: see what it has with 'kestrel list'" bios --image dump
if [ "$(id -u)" -eq 0 ]; then
  # Root may read anything, so somebody else has to fail.
  chmod 755 . && cp dump secret && chmod 000 secret
  setpriv --reuid=65534 --clear-groups "$kestrel" report --image secret >out 2>err
  [ "$?/$(cat err)" = "1/kestrel: 'secret' cannot be read (Permission denied): name a file that can" ] ||
    fail "no permission: said '$(cat err)'"
fi

shows() {
  [ "$("$kestrel" report "$@" 2>&1)" = "End-of-Table (Type 127)" ] || fail "$* is not shown"
}
for image in dump rsmb far; do
  shows --image $image
  shows --image - < <(cat $image)
done
shows --image pair
shows --image $'\xFF\x1B'
shows --image no-pair --format raw --smbios-version 2.3
# A file whose size the system does not know: a table in the environment of a process.
env -i $'\x7F\x04\x01\x01=' sleep 60 &
until [ "$(cat "/proc/$!/comm")" = sleep ]; do :; done
[ "$("$kestrel" report --image "/proc/$!/environ" --format raw 2>err)" = \
  "End-of-Table (Type 127)" ] || fail "a file of /proc is not shown"
kill $!

# What depends on the version warns where a table has none.
none="kestrel: warning: a raw table has no version, so it is read as 2.3: give the right one with --smbios-version"
for command in "report/$none" "json/$none" "check/$none" list/; do
  "$kestrel" "${command%%/*}" --image - < <(end_of_table) >out 2>err
  [ "$(cat err)" = "${command#*/}" ] || fail "${command%%/*} of a raw table: said '$(cat err)'"
done

# A cut table is shown as far as it goes, with a warning.
"$kestrel" report --image cut-in-table -o - >out 2>err
[ "$?/$(cat err)" = "0/kestrel: warning: the table is cut, 6 of 12 bytes are there: it is shown as far as it goes" ] ||
  fail "cut table: said '$(cat err)'"
[ "$(cat out)" = "End-of-Table (Type 127)" ] || fail "cut table: shown as '$(cat out)'"

# The walk of the library loses BIOS Information here, and bios has it from the table.
{ printf '\x0B\x05\0\0\0\0\0'; bios_information; end_of_table; } >lost
"$kestrel" bios --image lost --format raw >out 2>err
[ "$(cat out err)" = "Vendor Name : Maker
BIOS Version : 1.07
BIOS Release Date : 05/14/2002
kestrel: warning: the library loses 2 and invents 5 of the structures, the first at 0007h (Type 0): see 'kestrel check'" ] ||
  fail "lost BIOS Information: said '$(cat out err)'"
"$kestrel" json --image lost --format raw --type 127 --type 11 2>err | grep -o '"type": .*' >out
[ "$(paste -s out)" = '"type": 11,	"type": 127,' ] || fail "json of two types: $(cat out)"

# An error in a table shows in the exit code, a remark does not.
printf '\x18\x05\x01\0\0\0\0' >no-end
{ end_of_table; printf '\0'; } >zero-after-end
for image in no-end/3 zero-after-end/0; do
  "$kestrel" check --image "${image%/*}" --format raw --smbios-version 2.3 >out 2>err
  [ "$?/$(cat err)" = "${image#*/}/" ] || fail "check of ${image%/*}: said '$(cat err)'"
done

# A reader that goes away is no failure.
{
  until [ -e gone ]; do sleep 0.01; done
  "$kestrel" mif --sample 2>err
  echo $? >code
} | {
  exec <&-
  touch gone
}
[ "$(cat code)/$(cat err)" = 0/ ] || fail "closed pipe: exit $(cat code), said '$(cat err)'"

[ "$failures" -eq 0 ]
