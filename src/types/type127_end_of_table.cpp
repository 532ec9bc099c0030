#include <memory>
#include <utility>

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
  auto object = std::make_unique<SMType127Obj>();
  ReadHeader(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
