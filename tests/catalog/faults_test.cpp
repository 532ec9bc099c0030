#include "catalog/faults.h"

#include <gtest/gtest.h>
#include <sstream>

#include "firmware/entry_point.h"
#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

Bytes Numbered(std::uint8_t handle, std::uint8_t type, const Bytes& fields = {},
               std::initializer_list<std::string_view> strings = {}) {
  Bytes structure = Structure(type, fields, strings);
  structure[2] = handle;
  return structure;
}

const Bytes kFirst = Numbered(1, 24, {0});
const Bytes kLast = Numbered(127, 127);

// A line per fault: offset and type/handle, in how many more places, what is wrong.
std::string LinesOf(const catalog::FaultList& faults) {
  std::ostringstream lines;
  for (const auto& [place, severity, text, more] : faults.GetFaults()) {
    lines << (place.Offset ? std::to_string(*place.Offset) + " " : "");
    if (place.Type) {
      lines << int{*place.Type} << "/" << place.Handle.value() << " ";
    }
    lines << (more == 0 ? "" : "+" + std::to_string(more) + " ")
          << (severity == catalog::FaultSeverity::Error ? "error: " : "remark: ") << text << "\n";
  }
  return lines.str();
}

std::string FaultsOf(const SmbiosTable& table) {
  return LinesOf(FindFaults(table, catalog::ScanTable(table)));
}

std::string FaultsOf(const Bytes& bytes, SmbiosVersion version) {
  SmbiosTable table;
  table.EntryPoint.Version = version;
  table.Bytes = bytes;
  return FaultsOf(table);
}

TEST(TableFaultsTest, FindsWhatIsWrongWithAnEntryPoint) {
  const struct {
    const char* Name;
    // Bytes of the entry point that become more.
    std::initializer_list<std::pair<std::size_t, int>> More;
    std::string_view Faults;
    Bytes After = {};
  } cases[] = {
      {"checksum", {{4, 1}}, "error: its checksum is wrong: the sum is 01h\n"},
      {"the length of version 2.1, and the second half",
       {{5, -1}, {0x11, 1}, {4, 0x22}},
       "remark: its length is 1Eh instead of 1Fh\n"
       "error: its intermediate anchor is not _DMI_\n"
       "error: its intermediate checksum is wrong: the sum is 01h\n"},
      {"too short", {{5, -15}, {4, 15}}, "error: its length is 10h instead of 1Fh\n"},
      {"longer than what is at hand", {{5, 2}}, "remark: its length is 21h instead of 1Fh\n"},
      {"revision", {{0x1E, 1}, {0x15, -1}}, "remark: its BCD revision is 23h with version 2.2\n"},
      {"no revision", {{0x1E, -0x22}, {0x15, 0x22}}, ""},
      {"a version that does not exist",
       {{7, 29}, {4, -29}, {0x1E, 1}, {0x15, -1}},
       "remark: the version is 2.31, which does not exist and is taken for 2.3\n"
       "13 remark: required types are missing: type 0 (BIOS Information), type 1 (System "
       "Information), type 3 (System Enclosure or Chassis), type 4 (Processor Information), type "
       "16 (Physical Memory Array), type 17 (Memory Device), type 19 (Memory Array Mapped "
       "Address), type 32 (System Boot Information)\n"},
      {"a count that is too small",
       {{0x1C, -1}, {0x15, 1}},
       "error: its count of structures is 1, but 2 are there\n"
       "7 error: 6 bytes follow the last structure\n"
       "7 error: there is no End-of-Table\n"},
      {"a structure after the last", {}, "13 remark: 7 bytes follow the last structure\n", kFirst},
      {"numbers that are too large",
       {{8, 9}, {4, -9}, {0x16, 9}, {0x1C, 9}, {0x15, -18}},
       "error: its table length is 22, but 13 bytes are there\n"
       "error: its count of structures is 11, but 2 are there\n"},
      {"a largest structure that is too small",
       {{8, -1}, {4, 1}},
       "remark: its size of the largest structure is 6, but 7 are taken\n"},
  };
  for (const auto& test : cases) {
    SmbiosTable table;
    table.Bytes = Join({kFirst, kLast, test.After});
    Bytes entryPoint = MakeEntryPoint({2, 2}, 32, static_cast<std::uint16_t>(table.Bytes.size()),
                                      {.Structures = 2, .LargestStructure = 7});
    for (const auto& [offset, more] : test.More) {
      entryPoint[offset] = static_cast<std::uint8_t>(entryPoint[offset] + more);
    }
    table.EntryPoint = ParseEntryPoint(entryPoint).value();
    EXPECT_EQ(FaultsOf(table), test.Faults) << test.Name;
  }
}

TEST(TableFaultsTest, FindsWhatIsWrongWithEachStructure) {
  const struct {
    const char* Name;
    Bytes Table;
    std::string_view Faults;
  } cases[] = {
      {"lengths of no version, of an earlier one, and of this one",
       Join({Numbered(1, 16, {3, 3, 3}), Numbered(2, 22, Bytes(12)), Numbered(3, 9, Bytes(13))}),
       "0 16/1 error: its Length is 07h, 0Fh at least in every version\n"
       "9 22/2 remark: its Length is 10h, 1Ah at least in version 3.2\n"},
      {"strings of a field and of a list",
       Join({Numbered(1, 30, {1, 0}), Numbered(2, 30, {1, 0}, {"A"}),
             Numbered(3, 10, {1, 2, 1, 1}, {"A"})}),
       "0 30/1 error: manufacturer_name names string 1 of 0\n"
       "17 10/3 error: description_string names string 2 of 1\n"},
      {"handles that name nothing, and those that should",
       Join({Structure(14, {0, 24, 1, 0, 24, 0xFF, 0xFF, 24, 0xFE, 0xFF, 24, 9, 0}), kFirst}),
       "0 14/0 error: item_handle is 0009h, which no structure has\n"},
      {"handles of another type, of several structures, and of one that is inactive",
       Join({Structure(35, {0, 255, 255, 1, 0, 4, 0}), kFirst, Numbered(1, 200),
             Numbered(2, 35, {0, 255, 255, 3, 0, 255, 255}), Numbered(3, 60),
             Numbered(3, 28, Bytes(16)), Numbered(4, 126)}),
       "0 35/0 error: component_handle is 0001h, a structure of type 24 (Hardware Security)\n"
       "20 200/1 error: its handle is 0001h, as that of the structure at 000Dh\n"
       "45 28/3 error: its handle is 0003h, as that of the structure at 0027h\n"},
      {"a reserved handle, a second where one may be, and a string set that is cut",
       Join({{24, 5, 0, 0xFF, 0, 0, 0},
             Structure(32, Bytes(7)),
             Numbered(2, 32, Bytes(7)),
             {200, 4, 1, 0, 'A', 0}}),
       "0 24/65280 remark: its handle is FF00h, of which those from FF00h on are reserved\n"
       "20 32/2 error: a table has no more than one of its type\n"
       "33 200/1 error: its string set does not end before the table\n"},
  };
  for (const auto& test : cases) {
    SmbiosTable table;
    table.EntryPoint.Version = {3, 2};
    table.Bytes = test.Table;
    const catalog::TableScan scan = catalog::ScanTable(table);
    const catalog::StructureChecker checker(table, scan);
    std::string lines;
    for (const catalog::Structure& structure : scan.Structures) {
      catalog::FaultList faults;
      checker.Check(structure, faults);
      lines.append(LinesOf(faults));
    }
    EXPECT_EQ(lines, test.Faults) << test.Name;
  }
}

TEST(TableFaultsTest, FindsWhatShowsInTheWholeTable) {
  EXPECT_EQ(FaultsOf(MakeSampleTable(), kSampleVersion), "");
  // A kind of fault is there once for each type, and a structure counts once.
  const Bytes items = {0, 24, 8, 0, 24, 9, 0};
  EXPECT_EQ(FaultsOf(Join({Numbered(1, 14, items), Numbered(2, 14, items), kLast}), {2, 2}),
            "0 14/1 +1 error: item_handle is 0008h, which no structure has\n");
  EXPECT_EQ(FaultsOf(kFirst, {2, 2}), "7 error: there is no End-of-Table\n");
  // Handles were not reserved in the first version.
  const Bytes reserved = Join({{24, 5, 0, 0xFF, 0, 0, 0}, kLast});
  EXPECT_EQ(FaultsOf(reserved, {2, 0}), "");
  EXPECT_EQ(FaultsOf(reserved, {2, 1}),
            "0 24/65280 remark: its handle is FF00h, of which those from FF00h on are reserved\n");
  EXPECT_EQ(FaultsOf(Join({kFirst, {24, 9, 2, 0, 0}}), {2, 1}),
            "7 error: a structure there would have a Length of 09h and go past the end of the "
            "table, 000Ch\n");
  EXPECT_EQ(FaultsOf(Join({kLast, kFirst, Structure(200, {}), Bytes(3)}), {2, 2}),
            "19 remark: 3 zeros follow the last structure\n"
            "6 error: 2 structures follow End-of-Table\n");
  EXPECT_EQ(FaultsOf(Join({kLast, {24, 3, 0, 0}}), {2, 2}),
            "6 remark: a structure there would have a Length of 03h, below 04h\n");
  EXPECT_EQ(FaultsOf({127, 4, 1, 0, 0}, {2, 2}),
            "0 127/1 remark: its string set does not end before the table\n");
  const Bytes entryPoint = Make64BitEntryPoint({2, 2}, 0x20, 64);
  EXPECT_EQ(FaultsOf({*ParseEntryPoint(entryPoint), Join({kLast, {0, 0, 1}}), true}),
            "remark: its table address is 00000020h, but the table is at another place of the "
            "image\n"
            "6 remark: 3 bytes follow the last structure\n");
}

}  // namespace
}  // namespace kestrel
