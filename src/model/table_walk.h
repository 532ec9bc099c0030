#pragma once

#include <cstddef>

namespace kestrel {

class TableCursor;

// Places `cursor` on the structure behind the one that starts at `structureStart`: past the
// formatted area that its Length byte announces, then past its string set. Always moves forward, so
// a loop that runs until the cursor is at the end of the table ends. A Length byte below 4 is taken
// at its word.
void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart);

}  // namespace kestrel
