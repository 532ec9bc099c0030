#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kSlotTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "ISA"},
    {0x04, "MCA"},
    {0x05, "EISA"},
    {0x06, "PCI"},
    {0x07, "PC Card (PCMCIA)"},
    {0x08, "VL-VESA"},
    {0x09, "Proprietary"},
    {0x0A, "Processor Card Slot"},
    {0x0B, "Proprietary Memory Card Slot"},
    {0x0C, "I/O Riser Card Slot"},
    {0x0D, "NuBus"},
    {0x0E, "PCI - 66MHz Capable"},
    {0x0F, "AGP"},
    {0x10, "AGP 2X"},
    {0x11, "AGP 4X"},
    {0xA0, "PC-98/C20"},
    {0xA1, "PC-98/C24"},
    {0xA2, "PC-98/E"},
    {0xA3, "PC-98/Local Bus"},
    {0xA4, "PC-98/Card"},
};

constexpr CodeText kDataBusWidths[] = {
    {1, "Other"},  {2, "Unknown"}, {3, "8 bit"},   {4, "16 bit"},
    {5, "32 bit"}, {6, "64 bit"},  {7, "128 bit"},
};

constexpr CodeText kUsages[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Available"},
    {4, "In use"},
};

constexpr CodeText kSlotLengths[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Short Length"},
    {4, "Long Length"},
};

constexpr std::string_view kSlotCharacteristics[] = {
    "Characteristics Unknown",
    "Provides 5.0 Volts",
    "Provides 3.3 Volts",
    "Slot's opening is shared with another slot",
    "PC Card slot supports PC Card-16",
    "PC Card slot supports CardBus",
    "PC Card slot supports Zoom Video",
    "PC Card slot supports Modem Ring Resume",
};

// System Slots: one expansion slot. Layout: DMTF DSP0134, "System Slots (Type 9) structure".
class SMType9Obj final : public SMObj {
 public:
  SMType9Obj() {
    SetType(9);
    SetStringCount(1);
  }

  void SetSlotDesignation(std::uint8_t value) { SlotDesignation = value; }
  void SetSlotType(std::uint8_t value) { SlotType = value; }
  void SetSlotDataBusWidth(std::uint8_t value) { SlotDataBusWidth = value; }
  void SetCurrentUsage(std::uint8_t value) { CurrentUsage = value; }
  void SetSlotLength(std::uint8_t value) { SlotLength = value; }
  void SetSlotId(std::uint16_t value) { SlotId = value; }
  void SetSlotCharacteristics1(std::uint8_t value) { SlotCharacteristics1 = value; }
  void SetSlotCharacteristics2(std::uint8_t value) { SlotCharacteristics2 = value; }

  ItemText GetSlotDesignationText() const {
    return {"Slot Designation : ", GetString(SlotDesignation)};
  }
  ItemText GetSlotTypeText() const {
    return {"Slot Type : ", TextOfCode(kSlotTypes, SlotType, kNothing)};
  }
  ItemText GetSlotDataBusWidthText() const {
    return {"Slot Data Bus Width : ", TextOfCode(kDataBusWidths, SlotDataBusWidth, kNothing)};
  }
  ItemText GetCurrentUsageText() const {
    return {"Current Usage : ", TextOfCode(kUsages, CurrentUsage, kNothing)};
  }
  ItemText GetSlotLengthText() const {
    return {"Slot Length : ", TextOfCode(kSlotLengths, SlotLength, kNothing)};
  }
  ItemText GetSlotIdText() const { return {"Slot ID : ", Hex(SlotId, 4), "h"}; }
  ItemText GetSlotCharacteristics1Text() const {
    // The texts of the characteristics run into each other.
    return {"Slot Characteristics 1 : ",
            TextOfBits(kSlotCharacteristics, SlotCharacteristics1, "")};
  }

  std::string ToString() const override;
  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  // Not shown.
  std::uint8_t SlotCharacteristics2 = 0;
  std::uint8_t SlotCharacteristics1 = 0;
  std::uint16_t SlotId = 0;
  std::uint8_t SlotLength = 0;
  std::uint8_t CurrentUsage = 0;
  std::uint8_t SlotDataBusWidth = 0;
  std::uint8_t SlotType = 0;
  std::uint8_t SlotDesignation = 0;
};

std::string SMType9Obj::ToString() const {
  TextBlock block("System Slots (Type 9)");
  block.Item(GetSlotDesignationText());
  block.Item(GetSlotTypeText());
  block.Item(GetSlotDataBusWidthText());
  block.Item(GetCurrentUsageText());
  block.Item(GetSlotLengthText());
  block.Item(GetSlotIdText());
  block.Item(GetSlotCharacteristics1Text());
  return block.Close();
}

std::string SMType9Obj::GetMifTableRow(int& rowIndex) const {
  // The type is the stored code, not the bit field that consoles are told of, and the description
  // stays empty.
  return MifRow({rowIndex++, SlotType, SlotDataBusWidth, CurrentUsage, kEmptyMifString});
}

}  // namespace

void SMBiosReader::ReadType9(TableCursor& cursor) {
  ReadStructure<SMType9Obj>(cursor, [&](auto& object) {
    object.SetSlotDesignation(cursor.U8());
    object.SetSlotType(cursor.U8());
    object.SetSlotDataBusWidth(cursor.U8());
    object.SetCurrentUsage(cursor.U8());
    object.SetSlotLength(cursor.U8());
    object.SetSlotId(cursor.U16());
    object.SetSlotCharacteristics1(cursor.U8());
    object.SetSlotCharacteristics2(cursor.U8());
  });
}

}  // namespace kestrel
