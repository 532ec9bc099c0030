#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrel {

// One row of a table that gives the texts of a field's codes.
struct CodeText {
  std::uint8_t Code;
  std::string_view Text;
};

// The text of `code`, or `unlisted` when the table has no row for it.
constexpr std::string_view TextOfCode(std::span<const CodeText> table, unsigned code,
                                      std::string_view unlisted) {
  for (const CodeText& row : table) {
    if (row.Code == code) {
      return row.Text;
    }
  }
  return unlisted;
}

// What tables print for a code that they do not list: a word, or nothing behind the label.
inline constexpr std::string_view kUnknown = "Unknown";
inline constexpr std::string_view kNothing;

// The texts of the set bits of `bits`, from bit 0 upwards, with `separator` between two of them.
// `texts` holds the text of bit 0 first; bits beyond it are not looked at.
std::string TextOfBits(std::span<const std::string_view> texts, unsigned bits,
                       std::string_view separator);

}  // namespace kestrel
