#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel {

// Words that stand for types of structures on the command line, for messages.
inline constexpr std::string_view kTypeWords =
    "bios, system, baseboard, chassis, processor, memory, cache, connector or slot";

// Appends the types that a word stands for, in any case of letters, or the one of a decimal
// number. Returns false, and appends nothing, where the text is neither.
bool AppendTypes(std::vector<std::uint8_t>& types, std::string_view text);

// A handle as texts have it, "0008h", as "0x8" or in decimal.
std::optional<std::uint16_t> ToHandle(std::string_view text);

}  // namespace kestrel
