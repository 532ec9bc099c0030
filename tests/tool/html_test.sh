#!/usr/bin/env bash
# Looks at pages with a validator of HTML. Argument: the tool.
set -euo pipefail
tool=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# Strings that are markup, a string set that does not end, and numbers of strings that are not there.
printf '\x01\x1B\x00\x00\x01\x02\x03\x63%19s</dd></dl>\x00<!-- \x00" onload="\x00\x00' '' >"$folder/hostile"
printf '\x11\x15\x01\x00%17s&lt;<svg><title>' '' >>"$folder/hostile"

for source in "--sample" "--image=$folder/hostile --format=raw --smbios-version=2.6"; do
  # shellcheck disable=SC2086
  "$tool" html $source >"$folder/page"
  complaints=$(tidy -quiet -errors "$folder/page" 2>&1 || true)
  if [ -n "$complaints" ]; then
    printf 'html %s:\n%s\n' "$source" "$complaints"
    exit 1
  fi
done
