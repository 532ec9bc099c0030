# Bytes of tables and entry points, for the tests that are scripts. To be sourced.
# shellcheck shell=bash

# le WIDTH NUMBER: a little-endian number.
le() {
  local index
  for ((index = 0; index < $1; index++)); do
    printf '%b' "\\x$(printf '%02x' $(($2 >> (8 * index) & 255)))"
  done
}

# entry_point LENGTH ADDRESS [COUNT]: a 32-bit entry point of version 2.3, of one structure or COUNT.
entry_point() {
  printf '_SM_\x00\x1F\x02\x03\x00\x00\x00\x00\x00\x00\x00\x00_DMI_\x00'
  le 2 "$1"
  le 4 "$2"
  le 2 "${3:-1}"
  printf '\x23\x00'
}

# entry_point_64 LENGTH ADDRESS [COUNT]: a 64-bit entry point of version 3.2, which has no count.
entry_point_64() {
  printf '_SM3_\x00\x18\x03\x02\x00\x01\x00'
  le 4 "$1"
  le 8 "$2"
}

# bios_information: version 2.3 of it, with its three strings.
bios_information() {
  printf '\x00\x12\x00\x00\x01\x02\x00\xE0\x03\x07\x90\x00\x00\x00\x00\x00\x00\x00'
  printf 'Maker\x001.07\x0005/14/2002\x00\x00'
}

end_of_table() {
  printf '\x7F\x04\x00\x00\x00\x00'
}
