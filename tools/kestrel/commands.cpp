#include "tools/kestrel/commands.h"

#include <utility>

#include "tools/kestrel/console_text.h"
#include "tools/kestrel/dump.h"
#include "tools/kestrel/library_view.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/structure_list.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

void Warn(CommandRun& run, const std::vector<std::string>& notes) {
  run.Warnings.insert(run.Warnings.end(), notes.begin(), notes.end());
}

// The table as the library sees it. Warns where that is not the table.
LibraryView ReadAsLibrary(CommandRun& run) {
  LibraryView view = ViewAsLibrary(run.Table);
  Warn(run, NotesOnTexts(view));
  return view;
}

std::string MakeReport(CommandRun& run) {
  std::string report = ReadAsLibrary(run).Reader->BuildTextReport();
  return run.Line.Exact ? report : ToConsoleText(report);
}

std::string MakeMif(CommandRun& run) { return ReadAsLibrary(run).Reader->ObjsToMifString(); }

std::string MakeBios(CommandRun& run) {
  const std::string text = TextOfBios(ReadAsLibrary(run));
  if (text.empty()) {
    throw ToolError("the table has no BIOS Information: see what it has with 'kestrel list'");
  }
  return ToConsoleText(text);
}

std::string MakeList(CommandRun& run) {
  const LibraryView view = ViewAsLibrary(run.Table);
  Warn(run, NotesOnList(view.Scan, view.Comparison));
  return ToConsoleText(ListStructures(view.Scan, view.Comparison));
}

std::string MakeDump(CommandRun& run) { return DumpOf(run.Table); }

constexpr Command kCommands[] = {
    {"report", "The text report", kTakesSource | kTakesExact | kTakesOutput, MakeReport},
    {"mif", "The MIF document, as consoles read it", kTakesSource | kTakesOutput, MakeMif},
    {"bios", "Vendor, version and release date of the BIOS", kTakesSource, MakeBios},
    {"list", "A line per structure: offset, type, length, handle, name", kTakesSource, MakeList},
    {"save", "Save this machine's entry point and table, for --image to read", kTakesNewFile,
     MakeDump},
};

}  // namespace

std::span<const Command> GetCommands() { return kCommands; }

std::vector<std::string> RunCommand(const CommandLine& line) {
  std::vector<std::string> warnings;
  const SmbiosTable table = ReadSource(line.Source, warnings);
  CommandRun run = {line, table, warnings};
  const std::string text = line.Chosen->MakeText(run);
  if ((line.Chosen->Options & kTakesNewFile) != 0) {
    WriteNewFile(*line.Output, text, line.Force);
  } else if (line.Output && *line.Output != "-") {
    WriteFile(*line.Output, text);
  } else {
    WriteToStandardOutput(text);
  }
  return warnings;
}

}  // namespace kestrel
