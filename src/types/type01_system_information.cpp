#include "types/type01_system_information.h"

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr CodeText kWakeUpTypes[] = {
    {0, "Reserved"},     {1, "Other"},      {2, "Unknown"},
    {3, "APM Timer"},    {4, "Modem Ring"}, {5, "LAN Remote"},
    {6, "Power Switch"}, {7, "PCI PME#"},   {8, "AC Power Restored"},
};

}  // namespace

SMType1Obj::SMType1Obj() {
  SetType(1);
  SetStringCount(4);
}

void SMBiosReader::ReadType1(TableCursor& cursor) {
  ReadStructure<SMType1Obj>(cursor, [&](auto& object) {
    object.SetManufacturer(cursor.U8());
    object.SetProductName(cursor.U8());
    object.SetVersion(cursor.U8());
    object.SetSerialNumber(cursor.U8());
    std::array<std::uint8_t, 16> uuid{};
    cursor.Bytes(uuid);
    object.SetUuid(uuid);
    object.SetWakeUpType(cursor.U8());
  });
}

ItemText SMType1Obj::GetManufacturerText() const {
  return {"Manufacturer Name : ", GetString(Manufacturer)};
}

ItemText SMType1Obj::GetProductNameText() const {
  return {"Product Name : ", GetString(ProductName)};
}

ItemText SMType1Obj::GetVersionText() const { return {"Version : ", GetString(Version)}; }

ItemText SMType1Obj::GetSerialNumberText() const {
  return {"Serial Number : ", GetString(SerialNumber)};
}

ItemText SMType1Obj::GetUuidText() const {
  // No blank after the colon: each byte has its own in front of it. No leading zeros.
  ItemText text{"UUID :"};
  for (const std::uint8_t byte : Uuid) {
    text.Append({" ", Hex(byte, 1)});
  }
  return text;
}

ItemText SMType1Obj::GetWakeUpTypeText() const {
  return {"Wake-up Type : ", TextOfCode(kWakeUpTypes, WakeUpType, kUnknown)};
}

std::string SMType1Obj::ToString() const {
  TextBlock block("System Information (Type 1)");
  block.Item(GetManufacturerText());
  block.Item(GetProductNameText());
  block.Item(GetVersionText());
  block.Item(GetSerialNumberText());
  block.Item(GetUuidText());
  block.Item(GetWakeUpTypeText());
  return block.Close();
}

}  // namespace kestrel
