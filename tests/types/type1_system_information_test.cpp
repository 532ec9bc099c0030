#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

using testing::HasSubstr;

const Bytes kUuid = {0x0A, 0x00, 0xFF, 0x10, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0xAB, 0xCD, 0xEF};

Bytes System(std::uint8_t serialNumber, std::uint8_t wakeUpType) {
  return Structure(1, Join({{1, 2, 3, serialNumber}, kUuid, {wakeUpType}}),
                   {"Maker", "Product", "1.0", "SN1"});
}

TEST(Type1Test, RendersEveryField) {
  EXPECT_EQ(ReportOf(System(4, 6)),
            "System Information (Type 1)\r\n"
            "\tManufacturer Name : Maker\r\n"
            "\tProduct Name : Product\r\n"
            "\tVersion : 1.0\r\n"
            "\tSerial Number : SN1\r\n"
            "\tUUID : A 0 FF 10 1 2 3 4 5 6 7 8 9 AB CD EF\r\n"
            "\tWake-up Type : Power Switch\r\n"
            "\r\n");
}

TEST(Type1Test, RendersZeros) {
  EXPECT_EQ(ReportOf(Structure(1, Bytes(21), {"unused"})),
            "System Information (Type 1)\r\n"
            "\tManufacturer Name : \r\n"
            "\tProduct Name : \r\n"
            "\tVersion : \r\n"
            "\tSerial Number : \r\n"
            "\tUUID : 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\r\n"
            "\tWake-up Type : Reserved\r\n"
            "\r\n");
}

TEST(Type1Test, NamesWakeUpTypes) {
  const struct {
    std::uint8_t Code;
    const char* Line;
  } cases[] = {
      {0, "\tWake-up Type : Reserved\r\n"},
      {8, "\tWake-up Type : AC Power Restored\r\n"},
      {9, "\tWake-up Type : Unknown\r\n"},
      {255, "\tWake-up Type : Unknown\r\n"},
  };
  for (const auto& test : cases) {
    EXPECT_THAT(ReportOf(System(4, test.Code)), HasSubstr(test.Line)) << int{test.Code};
  }
}

TEST(Type1Test, ReadsTheFullLayoutOfAShortStructure) {
  // Length 08h: the strings are "A" and "B", and the UUID is what lies there.
  const Bytes table = {1, 8, 0, 0, 1, 2, 0, 0, 'A', 0, 'B', 0, 0, 127, 4, 0x34, 0x12, 0, 0};
  EXPECT_EQ(ReportOf(table),
            "System Information (Type 1)\r\n"
            "\tManufacturer Name : A\r\n"
            "\tProduct Name : B\r\n"
            "\tVersion : \r\n"
            "\tSerial Number : \r\n"
            "\tUUID : 41 0 42 0 0 7F 4 34 12 0 0 0 0 0 0 0\r\n"
            "\tWake-up Type : Reserved\r\n"
            "\r\n"
            "End-of-Table (Type 127)\r\n\r\n");
}

}  // namespace
}  // namespace kestrel
