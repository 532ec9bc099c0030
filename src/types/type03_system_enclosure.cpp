#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kChassisTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Desktop"},
    {4, "Low Profile Desktop"},
    {5, "Pizza Box"},
    {6, "Mini Tower"},
    {7, "Tower"},
    {8, "Portable"},
    {9, "LapTop"},
    {10, "Notebook"},
    {11, "Hand Held"},
    {12, "Docking Station"},
    {13, "All in One"},
    {14, "Sub Notebook"},
    {15, "Space-saving"},
    {16, "Lunch Box"},
    {17, "Main Server Chassis"},
    {18, "Expansion Chassis"},
    {19, "SubChassis"},
    {20, "Bus Expansion Chassis"},
    {21, "Peripheral Chassis"},
    {22, "RAID Chassis"},
    {23, "Rack Mount Chassis"},
    {24, "Sealed-case PC"},
};

constexpr CodeText kStates[] = {
    {1, "Other"},   {2, "Unknown"},  {3, "Safe"},
    {4, "Warning"}, {5, "Critical"}, {6, "Non-recoverable"},
};

constexpr CodeText kSecurityStatuses[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "None"},
    {4, "External interface locked out"},
    {5, "External interface enabled"},
};

// System Enclosure or Chassis: the housing, and its state when the system was last booted. Layout:
// DMTF DSP0134, "System Enclosure or Chassis (Type 3) structure".
class SMType3Obj final : public SMObj {
 public:
  SMType3Obj() {
    SetType(3);
    SetStringCount(4);
  }

  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetChassisType(std::uint8_t value) { ChassisType = value; }
  void SetVersion(std::uint8_t value) { Version = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetAssetTag(std::uint8_t value) { AssetTag = value; }
  void SetBootupState(std::uint8_t value) { BootupState = value; }
  void SetPowerSupplyState(std::uint8_t value) { PowerSupplyState = value; }
  void SetThermalState(std::uint8_t value) { ThermalState = value; }
  void SetSecurityStatus(std::uint8_t value) { SecurityStatus = value; }
  void SetOemDefined(std::uint32_t value) { OemDefined = value; }

  ItemText GetManufacturerText() const { return {"Manufacturer Name : ", GetString(Manufacturer)}; }
  ItemText GetChassisTypeText() const {
    return {"Type : ", (ChassisType & 0x80U) != 0 ? "chassis lock; " : "",
            TextOfCode(kChassisTypes, ChassisType & 0x7FU, kUnknown)};
  }
  ItemText GetVersionText() const { return {"Version : ", GetString(Version)}; }
  ItemText GetSerialNumberText() const { return {"Serial Number : ", GetString(SerialNumber)}; }
  ItemText GetAssetTagText() const { return {"Asset Tag Number : ", GetString(AssetTag)}; }
  ItemText GetBootupStateText() const {
    return {"Bootup State : ", TextOfCode(kStates, BootupState, kUnknown)};
  }
  ItemText GetPowerSupplyStateText() const {
    return {"Power Supply State : ", TextOfCode(kStates, PowerSupplyState, kUnknown)};
  }
  ItemText GetThermalStateText() const {
    return {"Thermal State : ", TextOfCode(kStates, ThermalState, kUnknown)};
  }
  ItemText GetSecurityStatusText() const {
    return {"Security Status : ", TextOfCode(kSecurityStatuses, SecurityStatus, kUnknown)};
  }

  std::string ToString() const override;

 private:
  // Not shown.
  std::uint32_t OemDefined = 0;
  std::uint8_t SecurityStatus = 0;
  std::uint8_t ThermalState = 0;
  std::uint8_t PowerSupplyState = 0;
  std::uint8_t BootupState = 0;
  std::uint8_t AssetTag = 0;
  std::uint8_t SerialNumber = 0;
  std::uint8_t Version = 0;
  // The lock's bit above the code.
  std::uint8_t ChassisType = 0;
  std::uint8_t Manufacturer = 0;
};

std::string SMType3Obj::ToString() const {
  TextBlock block("System Enclosure or Chassis (Type 3)");
  block.Item(GetManufacturerText());
  block.Item(GetChassisTypeText());
  block.Item(GetVersionText());
  block.Item(GetSerialNumberText());
  block.Item(GetAssetTagText());
  block.Item(GetBootupStateText());
  block.Item(GetPowerSupplyStateText());
  block.Item(GetThermalStateText());
  block.Item(GetSecurityStatusText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType3(TableCursor& cursor) {
  ReadStructure<SMType3Obj>(cursor, [&](auto& object) {
    object.SetManufacturer(cursor.U8());
    object.SetChassisType(cursor.U8());
    object.SetVersion(cursor.U8());
    object.SetSerialNumber(cursor.U8());
    object.SetAssetTag(cursor.U8());
    object.SetBootupState(cursor.U8());
    object.SetPowerSupplyState(cursor.U8());
    object.SetThermalState(cursor.U8());
    object.SetSecurityStatus(cursor.U8());
    if (GetSpecVersion() >= kSmbios23) {
      object.SetOemDefined(cursor.U32());
    }
  });
}

}  // namespace kestrel
