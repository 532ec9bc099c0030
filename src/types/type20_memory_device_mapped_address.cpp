#include "base/table_cursor.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Memory Device Mapped Address: a range of addresses and the memory device it maps to. Layout: DMTF
// DSP0134, "Memory Device Mapped Address (Type 20) structure".
class SMType20Obj final : public SMObj {
 public:
  SMType20Obj() { SetType(20); }

  void SetStartingAddress(std::uint32_t value) { StartingAddress = value; }
  void SetEndingAddress(std::uint32_t value) { EndingAddress = value; }
  void SetMemoryDeviceHandle(std::uint16_t value) { MemoryDeviceHandle = value; }
  void SetMemoryArrayMappedAddressHandle(std::uint16_t value) {
    MemoryArrayMappedAddressHandle = value;
  }
  void SetPartitionRowPosition(std::uint8_t value) { PartitionRowPosition = value; }
  void SetInterleavePosition(std::uint8_t value) { InterleavePosition = value; }
  void SetInterleavedDataDepth(std::uint8_t value) { InterleavedDataDepth = value; }

  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  std::uint8_t InterleavedDataDepth = 0;
  std::uint8_t InterleavePosition = 0;
  std::uint8_t PartitionRowPosition = 0;
  std::uint16_t MemoryArrayMappedAddressHandle = 0;
  std::uint16_t MemoryDeviceHandle = 0;
  // Both in kilobytes; the range includes the last one.
  std::uint32_t EndingAddress = 0;
  std::uint32_t StartingAddress = 0;
};

std::string SMType20Obj::GetMifTableRow(int& rowIndex) const {
  // The n-th range names the n-th memory device, whatever its handle.
  const int index = rowIndex++;
  return MifRow({
      index,
      index,
      0U,  // Partition.
      StartingAddress,
      EndingAddress,
      PartitionRowPosition,
      InterleavePosition,
      InterleavedDataDepth,
  });
}

}  // namespace

void SMBiosReader::ReadType20(TableCursor& cursor) {
  ReadStructure<SMType20Obj>(cursor, [&](auto& object) {
    object.SetStartingAddress(cursor.U32());
    object.SetEndingAddress(cursor.U32());
    object.SetMemoryDeviceHandle(cursor.U16());
    object.SetMemoryArrayMappedAddressHandle(cursor.U16());
    object.SetPartitionRowPosition(cursor.U8());
    object.SetInterleavePosition(cursor.U8());
    object.SetInterleavedDataDepth(cursor.U8());
  });
}

}  // namespace kestrel
