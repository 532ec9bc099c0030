#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kestrel {

// A number's digits, formatted in place. The view of them lives as long as the object: a temporary
// serves within one expression and no longer.
class Digits {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a number is one piece of a line like any text.
  constexpr operator std::string_view() const {
    return {Characters.data() + First, Characters.size() - First};
  }

  constexpr void Prepend(char digit) { Characters[--First] = digit; }
  constexpr std::size_t Size() const { return Characters.size() - First; }

 private:
  // Twenty digits hold the largest 64-bit number.
  std::array<char, 20> Characters{};
  std::size_t First = Characters.size();
};

// Unsigned decimal, without leading zeros.
constexpr Digits Decimal(std::uint64_t value) {
  Digits digits;
  do {
    digits.Prepend(static_cast<char>('0' + value % 10));
    value /= 10;
  } while (value != 0);
  return digits;
}

// Upper-case hexadecimal with leading zeros up to `width` digits; a larger number keeps all its
// digits.
Digits Hex(std::uint64_t value, std::size_t width);

// The pieces of one text, to be joined as they stand.
using Pieces = std::initializer_list<std::string_view>;

void Append(std::string& text, Pieces pieces);

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
