#include "model/text.h"

#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Most blocks fit, so that a block is one allocation.
constexpr std::size_t kUsualBlockSize = 512;

}  // namespace

Digits Decimal(std::uint64_t value) {
  Digits digits;
  do {
    digits.Prepend(static_cast<char>('0' + value % 10));
    value /= 10;
  } while (value != 0);
  return digits;
}

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

TextBlock::TextBlock(std::string_view title) {
  Text.reserve(kUsualBlockSize);
  Append(Text, {title, kLineEnd});
}

void TextBlock::Item(Pieces pieces) {
  Text.push_back('\t');
  Append(Text, pieces);
  Text.append(kLineEnd);
}

void TextBlock::SubItem(Pieces pieces) {
  Text.push_back('\t');
  Item(pieces);
}

void TextBlock::Raw(Pieces pieces) { Append(Text, pieces); }

std::string TextBlock::Close() {
  Text.append(kLineEnd);
  return CloseWithoutEmptyLine();
}

std::string TextBlock::CloseWithoutEmptyLine() { return std::move(Text); }

}  // namespace kestrel
