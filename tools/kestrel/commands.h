#pragma once

#include <string>
#include <vector>

#include "tools/kestrel/command.h"

namespace kestrel {

// What came of a command that wrote all it had to.
struct CommandResult {
  ExitCode Code;
  // What a person should know of the table besides, one line each.
  std::vector<std::string> Warnings;
};

// Runs the command, up to the last byte of output. Throws ToolError.
CommandResult RunCommand(const CommandLine& line);

}  // namespace kestrel
