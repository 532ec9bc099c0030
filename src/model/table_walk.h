#pragma once

#include <cstddef>

namespace kestrel {

class TableCursor;

// Moves `cursor` to the structure after the one that starts at `structureStart`: past the formatted
// area, whose size is the Length byte, even one below 4, and past the string set. Always moves
// forward, so a loop that ends at the end of the table does end.
void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart);

}  // namespace kestrel
