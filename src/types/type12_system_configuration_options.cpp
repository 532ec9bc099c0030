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
  ReadStructure<SMType12Obj>(cursor, [&](auto& object) {
    object.SetCount(cursor.U8());
    object.SetStringCount(object.GetCount());
  });
}

}  // namespace kestrel
