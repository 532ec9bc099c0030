#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "model/smbios_reader.h"
#include "model/table_cursor.h"
#include "model/text.h"

namespace kestrel {

namespace {

// Out-of-Band Remote Access: whether the system can be reached, or can call out, without its
// operating system. Layout: DMTF DSP0134, "Out-of-Band Remote Access (Type 30) structure".
class SMType30Obj final : public SMObj {
 public:
  SMType30Obj() {
    SetType(30);
    SetStringCount(1);
  }

  void SetManufacturerName(std::uint8_t value) { ManufacturerName = value; }
  void SetConnections(std::uint8_t value) { Connections = value; }

  std::string ToString() const override;

 private:
  std::string_view GetConnectionText(std::uint8_t mask) const {
    return (Connections & mask) != 0 ? "Enabled" : "Disabled";
  }

  std::uint8_t Connections = 0;
  std::uint8_t ManufacturerName = 0;
};

std::string SMType30Obj::ToString() const {
  TextBlock block("Out-of-Band Remote Access (Type 30)");
  block.Item({"Description : ", GetString(ManufacturerName)});  // "Description": intended.
  block.Item({"Connections : Inbound Connection ", GetConnectionText(0x01),
              "; Outbound Connection ", GetConnectionText(0x02)});
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType30(TableCursor& cursor) {
  auto object = std::make_unique<SMType30Obj>();
  ReadHeader(*object, cursor);
  object->SetManufacturerName(cursor.U8());
  object->SetConnections(cursor.U8());
  CollectStrings(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
