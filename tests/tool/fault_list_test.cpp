#include "tools/kestrel/fault_list.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "firmware/entry_point.h"
#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kLast = {127, 4, 0x7F, 0, 0, 0};

std::string FaultsOf(const SmbiosTable& table) {
  const catalog::TableScan scan = catalog::ScanTable(table);
  catalog::FaultList faults = catalog::FindFaults(table, scan);
  // What follows the End-of-Table of a 64-bit entry point is kept from the walk.
  const bool is64Bit = table.EntryPoint.Kind == EntryPointKind::Bits64;
  const std::span<const std::uint8_t> bytes(table.Bytes);
  AddWalkFaults(faults, CompareWithWalk(scan, is64Bit ? bytes.first(scan.End) : bytes));
  return ListFaults(faults);
}

// The sample after a 32-bit entry point.
SmbiosTable Sample() {
  SmbiosTable table;
  table.Bytes = MakeSampleTable();
  const auto length = static_cast<std::uint16_t>(table.Bytes.size());
  table.EntryPoint =
      ParseEntryPoint(MakeEntryPoint(kSampleVersion, 0x20, length,
                                     MeasureTable(table.Bytes, length, EntryPointKind::Bits32)))
          .value();
  return table;
}

Bytes WithHandle(std::uint8_t handle, Bytes structure) {
  structure[2] = handle;
  return structure;
}

TEST(FaultListTest, FindsNothingWrongWithTheSample) { EXPECT_EQ(FaultsOf(Sample()), ""); }

TEST(FaultListTest, FindsWhatIsWrongWithAnEntryPoint) {
  // Bytes of the entry point that become more.
  const struct {
    std::initializer_list<std::pair<std::size_t, int>> More;
    std::string_view Faults;
  } cases[] = {
      {{{0x04, 1}}, "entry point: error: its checksum is wrong: the sum is 01h\r\n"},
      {{{0x05, -1}, {0x11, 1}, {0x04, 0x23}},
       "entry point: remark: its length is 1Eh instead of 1Fh\r\n"
       "entry point: error: its intermediate anchor is not _DMI_\r\n"
       "entry point: error: its intermediate checksum is wrong: the sum is 01h\r\n"},
      {{{0x05, -0x0F}, {0x04, 0x0F}}, "entry point: error: its length is 10h instead of 1Fh\r\n"},
      {{{0x1E, 1}, {0x15, -1}},
       "entry point: remark: its BCD revision is 24h with version 2.3\r\n"},
  };
  for (const auto& test : cases) {
    SmbiosTable table = Sample();
    for (const auto& [offset, more] : test.More) {
      std::uint8_t& byte = table.EntryPoint.Bytes[offset];
      byte = static_cast<std::uint8_t>(byte + more);
    }
    EXPECT_EQ(FaultsOf(table), test.Faults);
  }
}

TEST(FaultListTest, FindsWhereTheEntryPointAndTheTableDiffer) {
  SmbiosTable table = Sample();
  table.EntryPoint.StructureCount = 47;
  EXPECT_EQ(FaultsOf(table),
            "entry point: error: its count of structures is 47, but 48 are there\r\n"
            "0653h: error: 6 bytes follow the last structure\r\n"
            "0653h: error: there is no End-of-Table\r\n"
            "0653h: error: the report and the MIF document see a structure of type 127 where none "
            "is\r\n");
  table.EntryPoint.StructureCount = 99;
  table.EntryPoint.TableLength = 4000;
  table.EntryPoint.LargestStructure = 7;
  table.IsElsewhere = true;
  EXPECT_EQ(FaultsOf(table),
            "entry point: remark: its table address is 00000020h, but the table is at another "
            "place of the image\r\n"
            "entry point: error: its table length is 4000, but 1625 bytes are there\r\n"
            "entry point: error: its count of structures is 99, but 48 are there\r\n"
            "entry point: remark: its size of the largest structure is 7, but 106 are taken\r\n");
}

TEST(FaultListTest, FindsWhatIsWrongWithStructures) {
  const struct {
    Bytes Table;
    std::string_view Faults;
    SmbiosVersion Version = {2, 2};
    EntryPointKind Kind = EntryPointKind::None;
  } cases[] = {
      {Join({Structure(16, {3, 3, 3}), kLast}),
       "0000h, type 16, Physical Memory Array: error: its Length is 07h, in version 2.2 0Fh at "
       "least\r\n"},
      {Join({WithHandle(1, Structure(30, {1, 0})), WithHandle(2, Structure(30, {1, 0}, {"A"})),
             WithHandle(3, Structure(30, {7, 0})), WithHandle(4, Structure(24, {0})), kLast}),
       "0000h, type 30, Out-of-Band Remote Access, and 1 more: error: manufacturer_name names "
       "string 1 of 0\r\n"},
      {Join({WithHandle(1, Structure(14, {0, 24, 2, 0, 24, 0xFF, 0xFF, 24, 0xFE, 0xFF, 24, 3, 0})),
             WithHandle(2, Structure(24, {0})), kLast}),
       "0000h, type 14, Group Associations: error: item_handle is 0003h, which no structure "
       "has\r\n"},
      {Join({WithHandle(1, Structure(18, Bytes(19))),
             WithHandle(2, Structure(27, {1, 0, 0, 0, 0, 0, 0, 0})), kLast}),
       "0019h, type 27, Cooling Device: error: temperature_probe_handle is 0001h, a structure of "
       "type 18 (32-bit Memory Error Information)\r\n"},
      {Join({{24, 5, 0x00, 0xFF, 0, 0, 0}, kLast}),
       "0000h: remark: its handle is FF00h, of which those from FF00h on are reserved\r\n"},
      {Join(
           {WithHandle(1, Structure(32, Bytes(7))), WithHandle(2, Structure(32, Bytes(7))), kLast}),
       "000Dh, type 32, System Boot Information: error: a table has no more than one of its "
       "type\r\n"},
      {kLast,
       "0006h: remark: required types are missing: type 0 (BIOS Information), type 1 (System "
       "Information), type 3 (System Enclosure or Chassis), type 4 (Processor Information), type 7 "
       "(Cache Information), type 9 (System Slots), type 16 (Physical Memory Array), type 17 "
       "(Memory Device), type 19 (Memory Array Mapped Address), type 32 (System Boot "
       "Information)\r\n",
       {2, 3}},
      {Structure(24, {0}), "0007h: error: there is no End-of-Table\r\n"},
      {Structure(24, {0}), "", {2, 1}},
      {Join({kLast, Structure(24, {0}), Structure(200, {}), Bytes(3)}),
       "0013h: remark: 3 zeros follow the last structure\r\n"
       "0006h: error: 2 structures follow End-of-Table\r\n"
       "000Dh: error: its handle is 0000h, as that of the structure at 0006h\r\n"},
      {Join({kLast, {0, 0, 1}}),
       "0006h: error: 3 bytes follow the last structure\r\n",
       {2, 2},
       EntryPointKind::Bits64},
      {{127, 4, 1, 0, 0},
       "0000h, type 127, End-of-Table: error: its string set does not end before the table\r\n"},
      {Join({kLast, {24, 3, 0, 0}}),
       "0006h: error: a structure there would have a Length of 03h, below 04h\r\n"
       "0006h: error: the report and the MIF document see a structure of type 24 where none "
       "is\r\n"},
      {Join({kLast, {24, 9, 1, 0, 0}}),
       "0006h: error: a structure there would have a Length of 09h and go past the end of the "
       "table, 000Bh\r\n"
       "0006h: error: the report and the MIF document see a structure of type 24 where none "
       "is\r\n"},
      {Join({WithHandle(3, Structure(11, {0})),
             WithHandle(17, Structure(0, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {"Maker"})),
             kLast}),
       "0007h, type 0, BIOS Information: error: the report and the MIF document lose it\r\n"
       "0008h: error: the report and the MIF document see a structure of type 18 where none "
       "is\r\n",
       {2, 0}},
      {{12, 5, 1, 0, 0, 0, 'S', 4, 'T', 'U', 0, 0, 127, 4, 2, 0, 0, 0},
       "0000h, type 12, System Configuration Options: error: the report and the MIF document take "
       "it to end too early\r\n"
       "0006h: error: the report and the MIF document see a structure of type 83 where none "
       "is\r\n"},
  };
  for (const auto& test : cases) {
    SmbiosTable table;
    table.EntryPoint.Kind = test.Kind;
    table.EntryPoint.Version = test.Version;
    if (test.Kind == EntryPointKind::Bits64) {
      table.EntryPoint = *ParseEntryPoint(Make64BitEntryPoint(test.Version, 0x20, 64));
    }
    table.Bytes = test.Table;
    EXPECT_EQ(FaultsOf(table), test.Faults);
  }
}

}  // namespace
}  // namespace kestrel
