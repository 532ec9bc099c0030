#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// Group Associations: structures that belong together. Only the first is kept. Layout: DMTF
// DSP0134, "Group Associations (Type 14) structure".
class SMType14Obj final : public SMObj {
 public:
  SMType14Obj() {
    SetType(14);
    SetStringCount(1);
  }

  void SetGroupName(std::uint8_t value) { GroupName = value; }
  void SetItemType(std::uint8_t value) { ItemType = value; }
  void SetItemHandle(std::uint16_t value) { ItemHandle = value; }

  ItemText GetGroupNameText() const { return {"Group Name : ", GetString(GroupName)}; }
  ItemText GetItemTypeText() const { return {"Item Type : ", Decimal(ItemType)}; }
  // Decimal, unlike other handles.
  ItemText GetItemHandleText() const { return {"Item Handle : ", Decimal(ItemHandle)}; }

  std::string ToString() const override;

 private:
  std::uint16_t ItemHandle = 0;
  std::uint8_t ItemType = 0;
  std::uint8_t GroupName = 0;
};

std::string SMType14Obj::ToString() const {
  TextBlock block("Group Associations (Type 14)");
  block.Item(GetGroupNameText());
  block.Item(GetItemTypeText());
  block.Item(GetItemHandleText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType14(TableCursor& cursor) {
  ReadStructure<SMType14Obj>(cursor, [&](auto& object) {
    object.SetGroupName(cursor.U8());
    object.SetItemType(cursor.U8());
    object.SetItemHandle(cursor.U16());
  });
}

}  // namespace kestrel
