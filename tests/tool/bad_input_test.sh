#!/usr/bin/env bash
# Runs the tool on bad input: each case gives one line on standard error, its exit code, and nothing
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

# expect CODE MESSAGE ARGUMENTS...: what the tool says to the arguments, behind "kestrel: ".
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
expect 2 "options stand behind the command$usage" --frob
expect 2 "options stand behind the command$usage" --image x report
usage=": see 'kestrel report --help'"
expect 2 "The following argument was not expected: --frob$usage" report --frob
expect 2 "The following argument was not expected: more$usage" report --sample more
expect 2 "FILE is required: see 'kestrel save --help'" save
expect 2 "--image: 1 required FILE missing$usage" report --image
expect 2 "--format: takes auto, memory, dump, rsmb or raw$usage" report --image x --format jpeg
expect 2 "--format requires --image$usage" report --format raw
expect 2 "--image excludes --sample$usage" report --image x --sample
for version in 2 2.x 2.300 -1.0 2. .3 2.3.1 ' 2.3' ''; do
  expect 2 "--smbios-version: takes a version like 2.3$usage" report --image x --smbios-version "$version"
done
expect 2 "--smbios-version: goes with a raw table only$usage" \
  report --image x --format dump --smbios-version 2.3

end_block=$'End-of-Table (Type 127)\n'

: >empty
printf x >one
head -c 65536 /dev/zero >zeros-64k
head -c 1048576 /dev/zero >zeros-1m
truncate -s 8G sparse
printf 'This is a text.\nIt has no zeros.\n' >text
{ entry_point 6 32; end_of_table; } >dump
head -c 20 dump >cut-in-entry-point
{ entry_point 12 32; end_of_table; } >cut-in-table
{ entry_point 6 4096; end_of_table; } >outside
{ entry_point 0 32; end_of_table; } >no-length
{ printf '\x00\x02\x03\x00'; le 4 6; end_of_table; } >rsmb
{ entry_point 6 16; end_of_table; } >overlapping
mkdir folder
mkfifo fifo
again=": save the image again"
unknown=" is no image of a known kind: name a saved image, or its kind with --format"
other=" is not of the kind that --format names: leave it to be recognised"
expect 1 "'missing' cannot be read (No such file or directory): name a file that can" report --image missing
expect 1 "'' cannot be read (No such file or directory): name a file that can" report --image ''
expect 1 "'folder' is not a file: name a saved image" report --image folder
expect 1 "'/dev/zero' is not a file: name a saved image" report --image /dev/zero
expect 1 "'empty' is empty$again" report --image empty
expect 1 "'one'$unknown" report --image one
expect 1 "'text'$unknown" report --image text
for size in 64k 1m; do
  expect 1 "'zeros-$size' has no SMBIOS entry point between F0000h and FFFFFh: save an image that holds it" \
    mif --image zeros-$size
done
expect 1 "'sparse' is too large: an image ends below 4 GiB, a raw table at 65,535 bytes" report --image sparse
expect 1 "'cut-in-entry-point' ends inside its entry point$again" bios --image cut-in-entry-point
expect 1 "'outside' does not hold the table that its entry point names: save an image that does" \
  list --image outside
expect 1 "'overlapping' does not hold the table that its entry point names: save an image that does" \
  report --image overlapping
expect 1 "'fifo' is not a file: name a saved image" report --image fifo
expect 1 "'new?line' cannot be read (No such file or directory): name a file that can" report --image $'new\nline'
expect 1 "'no-length' has a table of no bytes$again" report --image no-length
for format in memory rsmb; do
  expect 1 "'dump'$other" report --image dump --format $format
done
expect 1 "'zeros-1m' is too large: an image ends below 4 GiB, a raw table at 65,535 bytes" \
  report --image zeros-1m --format raw
expect 1 "the table has no BIOS Information: see what it has with 'kestrel list'" bios --image dump
if [ "$(id -u)" -eq 0 ]; then
  # Root may read anything, so somebody else has to fail.
  chmod 755 . && cp dump secret && chmod 000 secret
  setpriv --reuid=65534 --clear-groups "$kestrel" report --image secret >out 2>err
  [ "$?/$(cat err)" = "1/kestrel: 'secret' cannot be read (Permission denied): name a file that can" ] ||
    fail "no permission: said '$(cat err)'"
  mkdir -m 700 locked
  for target in new locked/new; do
    setpriv --reuid=65534 --clear-groups "$kestrel" report --sample -o $target >out 2>err
    [ "$?/$(cat err)" = "1/kestrel: '$target' cannot be written (Permission denied): write to a place that takes it" ] ||
      fail "no permission to write: said '$(cat err)'"
  done
fi

write=": write to a place that takes it"
expect 1 "'nowhere/x' cannot be written (No such file or directory)$write" report --sample -o nowhere/x
expect 1 "'folder' cannot be written (Is a directory)$write" report --sample -o folder
"$kestrel" mif --sample >/dev/full 2>err
[ "$?/$(cat err)" = "1/kestrel: standard output cannot be written (No space left on device)$write" ] ||
  fail "full device: said '$(cat err)'"

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

# A cut table is shown as far as it goes, with a warning.
"$kestrel" report --image cut-in-table >out 2>err
[ "$?/$(cat err)" = "0/kestrel: warning: the table is cut, 6 of 12 bytes are there: it is shown as far as it goes" ] ||
  fail "cut table: said '$(cat err)'"
[ "$(cat out)" = "${end_block%$'\n'}" ] || fail "cut table: shown as '$(cat out)'"

# What fails leaves an earlier file as it was, and nothing beside it.
echo earlier >kept
(ulimit -f 1; trap '' XFSZ; "$kestrel" mif --sample -o kept) 2>err
[ "$(cat kept*)" = earlier ] || fail "a failed write changed its target"
[ "$(cat err)" = "kestrel: 'kept' cannot be written (File too large)$write" ] ||
  fail "file too large: said '$(cat err)'"

# A link is followed, whether or not there is something at its end, and a file keeps its mode.
chmod 640 kept
ln -s kept link
ln -s new dangling
for target in link dangling; do
  "$kestrel" report --image dump -o $target || fail "not written to $target"
  [ "$(readlink $target)/$(cat "$(readlink $target)")" = "$(readlink $target)/${end_block%$'\n'}" ] ||
    fail "written to $target: $(cat $target)"
done
[ "$(stat --format %a kept)" = 640 ] || fail "another mode"

for image in dump rsmb; do
  [ "$("$kestrel" report --image $image)" = "${end_block%$'\n'}" ] || fail "$image is not shown"
done

[ "$failures" -eq 0 ]
