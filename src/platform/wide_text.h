#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Windows takes names as UTF-16; everything else is written with UTF-8. For sources of Windows.
std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

}  // namespace kestrel
