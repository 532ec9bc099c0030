#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// Base Board Information: the system board. Layout: DMTF DSP0134, "Baseboard (or Module)
// Information (Type 2) structure".
class SMType2Obj final : public SMObj {
 public:
  SMType2Obj() {
    SetType(2);
    SetStringCount(4);
  }

  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetProduct(std::uint8_t value) { Product = value; }
  void SetVersion(std::uint8_t value) { Version = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }

  ItemText GetManufacturerText() const { return {"Manufacturer Name : ", GetString(Manufacturer)}; }
  ItemText GetProductText() const { return {"Product : ", GetString(Product)}; }
  ItemText GetVersionText() const { return {"Version : ", GetString(Version)}; }
  ItemText GetSerialNumberText() const { return {"Serial Number : ", GetString(SerialNumber)}; }

  std::string ToString() const override;

 private:
  std::uint8_t SerialNumber = 0;
  std::uint8_t Version = 0;
  std::uint8_t Product = 0;
  std::uint8_t Manufacturer = 0;
};

std::string SMType2Obj::ToString() const {
  TextBlock block("Base Board Information (Type 2)");
  block.Item(GetManufacturerText());
  block.Item(GetProductText());
  block.Item(GetVersionText());
  block.Item(GetSerialNumberText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType2(TableCursor& cursor) {
  ReadStructure<SMType2Obj>(cursor, [&](auto& object) {
    object.SetManufacturer(cursor.U8());
    object.SetProduct(cursor.U8());
    object.SetVersion(cursor.U8());
    object.SetSerialNumber(cursor.U8());
  });
}

}  // namespace kestrel
