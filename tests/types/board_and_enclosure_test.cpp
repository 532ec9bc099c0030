#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kBoard = Structure(2, {1, 2, 3, 4}, {"Maker", "Board", "1.0", "SN1"});
const Bytes kEnclosure =
    Structure(3, {4, 0x83, 3, 2, 1, 3, 4, 5, 4, 1, 2, 3, 4}, {"Tag", "SN1", "1.0", "Maker"});

TEST(BoardAndEnclosureTest, RenderTheirBlocks) {
  constexpr std::string_view kEnclosureBlock =
      "System Enclosure or Chassis (Type 3)\r\n\tManufacturer Name : Maker\r\n"
      "\tType : chassis lock; Desktop\r\n\tVersion : 1.0\r\n\tSerial Number : SN1\r\n"
      "\tAsset Tag Number : Tag\r\n\tBootup State : Safe\r\n\tPower Supply State : Warning\r\n"
      "\tThermal State : Critical\r\n\tSecurity Status : External interface locked out\r\n\r\n";
  ExpectReports({
      {"board", kBoard,
       "Base Board Information (Type 2)\r\n\tManufacturer Name : Maker\r\n"
       "\tProduct : Board\r\n\tVersion : 1.0\r\n\tSerial Number : SN1\r\n\r\n"},
      {"board cut by the end of the table",
       {2, 8, 0, 0, 1, 2},
       "Base Board Information (Type 2)\r\n\tManufacturer Name : \r\n"
       "\tProduct : \r\n\tVersion : \r\n\tSerial Number : \r\n\r\n"},
      {"enclosure", kEnclosure, kEnclosureBlock},
      {"enclosure of an older table",
       Structure(3, {4, 0x83, 3, 2, 1, 3, 4, 5, 4}, {"Tag", "SN1", "1.0", "Maker"}),
       kEnclosureBlock,
       {2, 2}},
      {"enclosure cut by the end of the table",
       {3, 17, 0, 0, 1, 0x80},
       "System Enclosure or Chassis (Type 3)\r\n\tManufacturer Name : \r\n"
       "\tType : chassis lock; Unknown\r\n\tVersion : \r\n\tSerial Number : \r\n"
       "\tAsset Tag Number : \r\n\tBootup State : Unknown\r\n\tPower Supply State : Unknown\r\n"
       "\tThermal State : Unknown\r\n\tSecurity Status : Unknown\r\n\r\n"},
  });
}

TEST(BoardAndEnclosureTest, NameCodesAndStrings) {
  ExpectLines(kBoard, {{6, {5}, "Version : "}, {7, {0}, "Serial Number : "}});
  ExpectLines(kEnclosure, {{5, {0x01}, "Type : Other"},
                           {5, {0x18}, "Type : Sealed-case PC"},
                           {5, {0x19}, "Type : Unknown"},
                           {9, {1}, "Bootup State : Other"},
                           {10, {6}, "Power Supply State : Non-recoverable"},
                           {11, {7}, "Thermal State : Unknown"},
                           {12, {1}, "Security Status : Other"},
                           {12, {5}, "Security Status : External interface enabled"},
                           {12, {6}, "Security Status : Unknown"}});
}

}  // namespace
}  // namespace kestrel
