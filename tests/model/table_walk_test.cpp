#include <algorithm>
#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "sample/sample_table.h"
#include "tests/support/tables.h"
#include "types/type32_system_boot_information.h"

namespace kestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> TypesOf(const SMBiosReader& reader) {
  std::vector<int> types;
  std::transform(reader.GetObjects().begin(), reader.GetObjects().end(), std::back_inserter(types),
                 [](const auto& object) { return int{object->GetType()}; });
  return types;
}

std::vector<int> TypesIn(const Bytes& table) {
  SMBiosReader reader;
  reader.WalkTable(table);
  return TypesOf(reader);
}

// A BIOS Information of Length 12h whose strings are numbered 1 to 3.
Bytes Bios(std::initializer_list<std::string_view> strings) {
  return Structure(0, {1, 2, 0, 0xE0, 3, 7, 0, 0, 0, 0, 0, 0, 0, 0}, strings);
}

TEST(TableWalkTest, FindsEachStructure) {
  const struct {
    const char* Name;
    Bytes Table;
    std::vector<int> Types;
  } cases[] = {
      {"no bytes", {}, {}},
      {"only an end of table", kEnd, {127}},
      {"zeros after the end of table", Join({Bios({"A", "B", "C"}), kEnd, Bytes(6)}), {0, 127}},
      {"no reader, no strings", Join({{0xC8, 6, 0x34, 0x12, 1, 2, 0, 0}, kEnd}), {127}},
      {"no reader, two strings",
       Join({{0xC8, 6, 0x34, 0x12, 1, 2, 'X', 0, 'Y', 0, 0}, kEnd}),
       {127}},
      {"types on both sides of the gaps in the dispatch",
       Join({Structure(31, {}), Structure(40, {}), Structure(125, {}), Structure(126, {}),
             Structure(128, {}), Structure(255, {}), kEnd}),
       {126, 127}},
      {"a zero inside a longer formatted area",
       Join({{1, 0x20, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,   0, 0, 0,
              0, 0,    0, 0, 0, 0, 0, 0, 0, 5, 5, 5, 5, 5, 'A', 0, 0},
             kEnd}),
       {1, 127}},
      {"structures after the end of table",
       Join({kEnd, Structure(126, {}), kEnd}),
       {127, 126, 127}},
      {"a type 0 structure after an empty string set loses its type byte",
       // Its Length byte, 7Eh, is then the type, and its handle's low byte 4 the Length.
       Join({{0xC8, 4, 0, 0, 0, 0}, {0, 0x7E, 4, 0, 0, 'x', 0, 0}}),
       {126}},
      {"BIOS Information shorter than its layout", Join({{0, 0x11, 0, 0}, Bytes(15), kEnd}), {127}},
      // Length 0: the string set begins at the type byte itself.
      {"a Length of 0", Join({{1, 0, 0}, kEnd}), {1, 127}},
      {"a Length that leaves the table", {127, 255, 0, 0, 1, 2, 3, 4}, {127}},
      {"a string set that leaves the table", {127, 4, 0, 0, 'A', 'B', 0}, {127}},
      {"only a type byte", {127}, {127}},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(TypesIn(test.Table), test.Types) << test.Name;
  }
}

TEST(TableWalkTest, ReadsAStructureWithoutAWalk) {
  const Bytes table = Structure(32, {1, 2, 3, 4, 5, 6, 0x42, 7});
  SMBiosReader reader;
  TableCursor cursor(table);
  cursor.Skip(1);
  reader.ReadType32(cursor);
  reader.WalkTable(kEnd);
  ASSERT_THAT(TypesOf(reader), ElementsAre(32, 127));
  const auto& boot = static_cast<const SMType32Obj&>(*reader.GetObjects()[0]);
  EXPECT_THAT(boot.GetReserved(), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(boot.GetBootStatus(), 0x42);
}

TEST(TableWalkTest, MakesAnObjectOfTheStructuresType) {
  EXPECT_THAT(TypesIn(MakeSampleTable()),
              ElementsAre(0, 1, 2, 3, 4, 5, 6, 6, 7, 7, 8, 8, 8, 9, 9, 10, 11, 12, 13, 14, 15, 16,
                          17, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 27, 28, 29, 30, 32, 33,
                          34, 35, 36, 37, 38, 39, 126, 127));
}

TEST(TableWalkTest, AppendsToWhatEarlierWalksRead) {
  SMBiosReader reader;
  const Bytes table = Join({Bios({"A"}), kEnd});
  EXPECT_EQ(reader.GetType0Obj(), nullptr);
  reader.WalkTable(table);
  const auto* first = reader.GetType0Obj();
  reader.WalkTable(table);
  EXPECT_THAT(TypesOf(reader), ElementsAre(0, 127, 0, 127));
  EXPECT_EQ(reader.GetType0Obj(), first);
  EXPECT_EQ(reader.GetSpecVersion(), 0);
}

TEST(StringSetTest, TakesTheDeclaredStringsFromBehindTheFormattedArea) {
  const Bytes longer = Join({{0, 0x16, 0, 0, 1, 2, 0, 0, 3, 0},
                             Bytes(8),
                             {0, 0, 'n', 'o', 'A', 0, 'B', 0, 'C', 0, 'D', 0, 0}});
  const struct {
    const char* Name;
    Bytes Table;
    std::vector<std::string> Strings;
  } cases[] = {
      {"as many as declared", Bios({"A", "B", "C"}), {"A", "B", "C"}},
      {"fewer", Bios({"A", "B"}), {"A", "B"}},
      {"none", Bios({}), {}},
      {"more, after a longer formatted area", longer, {"A", "B", "C"}},
      {"none declared", {127, 4, 0, 0, 'A', 0, 0}, {}},
      {"cut by the end of the table", Join({{1, 4, 0, 0, 'A', 0, 'B', 'C'}}), {"A", "BC"}},
  };
  for (const auto& test : cases) {
    SMBiosReader reader;
    reader.WalkTable(test.Table);
    ASSERT_EQ(reader.GetObjects().size(), 1) << test.Name;
    EXPECT_EQ(reader.GetObjects().front()->GetStrings(), test.Strings) << test.Name;
  }
}

TEST(StringSetTest, NumbersStringsFromOne) {
  SMObj object;
  object.AddString("first");
  object.AddString("second");
  object.AddString("third");
  EXPECT_EQ(object.GetString(1), "first");
  EXPECT_EQ(object.GetString(3), "third");
  EXPECT_THAT(object.GetString(0), IsEmpty());
  EXPECT_THAT(object.GetString(4), IsEmpty());
  EXPECT_THAT(object.GetString(255), IsEmpty());
}

TEST(TextReportTest, JoinsBlocksAndLeavesSomeTypesOut) {
  const Bytes table = Join({Structure(16, Bytes(11)), Structure(126, {}), Structure(17, Bytes(23)),
                            Structure(19, Bytes(11)), kEnd, Structure(20, Bytes(15)),
                            Structure(32, Bytes(7)), kEnd});
  EXPECT_EQ(ReportOf(table),
            "End-of-Table (Type 127)\r\n\r\n"
            "End-of-Table (Type 127)\r\n\r\n");
}

}  // namespace
}  // namespace kestrel
