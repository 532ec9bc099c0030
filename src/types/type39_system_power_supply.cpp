#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/reading.h"

namespace kestrel {

namespace {

constexpr std::uint16_t kNoHandle = 0xFFFF;

constexpr CodeText kInputVoltageRangeSwitchings[] = {
    {1, "Other"},       {2, "Unknown"},    {3, "Manual"},
    {4, "Auto-switch"}, {5, "Wide range"}, {6, "Not applicable"},
};

constexpr CodeText kPowerSupplyStatuses[] = {
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

ItemText TextOfHandle(std::uint16_t handle) {
  if (handle == kNoHandle) {
    return {"NO"};
  }
  return {Hex(handle, 4), "h"};
}

// System Power Supply: a power supply, its characteristics, and the probes that watch it. Layout:
// DMTF DSP0134, "System Power Supply (Type 39) structure".
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

  ItemText GetPowerUnitGroupText() const {
    return {"Power Unit Group : ", Hex(PowerUnitGroup, 2), "h"};
  }
  ItemText GetLocationText() const { return {"Location : ", GetString(Location)}; }
  ItemText GetDeviceNameText() const { return {"Device Name : ", GetString(DeviceName)}; }
  ItemText GetManufacturerText() const { return {"Manufacturer : ", GetString(Manufacturer)}; }
  ItemText GetSerialNumberText() const { return {"Serial Number : ", GetString(SerialNumber)}; }
  ItemText GetAssetTagNumberText() const {
    return {"Asset Tag Number : ", GetString(AssetTagNumber)};
  }
  ItemText GetModelPartNumberText() const {
    return {"Model Part Number : ", GetString(ModelPartNumber)};
  }
  ItemText GetRevisionLevelText() const { return {"Revision Level : ", GetString(RevisionLevel)}; }
  ItemText GetMaxPowerCapacityText() const {
    return {"Maximum Power Capacity : ", TextOfReading(MaxPowerCapacity, "W")};
  }
  // The label and the six lines below it, each with its line end.
  std::string GetPowerSupplyCharacteristicsText() const;
  ItemText GetHotReplaceableText() const {
    return {"Power supply is ", GetNegation(0), "hot replaceable"};
  }
  ItemText GetPresentText() const { return {"Power supply is ", GetNegation(1), "present"}; }
  ItemText GetUnpluggedText() const {
    return {"Power supply is ", GetNegation(2), "unplugged from the wall"};
  }
  ItemText GetInputVoltageRangeSwitchingText() const {
    return {"DMTF Input Voltage Range Switching : ",
            TextOfCode(kInputVoltageRangeSwitchings, PowerSupplyCharacteristics >> 3U & 0xFU,
                       kNothing)};
  }
  ItemText GetStatusText() const {
    return {"Status : ",
            TextOfCode(kPowerSupplyStatuses, PowerSupplyCharacteristics >> 7U & 0x7U, kNothing)};
  }
  ItemText GetPowerSupplyTypeText() const {
    return {"DMTF Power Supply Type : ",
            TextOfCode(kPowerSupplyTypes, PowerSupplyCharacteristics >> 10U & 0xFU, kNothing)};
  }
  ItemText GetInputVoltageProbeHandleText() const {
    return {"Input Voltage Probe Handle : ", TextOfHandle(InputVoltageProbeHandle)};
  }
  ItemText GetCoolingDeviceHandleText() const {
    return {"Cool Device Handle : ", TextOfHandle(CoolingDeviceHandle)};
  }
  ItemText GetInputCurrentProbeHandleText() const {
    return {"Input Current Probe Handle : ", TextOfHandle(InputCurrentProbeHandle)};
  }

  std::string ToString() const override;

 private:
  std::string_view GetNegation(unsigned bit) const {
    return (PowerSupplyCharacteristics >> bit & 1U) != 0 ? "" : "not ";
  }

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

std::string SMType39Obj::GetPowerSupplyCharacteristicsText() const {
  std::string text;
  // No blank after the colon.
  Append(text, {"Power Supply Characteristic :", LineEnd});
  const auto append = [&](const ItemText& line) { Append(text, {"\t\t", line, LineEnd}); };
  append(GetHotReplaceableText());
  append(GetPresentText());
  append(GetUnpluggedText());
  append(GetInputVoltageRangeSwitchingText());
  append(GetStatusText());
  append(GetPowerSupplyTypeText());
  return text;
}

std::string SMType39Obj::ToString() const {
  TextBlock block("System Power Supply (Type 39)");
  block.Item(GetPowerUnitGroupText());
  block.Item(GetLocationText());
  block.Item(GetDeviceNameText());
  block.Item(GetManufacturerText());
  block.Item(GetSerialNumberText());
  block.Item(GetAssetTagNumberText());
  block.Item(GetModelPartNumberText());
  block.Item(GetRevisionLevelText());
  block.Item(GetMaxPowerCapacityText());
  // Its item's line end leaves an empty line within the block.
  block.Item(GetPowerSupplyCharacteristicsText());
  block.Item(GetInputVoltageProbeHandleText());
  block.Item(GetCoolingDeviceHandleText());
  block.Item(GetInputCurrentProbeHandleText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType39(TableCursor& cursor) {
  ReadStructure<SMType39Obj>(cursor, [&](auto& object) {
    object.SetPowerUnitGroup(cursor.U8());
    object.SetLocation(cursor.U8());
    object.SetDeviceName(cursor.U8());
    object.SetManufacturer(cursor.U8());
    object.SetSerialNumber(cursor.U8());
    object.SetAssetTagNumber(cursor.U8());
    object.SetModelPartNumber(cursor.U8());
    object.SetRevisionLevel(cursor.U8());
    object.SetMaxPowerCapacity(cursor.U16());
    object.SetPowerSupplyCharacteristics(cursor.U16());
    object.SetInputVoltageProbeHandle(cursor.U16());
    object.SetCoolingDeviceHandle(cursor.U16());
    object.SetInputCurrentProbeHandle(cursor.U16());
  });
}

}  // namespace kestrel
