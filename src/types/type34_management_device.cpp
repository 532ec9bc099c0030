#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kManagementDeviceTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "National Semiconductor LM75"},
    {4, "National Semiconductor LM78"},
    {5, "National Semiconductor LM79"},
    {6, "National Semiconductor LM80"},
    {7, "National Semiconductor LM81"},
    {8, "Analog Devices ADM9240"},
    {9, "Dallas Semiconductor DS1780"},
    {10, "Maxim 1617"},
    {11, "Genesys GL518SM"},
    {12, "Winbond W83781D"},
    {13, "Holtek HT82H791"},
};

constexpr CodeText kAddressTypes[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "I/O Port"}, {4, "Memory"}, {5, "SM Bus"},
};

// Management Device: a chip that monitors the hardware, and where it is addressed. Layout: DMTF
// DSP0134, "Management Device (Type 34) structure".
class SMType34Obj final : public SMObj {
 public:
  SMType34Obj() {
    SetType(34);
    SetStringCount(1);
  }

  void SetDescription(std::uint8_t value) { Description = value; }
  void SetDeviceType(std::uint8_t value) { DeviceType = value; }
  void SetAddress(std::uint32_t value) { Address = value; }
  void SetAddressType(std::uint8_t value) { AddressType = value; }

  ItemText GetDescriptionText() const { return {"Description : ", GetString(Description)}; }
  ItemText GetDeviceTypeText() const {
    return {"Device Type : ", TextOfCode(kManagementDeviceTypes, DeviceType, kNothing)};
  }
  ItemText GetAddressText() const { return {"Address : ", Hex(Address, 8), "h"}; }
  ItemText GetAddressTypeText() const {
    return {"Address Type : ", TextOfCode(kAddressTypes, AddressType, kNothing)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t AddressType = 0;
  std::uint32_t Address = 0;
  std::uint8_t DeviceType = 0;
  std::uint8_t Description = 0;
};

std::string SMType34Obj::ToString() const {
  TextBlock block("Management Device (Type 34)");
  block.Item(GetDescriptionText());
  block.Item(GetDeviceTypeText());
  block.Item(GetAddressText());
  block.Item(GetAddressTypeText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType34(TableCursor& cursor) {
  ReadStructure<SMType34Obj>(cursor, [&](auto& object) {
    object.SetDescription(cursor.U8());
    object.SetDeviceType(cursor.U8());
    object.SetAddress(cursor.U32());
    object.SetAddressType(cursor.U8());
  });
}

}  // namespace kestrel
