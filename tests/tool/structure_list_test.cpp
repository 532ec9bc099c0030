#include "tools/kestrel/structure_list.h"

#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(StructureListTest, HasALinePerStructure) {
  EXPECT_EQ(ListStructures(Join({Structure(0, Bytes(14), {"Maker"}),
                                 {0xC8, 4, 0x34, 0x12, 0, 0},
                                 Structure(46, {}),
                                 {126, 4}})),
            "0000h    0   18  0000h  BIOS Information\r\n"
            "0019h  200    4  1234h  OEM\r\n"
            "001Fh   46    4  0000h  String Property\r\n"
            "0025h  126    4  0000h  Inactive\r\n");
}

TEST(StructureListTest, NamesTypes) {
  const struct {
    std::uint8_t Type;
    std::string_view Name;
  } cases[] = {
      {31, "Boot Integrity Services (BIS) Entry Point"},
      {39, "System Power Supply"},
      {47, "Unknown"},
      {125, "Unknown"},
      {127, "End-of-Table"},
      {128, "OEM"},
      {255, "OEM"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(GetStructureName(test.Type), test.Name) << int{test.Type};
  }
}

}  // namespace
}  // namespace kestrel
