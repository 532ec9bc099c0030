#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"

namespace kestrel {

// What a text function returns: one line of a block, label and value, without indent and line end.
// A line of usual length is held in place, so making one allocates nothing.
class ItemText {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a text function returns the pieces of its line.
  ItemText(Pieces pieces);
  ItemText(ItemText&&) = default;
  ItemText& operator=(ItemText&&) = delete;

  void Append(Pieces pieces);

  // Valid until the text changes.
  // NOLINTNEXTLINE(google-explicit-constructor): the line is a text like any other.
  operator std::string_view() const {
    return Size <= Usual.size() ? std::string_view(Usual.data(), Size) : std::string_view(Longer);
  }

 private:
  std::size_t Size;
  // Holds the text if it fits. Written up to the text's size and no further.
  std::array<char, 128> Usual;
  std::string Longer;
};

// The text block of one structure: a title line, one line per item, and for most types a closing
// empty line. Lines end with "\r\n".
class TextBlock {
 public:
  explicit TextBlock(std::string_view title);
  TextBlock(const TextBlock&) = delete;
  TextBlock& operator=(const TextBlock&) = delete;

  // A line indented by one tab.
  void Item(std::string_view text);
  void Item(Pieces pieces) { Line("\t", pieces); }
  // A line indented by two tabs, which belongs to the item above it.
  void SubItem(Pieces pieces) { Line("\t\t", pieces); }
  // Text as it stands, for the items whose lines do not have the common form.
  void Raw(Pieces pieces);

  // Ends the block with the empty line that separates it from the next, and returns its text.
  std::string Close();
  // Returns the text as it is.
  std::string CloseWithoutEmptyLine();

 private:
  void Line(std::string_view indent, Pieces pieces);
  // Returns room for `size` more characters, which count as written.
  char* Extend(std::size_t size);
  char* ExtendLongBlock(std::size_t size);

  // Most blocks fit into Usual, which leaves the finished text as the only allocation. Of a longer
  // block, Earlier has what precedes the characters in Usual.
  std::string Earlier;
  std::size_t Size = 0;
  // Written up to Size and no further.
  std::array<char, 2048> Usual;
};

}  // namespace kestrel
