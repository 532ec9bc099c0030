#include "tools/kestrel/windows_1252.h"

#include <array>

namespace kestrel {

namespace {

// What Windows-1252 has at 80h to 9Fh, where ISO 8859-1 has control characters.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

char16_t FromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : byte;
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

}  // namespace kestrel
