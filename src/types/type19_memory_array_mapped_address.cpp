#include "base/table_cursor.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Memory Array Mapped Address: a range of addresses and the memory array it maps to. Layout: DMTF
// DSP0134, "Memory Array Mapped Address (Type 19) structure".
class SMType19Obj final : public SMObj {
 public:
  SMType19Obj() { SetType(19); }

  void SetStartingAddress(std::uint32_t value) { StartingAddress = value; }
  void SetEndingAddress(std::uint32_t value) { EndingAddress = value; }
  void SetMemoryArrayHandle(std::uint16_t value) { MemoryArrayHandle = value; }
  void SetPartitionWidth(std::uint8_t value) { PartitionWidth = value; }

  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  std::uint8_t PartitionWidth = 0;
  std::uint16_t MemoryArrayHandle = 0;
  // Both in kilobytes; the range includes the last one.
  std::uint32_t EndingAddress = 0;
  std::uint32_t StartingAddress = 0;
};

// Handles are not followed: attributes that other structures describe have the group's default.
std::string SMType19Obj::GetMifTableRow(int& rowIndex) const {
  return MifRow({
      rowIndex++,
      0U,  // Memory array.
      StartingAddress, EndingAddress,
      0U,  // Partition.
      PartitionWidth,
      0U,  // Operational group.
  });
}

}  // namespace

void SMBiosReader::ReadType19(TableCursor& cursor) {
  ReadStructure<SMType19Obj>(cursor, [&](auto& object) {
    object.SetStartingAddress(cursor.U32());
    object.SetEndingAddress(cursor.U32());
    object.SetMemoryArrayHandle(cursor.U16());
    object.SetPartitionWidth(cursor.U8());
  });
}

}  // namespace kestrel
