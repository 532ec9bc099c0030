#pragma once

#include <optional>
#include <string>

#include "tools/kestrel/source.h"

namespace kestrel {

enum class Command { Report, Mif, Bios, List, Save };

struct CommandLine {
  Command Chosen = Command::Report;
  SourceOptions Source;
  // The library's bytes rather than a text for a person.
  bool Exact = false;
  // Where a text goes instead of standard output, if anywhere; for Save the dump.
  std::optional<std::string> Output;
};

struct ParsedCommandLine {
  CommandLine Line;
  // The help or the version, where that was asked for instead of a command.
  std::string Answer;
};

// Throws ToolError with the code for wrong usage.
ParsedCommandLine ParseCommandLine(int argumentCount, const char* const* arguments);

}  // namespace kestrel
