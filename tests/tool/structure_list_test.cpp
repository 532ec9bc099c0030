#include "tools/kestrel/structure_list.h"

#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(StructureListTest, MarksWhatTheTextsLoseOrSeeOtherwise) {
  const struct {
    const char* Name;
    Bytes Table;
    std::string_view List;
    std::vector<std::string> Notes;
  } cases[] = {
      {"the same for both, with types that no text shows",
       Join({Structure(0, Bytes(14), {"Maker"}),
             {0xC8, 4, 0x34, 0x12, 'O', 0, 0},
             Structure(46, {}, {"S"}),
             kEnd,
             Bytes(8)}),
       "0000h    0   18  0000h  BIOS Information\n"
       "0019h  200    4  1234h  OEM\n"
       "0020h   46    4  0000h  String Property\n"
       "0027h  127    4  0000h  End-of-Table\n",
       {}},
      {"BIOS Information after a structure without strings",
       Join({Structure(11, {0}),
             Structure(0, {1, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {"Maker"}), kEnd}),
       "0000h   11    5  0000h  OEM Strings\n"
       "0007h    0   18  0000h  BIOS Information  *\n"
       "0020h  127    4  0000h  End-of-Table\n",
       {"* marks what the report and the MIF document lose or show differently",
        "structures that the report and the MIF document see and that are none: 2, the first at "
        "0008h"}},
      {"BIOS Information that is too short to be shown",
       Join({Structure(0, Bytes(5)), kEnd}),
       "0000h    0    9  0000h  BIOS Information  *\n"
       "000Bh  127    4  0000h  End-of-Table\n",
       {"* marks what the report and the MIF document lose or show differently"}},
      {"a Length below 4, which the walk takes at its word",
       Join({kEnd, {1, 2, 'A', 0, 0}}),
       "0000h  127    4  0000h  End-of-Table\n",
       {"structures that the report and the MIF document see and that are none: 1, the first at "
        "0006h",
        "the structures end at 0006h: another one there would have a Length below 4"}},
      {"fields past the end",
       {1, 5, 0, 0},
       "",
       {"structures that the report and the MIF document see and that are none: 1, the first at "
        "0000h",
        "the structures end at 0000h: another one there would go past the end of the table"}},
  };
  for (const auto& test : cases) {
    const catalog::TableScan scan = catalog::ScanTable(test.Table, {});
    const WalkComparison comparison = CompareWithWalk(scan, test.Table);
    TextOutput output;
    ListStructures(scan, comparison, output);
    output.Finish();
    EXPECT_EQ(output.GetText(), test.List) << test.Name;
    EXPECT_EQ(NotesOnList(scan, comparison), test.Notes) << test.Name;
  }
}

}  // namespace
}  // namespace kestrel
