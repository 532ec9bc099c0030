#include "catalog/type_catalog.h"

#include <gtest/gtest.h>

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
      {125, ""},
      {126, "Inactive"},
      {127, "End-of-Table"},
      {128, "OEM"},
      {255, "OEM"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(GetTypeName(test.Type), test.Name) << int{test.Type};
  }
  for (std::uint8_t type = 0; type <= 46; ++type) {
    EXPECT_NE(GetTypeName(type), "") << int{type};
  }
}

}  // namespace
}  // namespace kestrel::catalog
