#include "tools/kestrel/console_text.h"

#include <array>

namespace kestrel {

namespace {

#if defined(_WIN32)
constexpr std::string_view kLineEnd = "\r\n";
#else
constexpr std::string_view kLineEnd = "\n";
#endif

constexpr char16_t kReplacement = 0xFFFD;

// What Windows-1252 has at 80h to 9Fh, where ISO 8859-1 has control characters.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178,
};

char16_t ToUnicode(unsigned char byte) {
  if (byte >= 0x80 && byte < 0xA0) {
    return kWindows1252[byte - 0x80U];
  }
  const bool isControl = (byte < 0x20 && byte != '\t') || byte == 0x7F;
  return isControl ? kReplacement : byte;
}

void AppendUtf8(std::string& text, char16_t unit) {
  const unsigned code = unit;
  if (code < 0x80) {
    text.push_back(static_cast<char>(code));
    return;
  }
  if (code < 0x800) {
    text.push_back(static_cast<char>(0xC0U | code >> 6));
  } else {
    text.push_back(static_cast<char>(0xE0U | code >> 12));
    text.push_back(static_cast<char>(0x80U | (code >> 6 & 0x3FU)));
  }
  text.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
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
      AppendUtf8(console, ToUnicode(static_cast<unsigned char>(text[index])));
    }
  }
  return console;
}

}  // namespace kestrel
