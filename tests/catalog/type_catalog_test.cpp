#include "catalog/type_catalog.h"

#include <gtest/gtest.h>
#include <string>

namespace kestrel::catalog {
namespace {

TEST(TypeCatalogTest, NamesEveryPublishedType) {
  const struct {
    std::uint8_t Type;
    std::string_view Name;
  } cases[] = {
      {31, "Boot Integrity Services (BIS) Entry Point"},
      {46, "String Property"},
      {47, ""},
      {126, "Inactive"},
      {127, "End-of-Table"},
      {128, "OEM"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(GetTypeName(test.Type), test.Name) << int{test.Type};
  }
  for (std::uint8_t type = 0; type <= 46; ++type) {
    EXPECT_NE(GetTypeName(type), "") << int{type};
  }
}

TEST(TypeCatalogTest, FindsTheTextOfACodeOrItsRange) {
  const Code codes[] = {{1, "One"}, {0x80, 0xFE, "Range"}};
  std::string texts;
  for (const std::uint64_t code : {0x00U, 0x01U, 0x02U, 0x7FU, 0x80U, 0xFEU, 0xFFU}) {
    texts.append(FindText(codes, code)).append(";");
  }
  EXPECT_EQ(texts, ";One;;;Range;Range;;");
}

}  // namespace
}  // namespace kestrel::catalog
