#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kestrel {

// Appends a whole structure to a structure table: header, the bytes `fields` from offset 04h on,
// the strings, and the zeros that close them. Layout: DMTF DSP0134, "Structure header format" and
// "Text strings".
void AppendStructure(std::vector<std::uint8_t>& table, std::uint8_t type, std::uint16_t handle,
                     std::span<const std::uint8_t> fields,
                     std::span<const std::string_view> strings);

}  // namespace kestrel
