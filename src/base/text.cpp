#include "base/text.h"

namespace kestrel {

Digits Hex(std::uint64_t value, std::size_t width) {
  Digits digits;
  while (value != 0 || digits.Size() < width) {
    digits.Prepend("0123456789ABCDEF"[value % 16]);
    value /= 16;
  }
  return digits;
}

void Append(std::string& text, Pieces pieces) {
  for (const std::string_view piece : pieces) {
    text.append(piece);
  }
}

std::string Join(Pieces pieces) {
  std::string text;
  Append(text, pieces);
  return text;
}

}  // namespace kestrel
