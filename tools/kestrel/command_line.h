#pragma once

#include <string>

#include "tools/kestrel/command.h"

namespace kestrel {

struct ParsedCommandLine {
  CommandLine Line;
  // The help or the version, where that was asked for; no command is chosen then.
  std::string Answer;
};

// Throws ToolError with the code for wrong usage.
ParsedCommandLine ParseCommandLine(int argumentCount, const char* const* arguments);

}  // namespace kestrel
