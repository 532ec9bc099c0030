#include "model/text_block.h"

#include <algorithm>

namespace kestrel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

template <std::size_t Usual>
void InPlaceText<Usual>::Append(Pieces pieces) {
  const std::size_t start = Size;
  for (const std::string_view piece : pieces) {
    Size += piece.size();
  }
  if (Size > Usual) {
    if (start <= Usual) {
      Longer.assign(Place.data(), start);
    }
    kestrel::Append(Longer, pieces);
    return;
  }
  char* end = Place.data() + start;
  for (const std::string_view piece : pieces) {
    end = std::copy(piece.begin(), piece.end(), end);
  }
}

template class InPlaceText<128>;
template class InPlaceText<2048>;

TextBlock::TextBlock(std::string_view title) { Text.Append({title, kLineEnd}); }

void TextBlock::Item(std::string_view text) { Text.Append({"\t", text, kLineEnd}); }

std::string TextBlock::Close() {
  Text.Append({kLineEnd});
  return CloseWithoutEmptyLine();
}

}  // namespace kestrel
