#pragma once

#include <cstddef>
#include <cstdint>

namespace kestrel {

class TableCursor;

// The bytes that every structure has at least: type, length, handle.
inline constexpr std::uint8_t kHeaderSize = 4;

inline constexpr std::uint8_t kEndOfTable = 127;

// Moves `cursor` to the structure after the one that starts at `structureStart`: past the formatted
// area, whose size is the Length byte, even one below 4, and past the string set. Always moves
// forward, so a loop that ends at the end of the table does end.
void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart);

}  // namespace kestrel
