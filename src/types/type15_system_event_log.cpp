#include <cstddef>
#include <memory>
#include <utility>

#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/table_cursor.h"
#include "model/text.h"

namespace kestrel {

namespace {

constexpr CodeText kLogHeaderFormats[] = {
    {0, "No header"},
    {1, "Type 1 log header"},
};

// The codes that have no format of their own.
constexpr std::string_view kFutureFormat = "Available for future assignment via this specification";
constexpr std::string_view kVendorFormat = "BIOS Vendor or OEM-specific format";
constexpr std::uint8_t kFirstVendorFormat = 0x80;

// System Event Log: where the firmware keeps its log, and how to reach it. Layout: DMTF DSP0134,
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

  // How many bytes of log type descriptors follow the fields.
  std::size_t GetDescriptorsSize() const {
    return std::size_t{NumberOfSupportedLogTypeDescriptors} * LengthOfLogTypeDescriptor;
  }

  std::string ToString() const override;

 private:
  std::string GetLogHeaderFormatText() const;

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

std::string SMType15Obj::GetLogHeaderFormatText() const {
  const std::string_view unlisted =
      LogHeaderFormat < kFirstVendorFormat ? kFutureFormat : kVendorFormat;
  return std::string("Log Header Format : ")
      .append(TextOfCode(kLogHeaderFormats, LogHeaderFormat, unlisted));
}

std::string SMType15Obj::ToString() const {
  TextBlock block("System Event Log (Type 15)");
  block.Item({"Log Area Length : ", Decimal(LogAreaLength)});
  // No "h" behind the digits of this block: intended.
  block.Item({"Log Header Start Offset : ", Hex(LogHeaderStartOffset, 4)});
  block.Item({"Log Data Start Offset : ", Hex(LogDataStartOffset, 4)});
  block.Item({"Access Method : ", Hex(AccessMethod, 2)});
  block.Item({"Log status : ", Hex(LogStatus, 2)});  // A small "s": intended.
  block.Item({"Log Change Token : ", Hex(LogChangeToken, 8)});
  block.Item({"Access Method Address : ", Hex(AccessMethodAddress, 8)});
  block.Item({GetLogHeaderFormatText()});
  block.Item({"Number of Supported Log Type Descriptors : ",
              Decimal(NumberOfSupportedLogTypeDescriptors)});
  // "each" with a plural: intended.
  block.Item({"Length of each Log Type Descriptors : ", Decimal(LengthOfLogTypeDescriptor)});
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType15(TableCursor& cursor) {
  auto object = std::make_unique<SMType15Obj>();
  ReadHeader(*object, cursor);
  object->SetLogAreaLength(cursor.U16());
  object->SetLogHeaderStartOffset(cursor.U16());
  object->SetLogDataStartOffset(cursor.U16());
  object->SetAccessMethod(cursor.U8());
  object->SetLogStatus(cursor.U8());
  object->SetLogChangeToken(cursor.U32());
  object->SetAccessMethodAddress(cursor.U32());
  object->SetLogHeaderFormat(cursor.U8());
  object->SetNumberOfSupportedLogTypeDescriptors(cursor.U8());
  object->SetLengthOfLogTypeDescriptor(cursor.U8());
  cursor.Skip(object->GetDescriptorsSize());
  AppendObject(std::move(object));
}

}  // namespace kestrel
