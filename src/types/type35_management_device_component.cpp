#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// Management Device Component: links a sensor of a management device to its probe or cooling device
// and to its thresholds. Layout: DMTF DSP0134, "Management Device Component (Type 35) structure".
class SMType35Obj final : public SMObj {
 public:
  SMType35Obj() {
    SetType(35);
    SetStringCount(1);
  }

  void SetDescription(std::uint8_t value) { Description = value; }
  void SetManagementDeviceHandle(std::uint16_t value) { ManagementDeviceHandle = value; }
  void SetComponentHandle(std::uint16_t value) { ComponentHandle = value; }
  void SetThresholdHandle(std::uint16_t value) { ThresholdHandle = value; }

  ItemText GetDescriptionText() const { return {"Description : ", GetString(Description)}; }
  ItemText GetManagementDeviceHandleText() const {
    return {"Management Device Handle : ", Hex(ManagementDeviceHandle, 4), "h"};
  }
  ItemText GetComponentHandleText() const {
    return {"Component Handle : ", Hex(ComponentHandle, 4), "h"};
  }
  ItemText GetThresholdHandleText() const {
    return {"Threshold Handle : ", Hex(ThresholdHandle, 4), "h"};
  }

  std::string ToString() const override;

 private:
  std::uint16_t ThresholdHandle = 0;
  std::uint16_t ComponentHandle = 0;
  std::uint16_t ManagementDeviceHandle = 0;
  std::uint8_t Description = 0;
};

std::string SMType35Obj::ToString() const {
  TextBlock block("Management Device Component (Type 35)");
  block.Item(GetDescriptionText());
  block.Item(GetManagementDeviceHandleText());
  block.Item(GetComponentHandleText());
  block.Item(GetThresholdHandleText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType35(TableCursor& cursor) {
  ReadStructure<SMType35Obj>(cursor, [&](auto& object) {
    object.SetDescription(cursor.U8());
    object.SetManagementDeviceHandle(cursor.U16());
    object.SetComponentHandle(cursor.U16());
    object.SetThresholdHandle(cursor.U16());
  });
}

}  // namespace kestrel
