#pragma once

#include <string>

#include "tools/kestrel/command.h"

namespace kestrel {

// Shows a message, without a line end, to the person who runs the tool.
using Complain = void (*)(std::string message);

// Runs the command, up to the last byte of output, and returns what the process returns. Complains
// of what does not end the command: what a person should know of a table besides, and images of a
// list that cannot be used. Throws ToolError.
ExitCode RunCommand(const CommandLine& line, Complain complain);

}  // namespace kestrel
