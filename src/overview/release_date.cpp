#include "overview/release_date.h"

#include <charconv>
#include <chrono>
#include <cstddef>
#include <optional>

#include "base/text.h"

namespace kestrel {

namespace {

// Takes digits from the front of the text, as many as there are.
std::optional<unsigned> TakeNumber(std::string_view& text) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) {
    return std::nullopt;
  }
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

}  // namespace

std::string IsoDateOf(std::string_view text) {
  const bool isIso = text.size() > 4 && text[4] == '-';
  const char separator = isIso ? '-' : '/';
  unsigned numbers[3] = {};
  for (unsigned& number : numbers) {
    const std::optional<unsigned> taken = TakeNumber(text);
    const bool isLast = &number == &numbers[2];
    if (!taken || isLast != text.empty() || (!isLast && text.front() != separator)) {
      return {};
    }
    number = *taken;
    text.remove_prefix(isLast ? 0 : 1);
  }
  const auto [first, second, third] = numbers;
  const unsigned year = isIso ? first : third < 100 ? 1900 + third : third;
  const unsigned month = isIso ? second : first;
  const unsigned day = isIso ? third : second;
  const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(year)),
                                         std::chrono::month(month), std::chrono::day(day));
  if (year < 1900 || year > 9999 || !date.ok()) {
    return {};
  }
  return Join({Decimal(year), month < 10 ? "-0" : "-", Decimal(month), day < 10 ? "-0" : "-",
               Decimal(day)});
}

}  // namespace kestrel
