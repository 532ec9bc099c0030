#pragma once

#include <cstdint>

namespace kestrel {

// The bytes that every structure has at least: type, length, handle.
inline constexpr std::uint8_t kHeaderSize = 4;

// Structure types that are looked for by number.
inline constexpr std::uint8_t kBiosInformation = 0;
inline constexpr std::uint8_t kInactive = 126;
inline constexpr std::uint8_t kEndOfTable = 127;

}  // namespace kestrel
