#include <memory>
#include <utility>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "types/string_list_obj.h"

namespace kestrel {

namespace {

// System Configuration Options: how to set the jumpers and switches of the main board. Layout: DMTF
// DSP0134, "System Configuration Options (Type 12) structure".
class SMType12Obj final : public SMStringListObj {
 public:
  SMType12Obj() : SMStringListObj(12, "System Configuration Options (Type 12)") {}
};

}  // namespace

void SMBiosReader::ReadType12(TableCursor& cursor) {
  auto object = std::make_unique<SMType12Obj>();
  ReadHeader(*object, cursor);
  object->SetCount(cursor.U8());
  object->SetStringCount(object->GetCount());
  CollectStrings(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
