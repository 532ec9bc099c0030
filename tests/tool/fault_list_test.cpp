#include "tools/kestrel/fault_list.h"

#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(FaultListTest, ListsFaultsAndWhatTheTextsSeeOtherwise) {
  const Bytes table = Join({{12, 5, 1, 0, 0, 0, 'S', 4, 'T', 'U', 0, 0},
                            Structure(11, {0}),
                            {0, 18, 17, 0, 1},
                            Bytes(13),
                            {'A', 0, 0}});
  catalog::FaultList faults;
  AddWalkFaults(faults, CompareWithWalk(catalog::ScanTable(table, {}), table));
  faults.Add({}, catalog::FaultSeverity::Error, {"sum"}, "its sum is wrong");
  faults.Add({0x1234, 60, 1}, catalog::FaultSeverity::Remark, {"odd"}, "it is odd");
  EXPECT_EQ(ListFaults(faults),
            "0013h, type 0, BIOS Information: remark: the report and the MIF document lose it\r\n"
            "0000h, type 12, System Configuration Options: remark: the report and the MIF document "
            "take it to end too early\r\n"
            "0006h, and 1 more: remark: the report and the MIF document see a structure of type 83 "
            "where none is\r\n"
            "entry point: error: its sum is wrong\r\n"
            "1234h, type 60: remark: it is odd\r\n");
}

}  // namespace
}  // namespace kestrel
