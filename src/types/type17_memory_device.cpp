#include "base/table_cursor.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// The string number of a field that was not read.
constexpr std::uint8_t kNotRead = 0xFF;

// Memory Device: one memory socket and what it holds. Layout: DMTF DSP0134, "Memory Device
// (Type 17) structure".
class SMType17Obj final : public SMObj {
 public:
  SMType17Obj() {
    SetType(17);
    SetStringCount(2);
  }

  void SetPhysicalMemoryArrayHandle(std::uint16_t value) { PhysicalMemoryArrayHandle = value; }
  void SetMemoryErrorInformationHandle(std::uint16_t value) {
    MemoryErrorInformationHandle = value;
  }
  void SetTotalWidth(std::uint16_t value) { TotalWidth = value; }
  void SetDataWidth(std::uint16_t value) { DataWidth = value; }
  void SetSize(std::uint16_t value) { Size = value; }
  void SetFormFactor(std::uint8_t value) { FormFactor = value; }
  void SetDeviceSet(std::uint8_t value) { DeviceSet = value; }
  void SetDeviceLocator(std::uint8_t value) { DeviceLocator = value; }
  void SetBankLocator(std::uint8_t value) { BankLocator = value; }
  void SetMemoryType(std::uint8_t value) { MemoryType = value; }
  void SetTypeDetail(std::uint16_t value) { TypeDetail = value; }
  void SetSpeed(std::uint16_t value) { Speed = value; }
  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetAssetTag(std::uint8_t value) { AssetTag = value; }
  void SetPartNumber(std::uint8_t value) { PartNumber = value; }

  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  std::uint8_t PartNumber = kNotRead;
  std::uint8_t AssetTag = kNotRead;
  std::uint8_t SerialNumber = kNotRead;
  std::uint8_t Manufacturer = kNotRead;
  // In megahertz.
  std::uint16_t Speed = 0;
  std::uint16_t TypeDetail = 0;
  std::uint8_t MemoryType = 0;
  std::uint8_t BankLocator = 0;
  std::uint8_t DeviceLocator = 0;
  std::uint8_t DeviceSet = 0;
  std::uint8_t FormFactor = 0;
  // Bit 15 is the unit: megabytes when clear, kilobytes when set.
  std::uint16_t Size = 0;
  std::uint16_t DataWidth = 0;
  std::uint16_t TotalWidth = 0;
  std::uint16_t MemoryErrorInformationHandle = 0;
  std::uint16_t PhysicalMemoryArrayHandle = 0;
};

// Handles are not followed: attributes that other structures describe have the group's default.
std::string SMType17Obj::GetMifTableRow(int& rowIndex) const {
  return MifRow({
      rowIndex++,
      0U,  // Memory array.
      GetString(DeviceLocator),
      GetString(BankLocator),
      Size & 0x7FFFU,  // Without regard to the unit, or to FFFFh for unknown.
      FormFactor,
      TotalWidth,
      DataWidth,
      MemoryType,
      TypeDetail,  // The bits, not a code of the group's enumeration.
      DeviceSet,
      1U,               // Device error type.
      1U,               // Error granularity.
      1U,               // Last error update.
      1U,               // Error operation.
      0U,               // Error data size.
      kEmptyMifString,  // Error data.
      kEmptyMifString,  // Vendor syndrome.
      0U,               // Device error address.
      0U,               // Array error address.
      0U,               // Error resolution.
      0U,               // FRU group.
      0U,               // Operational group.
      0U,               // Speed, although the structure has it.
  });
}

}  // namespace

void SMBiosReader::ReadType17(TableCursor& cursor) {
  ReadStructure<SMType17Obj>(cursor, [&](auto& object) {
    object.SetPhysicalMemoryArrayHandle(cursor.U16());
    object.SetMemoryErrorInformationHandle(cursor.U16());
    object.SetTotalWidth(cursor.U16());
    object.SetDataWidth(cursor.U16());
    object.SetSize(cursor.U16());
    object.SetFormFactor(cursor.U8());
    object.SetDeviceSet(cursor.U8());
    object.SetDeviceLocator(cursor.U8());
    object.SetBankLocator(cursor.U8());
    object.SetMemoryType(cursor.U8());
    object.SetTypeDetail(cursor.U16());
    object.SetSpeed(cursor.U16());
    if (GetSpecVersion() >= kSmbios23) {
      object.SetStringCount(6);
      object.SetManufacturer(cursor.U8());
      object.SetSerialNumber(cursor.U8());
      object.SetAssetTag(cursor.U8());
      object.SetPartNumber(cursor.U8());
    }
  });
}

}  // namespace kestrel
