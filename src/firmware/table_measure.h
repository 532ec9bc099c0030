#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/smbios_table.h"

namespace kestrel {

// The structures of a table, as the library walks it.
struct TableSize {
  // After the last of them. Zeros after it belong to no structure.
  std::size_t Bytes = 0;
  std::size_t Structures = 0;
  std::size_t LargestStructure = 0;
  bool HasEndOfTable = false;
};

// Measures the structures that end at or before `limit`, one that the end of the table cuts among
// them; if asked to, no further than the first End-of-Table structure.
TableSize MeasureTable(std::span<const std::uint8_t> table, std::size_t limit,
                       bool stopAtEndOfTable);

// Whether bytes are missing that the table should have. A 64-bit entry point gives no more than a
// bound, so its table is whole once it has an End-of-Table structure.
bool IsCut(const SmbiosTable& table);

}  // namespace kestrel
