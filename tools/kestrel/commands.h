#pragma once

#include <string>
#include <vector>

#include "tools/kestrel/command_line.h"

namespace kestrel {

// Does what the command line says, up to the last byte of output. Gives what a person should know
// of the tables besides, one line each. Throws ToolError.
std::vector<std::string> RunCommand(const CommandLine& line);

}  // namespace kestrel
