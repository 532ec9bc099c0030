#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kDeviceChemistries[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Lead Acid"},
    {4, "Nickel Cadmium"},
    {5, "Nickel metal hydride"},
    {6, "Lithium-ion"},
    {7, "Zinc air"},
    {8, "Lithium Polymer"},
};

// Portable Battery: a battery and its Smart Battery Data (SBDS). Layout: DMTF
// DSP0134, "Portable Battery (Type 22) structure".
class SMType22Obj final : public SMObj {
 public:
  SMType22Obj() {
    SetType(22);
    SetStringCount(7);
  }

  void SetLocation(std::uint8_t value) { Location = value; }
  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetManufactureDate(std::uint8_t value) { ManufactureDate = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetDeviceName(std::uint8_t value) { DeviceName = value; }
  void SetDeviceChemistry(std::uint8_t value) { DeviceChemistry = value; }
  void SetDesignCapacity(std::uint16_t value) { DesignCapacity = value; }
  void SetDesignVoltage(std::uint16_t value) { DesignVoltage = value; }
  void SetSbdsVersionNumber(std::uint8_t value) { SbdsVersionNumber = value; }
  void SetMaximumErrorInBatteryData(std::uint8_t value) { MaximumErrorInBatteryData = value; }
  void SetSbdsSerialNumber(std::uint16_t value) { SbdsSerialNumber = value; }
  void SetSbdsManufactureDate(std::uint16_t value) { SbdsManufactureDate = value; }
  void SetSbdsDeviceChemistry(std::uint8_t value) { SbdsDeviceChemistry = value; }
  void SetDesignCapacityMultiplier(std::uint8_t value) { DesignCapacityMultiplier = value; }
  void SetOemSpecific(std::uint32_t value) { OemSpecific = value; }

  ItemText GetLocationText() const { return {"Location : ", GetString(Location)}; }
  ItemText GetManufacturerText() const { return {"Manufacturer : ", GetString(Manufacturer)}; }
  // "Manufacturer", not "Manufacture".
  ItemText GetManufactureDateText() const {
    return {"Manufacturer Date : ", GetString(ManufactureDate)};
  }
  ItemText GetSerialNumberText() const { return {"Serial Number : ", GetString(SerialNumber)}; }
  ItemText GetDeviceNameText() const { return {"Device Name : ", GetString(DeviceName)}; }
  ItemText GetDeviceChemistryText() const {
    return {"Device Chemistry : ", TextOfCode(kDeviceChemistries, DeviceChemistry, kNothing)};
  }
  // Not multiplied: the multiplier has its own line.
  ItemText GetDesignCapacityText() const {
    return {"Design Capacity : ", Decimal(DesignCapacity), "mW"};
  }
  ItemText GetDesignVoltageText() const {
    return {"Design Voltage : ", Decimal(DesignVoltage), "mV"};
  }
  ItemText GetSbdsVersionNumberText() const {
    return {"SBDS Version Number : ", GetString(SbdsVersionNumber)};
  }
  ItemText GetMaximumErrorInBatteryDataText() const {
    return {"Maximum Error in Battery Data : ", Decimal(MaximumErrorInBatteryData)};
  }
  ItemText GetSbdsSerialNumberText() const {
    return {"SBDS Serial Number : ", Hex(SbdsSerialNumber, 4)};
  }
  // Years since 1980, not a calendar year.
  ItemText GetSbdsManufactureDateText() const {
    return {"SBDS Manufacture Date : ",
            Decimal(SbdsManufactureDate >> 9U),
            "/",
            Decimal(SbdsManufactureDate >> 5U & 0x0FU),
            "/",
            Decimal(SbdsManufactureDate & 0x1FU)};
  }
  ItemText GetSbdsDeviceChemistryText() const {
    return {"SBDS Device Chemistry : ", GetString(SbdsDeviceChemistry)};
  }
  ItemText GetDesignCapacityMultiplierText() const {
    return {"Design Capacity Multiplier : ", Decimal(DesignCapacityMultiplier)};
  }
  ItemText GetOemSpecificText() const { return {"OEM-specific : ", Decimal(OemSpecific)}; }

  std::string ToString() const override;

 private:
  std::uint32_t OemSpecific = 0;
  std::uint8_t DesignCapacityMultiplier = 0;
  std::uint8_t SbdsDeviceChemistry = 0;
  // Bits 15:9 are the years since 1980, bits 8:5 the month, bits 4:0 the day.
  std::uint16_t SbdsManufactureDate = 0;
  std::uint16_t SbdsSerialNumber = 0;
  std::uint8_t MaximumErrorInBatteryData = 0;
  std::uint8_t SbdsVersionNumber = 0;
  std::uint16_t DesignVoltage = 0;
  std::uint16_t DesignCapacity = 0;
  std::uint8_t DeviceChemistry = 0;
  std::uint8_t DeviceName = 0;
  std::uint8_t SerialNumber = 0;
  std::uint8_t ManufactureDate = 0;
  std::uint8_t Manufacturer = 0;
  std::uint8_t Location = 0;
};

std::string SMType22Obj::ToString() const {
  TextBlock block("Portable Battery (Type 22)");
  block.Item(GetLocationText());
  block.Item(GetManufacturerText());
  block.Item(GetManufactureDateText());
  block.Item(GetSerialNumberText());
  block.Item(GetDeviceNameText());
  block.Item(GetDeviceChemistryText());
  block.Item(GetDesignCapacityText());
  block.Item(GetDesignVoltageText());
  block.Item(GetSbdsVersionNumberText());
  block.Item(GetMaximumErrorInBatteryDataText());
  block.Item(GetSbdsSerialNumberText());
  block.Item(GetSbdsManufactureDateText());
  block.Item(GetSbdsDeviceChemistryText());
  block.Item(GetDesignCapacityMultiplierText());
  block.Item(GetOemSpecificText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType22(TableCursor& cursor) {
  ReadStructure<SMType22Obj>(cursor, [&](auto& object) {
    object.SetLocation(cursor.U8());
    object.SetManufacturer(cursor.U8());
    object.SetManufactureDate(cursor.U8());
    object.SetSerialNumber(cursor.U8());
    object.SetDeviceName(cursor.U8());
    object.SetDeviceChemistry(cursor.U8());
    object.SetDesignCapacity(cursor.U16());
    object.SetDesignVoltage(cursor.U16());
    object.SetSbdsVersionNumber(cursor.U8());
    object.SetMaximumErrorInBatteryData(cursor.U8());
    object.SetSbdsSerialNumber(cursor.U16());
    object.SetSbdsManufactureDate(cursor.U16());
    object.SetSbdsDeviceChemistry(cursor.U8());
    object.SetDesignCapacityMultiplier(cursor.U8());
    object.SetOemSpecific(cursor.U32());
  });
}

}  // namespace kestrel
