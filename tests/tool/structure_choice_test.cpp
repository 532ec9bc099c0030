#include "tools/kestrel/structure_choice.h"

#include <gtest/gtest.h>
#include <string>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(StructureChoiceTest, TakesWordsAndNumbersOfTypes) {
  const struct {
    std::string_view Text;
    Bytes Types;
  } cases[] = {
      {"bios", {0, 13}},
      {"System", {1, 12, 15, 23, 32}},
      {"BASEBOARD", {2, 10, 41}},
      {"chassis", {3}},
      {"processor", {4}},
      {"memory", {5, 6, 16, 17}},
      {"cache", {7}},
      {"connector", {8}},
      {"slot", {9}},
      {"0", {0}},
      {"255", {255}},
      {"256", {}},
      {"slots", {}},
      {"1x", {}},
      {"-1", {}},
      {"", {}},
  };
  for (const auto& test : cases) {
    Bytes types;
    EXPECT_EQ(AppendTypes(types, test.Text), !test.Types.empty()) << test.Text;
    EXPECT_EQ(types, test.Types) << test.Text;
  }
}

TEST(StructureChoiceTest, TakesHandlesInEachNotation) {
  const struct {
    std::string_view Text;
    std::optional<std::uint16_t> Handle;
  } cases[] = {
      {"0010h", 0x10},   {"fFFFH", 0xFFFF}, {"0x10", 0x10}, {"0X1f", 0x1F}, {"10", 10},
      {"65535", 0xFFFF}, {"65536", {}},     {"10000h", {}}, {"1fh0", {}},   {"1f", {}},
      {"h", {}},         {"0x", {}},        {"-1", {}},     {"", {}},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(ToHandle(test.Text), test.Handle) << test.Text;
  }
}

}  // namespace
}  // namespace kestrel
