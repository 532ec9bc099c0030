#pragma once

#include "tools/kestrel/command.h"

namespace kestrel {

// Runs the command, up to the last byte of output, and returns what the process returns. Complains
// of what does not end the command: what a person should know of a table besides, and images of a
// list that cannot be used. Throws ToolError.
ExitCode RunCommand(const CommandLine& line);

}  // namespace kestrel
