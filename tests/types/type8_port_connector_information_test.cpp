#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kPort = Structure(8, {1, 0xFF, 2, 0xFF, 0x10}, {"J12 Keyboard", "keyboard"});

TEST(Type8Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kPort,
       "Port Connector Information (Type 8)\r\n"
       "\tInternal Designator : J12 Keyboard\r\n"
       "\tInternal Connector Type : PC-H98\r\n"
       "\tExternal Designator : keyboard\r\n"
       "\tExternal Connector Type : Other\r\n"
       "\tPort Type : USB\r\n"
       "\r\n"},
      {"cut by the end of the table",
       {8, 9, 0, 0, 3, 0x22},
       "Port Connector Information (Type 8)\r\n"
       "\tInternal Designator : \r\n\tInternal Connector Type : \r\n"
       "\tExternal Designator : \r\n\tExternal Connector Type : None\r\n"
       "\tPort Type : None\r\n\r\n"},
  });
}

TEST(Type8Test, NamesCodes) {
  ExpectLines(kPort, {
                         {0x04, {2, 0xFF}, "Internal Connector Type : Other"},
                         {0x04, {0, 0xFF}, "Internal Connector Type : Other"},
                         {0x05, {0x21}, "Internal Connector Type : 1394"},
                         {0x05, {0xA1}, "Internal Connector Type : PC-98Hireso"},
                         {0x06, {1, 0xFF}, "External Connector Type : Other"},
                         {0x07, {0xA4}, "External Connector Type : PC-98Full"},
                         {0x07, {0xA5}, "External Connector Type : "},
                         {0x08, {0x12}, "Port Type : PCMCIA Type I"},
                         {0x08, {0x1A}, "Port Type : PC-98-Hireso"},
                         {0x08, {0x20}, "Port Type : "},
                         {0x08, {0xFF}, "Port Type : Other"},
                     });
}

}  // namespace
}  // namespace kestrel
