#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel {

// A number's digits, formatted in place. Converts to a view that lives as long as the object, so a
// temporary serves within one expression and no longer.
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

// The pieces of one text, joined as they stand.
using Pieces = std::initializer_list<std::string_view>;

void Append(std::string& text, Pieces pieces);

// What a text function returns: one line of a block, label and value, without indent and line end.
// Usual lines are held in place, so that making one allocates nothing.
class ItemText {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a text function returns the pieces of its line.
  ItemText(Pieces pieces);
  ItemText(const ItemText&) = delete;
  ItemText& operator=(const ItemText&) = delete;

  // Valid as long as the object.
  // NOLINTNEXTLINE(google-explicit-constructor): the line is a text like any other.
  operator std::string_view() const { return {Longer ? Longer.get() : Usual.data(), Size}; }

 private:
  std::size_t Size;
  std::unique_ptr<char[]> Longer;
  std::array<char, 128> Usual;
};

// The text block of one structure: a title line, one line per item, and for most types a closing
// empty line. Lines end with "\r\n".
class TextBlock {
 public:
  explicit TextBlock(std::string_view title);

  // A line indented by one tab.
  void Item(std::string_view text) { Line("\t", {text}); }
  void Item(Pieces pieces) { Line("\t", pieces); }
  // A line indented by two tabs, which belongs to the item above it.
  void SubItem(Pieces pieces) { Line("\t\t", pieces); }
  // Text as it stands, for the items whose lines do not have the common form.
  void Raw(Pieces pieces);

  // Ends the block with the empty line that parts it from the next and hands its text over.
  std::string Close();
  // Hands the text over as it is.
  std::string CloseWithoutEmptyLine();

 private:
  void Line(std::string_view indent, Pieces pieces);
  // Room for `size` more characters, which count as used.
  char* Extend(std::size_t size);
  void Grow();

  // Longer than what is used of it, so that a piece costs one copy and no bookkeeping.
  std::string Text;
  std::size_t Used = 0;
};

}  // namespace kestrel
