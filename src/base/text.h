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
  // Twenty characters hold any 64-bit number, with its sign or without one.
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

// The same with a minus sign where the number is negative.
constexpr Digits SignedDecimal(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  Digits digits = Decimal(value < 0 ? 0 - bits : bits);
  if (value < 0) {
    digits.Prepend('-');
  }
  return digits;
}

// Upper-case hexadecimal with leading zeros up to `width` digits; a larger number keeps all its
// digits.
Digits Hex(std::uint64_t value, std::size_t width);

// The pieces of one text, to be joined as they stand.
using Pieces = std::initializer_list<std::string_view>;

void Append(std::string& text, Pieces pieces);
std::string Join(Pieces pieces);

}  // namespace kestrel
