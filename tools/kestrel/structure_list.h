#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrel {

// The published name of a structure type; "OEM" for 128 to 255, "Unknown" for a type that nobody
// published. Names: DMTF DSP0134, "Structure definitions".
std::string_view GetStructureName(std::uint8_t type);

// A line per structure, in table order: offset, type, length, handle, name. Finds the structures
// that the library finds. Lines end with "\r\n", as in the library's texts.
std::string ListStructures(std::span<const std::uint8_t> table);

}  // namespace kestrel
