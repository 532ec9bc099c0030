#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// The maker is the sixth string.
const Bytes kProcessor = Structure(
    4, {1,    3,    0x0B, 6,    0x52, 0x06, 0x00, 0x00, 0xFF, 0xFB, 0x83, 0x03, 3, 0x92, 0x85, 0x00,
        0xF4, 0x01, 0xC2, 0x01, 0x41, 8,    0x0A, 0x00, 0x00, 0x00, 0xFF, 0xFF, 4, 5,    2},
    {"CPU 0", "Part", "6.5.2", "SN1", "Tag", "Maker"});

TEST(Type4Test, TakesThreeStringsFromAnOlderTable) {
  EXPECT_THAT(ReportOf(kProcessor, {2, 2}),
              testing::AllOf(testing::HasSubstr("\tProcessor Manufacturer : \r\n"),
                             testing::HasSubstr("\tProcessor Version : 6.5.2\r\n")));
}

TEST(Type4Test, NamesCodes) {
  ExpectLines(
      kProcessor,
      {{0x05,
        {0, 2, 7},
        "Processor Type : Unknown\r\n\tProcessor Family : Unknown\r\n\tProcessor Manufacturer : "},
       {0x05, {1}, "Processor Type : Other"},
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
       {0x12,
        {0x85, 0},
        "External Clock : 133 MHz\r\n"
        "\tMax Speed : 500 MHz\r\n\tCurrent Speed : 450 MHz\r\n\tStatus : CPU Socket Populated,CPU "
        "Enabled"},
       {0x1A,
        {0x0A, 0, 0, 0, 0xFE, 0xFF},
        "L1 Cache Handle : 000Ah\r\n\tL2 Cache Handle : 0000h\r\n"
        "\tL3 Cache Handle : FFFEh"},
       {0x1A, Bytes(6, 0xFF),
        "L1 Cache Handle : Processor has no L1 cache\r\n\tL2 Cache Handle : Processor has no L2 "
        "cache\r\n\tL3 Cache Handle : Processor has no L3 cache"},
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
}

}  // namespace
}  // namespace kestrel
