#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "mif/mif_group.h"

namespace kestrel {

struct MifTable {
  std::uint8_t Code;
  std::string_view Name;
  std::string_view Class;
};

inline constexpr MifTable kMifTables[] = {
    {0, "System BIOS Table", "DMTF|System BIOS|001"},
    {4, "Processor Table", "DMTF|Processor|010"},
    {7, "System Cache", "DMTF|System Cache|002"},  // Without the word Table.
    {9, "System Slots Table", "DMTF|System Slot|002"},
    {16, "Physical Memory Array Table", "DMTF|Physical Memory Array|001"},
    {17, "Memory Device Table", "DMTF|Memory Device|003"},
    {19, "Memory Array Mapped Addresses Table", "DMTF|Memory Array Mapped Addresses|001"},
    {20, "Memory Device Mapped Addresses Table", "DMTF|Memory Device Mapped Addresses|001"},
    {kBiosCharacteristicsTable, "System BIOS Characteristics Table",
     "DMTF|BIOS Characteristic|003"},
};

// Returns the table with the given code, or nullptr.
constexpr const MifTable* FindMifTable(std::uint8_t code) {
  const auto* const found = std::find_if(std::begin(kMifTables), std::end(kMifTables),
                                         [code](const MifTable& row) { return row.Code == code; });
  return found != std::end(kMifTables) ? found : nullptr;
}

}  // namespace kestrel
