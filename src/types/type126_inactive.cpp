#include "base/table_cursor.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Inactive: a structure that the firmware has disabled. It is kept in the list but shown nowhere.
class SMType126Obj final : public SMObj {
 public:
  SMType126Obj() { SetType(126); }
};

}  // namespace

void SMBiosReader::ReadType126(TableCursor& cursor) {
  ReadStructure<SMType126Obj>(cursor, [](auto& /*object*/) {});
}

}  // namespace kestrel
