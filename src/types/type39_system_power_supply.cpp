#include <memory>
#include <utility>

#include "model/code_text.h"
#include "model/reading.h"
#include "model/smbios_reader.h"
#include "model/table_cursor.h"
#include "model/text.h"

namespace kestrel {

namespace {

constexpr std::uint16_t kNoHandle = 0xFFFF;

// What bits 0 to 2 of the characteristics tell of the supply.
constexpr std::string_view kFlags[] = {
    "hot replaceable",
    "present",
    "unplugged from the wall",
};

constexpr CodeText kInputVoltageRangeSwitchings[] = {
    {1, "Other"},       {2, "Unknown"},    {3, "Manual"},
    {4, "Auto-switch"}, {5, "Wide range"}, {6, "Not applicable"},
};

constexpr CodeText kStatuses[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "OK"},
    {4, "Non-critical"},
    {5, "Critical, power supply has failed and has been taken off-line"},
};

constexpr CodeText kPowerSupplyTypes[] = {
    {1, "Other"},   {2, "Unknown"}, {3, "Linear"},    {4, "Switching"},
    {5, "Battery"}, {6, "UPS"},     {7, "Converter"}, {8, "Regulator"},
};

// System Power Supply: what a power supply is and can do, and what watches it. Layout: DMTF
// DSP0134, "System Power Supply (Type 39) structure".
class SMType39Obj final : public SMObj {
 public:
  SMType39Obj() {
    SetType(39);
    SetStringCount(7);
  }

  void SetPowerUnitGroup(std::uint8_t value) { PowerUnitGroup = value; }
  void SetLocation(std::uint8_t value) { Location = value; }
  void SetDeviceName(std::uint8_t value) { DeviceName = value; }
  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetAssetTagNumber(std::uint8_t value) { AssetTagNumber = value; }
  void SetModelPartNumber(std::uint8_t value) { ModelPartNumber = value; }
  void SetRevisionLevel(std::uint8_t value) { RevisionLevel = value; }
  void SetMaxPowerCapacity(std::uint16_t value) { MaxPowerCapacity = value; }
  void SetPowerSupplyCharacteristics(std::uint16_t value) { PowerSupplyCharacteristics = value; }
  void SetInputVoltageProbeHandle(std::uint16_t value) { InputVoltageProbeHandle = value; }
  void SetCoolingDeviceHandle(std::uint16_t value) { CoolingDeviceHandle = value; }
  void SetInputCurrentProbeHandle(std::uint16_t value) { InputCurrentProbeHandle = value; }

  std::string ToString() const override;

 private:
  void AddCharacteristics(TextBlock& block) const;

  std::uint16_t InputCurrentProbeHandle = 0;
  std::uint16_t CoolingDeviceHandle = 0;
  std::uint16_t InputVoltageProbeHandle = 0;
  std::uint16_t PowerSupplyCharacteristics = 0;
  std::uint16_t MaxPowerCapacity = 0;
  std::uint8_t RevisionLevel = 0;
  std::uint8_t ModelPartNumber = 0;
  std::uint8_t AssetTagNumber = 0;
  std::uint8_t SerialNumber = 0;
  std::uint8_t Manufacturer = 0;
  std::uint8_t DeviceName = 0;
  std::uint8_t Location = 0;
  std::uint8_t PowerUnitGroup = 0;
};

void AddHandle(TextBlock& block, std::string_view label, std::uint16_t handle) {
  if (handle == kNoHandle) {
    block.Item({label, "NO"});
  } else {
    block.Item({label, Hex(handle, 4), "h"});
  }
}

void SMType39Obj::AddCharacteristics(TextBlock& block) const {
  const unsigned bits = PowerSupplyCharacteristics;
  // No blank behind the colon: intended.
  block.Item({"Power Supply Characteristic :"});
  unsigned flagBits = bits;
  for (const std::string_view flag : kFlags) {
    block.SubItem({"Power supply is ", (flagBits & 1U) != 0 ? "" : "not ", flag});
    flagBits >>= 1U;
  }
  block.SubItem({"DMTF Input Voltage Range Switching : ",
                 TextOfCode(kInputVoltageRangeSwitchings, bits >> 3U & 0xFU, kNothing)});
  block.SubItem({"Status : ", TextOfCode(kStatuses, bits >> 7U & 0x7U, kNothing)});
  block.SubItem(
      {"DMTF Power Supply Type : ", TextOfCode(kPowerSupplyTypes, bits >> 10U & 0xFU, kNothing)});
  // An empty line within the block: intended.
  block.Raw({"\r\n"});
}

std::string SMType39Obj::ToString() const {
  TextBlock block("System Power Supply (Type 39)");
  block.Item({"Power Unit Group : ", Hex(PowerUnitGroup, 2), "h"});
  block.Item({"Location : ", GetString(Location)});
  block.Item({"Device Name : ", GetString(DeviceName)});
  block.Item({"Manufacturer : ", GetString(Manufacturer)});
  block.Item({"Serial Number : ", GetString(SerialNumber)});
  block.Item({"Asset Tag Number : ", GetString(AssetTagNumber)});
  block.Item({"Model Part Number : ", GetString(ModelPartNumber)});
  block.Item({"Revision Level : ", GetString(RevisionLevel)});
  AddReading(block, "Maximum Power Capacity : ", MaxPowerCapacity, "W");
  AddCharacteristics(block);
  AddHandle(block, "Input Voltage Probe Handle : ", InputVoltageProbeHandle);
  AddHandle(block, "Cool Device Handle : ", CoolingDeviceHandle);
  AddHandle(block, "Input Current Probe Handle : ", InputCurrentProbeHandle);
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType39(TableCursor& cursor) {
  auto object = std::make_unique<SMType39Obj>();
  ReadHeader(*object, cursor);
  object->SetPowerUnitGroup(cursor.U8());
  object->SetLocation(cursor.U8());
  object->SetDeviceName(cursor.U8());
  object->SetManufacturer(cursor.U8());
  object->SetSerialNumber(cursor.U8());
  object->SetAssetTagNumber(cursor.U8());
  object->SetModelPartNumber(cursor.U8());
  object->SetRevisionLevel(cursor.U8());
  object->SetMaxPowerCapacity(cursor.U16());
  object->SetPowerSupplyCharacteristics(cursor.U16());
  object->SetInputVoltageProbeHandle(cursor.U16());
  object->SetCoolingDeviceHandle(cursor.U16());
  object->SetInputCurrentProbeHandle(cursor.U16());
  CollectStrings(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
