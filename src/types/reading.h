#pragma once

#include <cstdint>
#include <string_view>

#include "model/code_text.h"
#include "model/text_block.h"

namespace kestrel {

// What firmware stores for a reading that it does not know.
inline constexpr std::uint16_t kUnknownReading = 0x8000;

// The number as stored, directly followed by its unit.
inline ItemText TextOfReading(std::uint16_t value, std::string_view unit) {
  if (value == kUnknownReading) {
    return {kUnknown};
  }
  return {Decimal(value), unit};
}

}  // namespace kestrel
