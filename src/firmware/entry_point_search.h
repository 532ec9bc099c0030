#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrel {

// The BIOS area, where firmware puts the entry point.
inline constexpr std::uint32_t kBiosAreaStart = 0xF0000;
inline constexpr std::uint32_t kBiosAreaEnd = 0x100000;

// "_SM_" as a little-endian word.
inline constexpr std::uint32_t kAnchor = 0x5F4D535F;

// Looks for the little-endian word `value` at the offsets 0, 4, 8 and so on below the length of
// `buffer`. Returns 1 and stores the first offset that holds it, or returns 0.
int FindDword(std::span<const std::uint8_t> buffer, std::uint32_t value, std::size_t& offset);

}  // namespace kestrel
