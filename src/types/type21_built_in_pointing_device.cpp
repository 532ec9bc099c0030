#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kPointingDeviceTypes[] = {
    {1, "Other"},      {2, "Unknown"},      {3, "Mouse"},
    {4, "Track Ball"}, {5, "Track Point"},  {6, "Glide Point"},
    {7, "Touch Pad"},  {8, "Touch Screen"}, {9, "Optical Sensor"},
};

constexpr CodeText kInterfaces[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Serial"},
    {4, "PS/2"},
    {5, "Infrared"},
    {6, "HP-HIL"},
    {7, "Bus mouse"},
    {8, "ADB (Apple Desktop Bus)"},
    {0xA0, "Bus mouse DB-9"},
    {0xA1, "Bus mouse micro-DIN"},
    {0xA2, "USB"},
};

// Built-in Pointing Device: what a portable system has in place of a mouse. Layout: DMTF
// DSP0134, "Built-in Pointing Device (Type 21) structure".
class SMType21Obj final : public SMObj {
 public:
  SMType21Obj() { SetType(21); }

  void SetDeviceType(std::uint8_t value) { DeviceType = value; }
  void SetInterface(std::uint8_t value) { Interface = value; }
  void SetNumberOfButtons(std::uint8_t value) { NumberOfButtons = value; }

  ItemText GetDeviceTypeText() const {
    return {"Device Type : ", TextOfCode(kPointingDeviceTypes, DeviceType, kNothing)};
  }
  ItemText GetInterfaceText() const {
    return {"Interface : ", TextOfCode(kInterfaces, Interface, kNothing)};
  }
  ItemText GetNumberOfButtonsText() const {
    return {"Number of Buttons : ", Decimal(NumberOfButtons)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t NumberOfButtons = 0;
  std::uint8_t Interface = 0;
  std::uint8_t DeviceType = 0;
};

std::string SMType21Obj::ToString() const {
  TextBlock block("Built-in Pointing Device (Type 21)");
  block.Item(GetDeviceTypeText());
  block.Item(GetInterfaceText());
  block.Item(GetNumberOfButtonsText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType21(TableCursor& cursor) {
  ReadStructure<SMType21Obj>(cursor, [&](auto& object) {
    object.SetDeviceType(cursor.U8());
    object.SetInterface(cursor.U8());
    object.SetNumberOfButtons(cursor.U8());
  });
}

}  // namespace kestrel
