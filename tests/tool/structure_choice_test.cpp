#include "tools/kestrel/structure_choice.h"

#include <gtest/gtest.h>
#include <string>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

struct TypesCase {
  std::string_view Text;
  Bytes Types;
};

TEST(StructureChoiceTest, TakesWordsAndNumbersOfTypes) {
  const TypesCase kCases[] = {
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
  for (const TypesCase& test : kCases) {
    Bytes types;
    EXPECT_EQ(AppendTypes(types, test.Text), !test.Types.empty()) << test.Text;
    EXPECT_EQ(types, test.Types) << test.Text;
  }
}

struct HandleCase {
  std::string_view Text;
  std::optional<std::uint16_t> Handle;
};

TEST(StructureChoiceTest, TakesHandlesInEachNotation) {
  constexpr HandleCase kCases[] = {
      {"0010h", 0x10},   {"fFFFH", 0xFFFF}, {"0x10", 0x10}, {"0X1f", 0x1F}, {"10", 10},
      {"65535", 0xFFFF}, {"65536", {}},     {"10000h", {}}, {"1fh0", {}},   {"1f", {}},
      {"h", {}},         {"0x", {}},        {"-1", {}},     {"", {}},
  };
  for (const HandleCase& test : kCases) {
    EXPECT_EQ(ToHandle(test.Text), test.Handle) << test.Text;
  }
}

}  // namespace
}  // namespace kestrel
