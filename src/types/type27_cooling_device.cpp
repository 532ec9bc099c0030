#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/probe_status.h"
#include "types/reading.h"

namespace kestrel {

namespace {

constexpr CodeText kCoolingDeviceTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Fan"},
    {4, "Centrifugal Blower"},
    {5, "Chip Fan"},
    {6, "Cabinet Fan"},
    {7, "Power Supply Fan"},
    {8, "Heat Pipe"},
    {9, "Integrated Refrigeration"},
    {16, "Active Cooling"},
    {17, "Passive Cooling"},
};

// Cooling Device: a fan or another cooler. Layout: DMTF DSP0134, "Cooling Device (Type 27)
// structure".
class SMType27Obj final : public SMObj {
 public:
  SMType27Obj() { SetType(27); }

  void SetTemperatureProbeHandle(std::uint16_t value) { TemperatureProbeHandle = value; }
  void SetDeviceTypeAndStatus(std::uint8_t value) { DeviceTypeAndStatus = value; }
  void SetCoolingUnitGroup(std::uint8_t value) { CoolingUnitGroup = value; }
  void SetOemDefined(std::uint32_t value) { OemDefined = value; }
  void SetNominalSpeed(std::uint16_t value) { NominalSpeed = value; }

  ItemText GetTemperatureProbeHandleText() const {
    return {"Temperature Probe Handle : ", Hex(TemperatureProbeHandle, 4), "h"};
  }
  ItemText GetDeviceTypeAndStatusText() const {
    return {"Type And Status : Status--", TextOfStatus(DeviceTypeAndStatus), "; Type--",
            TextOfCode(kCoolingDeviceTypes, CodeBesideStatus(DeviceTypeAndStatus), kNothing)};
  }
  ItemText GetCoolingUnitGroupText() const {
    return {"Cooling Unit Group : ", Hex(CoolingUnitGroup, 2), "h"};
  }
  ItemText GetOemDefinedText() const { return {"OEM-defined : ", Hex(OemDefined, 8), "h"}; }
  ItemText GetNominalSpeedText() const {
    if (NominalSpeed == kUnknownReading) {
      return {"Nominal Speed : ", kUnknown};
    }
    // Hexadecimal, unlike other readings.
    return {"Nominal Speed : ", Hex(NominalSpeed, 4), "h"};
  }

  std::string ToString() const override;

 private:
  std::uint16_t NominalSpeed = 0;
  std::uint32_t OemDefined = 0;
  std::uint8_t CoolingUnitGroup = 0;
  std::uint8_t DeviceTypeAndStatus = 0;
  std::uint16_t TemperatureProbeHandle = 0;
};

std::string SMType27Obj::ToString() const {
  TextBlock block("Cooling Device (Type 27)");
  block.Item(GetTemperatureProbeHandleText());
  block.Item(GetDeviceTypeAndStatusText());
  block.Item(GetCoolingUnitGroupText());
  block.Item(GetOemDefinedText());
  block.Item(GetNominalSpeedText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType27(TableCursor& cursor) {
  ReadStructure<SMType27Obj>(cursor, [&](auto& object) {
    object.SetTemperatureProbeHandle(cursor.U16());
    object.SetDeviceTypeAndStatus(cursor.U8());
    object.SetCoolingUnitGroup(cursor.U8());
    object.SetOemDefined(cursor.U32());
    object.SetNominalSpeed(cursor.U16());
  });
}

}  // namespace kestrel
