#include "tools/kestrel/console_text.h"

#include <gtest/gtest.h>

#if defined(_WIN32)
#define LINE_END "\r\n"
#else
#define LINE_END "\n"
#endif

namespace kestrel {
namespace {

TEST(ConsoleTextTest, IsUtf8WithoutControlCharacters) {
  const struct {
    std::string_view Text;
    std::string_view Console;
  } cases[] = {
      {"Title\r\n\tItem : ~\r\n", "Title" LINE_END "\tItem : ~" LINE_END},
      {"\x1B[2J\x07\x7F", "\uFFFD[2J\uFFFD\uFFFD"},
      {"\r\r\n\n\r", "\uFFFD" LINE_END "\uFFFD\uFFFD"},
      {"MMX\x99 \xAE \xE9 \x80 \x9F \xA0 \xFF", "MMX™ ® é € Ÿ \u00A0 ÿ"},
      {"\x81\x8D\x8F\x90\x9D", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
  };
  for (const auto& test : cases) {
    TextOutput output;
    WriteConsoleText(test.Text, output);
    output.Finish();
    EXPECT_EQ(output.GetText(), test.Console);
  }
}

}  // namespace
}  // namespace kestrel
