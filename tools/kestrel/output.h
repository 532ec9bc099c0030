#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Writes a whole text to standard output. A reader that went away ends the output quietly; any
// other failure throws ToolError.
void WriteToStandardOutput(std::string_view text);

// Writes a whole file: beside the target, which is replaced only when all is written, so that a
// failure leaves an earlier file as it was. A target that is no file, such as a device, is written
// to as it is. Throws ToolError.
void WriteFile(const std::string& path, std::string_view bytes);

}  // namespace kestrel
