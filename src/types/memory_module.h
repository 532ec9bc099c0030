#pragma once

#include <cstdint>
#include <string_view>

namespace kestrel {

// What the structures of the older memory description, the controller's and the module's, say in
// the same words.

// The texts of a memory type word's bits, and what stands between two of them.
inline constexpr std::string_view kMemoryTypes[] = {
    "Other", "Unknown", "Standard", "Fast Page Mode", "EDO",   "Parity",
    "ECC",   "SIMM",    "DIMM",     "Burst EDO",      "SDRAM",
};
inline constexpr std::string_view kMemoryTypeSeparator = ",";

// The megabytes that a stored exponent stands for, kept in 16 bits: 0 where they do not hold them.
constexpr std::uint16_t MegabytesOfExponent(unsigned exponent) {
  return exponent < 16 ? static_cast<std::uint16_t>(1U << exponent) : std::uint16_t{0};
}

}  // namespace kestrel
