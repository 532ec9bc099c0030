#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kSystem = Structure(
    1, {1, 2, 3, 4, 0x0A, 0x00, 0xFF, 0x10, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0xAB, 0xCD, 0xEF, 6},
    {"Maker", "Product", "1.0", "SN1"});

TEST(Type1Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kSystem,
       "System Information (Type 1)\r\n"
       "\tManufacturer Name : Maker\r\n"
       "\tProduct Name : Product\r\n"
       "\tVersion : 1.0\r\n"
       "\tSerial Number : SN1\r\n"
       "\tUUID : A 0 FF 10 1 2 3 4 5 6 7 8 9 AB CD EF\r\n"
       "\tWake-up Type : Power Switch\r\n"
       "\r\n"},
      {"zeros", Structure(1, Bytes(21), {"unused"}),
       "System Information (Type 1)\r\n"
       "\tManufacturer Name : \r\n"
       "\tProduct Name : \r\n"
       "\tVersion : \r\n"
       "\tSerial Number : \r\n"
       "\tUUID : 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\r\n"
       "\tWake-up Type : Reserved\r\n"
       "\r\n"},
      // Length 08h: the strings are "A" and "B", and the UUID is what lies there.
      {"a short structure, cut by the end of the table",
       {1, 8, 0, 0, 1, 2, 0, 0, 'A', 0, 'B', 0, 0, 127, 4, 0x34, 0x12},
       "System Information (Type 1)\r\n"
       "\tManufacturer Name : A\r\n"
       "\tProduct Name : B\r\n"
       "\tVersion : \r\n"
       "\tSerial Number : \r\n"
       "\tUUID : 41 0 42 0 0 7F 4 34 12 0 0 0 0 0 0 0\r\n"
       "\tWake-up Type : Reserved\r\n"
       "\r\n"
       "End-of-Table (Type 127)\r\n\r\n"},
  });
}

TEST(Type1Test, NamesCodes) {
  ExpectLines(kSystem, {
                           {0x18, {0}, "Wake-up Type : Reserved"},
                           {0x18, {8}, "Wake-up Type : AC Power Restored"},
                           {0x18, {9}, "Wake-up Type : Unknown"},
                           {0x07, {5}, "Serial Number : "},
                       });
}

}  // namespace
}  // namespace kestrel
