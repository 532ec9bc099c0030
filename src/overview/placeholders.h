#pragma once

#include <string_view>

namespace kestrel {

// The text without blanks around it; empty where what is left is a placeholder.
std::string_view WithoutPlaceholder(std::string_view text);

}  // namespace kestrel
