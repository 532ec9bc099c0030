#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/memory_error.h"

namespace kestrel {

namespace {

// 32-bit Memory Error Information: the last memory error, with 32-bit addresses. Layout: DMTF
// DSP0134, "32-Bit Memory Error Information (Type 18) structure".
class SMType18Obj final : public SMMemoryErrorObj {
 public:
  SMType18Obj() { SetType(18); }

  void SetMemoryArrayErrorAddress(std::uint32_t value) { MemoryArrayErrorAddress = value; }
  void SetDeviceErrorAddress(std::uint32_t value) { DeviceErrorAddress = value; }
  void SetErrorResolution(std::uint32_t value) { ErrorResolution = value; }

  // The numbers of this block are bare digits, even where the value is unknown: intended.
  ItemText GetMemoryArrayErrorAddressText() const {
    return {"Memory Array Error Address : ", Hex(MemoryArrayErrorAddress, 8)};
  }
  ItemText GetDeviceErrorAddressText() const {
    return {"Device Error Address : ", Hex(DeviceErrorAddress, 8)};
  }
  ItemText GetErrorResolutionText() const {
    return {"Error Resolution : ", Hex(ErrorResolution, 8)};
  }

  std::string ToString() const override;

 private:
  std::uint32_t ErrorResolution = 0;
  std::uint32_t DeviceErrorAddress = 0;
  std::uint32_t MemoryArrayErrorAddress = 0;
};

std::string SMType18Obj::ToString() const {
  TextBlock block("32-bit Memory Error Information (Type 18)");
  AddCommonItems(block);
  block.Item(GetMemoryArrayErrorAddressText());
  block.Item(GetDeviceErrorAddressText());
  block.Item(GetErrorResolutionText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType18(TableCursor& cursor) {
  ReadStructure<SMType18Obj>(cursor, [&](auto& object) {
    ReadMemoryErrorFields(object, cursor);
    object.SetMemoryArrayErrorAddress(cursor.U32());
    object.SetDeviceErrorAddress(cursor.U32());
    object.SetErrorResolution(cursor.U32());
  });
}

}  // namespace kestrel
