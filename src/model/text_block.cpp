#include "model/text_block.h"

#include <cstring>
#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::size_t SizeOf(Pieces pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) {
    size += piece.size();
  }
  return size;
}

// Returns the end of the copy.
char* CopyPiece(char* target, std::string_view piece) {
  const char* source = piece.data();
  const std::size_t size = piece.size();
  // Nearly all pieces are short: for them the call of a general copy costs more than the copy. The
  // two halves of each copy may overlap.
  if (size > 32) {
    std::memcpy(target, source, size);
  } else if (size >= 16) {
    std::memcpy(target, source, 16);
    std::memcpy(target + size - 16, source + size - 16, 16);
  } else if (size >= 8) {
    std::memcpy(target, source, 8);
    std::memcpy(target + size - 8, source + size - 8, 8);
  } else if (size >= 4) {
    std::memcpy(target, source, 4);
    std::memcpy(target + size - 4, source + size - 4, 4);
  } else if (size != 0) {
    target[0] = source[0];
    target[size / 2] = source[size / 2];
    target[size - 1] = source[size - 1];
  }
  return target + size;
}

char* CopyPieces(char* target, Pieces pieces) {
  for (const std::string_view piece : pieces) {
    target = CopyPiece(target, piece);
  }
  return target;
}

}  // namespace

ItemText::ItemText(Pieces pieces) : Size(SizeOf(pieces)) {
  if (Size <= Usual.size()) {
    CopyPieces(Usual.data(), pieces);
  } else {
    kestrel::Append(Longer, pieces);
  }
}

void ItemText::Append(Pieces pieces) {
  const std::size_t start = Size;
  Size += SizeOf(pieces);
  if (Size <= Usual.size()) {
    CopyPieces(Usual.data() + start, pieces);
    return;
  }
  if (start <= Usual.size()) {
    Longer.assign(Usual.data(), start);
  }
  kestrel::Append(Longer, pieces);
}

TextBlock::TextBlock(std::string_view title) { Raw({title, kLineEnd}); }

void TextBlock::Item(std::string_view text) {
  char* end = Extend(1 + text.size() + kLineEnd.size());
  *end++ = '\t';
  end = CopyPiece(end, text);
  CopyPiece(end, kLineEnd);
}

void TextBlock::Raw(Pieces pieces) { CopyPieces(Extend(SizeOf(pieces)), pieces); }

std::string TextBlock::Close() {
  Raw({kLineEnd});
  return CloseWithoutEmptyLine();
}

std::string TextBlock::CloseWithoutEmptyLine() {
  Earlier.append(Usual.data(), Size);
  return std::move(Earlier);
}

void TextBlock::Line(std::string_view indent, Pieces pieces) {
  char* end = Extend(indent.size() + SizeOf(pieces) + kLineEnd.size());
  end = CopyPiece(end, indent);
  end = CopyPieces(end, pieces);
  CopyPiece(end, kLineEnd);
}

char* TextBlock::Extend(std::size_t size) {
  if (size > Usual.size() - Size) {
    return ExtendLongBlock(size);
  }
  char* start = Usual.data() + Size;
  Size += size;
  return start;
}

char* TextBlock::ExtendLongBlock(std::size_t size) {
  Earlier.append(Usual.data(), Size);
  Size = 0;
  if (size <= Usual.size()) {
    return Extend(size);
  }
  const std::size_t start = Earlier.size();
  Earlier.resize(start + size);
  return Earlier.data() + start;
}

}  // namespace kestrel
