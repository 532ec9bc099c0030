#include "tools/kestrel/structure_choice.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <system_error>

namespace kestrel {

namespace {

constexpr std::uint8_t kBios[] = {0, 13};
constexpr std::uint8_t kSystem[] = {1, 12, 15, 23, 32};
constexpr std::uint8_t kBaseBoard[] = {2, 10, 41};
constexpr std::uint8_t kChassis[] = {3};
constexpr std::uint8_t kProcessor[] = {4};
constexpr std::uint8_t kMemory[] = {5, 6, 16, 17};
constexpr std::uint8_t kCache[] = {7};
constexpr std::uint8_t kConnector[] = {8};
constexpr std::uint8_t kSlot[] = {9};

struct TypeWord {
  std::string_view Word;
  std::span<const std::uint8_t> Types;
};
constexpr TypeWord kWords[] = {
    {"bios", kBios},       {"system", kSystem},       {"baseboard", kBaseBoard},
    {"chassis", kChassis}, {"processor", kProcessor}, {"memory", kMemory},
    {"cache", kCache},     {"connector", kConnector}, {"slot", kSlot},
};

bool IsSameWord(std::string_view text, std::string_view word) {
  return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char left, char right) {
    return left == right ||
           (left >= 'A' && left <= 'Z' && static_cast<char>(left - 'A' + 'a') == right);
  });
}

// The whole text as a number that fits.
template <typename Number>
std::optional<Number> ToNumber(std::string_view text, int base) {
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

bool AppendTypes(std::vector<std::uint8_t>& types, std::string_view text) {
  for (const TypeWord& row : kWords) {
    if (IsSameWord(text, row.Word)) {
      types.insert(types.end(), row.Types.begin(), row.Types.end());
      return true;
    }
  }
  const auto type = ToNumber<std::uint8_t>(text, 10);
  if (type) {
    types.push_back(*type);
  }
  return type.has_value();
}

std::optional<std::uint16_t> ToHandle(std::string_view text) {
  if (text.ends_with('h') || text.ends_with('H')) {
    return ToNumber<std::uint16_t>(text.substr(0, text.size() - 1), 16);
  }
  if (text.starts_with("0x") || text.starts_with("0X")) {
    return ToNumber<std::uint16_t>(text.substr(2), 16);
  }
  return ToNumber<std::uint16_t>(text, 10);
}

}  // namespace kestrel
