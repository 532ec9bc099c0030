#include "overview/placeholders.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

namespace kestrel {

namespace {

// What firmware says in place of a value, in lower case and in order; '#' stands for a number. From
// tables of real machines, and from what inventories publish that they pass over.
constexpr std::string_view kPlaceholders[] = {
    "$(default_string)",
    "(none)",
    "00010203-0405-0607-0809-0a0b0c0d0e0f",
    "00020003-0004-0005-0006-000700080009",
    "00112233-4455-6677-8899-aabbccddeeff",
    "03000200-0400-0500-0006-000700080009",
    "03020100-0504-0706-0809-0a0b0c0d0e0f",
    "33221100-5544-7766-8899-aabbccddeeff",
    "9876543210",
    "<cut out>",
    "<null string>",
    "[empty]",
    "a#_assettagnum#",
    "a#_manufacturer#",
    "a#_partnum#",
    "a#_sernum#",
    "array#_partnumber#",
    "asset tag",
    "asset-1234567890",
    "assettagnum#",
    "asus-notebooksku",
    "atn12345678901234567",
    "base board asset tag",
    "base board manufacturer",
    "base board product name",
    "base board serial number",
    "base board version",
    "board asset tag",
    "board manufacturer",
    "board product name",
    "board serial number",
    "board version",
    "bsn12345678901234567",
    "chassis asset tag",
    "chassis manufacture",
    "chassis manufacturer",
    "chassis serial number",
    "chassis version",
    "default",
    "default string",
    "default_string",
    "dimm#_assettag",
    "dimm#_manufacturer",
    "dimm#_partnum",
    "dimm#_sernum",
    "empty",
    "fill by oem",
    "invalid",
    "jedec id:",
    "manufacturer",
    "manufacturer#",
    "modulepartnumber#",
    "n/a",
    "na",
    "no asset information",
    "no asset tag",
    "no dimm",
    "no enclosure",
    "no module installed",
    "none",
    "not applicable",
    "not available",
    "not defined",
    "not installed",
    "not present",
    "not provided",
    "not set",
    "not settable",
    "not specified",
    "not supported by cpu",
    "null",
    "o.e.m",
    "o.e.m.",
    "oem",
    "oem chassis manufacturer",
    "oem chassis serial number",
    "oem chassis version",
    "oem manufacturer",
    "oem_define#",
    "partnum#",
    "please change product name",
    "product name",
    "rev x.0x",
    "serial number",
    "serialnumber",
    "serialnumber#",
    "sernum#",
    "sku",
    "sku number",
    "system manufacturer",
    "system name",
    "system product name",
    "system serial number",
    "system sku",
    "system sku number",
    "system version",
    "system_product_name",
    "tbd",
    "tbd by odm",
    "tbd by oem",
    "to be filled by o.e.m",
    "to be filled by o.e.m.",
    "to be filled by o.e.m. by more string",
    "to be filled by oem",
    "type# - board asset tag",
    "type# - board chassis location",
    "type# - board product name#",
    "type# - board serial number",
    "type# - board vendor name#",
    "type# - board version",
    "type#family",
    "type#productconfigid",
    "type#sku#",
    "undefined",
    "unknow",
    "unknown",
    "unspecified",
};
static_assert(std::is_sorted(std::begin(kPlaceholders), std::end(kPlaceholders)));

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

constexpr char ToLower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                              : character;
}

// A character that says something: a letter, a digit, or any that is not ASCII.
constexpr bool IsTelling(char character) {
  const char lower = ToLower(character);
  return IsDigit(lower) || (lower >= 'a' && lower <= 'z') ||
         static_cast<unsigned char>(lower) >= 0x80;
}

bool Matches(std::string_view text, std::string_view placeholder) {
  std::size_t position = 0;
  for (const char expected : placeholder) {
    if (expected != '#') {
      if (position == text.size() || ToLower(text[position]) != expected) {
        return false;
      }
      ++position;
      continue;
    }
    const std::size_t start = position;
    while (position < text.size() && IsDigit(text[position])) {
      ++position;
    }
    if (position == start) {
      return false;
    }
  }
  return position == text.size();
}

bool IsListed(std::string_view text) {
  const auto isBefore = [](std::string_view left, std::string_view right) {
    return ToLower(left.front()) < ToLower(right.front());
  };
  const auto [first, last] =
      std::equal_range(std::begin(kPlaceholders), std::end(kPlaceholders), text, isBefore);
  return std::any_of(first, last,
                     [text](std::string_view placeholder) { return Matches(text, placeholder); });
}

// Nothing but zeros, Xs, the hexadecimal digits of erased memory or its bytes, with or without
// punctuation; or no more than punctuation.
bool IsFilling(std::string_view text) {
  const auto first = std::find_if(text.begin(), text.end(), IsTelling);
  if (first == text.end()) {
    return true;
  }
  const char filling = ToLower(*first);
  const auto isOther = [filling](char character) {
    return IsTelling(character) && ToLower(character) != filling;
  };
  if (std::any_of(first, text.end(), isOther)) {
    return false;
  }
  constexpr std::ptrdiff_t kFewestDigits = 4;
  return filling == '0' || filling == 'x' || filling == '\xFF' ||
         (filling == 'f' && std::count_if(first, text.end(), IsTelling) >= kFewestDigits);
}

// Digits that count up, as in "0123456789".
bool Counts(std::string_view text) {
  constexpr std::size_t kFewestDigits = 7;
  const auto follows = [](char left, char right) {
    return IsDigit(left) && right == (left == '9' ? '0' : left + 1);
  };
  return text.size() >= kFewestDigits &&
         std::adjacent_find(text.begin(), text.end(), std::not_fn(follows)) == text.end();
}

}  // namespace

std::string_view WithoutPlaceholder(std::string_view text) {
  const auto isBlank = [](char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
  };
  while (!text.empty() && isBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && isBlank(text.back())) {
    text.remove_suffix(1);
  }
  return IsFilling(text) || Counts(text) || IsListed(text) ? std::string_view() : text;
}

}  // namespace kestrel
