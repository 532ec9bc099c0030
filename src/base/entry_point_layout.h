#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <string_view>

// The layout of the two entry points. Source: DMTF DSP0134, "SMBIOS 2.1 (32-bit) Entry Point
// structure" and "SMBIOS 3.0 (64-bit) Entry Point structure". All numbers are little-endian.
namespace kestrel {

namespace entry_point32 {

inline constexpr std::string_view kAnchor = "_SM_";
inline constexpr std::string_view kIntermediateAnchor = "_DMI_";
inline constexpr std::size_t kSize = 0x1F;
// Version 2.1 of the standard gave the length as one byte less, and some firmware publishes no more
// bytes than that. The last byte, which is then missing, repeats the version.
inline constexpr std::size_t kShortestSize = 0x1E;

inline constexpr std::size_t kChecksum = 0x04;
inline constexpr std::size_t kLength = 0x05;
// The second half has its own anchor and checksum.
inline constexpr std::size_t kIntermediateStart = 0x10;
inline constexpr std::size_t kIntermediateSize = 0x0F;
inline constexpr std::size_t kIntermediateChecksum = 0x15;
inline constexpr std::size_t kTableAddress = 0x18;
inline constexpr std::size_t kBcdRevision = 0x1E;

}  // namespace entry_point32

namespace entry_point64 {

inline constexpr std::string_view kAnchor = "_SM3_";
inline constexpr std::size_t kSize = 0x18;

inline constexpr std::size_t kChecksum = 0x05;
inline constexpr std::size_t kLength = 0x06;
inline constexpr std::size_t kTableLength = 0x0C;
inline constexpr std::size_t kTableAddress = 0x10;

}  // namespace entry_point64

// No entry point is longer.
inline constexpr std::size_t kLargestEntryPoint = 32;

inline bool StartsWith(std::span<const std::uint8_t> bytes, std::string_view anchor) {
  // Text and bytes share their storage; char may alias any object.
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size())
      .starts_with(anchor);
}

// The sum of the bytes that a checksum covers, itself included: 0 where the checksum is right.
inline std::uint8_t ByteSum(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

}  // namespace kestrel
