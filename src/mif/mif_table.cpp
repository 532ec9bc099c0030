#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "mif/mif_group.h"
#include "model/smbios_reader.h"
#include "model/text.h"
#include "types/type0_bios_information.h"

namespace kestrel {

namespace {

struct MifTable {
  std::uint8_t Code;
  std::string_view Name;
  std::string_view Class;
};

constexpr MifTable kTables[] = {
    {0, "System BIOS Table", "DMTF|System BIOS|001"},
    {4, "Processor Table", "DMTF|Processor|010"},
    {7, "System Cache", "DMTF|System Cache|002"},  // Without the word Table: intended.
    {9, "System Slots Table", "DMTF|System Slot|002"},
    {16, "Physical Memory Array Table", "DMTF|Physical Memory Array|001"},
    {17, "Memory Device Table", "DMTF|Memory Device|003"},
    {19, "Memory Array Mapped Addresses Table", "DMTF|Memory Array Mapped Addresses|001"},
    {20, "Memory Device Mapped Addresses Table", "DMTF|Memory Device Mapped Addresses|001"},
    {kBiosCharacteristicsTable, "System BIOS Characteristics Table",
     "DMTF|BIOS Characteristic|003"},
};

}  // namespace

std::string SMBiosReader::MakeMifTable(int& idCounter, std::uint8_t tableCode) const {
  const auto* const table =
      std::find_if(std::begin(kTables), std::end(kTables),
                   [tableCode](const MifTable& row) { return row.Code == tableCode; });
  const std::string rows = CollectMifRows(tableCode);
  if (table == std::end(kTables) || rows.empty()) {
    return {};
  }
  const auto id = static_cast<std::uint32_t>(idCounter++);
  std::string text;
  Append(text, {"Start Table\r\n\tNAME = \"", table->Name, "\"\r\n\tID = ", Decimal(id),
                "\r\n\tCLASS = \"", table->Class, "\"\r\n", rows, "End Table\r\n\r\n"});
  return text;
}

std::string SMBiosReader::CollectMifRows(std::uint8_t tableCode) const {
  if (tableCode == kBiosCharacteristicsTable) {
    const SMType0Obj* bios = GetType0Obj();
    return bios != nullptr ? bios->GetMifCharacteristicRows() : std::string();
  }
  std::string rows;
  int rowIndex = 1;
  for (const auto& object : Objects) {
    if (object->GetType() == tableCode) {
      rows.append(object->GetMifTableRow(rowIndex));
    }
  }
  return rows;
}

}  // namespace kestrel
