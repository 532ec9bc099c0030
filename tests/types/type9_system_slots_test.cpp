#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kSlot =
    Structure(9, {1, 0x11, 7, 4, 4, 0xC4, 0xA0, 0x8C, 0xFF}, {"AGP", "more than declared"});

TEST(Type9Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kSlot,
       "System Slots (Type 9)\r\n"
       "\tSlot Designation : AGP\r\n\tSlot Type : AGP 4X\r\n\tSlot Data Bus Width : 128 bit\r\n"
       "\tCurrent Usage : In use\r\n\tSlot Length : Long Length\r\n\tSlot ID : A0C4h\r\n"
       "\tSlot Characteristics 1 : Provides 3.3 VoltsSlot's opening is shared with another slot"
       "PC Card slot supports Modem Ring Resume\r\n\r\n"},
      {"the older layout, cut by the end of the table within its string",
       {9, 0x0C, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 'A'},
       "System Slots (Type 9)\r\n"
       "\tSlot Designation : A\r\n\tSlot Type : \r\n\tSlot Data Bus Width : \r\n"
       "\tCurrent Usage : \r\n\tSlot Length : \r\n\tSlot ID : 0001h\r\n"
       "\tSlot Characteristics 1 : \r\n\r\n"},
  });
  ExpectLines(kSlot, {{0x04, {2, 1}, "Slot Designation : \r\n\tSlot Type : Other"},
                      {0x05, {0xA4}, "Slot Type : PC-98/Card"},
                      {0x05, {0x12, 8}, "Slot Type : \r\n\tSlot Data Bus Width : "},
                      {0x06, {1, 1}, "Slot Data Bus Width : Other\r\n\tCurrent Usage : Other"},
                      {0x07, {5, 5}, "Current Usage : \r\n\tSlot Length : "},
                      {0x08, {1}, "Slot Length : Other"}});
}

TEST(Type9Test, NumbersItsMifRows) {
  EXPECT_EQ(MifRowsOf(Join({kSlot, Structure(127, {}), kSlot}), 9),
            "\t{1,17,7,4,\"\"}\r\n\t{2,17,7,4,\"\"}\r\n");
}

}  // namespace
}  // namespace kestrel
