#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// The line end of this system.
#if defined(_WIN32)
inline constexpr std::string_view kLineEnd = "\r\n";
#else
inline constexpr std::string_view kLineEnd = "\n";
#endif

// A text of the library made fit for a person at a terminal: Windows-1252 becomes UTF-8, "\r\n"
// the line end of this system, and every other control character but the tab U+FFFD, so that no
// string of the firmware can drive a terminal.
std::string ToConsoleText(std::string_view text);

}  // namespace kestrel
