#include "base/table_cursor.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Physical Memory Array: a set of memory sockets and the memory they can take. Layout: DMTF
// DSP0134, "Physical Memory Array (Type 16) structure".
class SMType16Obj final : public SMObj {
 public:
  SMType16Obj() { SetType(16); }

  void SetLocation(std::uint8_t value) { Location = value; }
  void SetUse(std::uint8_t value) { Use = value; }
  void SetMemoryErrorCorrection(std::uint8_t value) { MemoryErrorCorrection = value; }
  void SetMaximumCapacity(std::uint32_t value) { MaximumCapacity = value; }
  void SetMemoryErrorInformationHandle(std::uint16_t value) {
    MemoryErrorInformationHandle = value;
  }
  void SetNumberOfMemoryDevices(std::uint16_t value) { NumberOfMemoryDevices = value; }

  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  std::uint16_t NumberOfMemoryDevices = 0;
  std::uint16_t MemoryErrorInformationHandle = 0;
  // In kilobytes.
  std::uint32_t MaximumCapacity = 0;
  std::uint8_t MemoryErrorCorrection = 0;
  std::uint8_t Use = 0;
  std::uint8_t Location = 0;
};

// Handles are not followed: attributes that other structures describe have the group's default.
std::string SMType16Obj::GetMifTableRow(int& rowIndex) const {
  return MifRow({
      rowIndex++,
      Location,  // Even where the group numbers its locations differently.
      Use, MaximumCapacity, NumberOfMemoryDevices,
      0U,  // Sockets in use.
      MemoryErrorCorrection,
      1U,               // Array error type.
      1U,               // Last error update.
      1U,               // Error operation.
      0U,               // Error data size.
      kEmptyMifString,  // Error data.
      kEmptyMifString,  // Vendor syndrome.
      0U,               // Error address.
      0U,               // Error resolution.
      0U,               // FRU group.
      0U,               // Operational group.
  });
}

}  // namespace

void SMBiosReader::ReadType16(TableCursor& cursor) {
  ReadStructure<SMType16Obj>(cursor, [&](auto& object) {
    object.SetLocation(cursor.U8());
    object.SetUse(cursor.U8());
    object.SetMemoryErrorCorrection(cursor.U8());
    object.SetMaximumCapacity(cursor.U32());
    object.SetMemoryErrorInformationHandle(cursor.U16());
    object.SetNumberOfMemoryDevices(cursor.U16());
  });
}

}  // namespace kestrel
