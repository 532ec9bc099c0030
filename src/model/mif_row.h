#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kestrel {

// One field of a table row: a number, written in decimal, or a string, written between double
// quotes and otherwise unchanged. A string must outlive the field.
class MifField {
 public:
  template <std::unsigned_integral Integer>
  // NOLINTNEXTLINE(google-explicit-constructor): a row is written as the list of its values.
  MifField(Integer value) : Number(value) {}
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  MifField(std::string_view text) : Text(text), Quoted(true) {}

  // How many characters WriteTo writes at most.
  std::size_t GetMostCharacters() const;
  // Returns the position after the last character written.
  char* WriteTo(char* position) const;

 private:
  std::uint64_t Number = 0;
  std::string_view Text;
  bool Quoted = false;
};

inline constexpr std::string_view kEmptyMifString;

// A complete row line: tab, opening brace, the fields joined by commas, closing brace, "\r\n".
std::string MifRow(std::initializer_list<MifField> fields);

// Returns the running row number of a table and advances it.
inline std::uint32_t TakeRowIndex(int& rowIndex) { return static_cast<std::uint32_t>(rowIndex++); }

}  // namespace kestrel
