#pragma once

#include <cstddef>
#include <cstdint>

namespace kestrel {

class TableCursor;

// What every structure has at least: type, length, handle.
inline constexpr std::uint8_t kHeaderSize = 4;

inline constexpr std::uint8_t kEndOfTable = 127;

// Places `cursor` on the structure behind the one that starts at `structureStart`: past the
// formatted area that its Length byte announces, then past its string set. Always moves forward, so
// a loop that runs until the cursor is at the end of the table ends. A Length byte below 4 is taken
// at its word.
void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart);

}  // namespace kestrel
