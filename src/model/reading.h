#pragma once

#include <cstdint>
#include <string_view>

#include "model/code_text.h"
#include "model/text.h"

namespace kestrel {

// What firmware stores for a reading that it cannot give.
inline constexpr std::uint16_t kUnknownReading = 0x8000;

// Adds the item of a reading: the number as it is stored, with the unit right behind it.
inline void AddReading(TextBlock& block, std::string_view label, std::uint16_t value,
                       std::string_view unit) {
  if (value == kUnknownReading) {
    block.Item({label, kUnknown});
  } else {
    block.Item({label, Decimal(value), unit});
  }
}

}  // namespace kestrel
