#include "model/mif_row.h"

#include <algorithm>
#include <charconv>

namespace kestrel {

namespace {

// The digits of the largest 64-bit number.
constexpr std::size_t kMostDigits = 20;

constexpr std::string_view kRowStart = "\t";
constexpr std::string_view kRowEnd = "}\r\n";

char* Write(char* position, std::string_view text) {
  return std::copy(text.begin(), text.end(), position);
}

}  // namespace

std::size_t MifField::GetMostCharacters() const { return Quoted ? Text.size() + 2 : kMostDigits; }

char* MifField::WriteTo(char* position) const {
  if (!Quoted) {
    return std::to_chars(position, position + kMostDigits, Number).ptr;
  }
  *position++ = '"';
  position = Write(position, Text);
  *position++ = '"';
  return position;
}

std::string MifRow(std::initializer_list<MifField> fields) {
  std::size_t mostCharacters = kRowStart.size() + kRowEnd.size();
  for (const MifField& field : fields) {
    mostCharacters += 1 + field.GetMostCharacters();
  }
  std::string row(mostCharacters, '\0');
  char* position = Write(row.data(), kRowStart);
  char separator = '{';
  for (const MifField& field : fields) {
    *position++ = separator;
    position = field.WriteTo(position);
    separator = ',';
  }
  position = Write(position, kRowEnd);
  row.resize(static_cast<std::size_t>(position - row.data()));
  return row;
}

}  // namespace kestrel
