#include "catalog/structure_scan.h"

#include <gtest/gtest.h>
#include <sstream>

#include "tests/support/tables.h"

namespace kestrel::catalog {
namespace {

const Bytes kFinal = {0x7F, 4, 0xFE, 0xFF, 0, 0};
const Bytes kOem = {0xC8, 6, 0x34, 0x12, 0, 0, 'X', 0, 'Y', 'Z', 0, 0};

// A line per structure, then why and where the scan stopped.
std::string LinesOf(const TableScan& scan) {
  std::ostringstream lines;
  for (const Structure& structure : scan.Structures) {
    lines << structure.Offset << " type " << int{structure.Type} << " handle " << structure.Handle
          << " length " << int{structure.GetLength()};
    for (const std::string_view text : structure.GetStrings()) {
      lines << " '" << text << "'";
    }
    lines << (structure.IsClosed ? "\n" : " open\n");
  }
  const char* const stops[] = {"complete", "length too small", "past end"};
  lines << stops[static_cast<int>(scan.Stop)] << " at " << scan.End << "\n";
  return lines.str();
}

TEST(StructureScanTest, FindsStructuresByTheirLengthAndStrings) {
  const struct {
    const char* Name;
    Bytes Table;
    EndRule Rule;
    std::string_view Lines;
  } cases[] = {
      {"no bytes", {}, {}, "complete at 0\n"},
      {"only zeros", Bytes(7), {}, "complete at 0\n"},
      {"no strings, then BIOS Information",
       {4, 5, 1, 0, 9, 0, 0, 0, 4, 2, 0, 0, 0},
       {},
       "0 type 4 handle 1 length 5\n"
       "7 type 0 handle 2 length 4\n"
       "complete at 13\n"},
      {"zeros among the fields and after the last structure",
       Join({kOem, kFinal, Bytes(9)}),
       {},
       "0 type 200 handle 4660 length 6 'X' 'YZ'\n"
       "12 type 127 handle 65534 length 4\n"
       "complete at 18\n"},
      {"an empty string comes first",
       {12, 4, 1, 0, 0, 'S', 0, 0, 127, 4, 2, 0, 0, 0},
       {},
       "0 type 12 handle 1 length 4 '' 'S'\n"
       "8 type 127 handle 2 length 4\n"
       "complete at 14\n"},
      {"End-of-Table is the end for a 64-bit entry point",
       Join({kFinal, kOem}),
       {.AfterEndOfTable = true},
       "0 type 127 handle 65534 length 4\n"
       "complete at 6\n"},
      {"a count of structures",
       Join({kOem, kOem, kOem}),
       {.StructureCount = 2},
       "0 type 200 handle 4660 length 6 'X' 'YZ'\n"
       "12 type 200 handle 4660 length 6 'X' 'YZ'\n"
       "complete at 24\n"},
      {"a Length below that of the header",
       Join({kFinal, {0, 3, 0, 0}, kFinal}),
       {},
       "0 type 127 handle 65534 length 4\n"
       "length too small at 6\n"},
      {"a Length of zero and something after it",
       Join({kFinal, Bytes(6), kFinal}),
       {},
       "0 type 127 handle 65534 length 4\n"
       "length too small at 6\n"},
      {"a header past the end", {7, 4, 0}, {}, "past end at 0\n"},
      {"fields past the end", {7, 5, 0, 0}, {}, "past end at 0\n"},
      {"nothing after the fields",
       {7, 4, 1, 0},
       {},
       "0 type 7 handle 1 length 4 open\ncomplete at 4\n"},
      {"a string without an end",
       {7, 4, 1, 0, 'A', 0, 'B'},
       {},
       "0 type 7 handle 1 length 4 'A' 'B' open\n"
       "complete at 7\n"},
      {"strings without the zero that closes them",
       {7, 4, 1, 0, 'A', 0},
       {},
       "0 type 7 handle 1 length 4 'A' open\n"
       "complete at 6\n"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(LinesOf(ScanTable(test.Table, test.Rule)), test.Lines) << test.Name;
  }
}

}  // namespace
}  // namespace kestrel::catalog
