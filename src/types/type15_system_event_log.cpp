#include <cstddef>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kLogHeaderFormats[] = {
    {0, "No header"},
    {1, "Type 1 log header"},
};

constexpr std::uint8_t kFirstVendorFormat = 0x80;

std::string_view TextOfLogHeaderFormat(std::uint8_t format) {
  return TextOfCode(kLogHeaderFormats, format,
                    format < kFirstVendorFormat
                        ? "Available for future assignment via this specification"
                        : "BIOS Vendor or OEM-specific format");
}

// System Event Log: where the firmware keeps its log, and how to read it. Layout: DMTF DSP0134,
// "System Event Log (Type 15) structure".
class SMType15Obj final : public SMObj {
 public:
  SMType15Obj() { SetType(15); }

  void SetLogAreaLength(std::uint16_t value) { LogAreaLength = value; }
  void SetLogHeaderStartOffset(std::uint16_t value) { LogHeaderStartOffset = value; }
  void SetLogDataStartOffset(std::uint16_t value) { LogDataStartOffset = value; }
  void SetAccessMethod(std::uint8_t value) { AccessMethod = value; }
  void SetLogStatus(std::uint8_t value) { LogStatus = value; }
  void SetLogChangeToken(std::uint32_t value) { LogChangeToken = value; }
  void SetAccessMethodAddress(std::uint32_t value) { AccessMethodAddress = value; }
  void SetLogHeaderFormat(std::uint8_t value) { LogHeaderFormat = value; }
  void SetNumberOfSupportedLogTypeDescriptors(std::uint8_t value) {
    NumberOfSupportedLogTypeDescriptors = value;
  }
  void SetLengthOfLogTypeDescriptor(std::uint8_t value) { LengthOfLogTypeDescriptor = value; }

  // The bytes of log type descriptors that follow the fields.
  std::size_t GetDescriptorsSize() const {
    return std::size_t{NumberOfSupportedLogTypeDescriptors} * LengthOfLogTypeDescriptor;
  }

  ItemText GetLogAreaLengthText() const { return {"Log Area Length : ", Decimal(LogAreaLength)}; }
  // No "h" after the digits in this block.
  ItemText GetLogHeaderStartOffsetText() const {
    return {"Log Header Start Offset : ", Hex(LogHeaderStartOffset, 4)};
  }
  ItemText GetLogDataStartOffsetText() const {
    return {"Log Data Start Offset : ", Hex(LogDataStartOffset, 4)};
  }
  ItemText GetAccessMethodText() const { return {"Access Method : ", Hex(AccessMethod, 2)}; }
  // A lower-case "s".
  ItemText GetLogStatusText() const { return {"Log status : ", Hex(LogStatus, 2)}; }
  ItemText GetLogChangeTokenText() const { return {"Log Change Token : ", Hex(LogChangeToken, 8)}; }
  ItemText GetAccessMethodAddressText() const {
    return {"Access Method Address : ", Hex(AccessMethodAddress, 8)};
  }
  ItemText GetLogHeaderFormatText() const {
    return {"Log Header Format : ", TextOfLogHeaderFormat(LogHeaderFormat)};
  }
  ItemText GetNumberOfSupportedLogTypeDescriptorsText() const {
    return {"Number of Supported Log Type Descriptors : ",
            Decimal(NumberOfSupportedLogTypeDescriptors)};
  }
  // "each" before a plural.
  ItemText GetLengthOfLogTypeDescriptorText() const {
    return {"Length of each Log Type Descriptors : ", Decimal(LengthOfLogTypeDescriptor)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t LengthOfLogTypeDescriptor = 0;
  std::uint8_t NumberOfSupportedLogTypeDescriptors = 0;
  std::uint8_t LogHeaderFormat = 0;
  std::uint32_t AccessMethodAddress = 0;
  std::uint32_t LogChangeToken = 0;
  std::uint8_t LogStatus = 0;
  std::uint8_t AccessMethod = 0;
  std::uint16_t LogDataStartOffset = 0;
  std::uint16_t LogHeaderStartOffset = 0;
  std::uint16_t LogAreaLength = 0;
};

std::string SMType15Obj::ToString() const {
  TextBlock block("System Event Log (Type 15)");
  block.Item(GetLogAreaLengthText());
  block.Item(GetLogHeaderStartOffsetText());
  block.Item(GetLogDataStartOffsetText());
  block.Item(GetAccessMethodText());
  block.Item(GetLogStatusText());
  block.Item(GetLogChangeTokenText());
  block.Item(GetAccessMethodAddressText());
  block.Item(GetLogHeaderFormatText());
  block.Item(GetNumberOfSupportedLogTypeDescriptorsText());
  block.Item(GetLengthOfLogTypeDescriptorText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType15(TableCursor& cursor) {
  ReadStructure<SMType15Obj>(cursor, [&](auto& object) {
    object.SetLogAreaLength(cursor.U16());
    object.SetLogHeaderStartOffset(cursor.U16());
    object.SetLogDataStartOffset(cursor.U16());
    object.SetAccessMethod(cursor.U8());
    object.SetLogStatus(cursor.U8());
    object.SetLogChangeToken(cursor.U32());
    object.SetAccessMethodAddress(cursor.U32());
    object.SetLogHeaderFormat(cursor.U8());
    object.SetNumberOfSupportedLogTypeDescriptors(cursor.U8());
    object.SetLengthOfLogTypeDescriptor(cursor.U8());
    cursor.Skip(object.GetDescriptorsSize());
  });
}

}  // namespace kestrel
