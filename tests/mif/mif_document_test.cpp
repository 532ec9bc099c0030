#include <gmock/gmock.h>

#include "model/smbios_reader.h"
#include "tests/mif/mif_grammar.h"
#include "tests/support/tables.h"
#include "tools/kestrel/sample.h"

namespace kestrel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

Bytes Bios(const Bytes& characteristics) {
  return Structure(0, Join({{1, 2, 0x00, 0xF0, 3, 7}, characteristics}),
                   {"Maker", "1.07", "05/14/2002"});
}

TEST(MifDocumentTest, HasTenGroupsBeforeAnythingIsRead) {
  EXPECT_EQ(SMBiosReader().ObjsToMifString(), ExpectedText("empty.mif"));
}

TEST(MifDocumentTest, FollowsTheGrammar) {
  EXPECT_EQ(FaultOf(SMBiosReader().ObjsToMifString()), "");
  EXPECT_EQ(FaultOf(MifOf(MakeSampleTable(), kSampleVersion)), "");
}

TEST(MifDocumentTest, DescribesTheSample) {
  EXPECT_EQ(MifOf(MakeSampleTable(), kSampleVersion), ExpectedText("sample.mif"));
}

// Two or more structures of each type that gives rows, and others between them: rows and system
// texts come in table order, whatever else is there.
TEST(MifDocumentTest, DescribesManyStructures) {
  const Bytes none = Bytes(8);
  const Bytes table = Join({
      Structure(4,
                Join({{1, 3, 11, 2},
                      none,
                      {3, 0x8F, 0x64, 0, 0xFF, 0xFF, 0xC2, 0x01, 0x47, 0xFF},
                      {0, 7, 1, 7, 0xFF, 0xFF, 0, 0, 0}}),
                {"Socket", "Maker", "Version A"}),
      Structure(11, {1}, {"no row"}),
      // Write through, 1024 KB in units of 64; a level that no cache has.
      Structure(7, {1, 0x07, 0x00, 0, 0, 0x10, 0x80, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0}, {"L"}),
      Structure(9, {1, 0xA0, 5, 3, 4, 0x34, 0x12, 0, 0}, {"Slot A"}),
      Structure(0, Join({{1, 2, 0xFF, 0xFF, 3, 0xFF}, Bytes(8, 0xFF)}),
                {" Maker", "1.0", "05/14/02"}),
      // 512 KB.
      Structure(17, {0, 0x10, 0xFE, 0xFF, 0xFF, 0xFF, 64, 0, 0x00, 0x82, 0xFF, 0xFE,
                     2, 0,    0x12, 0xFF, 0xFF, 0,    1,  0, 0,    0,    0},
                {"not shown", "DIMM A"}),
      Structure(127, {}),
      Structure(16, {0x0A, 3, 6, 0, 0, 0, 0x80, 0xFE, 0xFF, 0xFF, 0xFF}),
      Structure(1, Join({{1, 2, 0, 3}, Bytes(16), {6}}), {" Maker \t ", "A : B", "  "}),
      Structure(19, {0, 0, 0, 0x80, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0x10, 0xFF}),
      Structure(20, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 3, 0, 0, 0, 0, 0, 0xFF, 0xFE, 0xFD}),
      // The operational mode that varies.
      Structure(7, {0, 0x02, 0x02, 0, 0, 0xFF, 0x7F, 0, 0, 0, 0, 0, 0, 0, 0}),
      Structure(4, Join({{0, 0xFF, 0xFE, 0}, none, {0, 0, 0, 0, 0, 0, 0, 0, 0x40, 6}, Bytes(9)})),
      // Megabytes unknown.
      Structure(17,
                {0, 0, 0, 0, 72, 0, 64, 0, 0xFF, 0xFF, 9, 0, 1, 2, 7, 0x80, 0, 0x85, 0, 3, 0, 0, 0},
                {"DIMM B", "Bank B", "Maker"}),
      Structure(0, {0, 4, 0x00, 0xF0, 9, 0, 0x10, 0, 0, 0, 0, 0, 0, 0}, {"A", "B", "C"}),
      Structure(19, {0, 0, 4, 0, 0xFF, 0xFF, 7, 0, 0, 0, 2}),
      Structure(9, {0, 0, 0xFF, 0, 0, 0, 0, 0, 0}),
      Structure(200, {1, 2, 3}, {"no reader"}),
      Structure(20, {1, 0, 0, 0, 2, 0, 0, 0, 9, 9, 9, 9, 3, 2, 1}),
      Structure(16, Bytes(11)),
      Structure(1, Bytes(21), {"no text of the document"}),
      // The operational mode that is unknown, all sizes at their most.
      Structure(7, {0, 0x00, 0x03, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 10, 6, 3, 0}),
  });
  const std::string document = MifOf(table);
  EXPECT_EQ(document, ExpectedText("many.mif"));
  EXPECT_EQ(FaultOf(document), "");
}

TEST(MifDocumentTest, HasNoCharacteristicsTableWithoutCharacteristics) {
  // All but the features that the table lists.
  EXPECT_THAT(MifOf(Bios({0x0F, 0x00, 0xFC, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF})),
              HasSubstr("\tClass = \"DMTF|BIOS Characteristic|003\"\r\n\tID = 3\r\n"));
}

TEST(MifDocumentTest, CutsTheReleaseDateOfTheBios) {
  ExpectMifRows(
      Bios(Bytes(8)),
      {
          {0x08, {3}, R"({0,"Maker","1.07",512,61440,0,"","20020514000000.000000-300",1})"},
          {0x08, {2}, R"({0,"Maker","1.07",512,61440,0,"","1.7000000.000000-300",1})"},
          {0x08, {1}, R"({0,"Maker","1.07",512,61440,0,"","Maer000000.000000-300",1})"},
          {0x08, {0}, R"({0,"Maker","1.07",512,61440,0,"","20000101000000.000000-300",1})"},
      });
}

// Consoles get the strings of the firmware as they are, whatever becomes of the document.
TEST(MifDocumentTest, LeavesStringsUnchanged) {
  const std::string odd = "a\"b\\c\x1B\x07\r\n\xFF\t ";
  EXPECT_EQ(MifRowsOf(Structure(0, Join({{1, 2, 0, 0, 3}, Bytes(9)}), {odd, "\\", "\"\x01"}), 0),
            "\t{0,\"" + odd + "\",\"\\\",64,0,0,\"\",\"\"\x01" + "000000.000000-300\",1}\r\n");
  EXPECT_EQ(MifRowsOf(Structure(17, Join({Bytes(12), {1, 2}, Bytes(9)}), {odd, "\""}), 17),
            "\t{1,0,\"" + odd + "\",\"\"\",0,0,0,0,0,0,0,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n");
  const std::string document = MifOf(Structure(1, Join({{1, 0, 0, 0}, Bytes(17)}), {odd}));
  EXPECT_THAT(document, HasSubstr("\t\tValue = \"a\"b\\c\x1B\x07\r\n\xFF\"\r\n"));
  EXPECT_NE(FaultOf(document), "");
}

TEST(MifGrammarTest, FindsEachFault) {
  const std::string document = MifOf(Bios({0x10, 0, 0, 0, 0, 0, 0, 0}));
  ASSERT_EQ(FaultOf(document), "");
  const struct {
    std::string_view Piece;
    std::string_view Replacement;
    std::string_view Fault;
  } cases[] = {
      // Blocks.
      {"\tEnd Attribute\r\n", "", "end expected, not start"},
      {"End Group", "End Table", "group expected, not table"},
      {"End Component", "", "end expected, not "},
      {"End Component", "End Component End", "text behind the component"},
      {"Start Group\r\n\tName = \"Memory Device Mapped Addresses\"", "End Component //",
       "not ten groups"},
      // Statements.
      {"\tKey = 1\r\n", "\tKey = 1\r\n\tKey = 1\r\n", "no statement, or a second one: key"},
      {"\tName = \"System BIOS\"\r\n", "", "a block without all of its statements"},
      {"\t\tID = 1\r\n", "", "a block without all of its statements"},
      {"Storage = Common", "Storage = Shared", "no storage: shared"},
      {"Type = Date", "Type = Day", "no type: day"},
      {"Class = \"DMTF|System BIOS|001\"", "Class = \"DMTF|System BIOS\"", "no class of 3 parts"},
      {"Key = 1, 2", "Key = 1, 5", "no such key"},
      // Texts.
      {R"("BIOS Index")", R"("BIOS Index)", "a string does not end"},
      {R"("BIOS Index")", R"("BIOS \Index")", "a string does not end"},
      {R"("BIOS Index")", R"(BIOS)", "no string: bios"},
      {"// Group", "/ Group", "no statement, or a second one: /"},
      // IDs.
      {"\r\n\tID = 4\r\n", "\r\n\tID = 5\r\n", "not the ID 4"},
      {"Table\"\r\n\tID = 2", "Table\"\r\n\tID = 3", "not the ID 2"},
      {"\t\tID = 2\r\n", "\t\tID = 3\r\n", "not the ID 2"},
      // Tables and their templates.
      {"\r\n\tID = 4\r\n", "\r\n", "table expected, not group"},
      {"Class = \"DMTF|System BIOS|001\"", "Class = \"DMTF|System BIOS|001\" ID = 2",
       "group expected, not table"},
      {"CLASS = \"DMTF|System BIOS|001\"", "CLASS = \"DMTF|System BIOS|002\"",
       "not the class of the template"},
      {",61440,0,", ",61440,", "no number: \"\""},
      {R"(000000-300",1})", R"(000000-300"})", "too few fields"},
      {R"(000000-300",1})", R"(000000-300",1,1})", "too many fields"},
      // Forms of values.
      {R"({0,"Maker")", R"({0,1)", "no string: 1"},
      {R"({0,"Maker")", R"({"0","Maker")", "no number: \"0\""},
      {R"("1.07",512)", R"("1.07",4294967296)", "too large a number"},
      {"Type = Integer\r\n\t\tValue = 0", "Type = Integer\r\n\t\tValue = \"\"", "no number: \"\""},
      {"\t\t\t2 = \"Unknown\"", "\t\t\t1 = \"Unknown\"", "an item twice"},
      {"Value = 5", "Value = 8", "no item of the enumeration"},
  };
  for (const auto& test : cases) {
    std::string broken = document;
    const std::size_t position = broken.find(test.Piece);
    ASSERT_NE(position, std::string::npos) << test.Piece;
    broken.replace(position, test.Piece.size(), test.Replacement);
    EXPECT_THAT(FaultOf(broken), StartsWith(test.Fault)) << test.Piece;
  }
}

}  // namespace
}  // namespace kestrel
