#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// The maker is the sixth string.
const Bytes kProcessor = Structure(
    4, {1,    3,    0x0B, 6,    0x52, 0x06, 0x00, 0x00, 0xFF, 0xFB, 0x83, 0x03, 3, 0x92, 0x85, 0x00,
        0xF4, 0x01, 0xC2, 0x01, 0x41, 8,    0x0A, 0x00, 0x00, 0x00, 0xFF, 0xFF, 4, 5,    2},
    {"CPU 0", "Part", "6.5.2", "SN1", "Tag", "Maker"});

TEST(Type4Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kProcessor,
       "Processor Information (Type 4)\r\n\tSocket Designation : CPU 0\r\n"
       "\tProcessor Type : Central Processor\r\n\tProcessor Family : Pentium processor Family\r\n"
       "\tProcessor Manufacturer : Maker\r\n\tProcessor ID : 0383FBFFh 00000652h\r\n"
       "\tProcessor Version : 6.5.2\r\n\tVoltage : 1.8 V\r\n\tExternal Clock : 133 MHz\r\n"
       "\tMax Speed : 500 MHz\r\n\tCurrent Speed : 450 MHz\r\n"
       "\tStatus : CPU Socket Populated,CPU Enabled\r\n\tProcessor Upgrade : Slot 1\r\n"
       "\tL1 Cache Handle : 000Ah\r\n\tL2 Cache Handle : 0000h\r\n"
       "\tL3 Cache Handle : Processor has no L3 cache\r\n\r\n"},
      {"cut by the end of the table, zeros from there on",
       {4, 0x23, 0, 0, 1},
       "Processor Information (Type 4)\r\n\tSocket Designation : \r\n"
       "\tProcessor Type : Unknown\r\n\tProcessor Family : Unknown\r\n"
       "\tProcessor Manufacturer : \r\n\tProcessor ID : 00000000h 00000000h\r\n"
       "\tProcessor Version : \r\n\tVoltage : Unknown\r\n\tExternal Clock : 0 MHz\r\n"
       "\tMax Speed : 0 MHz\r\n\tCurrent Speed : 0 MHz\r\n"
       "\tStatus : CPU Socket Unpopulated,Unknown\r\n\tProcessor Upgrade : Unknown\r\n"
       "\tL1 Cache Handle : 0000h\r\n\tL2 Cache Handle : 0000h\r\n"
       "\tL3 Cache Handle : 0000h\r\n\r\n"},
  });
}

TEST(Type4Test, TakesThreeStringsFromAnOlderTable) {
  EXPECT_THAT(ReportOf(kProcessor, {2, 2}),
              testing::AllOf(testing::HasSubstr("\tProcessor Manufacturer : \r\n"),
                             testing::HasSubstr("\tProcessor Version : 6.5.2\r\n")));
}

TEST(Type4Test, NamesCodes) {
  ExpectLines(
      kProcessor,
      {{0x05, {1}, "Processor Type : Other"},
       {0x05, {6}, "Processor Type : Video Processor"},
       {0x05, {7}, "Processor Type : Unknown"},
       {0x06, {0x01}, "Processor Family : Other"},
       {0x06, {0x0E}, "Processor Family : Pentium processor with MMX\x99 technology"},
       {0x06, {0x11}, "Processor Family : Reserved for specific Pentium\xAE processor versions"},
       {0x06, {0x14}, "Processor Family : "},
       {0x06, {0x18}, "Processor Family : Reserved for specific M1 versions"},
       {0x06, {0x2F}, "Processor Family : "},
       {0x06, {0x38}, "Processor Family : Unknown"},
       {0x06, {0xFB}, "Processor Family : i960"},
       {0x06, {0xFC}, "Processor Family : Unknown"},
       {0x18, {0x40}, "Status : CPU Socket Populated,Unknown"},
       {0x18, {0xBC}, "Status : CPU Socket Unpopulated,CPU is Idle"},
       {0x18, {0x45}, "Status : CPU Socket Populated,Unknown"},
       {0x19, {1}, "Processor Upgrade : Other"},
       {0x19, {9}, "Processor Upgrade : Slot 2"},
       {0x19, {10}, "Processor Upgrade : Unknown"}});
}

TEST(Type4Test, TellsVoltages) {
  ExpectLines(kProcessor, {{0x11, {0x07}, "Voltage : 5.0 V"},
                           {0x11, {0x7E}, "Voltage : 3.3 V"},
                           {0x11, {0x04}, "Voltage : 2.9 V"},
                           {0x11, {0x78}, "Voltage : Unknown"},
                           {0x11, {0x80}, "Voltage : Unknown"},
                           {0x11, {0x81}, "Voltage : 0.1 V"},
                           {0x11, {0xFF}, "Voltage : 12.7 V"}});
}

TEST(Type4Test, GivesItsMifRow) {
  ExpectMifRows(kProcessor, {{0x04, {0}, "{1,3,11,\"6.5.2\",500,450,8,0,0,1,2,0,1}"},
                             {0x10, {0}, "{1,3,11,\"\",500,450,8,0,0,1,2,0,1}"},
                             {0x18, {0xFF}, "{1,3,11,\"6.5.2\",500,450,8,0,0,1,2,0,7}"}});
  EXPECT_EQ(MifRowsOf(Join({kProcessor, kProcessor}), 4),
            "\t{1,3,11,\"6.5.2\",500,450,8,0,0,1,2,0,1}\r\n"
            "\t{1,3,11,\"6.5.2\",500,450,8,0,0,1,2,0,1}\r\n");
}

}  // namespace
}  // namespace kestrel
