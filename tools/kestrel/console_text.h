#pragma once

#include <string_view>

#include "tools/kestrel/output.h"

namespace kestrel {

// The line end of this system.
#if defined(_WIN32)
inline constexpr std::string_view kLineEnd = "\r\n";
#else
inline constexpr std::string_view kLineEnd = "\n";
#endif

// Writes a text of the library made fit for a person at a terminal: Windows-1252 becomes UTF-8,
// "\r\n" the line end of this system, and every other control character but the tab U+FFFD, so that
// no string of the firmware can drive a terminal.
void WriteConsoleText(std::string_view text, Output& output);

}  // namespace kestrel
