#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// Systems, boards and enclosures, with the ports and slots that they have.

const Bytes kSystem =
    Structure(1, Join({{1, 2, 3, 4}, Bytes(16), {6}}), {"A", "B", "C", "D", "more than declared"});
const Bytes kEnclosure =
    Structure(3, {4, 0x83, 3, 2, 1, 3, 4, 5, 4, 1, 2, 3, 4}, {"Tag", "SN1", "1.0", "Maker"});
const Bytes kPort =
    Structure(8, {1, 0xFF, 2, 0xFF, 0x10}, {"J12", "Keyboard", "more than declared"});
const Bytes kSlot =
    Structure(9, {1, 0x11, 7, 4, 4, 0xC4, 0xA0, 0x8C, 0xFF}, {"AGP", "more than declared"});

TEST(Type1Test, ShowsTheUuidAsItIsStored) {
  ExpectLines(kSystem, {{7,
                         {5, 0x0A, 0, 0xFF, 0x10},
                         "Serial Number : \r\n"
                         "\tUUID : A 0 FF 10 0 0 0 0 0 0 0 0 0 0 0 0"},
                        {0x18, {0}, "Wake-up Type : Reserved"},
                        {0x18, {8}, "Wake-up Type : AC Power Restored"},
                        {0x18, {9}, "Wake-up Type : Unknown"}});
}

TEST(Type3Test, NamesCodesAndStrings) {
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

TEST(Type8Test, NamesCodes) {
  ExpectLines(kPort, {{4, {3, 0xFF}, "Internal Designator : \r\n\tInternal Connector Type : Other"},
                      {5, {0x21}, "Internal Connector Type : 1394"},
                      {5, {0x22}, "Internal Connector Type : "},
                      {5, {0xA1}, "Internal Connector Type : PC-98Hireso"},
                      {7, {0xA4}, "External Connector Type : PC-98Full"},
                      {7, {0xA5}, "External Connector Type : "},
                      {8, {0}, "Port Type : None"},
                      {8, {0x12}, "Port Type : PCMCIA Type I"},
                      {8, {0x1A}, "Port Type : PC-98-Hireso"},
                      {8, {0x20}, "Port Type : "},
                      {8, {0xFF}, "Port Type : Other"}});
}

TEST(Type9Test, NamesCodes) {
  ExpectLines(kSlot, {{4, {2, 1}, "Slot Designation : \r\n\tSlot Type : Other"},
                      {5, {0xA4}, "Slot Type : PC-98/Card"},
                      {5, {0x12, 8}, "Slot Type : \r\n\tSlot Data Bus Width : "},
                      {6, {1, 1}, "Slot Data Bus Width : Other\r\n\tCurrent Usage : Other"},
                      {7, {5, 5}, "Current Usage : \r\n\tSlot Length : "},
                      {8,
                       {1},
                       "Slot Length : Other\r\n\tSlot ID : A0C4h\r\n\tSlot Characteristics 1 : "
                       "Provides 3.3 VoltsSlot's opening is shared with another slot"
                       "PC Card slot supports Modem Ring Resume"}});
}

}  // namespace
}  // namespace kestrel
