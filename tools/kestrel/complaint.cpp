#include "tools/kestrel/complaint.h"

#include <cstdio>
#include <cwchar>
#include <locale>
#include <string>

namespace kestrel {

namespace {

// Surrogates are no characters in UTF-8, although the decoder lets them pass.
bool IsShown(char32_t character) {
  const bool isControl = character < U' ' || (character >= U'\x7F' && character <= U'\x9F');
  return !isControl && (character < 0xD800 || character > 0xDFFF);
}

std::string ToOneLine(std::string_view text) {
  using Utf8 = std::codecvt<char32_t, char8_t, std::mbstate_t>;
  const auto& utf8 = std::use_facet<Utf8>(std::locale::classic());
  const std::u8string bytes(text.begin(), text.end());
  const char8_t* const end = bytes.data() + bytes.size();
  std::string line;
  for (const char8_t* start = bytes.data(); start != end;) {
    std::mbstate_t state{};
    const char8_t* next = start;
    char32_t character = 0;
    char32_t* last = &character;
    utf8.in(state, start, end, next, &character, &character + 1, last);
    if (last == &character) {
      next = start + 1;
      character = 0;
    }
    if (IsShown(character)) {
      line.append(start, next);
    } else {
      line.push_back('?');
    }
    start = next;
  }
  return line;
}

}  // namespace

void Complain(std::string_view message) {
  const std::string line = "kestrel: " + ToOneLine(message) + "\n";
  static_cast<void>(std::fputs(line.c_str(), stderr));
}

}  // namespace kestrel
