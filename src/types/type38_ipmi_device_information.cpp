#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kInterfaceTypes[] = {
    {0, "Unknown"},
    {1, "Keyboard Controller Style"},
    {2, "Server Management Interface Chip"},
    {3, "Block Transfer"},
};

// IPMI Device Information: the interface to the baseboard management controller. Layout: DMTF
// DSP0134, "IPMI Device Information (Type 38) structure".
class SMType38Obj final : public SMObj {
 public:
  SMType38Obj() { SetType(38); }

  void SetInterfaceType(std::uint8_t value) { InterfaceType = value; }
  void SetIpmiSpecificationRevision(std::uint8_t value) { IpmiSpecificationRevision = value; }
  void SetI2cSlaveAddress(std::uint8_t value) { I2cSlaveAddress = value; }
  void SetNvStorageDeviceAddress(std::uint8_t value) { NvStorageDeviceAddress = value; }
  void SetBaseAddress(std::uint64_t value) { BaseAddress = value; }

  // Nothing between label and value.
  ItemText GetInterfaceTypeText() const {
    return {"Interface Type", TextOfCode(kInterfaceTypes, InterfaceType, kNothing)};
  }
  // One number, although the byte holds two BCD digits.
  ItemText GetIpmiSpecificationRevisionText() const {
    return {"IPMI Specification Revision : ", Decimal(IpmiSpecificationRevision)};
  }
  ItemText GetI2cSlaveAddressText() const {
    return {"I2C Slave Address : ", Hex(I2cSlaveAddress, 2), "h"};
  }
  ItemText GetNvStorageDeviceAddressText() const {
    return {"NV Storage Device Address : ", Hex(NvStorageDeviceAddress, 2), "h"};
  }
  ItemText GetBaseAddressText() const { return {"Base Address : ", Hex(BaseAddress, 16), "h"}; }

  std::string ToString() const override;

 private:
  std::uint64_t BaseAddress = 0;
  std::uint8_t NvStorageDeviceAddress = 0;
  std::uint8_t I2cSlaveAddress = 0;
  std::uint8_t IpmiSpecificationRevision = 0;
  std::uint8_t InterfaceType = 0;
};

std::string SMType38Obj::ToString() const {
  TextBlock block("IPMI Device Information (Type 38)");
  block.Item(GetInterfaceTypeText());
  block.Item(GetIpmiSpecificationRevisionText());
  block.Item(GetI2cSlaveAddressText());
  block.Item(GetNvStorageDeviceAddressText());
  block.Item(GetBaseAddressText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType38(TableCursor& cursor) {
  ReadStructure<SMType38Obj>(cursor, [&](auto& object) {
    object.SetInterfaceType(cursor.U8());
    object.SetIpmiSpecificationRevision(cursor.U8());
    object.SetI2cSlaveAddress(cursor.U8());
    object.SetNvStorageDeviceAddress(cursor.U8());
    object.SetBaseAddress(cursor.U64());
  });
}

}  // namespace kestrel
