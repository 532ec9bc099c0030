#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// A structure that holds only a count and that many strings. Its block has a line for each string,
// which is the string alone.
class SMStringListObj : public SMObj {
 public:
  void SetCount(std::uint8_t value) { Count = value; }
  std::uint8_t GetCount() const { return Count; }

  std::string ToString() const override {
    TextBlock block(Title);
    for (const std::string& text : GetStrings()) {
      block.Item(text);
    }
    return block.Close();
  }

 protected:
  // The title must outlive the object.
  SMStringListObj(std::uint8_t type, std::string_view title) : Title(title) { SetType(type); }

 private:
  std::string_view Title;
  std::uint8_t Count = 0;
};

// OEM Strings: free text of the system's maker. Layout: DMTF DSP0134, "OEM Strings (Type 11)
// structure".
class SMType11Obj final : public SMStringListObj {
 public:
  SMType11Obj() : SMStringListObj(11, "OEM Strings (Type 11)") {}
};

// System Configuration Options: how to set the jumpers and switches of the main board. Layout: DMTF
// DSP0134, "System Configuration Options (Type 12) structure".
class SMType12Obj final : public SMStringListObj {
 public:
  SMType12Obj() : SMStringListObj(12, "System Configuration Options (Type 12)") {}
};

void ReadCount(SMStringListObj& object, TableCursor& cursor) {
  object.SetCount(cursor.U8());
  object.SetStringCount(object.GetCount());
}

}  // namespace

void SMBiosReader::ReadType11(TableCursor& cursor) {
  ReadStructure<SMType11Obj>(cursor, [&](auto& object) { ReadCount(object, cursor); });
}

void SMBiosReader::ReadType12(TableCursor& cursor) {
  ReadStructure<SMType12Obj>(cursor, [&](auto& object) { ReadCount(object, cursor); });
}

}  // namespace kestrel
