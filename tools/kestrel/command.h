#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/kestrel/keyword_values.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/source.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

// What a command takes: bits of Command::Options.
inline constexpr unsigned kTakesSource = 1;      // the options that choose a table
inline constexpr unsigned kTakesExact = 2;       // --exact
inline constexpr unsigned kTakesOutput = 4;      // -o FILE
inline constexpr unsigned kTakesNewFile = 8;     // FILE, and --force
inline constexpr unsigned kTakesTypes = 16;      // --type N, any number of times
inline constexpr unsigned kTakesHandle = 32;     // --handle H
inline constexpr unsigned kTakesKeywords = 64;   // KEYWORD, any number of them
inline constexpr unsigned kTakesLines = 128;     // --lines, and --images-from LIST
inline constexpr unsigned kTakesOverview = 256;  // --overview
// Shows the same of a table in any version.
inline constexpr unsigned kIgnoresVersion = 512;

struct CommandRun;

// A command: name, options, function.
struct Command {
  const char* Name;
  const char* Description;
  unsigned Options;
  // Does the command's work, and writes what it makes. Throws ToolError.
  void (*Run)(CommandRun& run, Output& output);
  // What the help says after the options.
  const char* Details = "";
};

// In the order in which the help shows them.
std::span<const Command> GetCommands();

struct CommandLine {
  const Command* Chosen = nullptr;
  SourceOptions Source;
  // The library's bytes rather than a text for a person.
  bool Exact = false;
  // Where the text goes; without it, and for "-", to standard output.
  std::optional<std::filesystem::path> Output;
  // The types of structures that are wanted; all where there are none.
  std::vector<std::uint8_t> Types;
  // The overview instead of the structures.
  bool OnlyOverview = false;
  // The handle of the structures that are wanted.
  std::optional<std::uint16_t> Handle;
  // What values are wanted, in order.
  std::vector<const Keyword*> Keywords;
  // One line of JSON for each table.
  bool Lines = false;
  // A list of images, to run on each of them; "-" is standard input.
  std::optional<std::filesystem::path> ImagesFrom;
  // Whether a file that is there may be overwritten, for a command that makes a new one.
  bool Force = false;
};

// A command at work.
struct CommandRun {
  const CommandLine& Line;
  const SmbiosTable& Table;
  // The name that the table has in a list of images.
  std::optional<std::string_view> NameInList = std::nullopt;
  // What a person should know besides, one line each.
  std::vector<std::string>& Warnings;
  // What the process returns once the text is written.
  ExitCode Code = ExitCode::Done;
};

}  // namespace kestrel
