#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// End-of-Table: marks the end of the table, although the walk continues to the table's length.
class SMType127Obj final : public SMObj {
 public:
  SMType127Obj() { SetType(127); }

  std::string ToString() const override { return TextBlock("End-of-Table (Type 127)").Close(); }
};

}  // namespace

void SMBiosReader::ReadType127(TableCursor& cursor) {
  ReadStructure<SMType127Obj>(cursor, [](auto& /*object*/) {});
}

}  // namespace kestrel
