#include <memory>
#include <utility>

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
  auto object = std::make_unique<SMType11Obj>();
  ReadHeader(*object, cursor);
  object->SetCount(cursor.U8());
  object->SetStringCount(object->GetCount());
  CollectStrings(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
