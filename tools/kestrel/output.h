#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Each of these writes all the bytes, or throws ToolError.

// A reader that went away ends the output quietly.
void WriteToStandardOutput(std::string_view bytes);

// Writes to whatever has the name, as a shell's ">" does: a file is emptied and keeps its
// permissions, a link is followed.
void WriteFile(const std::string& path, std::string_view bytes);

// Writes a file that nobody had before; anything that has the name is refused, a link included.
// With `force` a regular file is emptied and written instead. A new file that cannot be filled is
// removed.
void WriteNewFile(const std::string& path, std::string_view bytes, bool force);

}  // namespace kestrel
