#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/smbios_table.h"

namespace kestrel {

// The structures of a table, as the library walks it.
struct TableSize {
  // The offset after the last of them. Zeros after it belong to no structure.
  std::size_t Bytes = 0;
  std::size_t Structures = 0;
  std::size_t LargestStructure = 0;
  bool HasEndOfTable = false;
};

// Measures the structures that end at or before `limit`, including one that the end of the table
// cuts off. A table that a 64-bit entry point announces ends after its first End-of-Table
// structure.
TableSize MeasureTable(std::span<const std::uint8_t> table, std::size_t limit,
                       EntryPointKind entryPoint);

// Whether the table lacks bytes that its entry point announces. A 64-bit entry point states only an
// upper bound, so its table is complete once it has an End-of-Table structure.
bool IsCut(const SmbiosTable& table);

}  // namespace kestrel
