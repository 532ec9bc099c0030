#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/memory_error.h"

namespace kestrel {

namespace {

// The upper 32 bits of a number that the firmware does not know; the others do not count.
constexpr std::uint32_t kUnknownNumber = 0x80000000;

ItemText TextOfNumber(std::uint64_t number, unsigned bits) {
  if (number >> (bits - 32) == kUnknownNumber) {
    return {kUnknown};
  }
  return {Hex(number, bits / 4), "h"};
}

// 64-bit Memory Error Information: the last memory error, with 64-bit addresses. Layout: DMTF
// DSP0134, "64-Bit Memory Error Information (Type 33) structure".
class SMType33Obj final : public SMMemoryErrorObj {
 public:
  SMType33Obj() { SetType(33); }

  void SetMemoryArrayErrorAddress(std::uint64_t value) { MemoryArrayErrorAddress = value; }
  void SetDeviceErrorAddress(std::uint64_t value) { DeviceErrorAddress = value; }
  void SetErrorResolution(std::uint32_t value) { ErrorResolution = value; }

  ItemText GetMemoryArrayErrorAddressText() const {
    return {"Memory Array Error Address : ", TextOfNumber(MemoryArrayErrorAddress, 64)};
  }
  ItemText GetDeviceErrorAddressText() const {
    return {"Device Error Address : ", TextOfNumber(DeviceErrorAddress, 64)};
  }
  ItemText GetErrorResolutionText() const {
    return {"Error Resolution : ", TextOfNumber(ErrorResolution, 32)};
  }

  std::string ToString() const override;

 private:
  std::uint32_t ErrorResolution = 0;
  std::uint64_t DeviceErrorAddress = 0;
  std::uint64_t MemoryArrayErrorAddress = 0;
};

std::string SMType33Obj::ToString() const {
  TextBlock block("64-bit Memory Error Information (Type 33)");
  AddCommonItems(block);
  block.Item(GetMemoryArrayErrorAddressText());
  block.Item(GetDeviceErrorAddressText());
  block.Item(GetErrorResolutionText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType33(TableCursor& cursor) {
  ReadStructure<SMType33Obj>(cursor, [&](auto& object) {
    ReadMemoryErrorFields(object, cursor);
    object.SetMemoryArrayErrorAddress(cursor.U64());
    object.SetDeviceErrorAddress(cursor.U64());
    object.SetErrorResolution(cursor.U32());
  });
}

}  // namespace kestrel
