#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/memory_module.h"

namespace kestrel {

namespace {

constexpr CodeText kErrorDetectingMethods[] = {
    {1, "Other"},      {2, "Unknown"},    {3, "None"},        {4, "8-bit Parity"},
    {5, "32-bit ECC"}, {6, "64-bit ECC"}, {7, "128-bit ECC"}, {8, "CRC"},
};

constexpr std::string_view kErrorCorrectingCapabilities[] = {
    "Other",
    "Unknown",
    "None",
    "Single Bit Error Correcting",
    "Double Bit Error Correcting",
    "Error Scrubbing",
};

constexpr CodeText kInterleaves[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "One Way Interleave"},
    {4, "Two Way Interleave"},
    {5, "Four Way Interleave"},
    {6, "Eight Way Interleave"},
    {7, "Sixteen Way Interleave"},
};

// Each starts with its own blank, since the label ends without one.
constexpr std::string_view kSpeeds[] = {" Other", " Unknown", " 70ns", " 60ns", " 50ns"};

constexpr std::string_view kVoltages[] = {"5V", "3.3V", "2.9V"};

// Memory Controller Information: how a controller detects and corrects errors, which modules it
// takes, and the handles of the structures of its slots. Layout: DMTF DSP0134, "Memory Controller
// Information (Type 5, Obsolete) structure".
class SMType5Obj final : public SMObj {
 public:
  SMType5Obj() { SetType(5); }

  void SetErrorDetectingMethod(std::uint8_t value) { ErrorDetectingMethod = value; }
  void SetErrorCorrectingCapability(std::uint8_t value) { ErrorCorrectingCapability = value; }
  void SetSupportedInterleave(std::uint8_t value) { SupportedInterleave = value; }
  void SetCurrentInterleave(std::uint8_t value) { CurrentInterleave = value; }
  void SetMaximumMemoryModuleSize(std::uint8_t value) { MaximumMemoryModuleSize = value; }
  void SetSupportedSpeeds(std::uint16_t value) { SupportedSpeeds = value; }
  void SetSupportedMemoryTypes(std::uint16_t value) { SupportedMemoryTypes = value; }
  void SetMemoryModuleVoltage(std::uint8_t value) { MemoryModuleVoltage = value; }
  void SetNumberOfAssociatedSlots(std::uint8_t value) { NumberOfAssociatedSlots = value; }
  std::uint8_t GetNumberOfAssociatedSlots() const { return NumberOfAssociatedSlots; }
  // Copies the `count` handles that start at `first`.
  void SetMemoryModuleHandles(const std::uint16_t* first, std::uint8_t count) {
    MemoryModuleHandles.assign(first, first + count);
  }
  void SetEnabledErrorCorrectingCapabilities(std::uint8_t value) {
    EnabledErrorCorrectingCapabilities = value;
  }

  ItemText GetErrorDetectingMethodText() const {
    return {"Error Detecting Method : ",
            TextOfCode(kErrorDetectingMethods, ErrorDetectingMethod, kUnknown)};
  }
  ItemText GetErrorCorrectingCapabilityText() const {
    // Nothing between two capabilities.
    return {"Error Correcting Capability : ",
            TextOfBits(kErrorCorrectingCapabilities, ErrorCorrectingCapability, "")};
  }
  ItemText GetSupportedInterleaveText() const {
    return {"Support Interleave : ", TextOfCode(kInterleaves, SupportedInterleave, kUnknown)};
  }
  ItemText GetCurrentInterleaveText() const {
    return {"Current Interleave : ", TextOfCode(kInterleaves, CurrentInterleave, kUnknown)};
  }
  ItemText GetMaximumMemoryModuleSizeText() const {
    return {"Max Memory Size : ", Decimal(MegabytesOfExponent(MaximumMemoryModuleSize)), " MB"};
  }
  ItemText GetSupportedSpeedsText() const {
    return {"Support Speeds :", TextOfBits(kSpeeds, SupportedSpeeds, "")};
  }
  ItemText GetSupportedMemoryTypesText() const {
    return {"Support Memory Types : ",
            TextOfBits(kMemoryTypes, SupportedMemoryTypes, kMemoryTypeSeparator)};
  }
  ItemText GetMemoryModuleVoltageText() const;
  ItemText GetNumberOfAssociatedSlotsText() const {
    return {"Number of Associated Memory Slots : ", Decimal(NumberOfAssociatedSlots)};
  }
  ItemText GetMemoryModuleHandlesText() const;

  std::string ToString() const override;

 private:
  // Not shown.
  std::uint8_t EnabledErrorCorrectingCapabilities = 0;
  std::vector<std::uint16_t> MemoryModuleHandles;
  std::uint8_t NumberOfAssociatedSlots = 0;
  std::uint8_t MemoryModuleVoltage = 0;
  std::uint16_t SupportedMemoryTypes = 0;
  std::uint16_t SupportedSpeeds = 0;
  // As an exponent.
  std::uint8_t MaximumMemoryModuleSize = 0;
  std::uint8_t CurrentInterleave = 0;
  std::uint8_t SupportedInterleave = 0;
  std::uint8_t ErrorCorrectingCapability = 0;
  std::uint8_t ErrorDetectingMethod = 0;
};

ItemText SMType5Obj::GetMemoryModuleVoltageText() const {
  // Of several voltages only the first is shown.
  const auto bit = static_cast<std::size_t>(std::countr_zero(MemoryModuleVoltage));
  return {"Memory Module Voltage : ", bit < std::size(kVoltages) ? kVoltages[bit] : kUnknown};
}

ItemText SMType5Obj::GetMemoryModuleHandlesText() const {
  ItemText text{"Memory Module Configuration Handles :"};
  for (const std::uint16_t handle : MemoryModuleHandles) {
    // At least two digits, though a handle has four.
    text.Append({" ", Hex(handle, 2), "h"});
  }
  return text;
}

std::string SMType5Obj::ToString() const {
  TextBlock block("Memory Controller Information (Type 5)");
  block.Item(GetErrorDetectingMethodText());
  block.Item(GetErrorCorrectingCapabilityText());
  block.Item(GetSupportedInterleaveText());
  block.Item(GetCurrentInterleaveText());
  block.Item(GetMaximumMemoryModuleSizeText());
  block.Item(GetSupportedSpeedsText());
  block.Item(GetSupportedMemoryTypesText());
  block.Item(GetMemoryModuleVoltageText());
  block.Item(GetNumberOfAssociatedSlotsText());
  block.Item(GetMemoryModuleHandlesText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType5(TableCursor& cursor) {
  ReadStructure<SMType5Obj>(cursor, [&](auto& object) {
    object.SetErrorDetectingMethod(cursor.U8());
    object.SetErrorCorrectingCapability(cursor.U8());
    object.SetSupportedInterleave(cursor.U8());
    object.SetCurrentInterleave(cursor.U8());
    object.SetMaximumMemoryModuleSize(cursor.U8());
    object.SetSupportedSpeeds(cursor.U16());
    object.SetSupportedMemoryTypes(cursor.U16());
    object.SetMemoryModuleVoltage(cursor.U8());
    object.SetNumberOfAssociatedSlots(cursor.U8());
    std::array<std::uint16_t, 0xFF> handles{};
    const std::uint8_t count = object.GetNumberOfAssociatedSlots();
    for (std::uint16_t& handle : std::span(handles).first(count)) {
      handle = cursor.U16();
    }
    object.SetMemoryModuleHandles(handles.data(), count);
    object.SetEnabledErrorCorrectingCapabilities(cursor.U8());
  });
}

}  // namespace kestrel
