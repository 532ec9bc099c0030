#pragma once

#include <cstdint>

#include "tests/support/tables.h"

namespace kestrel {

inline Bytes LittleEndian(std::uint64_t value, int width) {
  Bytes bytes;
  for (int index = 0; index < width; ++index) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
  }
  return bytes;
}

// An entry point with wrong checksums: nobody may look at them.
inline Bytes EntryPoint32(SmbiosVersion version, std::uint16_t tableLength,
                          std::uint32_t tableAddress) {
  return Join({{'_', 'S', 'M', '_', 0x11, 31, version.Major, version.Minor, 0x40, 0, 0},
               {1, 2, 3, 4, 5, '_', 'D', 'M', 'I', '_', 0x22},
               LittleEndian(tableLength, 2),
               LittleEndian(tableAddress, 4),
               {2, 0, 0x23}});
}

inline Bytes EntryPoint64(std::uint32_t tableBound, std::uint64_t tableAddress) {
  return Join({{'_', 'S', 'M', '3', '_', 0x33, 24, 3, 2, 7, 1, 0},
               LittleEndian(tableBound, 4),
               LittleEndian(tableAddress, 8)});
}

}  // namespace kestrel
