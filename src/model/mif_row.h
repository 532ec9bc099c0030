#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/text.h"

namespace kestrel {

// One field of a table row: a number, written in decimal, or a string, written between double
// quotes and otherwise unchanged. A string must outlive the field.
class MifField {
 public:
  template <std::unsigned_integral Integer>
  // NOLINTNEXTLINE(google-explicit-constructor): a row is written as the list of its values.
  MifField(Integer value) : Number(Decimal(value)) {}
  // NOLINTNEXTLINE(google-explicit-constructor): as above, for the row's number, which has a sign.
  MifField(int rowIndex) : Number(SignedDecimal(rowIndex)) {}
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  MifField(std::string_view text) : Text(text), Quoted(true) {}

  void AppendTo(std::string& row) const;

 private:
  Digits Number;
  std::string_view Text;
  bool Quoted = false;
};

inline constexpr std::string_view kEmptyMifString;

// A complete row line: tab, opening brace, the fields joined by commas, closing brace, "\r\n".
std::string MifRow(std::initializer_list<MifField> fields);

}  // namespace kestrel
