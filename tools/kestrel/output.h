#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Each of these writes all the bytes, or throws ToolError. A new file that cannot be written
// completely is removed.

// A closed pipe ends the output without an error.
void WriteToStandardOutput(std::string_view bytes);

// Writes as a shell's ">" does: an existing file is emptied and keeps its permissions, a link is
// followed.
void WriteFile(const std::string& path, std::string_view bytes);

// Creates a file. Refuses a name that exists, even as a link; with `force` an existing regular file
// is emptied and written.
void WriteNewFile(const std::string& path, std::string_view bytes, bool force);

}  // namespace kestrel
