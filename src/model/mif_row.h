#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "model/text.h"

namespace kestrel {

// One field of a table row: a number, written in decimal, or a string, written between double
// quotes and otherwise unchanged. A string must outlive the field.
class MifField {
 public:
  template <std::unsigned_integral Number>
  // NOLINTNEXTLINE(google-explicit-constructor): a row is written as the list of its values.
  MifField(Number value) : Value(Decimal(value)) {}
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  MifField(std::string_view text) : Text(text), Quoted(true) {}

  void AppendTo(std::string& row) const;

 private:
  Digits Value;
  std::string_view Text;
  bool Quoted = false;
};

inline constexpr std::string_view kEmptyMifString;

// A complete row line: tab, opening brace, the fields joined by commas, closing brace, "\r\n".
std::string MifRow(std::initializer_list<MifField> fields);

// Gives the running row number of a table and advances it.
inline std::uint32_t TakeRowIndex(int& rowIndex) { return static_cast<std::uint32_t>(rowIndex++); }

}  // namespace kestrel
