#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "types/string_list_obj.h"

namespace kestrel {

namespace {

// OEM Strings: free text of the system's maker. Layout: DMTF DSP0134, "OEM Strings (Type 11)
// structure".
class SMType11Obj final : public SMStringListObj {
 public:
  SMType11Obj() : SMStringListObj(11, "OEM Strings (Type 11)") {}
};

}  // namespace

void SMBiosReader::ReadType11(TableCursor& cursor) {
  ReadStructure<SMType11Obj>(cursor, [&](auto& object) {
    object.SetCount(cursor.U8());
    object.SetStringCount(object.GetCount());
  });
}

}  // namespace kestrel
