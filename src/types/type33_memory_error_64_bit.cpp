#include <memory>
#include <utility>

#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/table_cursor.h"
#include "model/text.h"
#include "types/memory_error.h"

namespace kestrel {

namespace {

// 64-bit Memory Error Information: the last memory error, at 64-bit addresses. Layout: DMTF
// DSP0134, "64-Bit Memory Error Information (Type 33) structure".
class SMType33Obj final : public SMMemoryErrorObj {
 public:
  SMType33Obj() { SetType(33); }

  void SetMemoryArrayErrorAddress(std::uint64_t value) { MemoryArrayErrorAddress = value; }
  void SetDeviceErrorAddress(std::uint64_t value) { DeviceErrorAddress = value; }
  void SetErrorResolution(std::uint32_t value) { ErrorResolution = value; }

  std::string ToString() const override;

 private:
  std::uint32_t ErrorResolution = 0;
  std::uint64_t DeviceErrorAddress = 0;
  std::uint64_t MemoryArrayErrorAddress = 0;
};

// The upper 32 bits of a number that the firmware cannot give; the bits below them do not count.
constexpr std::uint32_t kNotGiven = 0x80000000;

void AddNumber(TextBlock& block, std::string_view label, std::uint64_t number, unsigned bits) {
  if (number >> (bits - 32) == kNotGiven) {
    block.Item({label, kUnknown});
  } else {
    block.Item({label, Hex(number, bits / 4), "h"});
  }
}

std::string SMType33Obj::ToString() const {
  TextBlock block("64-bit Memory Error Information (Type 33)");
  AddCommonItems(block);
  AddNumber(block, "Memory Array Error Address : ", MemoryArrayErrorAddress, 64);
  AddNumber(block, "Device Error Address : ", DeviceErrorAddress, 64);
  AddNumber(block, "Error Resolution : ", ErrorResolution, 32);
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType33(TableCursor& cursor) {
  auto object = std::make_unique<SMType33Obj>();
  ReadHeader(*object, cursor);
  ReadMemoryErrorFields(*object, cursor);
  object->SetMemoryArrayErrorAddress(cursor.U64());
  object->SetDeviceErrorAddress(cursor.U64());
  object->SetErrorResolution(cursor.U32());
  AppendObject(std::move(object));
}

}  // namespace kestrel
