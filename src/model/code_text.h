#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "model/text_block.h"

namespace kestrel {

// One row of a table of the texts of a field's codes.
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

// What stands after the label for a code that a table does not list: a word, or nothing.
inline constexpr std::string_view kUnknown = "Unknown";
inline constexpr std::string_view kNothing;

// The texts of the set bits of `bits`, from bit 0 upwards, with `separator` between two of them.
// `texts` starts with the text of bit 0; bits that it has no text for are ignored.
ItemText TextOfBits(std::span<const std::string_view> texts, unsigned bits,
                    std::string_view separator);

}  // namespace kestrel
