#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>
#include <string>

#include "model/mif_row.h"
#include "model/smbios_reader.h"
#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

using testing::HasSubstr;

Bytes BiosWithCharacteristics(const Bytes& characteristics) {
  return Structure(0, Join({{1, 2, 0x00, 0xF0, 3, 7}, characteristics}),
                   {"Maker", "1.07", "05/14/2002"});
}

// The IDs of groups and tables, and the rows of the tables.
std::string RowsIn(const std::string& document) {
  std::istringstream lines(document);
  std::string rows;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("\tID = ") || line.starts_with("\t{")) {
      rows += line + "\n";
    }
  }
  return rows;
}

TEST(MifDocumentTest, NumbersTenGroupsBeforeAnythingIsRead) {
  const std::string document = SMBiosReader().ObjsToMifString();
  EXPECT_EQ(RowsIn(document),
            "\tID = 1\r\n\tID = 2\r\n\tID = 3\r\n\tID = 4\r\n\tID = 5\r\n"
            "\tID = 6\r\n\tID = 7\r\n\tID = 8\r\n\tID = 9\r\n\tID = 10\r\n");
  EXPECT_THAT(document, HasSubstr("\t\tType = DisplayString(64)\r\n\t\tValue = \"\"\r\n"));
}

TEST(MifDocumentTest, NumbersRowsAndGroupsWithASign) {
  int idCounter = -3;
  EXPECT_THAT(SMBiosReader().MakeSystemBiosGroup(idCounter), HasSubstr("\tID = -3\r\n"));
  EXPECT_EQ(MifRow({-2, 0xFFFFFFFFU}), "\t{-2,4294967295}\r\n");
}

TEST(MifDocumentTest, DescribesTheSample) {
  EXPECT_EQ(MifOf(MakeSampleTable(), kSampleVersion), ExpectedText("sample.mif"));
}

TEST(MifDocumentTest, HasAFieldPerAttributeInEachRow) {
  std::istringstream lines(MifOf(MakeSampleTable(), kSampleVersion));
  std::ptrdiff_t attributes = 0;
  int rows = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("Start Group")) {
      attributes = 0;
    } else if (line.starts_with("\tStart Attribute")) {
      ++attributes;
    } else if (line.starts_with("\t{")) {
      // No string of the sample has a comma.
      EXPECT_EQ(std::count(line.begin(), line.end(), ',') + 1, attributes) << line;
      ++rows;
    }
  }
  EXPECT_GT(rows, 9);
}

// Two or more structures of each type that gives rows, and others between them: rows and system
// texts come in table order among all others.
TEST(MifDocumentTest, DescribesManyStructures) {
  const Bytes table = Join({
      Structure(4,
                Join({{1, 3, 11, 2},
                      Bytes(8),
                      {3, 0x8F, 0x64, 0, 0xFF, 0xFF, 0xC2, 0x01, 0x47, 0xFF},
                      Bytes(9)}),
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
      Structure(4, Join({{0, 0xFF, 0xFE}, Bytes(17), {0x40, 6}, Bytes(9)})),
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
  EXPECT_EQ(RowsIn(document), ExpectedText("many_rows.txt"));
  EXPECT_THAT(document, HasSubstr("\t\tValue = \"A : B\"\r\n"));
}

TEST(MifDocumentTest, HasNoCharacteristicsTableWithoutCharacteristics) {
  // All but the features that the table lists.
  EXPECT_THAT(MifOf(BiosWithCharacteristics({0x0F, 0x00, 0xFC, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF})),
              HasSubstr("\tClass = \"DMTF|BIOS Characteristic|003\"\r\n\tID = 3\r\n"));
}

TEST(MifDocumentTest, CutsTheReleaseDateOfTheBios) {
  ExpectMifRows(
      BiosWithCharacteristics(Bytes(8)),
      {
          {0x08, {3}, R"({0,"Maker","1.07",512,61440,0,"","20020514000000.000000-300",1})"},
          {0x08, {2}, R"({0,"Maker","1.07",512,61440,0,"","1.7000000.000000-300",1})"},
          {0x08, {1}, R"({0,"Maker","1.07",512,61440,0,"","Maer000000.000000-300",1})"},
          {0x08, {0}, R"({0,"Maker","1.07",512,61440,0,"","20000101000000.000000-300",1})"},
      });
}

// Consoles get the strings of the firmware as they are, even where they break the document.
TEST(MifDocumentTest, LeavesStringsUnchanged) {
  const std::string odd = "a\"b\\c\x1B\x07\r\n\xFF\t ";
  EXPECT_EQ(MifRowsOf(Structure(0, Join({{1, 2, 0, 0, 3}, Bytes(9)}), {odd, "\\", "\"\x01"}), 0),
            "\t{0,\"" + odd + "\",\"\\\",64,0,0,\"\",\"\"\x01" + "000000.000000-300\",1}\r\n");
  EXPECT_EQ(MifRowsOf(Structure(17, Join({Bytes(12), {1, 2}, Bytes(9)}), {odd, "\""}), 17),
            "\t{1,0,\"" + odd + "\",\"\"\",0,0,0,0,0,0,0,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n");
  EXPECT_THAT(MifOf(Structure(1, Join({{1, 0, 0, 0}, Bytes(17)}), {odd})),
              HasSubstr("\t\tValue = \"a\"b\\c\x1B\x07\r\n\xFF\"\r\n"));
}

}  // namespace
}  // namespace kestrel
