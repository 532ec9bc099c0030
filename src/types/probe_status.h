#pragma once

#include <cstdint>
#include <string_view>

#include "model/code_text.h"

namespace kestrel {

// Probes and cooling devices pack two codes into one byte: the probe's location or the cooling
// device's type in bits 4:0, the status in bits 7:5.

inline constexpr CodeText kProbeStatuses[] = {
    {1, "Other"},        {2, "Unknown"},  {3, "OK"},
    {4, "Non-critical"}, {5, "Critical"}, {6, "Non-recoverable"},
};

constexpr unsigned CodeBesideStatus(std::uint8_t packed) { return packed & 0x1FU; }

constexpr std::string_view TextOfStatus(std::uint8_t packed) {
  return TextOfCode(kProbeStatuses, packed >> 5U, kNothing);
}

}  // namespace kestrel
