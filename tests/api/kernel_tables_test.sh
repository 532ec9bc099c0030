#!/usr/bin/env bash
# Runs the library, through a host, and the tool on tables that stand where the kernel publishes
# them. Arguments: the tool, the host. Exits with 77 where that is not permitted.
set -euo pipefail
kestrel=$1 host=$2
. support/tables.sh

skip() {
  echo "skipped: a /sys/firmware of its own is not permitted: $*"
  exit 77
}

fail() {
  echo "FAILED: $*"
  exit 1
}

if [ "${3-}" != inside ]; then
  why=$(unshare --mount true 2>&1) || skip "$why"
  exec unshare --mount "$0" "$kestrel" "$host" inside
fi
why=$(mount -t tmpfs kestrel-test /sys/firmware 2>&1) || skip "$why"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

none="kestrel: this machine publishes no SMBIOS tables in /sys/firmware/dmi/tables: in a container, run it outside"
[ "$("$kestrel" report 2>&1)" = "$none, or use --image FILE or --sample" ] || fail "a report without tables"
[ "$("$kestrel" save "$folder/dump" 2>&1)" = "$none" ] || fail "a dump without tables"
[ ! -e "$folder/dump" ] || fail "a dump of nothing"

tables=/sys/firmware/dmi/tables
mkdir -p $tables
{ bios_information; end_of_table; } >$tables/DMI
length=$(stat --format %s $tables/DMI)
for kind in entry_point entry_point_64; do
  # Where the table lies in the machine's memory plays no part.
  $kind "$length" $((0xDEADB000)) 2 >$tables/smbios_entry_point
  "$host" "$folder/report" "$folder/mif" || fail "the host, with $kind"
  "$kestrel" report --exact --image $tables/DMI --format raw | cmp - "$folder/report" || fail "report, $kind"
  "$kestrel" mif --image $tables/DMI --format raw | cmp - "$folder/mif" || fail "document, $kind"
  [ "$("$kestrel" bios)" = "Vendor Name : Maker
BIOS Version : 1.07
BIOS Release Date : 05/14/2002" ] || fail "bios, $kind"

  "$kestrel" save "$folder/dump" --force
  "$kestrel" report --exact --image "$folder/dump" | cmp - "$folder/report" || fail "saved dump, $kind"
  tail --bytes=+33 "$folder/dump" | cmp - $tables/DMI || fail "saved table, $kind"
done

chmod 700 $tables
why="kestrel: this machine's SMBIOS tables cannot be read (Permission denied): run it as root, or use --image FILE or --sample"
[ "$(setpriv --reuid=65534 --clear-groups "$kestrel" report 2>&1)" = "$why" ] || fail "a report without permission"

# A table longer than a 32-bit entry point can say: the texts show what fits and tell of the rest.
for ((index = 0; index < 11700; index++)); do printf '\x7E\x04\x00\x00\x00\x00'; done >$tables/DMI
end_of_table >>$tables/DMI
entry_point_64 $((11701 * 6)) $((0x100000)) >$tables/smbios_entry_point
[ "$("$kestrel" list | wc -l)" -eq 11701 ] || fail "the list of a long table"
"$kestrel" report >"$folder/report" 2>"$folder/err"
[ "$(cat "$folder/err")" = "kestrel: warning: the table is longer than 65,535 bytes: the structures after them are left out" ] ||
  fail "$(cat "$folder/err")"
