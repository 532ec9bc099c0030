#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

std::string_view TextOfState(unsigned bit) { return bit != 0 ? "Enabled" : "Disabled"; }

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

  // "Description" for the manufacturer.
  ItemText GetManufacturerNameText() const {
    return {"Description : ", GetString(ManufacturerName)};
  }
  ItemText GetConnectionsText() const {
    return {"Connections : Inbound Connection ", TextOfState(Connections & 1U),
            "; Outbound Connection ", TextOfState(Connections & 2U)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t Connections = 0;
  std::uint8_t ManufacturerName = 0;
};

std::string SMType30Obj::ToString() const {
  TextBlock block("Out-of-Band Remote Access (Type 30)");
  block.Item(GetManufacturerNameText());
  block.Item(GetConnectionsText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType30(TableCursor& cursor) {
  ReadStructure<SMType30Obj>(cursor, [&](auto& object) {
    object.SetManufacturerName(cursor.U8());
    object.SetConnections(cursor.U8());
  });
}

}  // namespace kestrel
