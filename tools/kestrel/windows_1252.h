#pragma once

#include <string>

namespace kestrel {

// What stands for a control character where texts are shown.
inline constexpr char16_t kReplacement = 0xFFFD;

// The character that a byte is in Windows-1252 as browsers read it: the five bytes that have no
// character there are the control characters of the same number, so that no byte is lost.
char16_t FromWindows1252(unsigned char byte);

// `unit` is no surrogate.
void AppendUtf8(std::string& text, char16_t unit);

}  // namespace kestrel
