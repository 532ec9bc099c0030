#pragma once

#include <string_view>

namespace kestrel {

// Prints a line on standard error, after "kestrel: ". What the message holds of names and of the
// firmware's texts cannot drive a terminal or begin another line: control characters and bytes that
// are not UTF-8 show as '?'.
void Complain(std::string_view message);

}  // namespace kestrel
