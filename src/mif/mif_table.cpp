#include "mif/mif_table.h"

#include <string>

#include "base/text.h"
#include "model/smbios_reader.h"
#include "types/type00_bios_information.h"

namespace kestrel {

std::string SMBiosReader::MakeMifTable(int& idCounter, std::uint8_t tableCode) const {
  const MifTable* table = FindMifTable(tableCode);
  const std::string rows = CollectMifRows(tableCode);
  if (table == nullptr || rows.empty()) {
    return {};
  }
  std::string text;
  Append(text,
         {"Start Table\r\n\tNAME = \"", table->Name, "\"\r\n\tID = ", SignedDecimal(idCounter++),
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
