#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/kestrel/source.h"

namespace kestrel {

// What a command takes.
enum CommandOption : unsigned {
  kTakesSource = 1,   // the options that choose a table; without them it is this machine's
  kTakesExact = 2,    // --exact
  kTakesOutput = 4,   // -o FILE
  kTakesNewFile = 8,  // FILE, and --force
};

struct CommandRun;

// A command of the tool, in all that tells it from the others.
struct Command {
  const char* Name;
  const char* Description;
  unsigned Options;
  // Makes what the command writes.
  std::string (*MakeText)(CommandRun& run);
};

// In the order in which the help shows them.
std::span<const Command> GetCommands();

struct CommandLine {
  const Command* Chosen = nullptr;
  SourceOptions Source;
  // The library's bytes rather than a text for a person.
  bool Exact = false;
  // Where the text goes; without it, and for "-", to standard output.
  std::optional<std::string> Output;
  // Whether a file that is there may be overwritten, for a command that makes a new one.
  bool Force = false;
};

// A command at work.
struct CommandRun {
  const CommandLine& Line;
  const SmbiosTable& Table;
  // What a person should know besides, one line each.
  std::vector<std::string>& Warnings;
};

}  // namespace kestrel
