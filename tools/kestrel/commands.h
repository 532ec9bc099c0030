#pragma once

#include <string>
#include <vector>

#include "tools/kestrel/command.h"

namespace kestrel {

// Runs the command, up to the last byte of output. Returns what a person should know of the table
// besides, one line each. Throws ToolError.
std::vector<std::string> RunCommand(const CommandLine& line);

}  // namespace kestrel
