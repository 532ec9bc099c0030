#include "tools/kestrel/overview_text.h"

#include <gtest/gtest.h>
#include <string>

#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

std::string OverviewOf(const Bytes& bytes, const catalog::FaultList& faults) {
  SmbiosTable table;
  table.Bytes = bytes;
  return OverviewText(Overview(table), faults);
}

TEST(OverviewTextTest, ShowsTheSample) {
  EXPECT_EQ(OverviewOf(MakeSampleTable(), {}),
            R"(System        Alderwick Computers Tarn 2400, Revision B, serial number AW-2002-004711
Base board    Alderwick Computers TN24 main board, version B2, serial number TB-118204
Chassis       Mini Tower, Alderwick Computers, T-Case 3, serial number TC-77120
BIOS          Alderwick Firmware Works TN24-1.07, 2002-05-14, 512 KiB
Processor     Quern Q4 2.40, up to 2400 MHz, L2 512 KiB
Memory        256 MiB in 1 of 2 slots, at most 1 GiB, Single-bit ECC
  DIMM 1      256 MiB SDRAM DIMM, 266 MT/s, Tessel Memory TM256-266E
  Empty       DIMM 2
Slots         2, 1 in use
Power supply  Garth Power Supply 1, 250 W
Battery       Corrie Cells CC-44, 44 Wh, Lithium-ion
)");
}

TEST(OverviewTextTest, WrapsCutsAndPutsTogether) {
  const Bytes processor = Structure(
      4, {0, 3, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0x60, 9, 0, 0, 0x41, 1},
      {"Quern\xAE  Q9 with a name that is longer than that of any other, and a speed of 2.40 GHz"});
  const Bytes disabled = Structure(
      4, {0, 3, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0x43, 1}, {"Quern Q1"});
  const Bytes emptySocket(Structure(4, Bytes(22)));
  const Bytes used =
      Structure(17, {9, 0, 0, 0, 0, 0, 0, 0, 0, 4, 15, 0, 1, 2, 20, 0, 0}, {"DIMM 0", "Channel A"});
  Bytes table = Join({
      Structure(1, {1, 2, 3, 4}, {"HP", "HP Z", "1.0", std::string(200, 'w').c_str()}),
      processor,
      processor,
      disabled,
      emptySocket,
      used,
  });
  for (std::size_t count = 0; count < 18; ++count) {
    table = Join({table, Structure(17, {9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 0, 1, 2, 26, 0, 0},
                                   {"DIMM 0", "B"})});
  }
  catalog::FaultList faults;
  faults.Add({}, catalog::FaultSeverity::Remark, {"one"}, "");
  faults.Add({}, catalog::FaultSeverity::Remark, {"two"}, "");
  faults.Add({}, catalog::FaultSeverity::Error, {"three"}, "");
  EXPECT_EQ(OverviewOf(table, faults),
            R"(System               HP Z, version 1.0,
                     serial number
                     wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww
                     wwwwwwwwwwwwwwwww...
Processor            2 x Quern® Q9 with a name that is longer than that of any other,
                     and a speed of 2.40 GHz, up to 2400 MHz
                     Quern Q1, disabled
                     1 socket empty
Memory               1 GiB in 1 of 19 slots
  DIMM 0, Channel A  1 GiB DDR2 FB-DIMM
  Empty              DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B;
                     DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B; DIMM 0, B;
                     DIMM 0, B; DIMM 0, B; and 2 more
Faults               1 error, 2 remarks: see 'kestrel check'
)");
}

}  // namespace
}  // namespace kestrel
