#include "tools/kestrel/console_text.h"

#include "tools/kestrel/windows_1252.h"

namespace kestrel {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Whether a character would do something rather than be seen.
bool IsControl(char16_t unit) {
  return (unit < 0x20 && unit != '\t') || (unit >= 0x7F && unit < 0xA0);
}

}  // namespace

std::string ToConsoleText(std::string_view text) {
  std::string console;
  console.reserve(text.size());
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (text.compare(index, 2, "\r\n") == 0) {
      console.append(kLineEnd);
      ++index;
    } else {
      const char16_t unit = FromWindows1252(static_cast<unsigned char>(text[index]));
      AppendUtf8(console, IsControl(unit) ? kReplacement : unit);
    }
  }
  return console;
}

}  // namespace kestrel
