#include "tools/kestrel/commands.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

#include "base/text.h"
#include "catalog/meant_version.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/complaint.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/dump.h"
#include "tools/kestrel/fault_list.h"
#include "tools/kestrel/file_name.h"
#include "tools/kestrel/html_page.h"
#include "tools/kestrel/image_list.h"
#include "tools/kestrel/interruption.h"
#include "tools/kestrel/json_document.h"
#include "tools/kestrel/keyword_values.h"
#include "tools/kestrel/library_view.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/overview_text.h"
#include "tools/kestrel/progress.h"
#include "tools/kestrel/structure_list.h"
#include "tools/kestrel/structure_text.h"
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

void WriteReport(CommandRun& run, Output& output) {
  const std::string report = ReadAsLibrary(run).Reader->BuildTextReport();
  if (run.Line.Exact) {
    output.Write(report);
  } else {
    WriteConsoleText(report, output);
  }
}

void WriteMif(CommandRun& run, Output& output) {
  output.Write(ReadAsLibrary(run).Reader->ObjsToMifString());
}

void WriteBios(CommandRun& run, Output& output) {
  const std::string text = TextOfBios(ReadAsLibrary(run));
  if (text.empty()) {
    throw ToolError("the table has no BIOS Information: see what it has with 'kestrel list'");
  }
  WriteConsoleText(text, output);
}

void WriteList(CommandRun& run, Output& output) {
  const LibraryView view = ViewAsLibrary(run.Table);
  Warn(run, NotesOnList(view.Scan, view.Comparison));
  ListStructures(view.Scan, view.Comparison, output);
}

void WriteCheck(CommandRun& run, Output& output) {
  const LibraryView view = ViewAsLibrary(run.Table);
  catalog::FaultList faults = catalog::FindFaults(run.Table, view.Scan);
  AddWalkFaults(faults, view.Comparison);
  run.Code = faults.HasErrors() ? ExitCode::FaultyTable : ExitCode::Done;
  if (run.Line.Lines) {
    const auto& image = run.Line.Source.Image;
    const std::string name = image ? NameOf(*image) : std::string();
    WriteJsonFaults(faults, image ? std::optional<std::string_view>(name) : run.NameInList, output);
  } else {
    WriteConsoleText(ListFaults(faults), output);
  }
}

void WriteJson(CommandRun& run, Output& output) {
  const JsonOptions options = {.OneLine = run.Line.Lines,
                               .Source = run.NameInList,
                               .Types = run.Line.Types,
                               .OnlyOverview = run.Line.OnlyOverview};
  Warn(run, NotesOnEnd(WriteJsonDocument(run.Table, options, output)));
}

SmbiosVersion MeantVersionOf(const SmbiosTable& table) {
  return catalog::MeantVersion(table.EntryPoint.Version);
}

void WriteOverview(CommandRun& run, Output& output) {
  const LibraryView view = ViewAsLibrary(run.Table);
  catalog::FaultList faults = catalog::FindFaults(run.Table, view.Scan);
  AddWalkFaults(faults, view.Comparison);
  Warn(run, NotesOnEnd(view.Scan));
  const std::string text = OverviewText(Overview(run.Table), faults);
  if (text.empty()) {
    throw ToolError("the table says nothing of the machine: see what it has with 'kestrel list'");
  }
  output.Write(text);
}

void WriteHtml(CommandRun& run, Output& output) {
  const LibraryView view = ViewAsLibrary(run.Table);
  catalog::FaultList faults = catalog::FindFaults(run.Table, view.Scan);
  AddWalkFaults(faults, view.Comparison);
  Warn(run, NotesOnEnd(view.Scan));
  WriteHtmlPage(run.Table, view.Scan, faults, output);
}

bool IsWanted(std::span<const std::uint8_t> types, std::uint8_t type) {
  return types.empty() || std::find(types.begin(), types.end(), type) != types.end();
}

void WriteShow(CommandRun& run, Output& output) {
  const catalog::TableScan scan = catalog::ScanTable(run.Table);
  Warn(run, NotesOnEnd(scan));
  const std::optional<std::uint16_t> handle = run.Line.Handle;
  StructureText text(run.Table, scan, output);
  bool isAny = false;
  for (const catalog::Structure& structure : scan.Structures) {
    if (IsWanted(run.Line.Types, structure.Type) && (!handle || structure.Handle == handle)) {
      text.Append(structure);
      isAny = true;
    }
  }
  if (handle && !isAny) {
    throw ToolError(Join({"no structure has the handle ", Hex(*handle, 4),
                          "h: see those that there are with 'kestrel list'"}));
  }
}

void WriteValues(CommandRun& run, Output& output) {
  const catalog::TableScan scan = catalog::ScanTable(run.Table);
  bool isAny = false;
  for (const Keyword* keyword : run.Line.Keywords) {
    isAny = WriteKeyword(*keyword, scan, MeantVersionOf(run.Table), output) || isAny;
  }
  if (!isAny) {
    throw ToolError("the table has no such value: see what it has with 'kestrel show'");
  }
}

void WriteDump(CommandRun& run, Output& output) { output.Write(DumpOf(run.Table)); }

constexpr Command kCommands[] = {
    {"overview", "The machine on one screen", kTakesSource, WriteOverview},
    {"show", "Every structure in words, by the current standard",
     kTakesSource | kTakesTypes | kTakesHandle | kTakesOutput, WriteShow},
    {"get", "Single values, for scripts", kTakesSource | kTakesKeywords, WriteValues},
    {"html", "A page for a browser, with drawings, as one file", kTakesSource | kTakesOutput,
     WriteHtml},
    {"report", "The text report", kTakesSource | kTakesExact | kTakesOutput, WriteReport},
    {"mif", "The MIF document, as consoles read it", kTakesSource | kTakesOutput, WriteMif},
    {"bios", "Vendor, version and release date of the BIOS", kTakesSource | kIgnoresVersion,
     WriteBios},
    {"list", "A line per structure: offset, type, length, handle, name",
     kTakesSource | kIgnoresVersion, WriteList},
    {"json", "Every structure, decoded by the current standard, as JSON",
     kTakesSource | kTakesTypes | kTakesOverview | kTakesLines | kTakesOutput, WriteJson,
     "The manual page describes the document."},
    {"check", "A line per fault of the table; ends with 3 where there is an error",
     kTakesSource | kTakesLines, WriteCheck},
    {"save", "Save this machine's entry point and table, for --image to read", kTakesNewFile,
     WriteDump},
};

std::unique_ptr<Output> OutputOf(const CommandLine& line) {
  if (!line.Output || *line.Output == "-") {
    return MakeStandardOutput();
  }
  return (line.Chosen->Options & kTakesNewFile) != 0 ? MakeNewFileOutput(*line.Output, line.Force)
                                                     : MakeFileOutput(*line.Output);
}

void ComplainOf(const std::vector<std::string>& warnings, const std::string& name) {
  for (const std::string& warning : warnings) {
    Complain(Join({"warning: ", name, warning}));
  }
}

void RunOnSource(const CommandLine& line, Output& output, ExitCode& code) {
  std::vector<std::string> warnings;
  const SmbiosTable table = ReadSource(line.Source, warnings);
  CommandRun run = {.Line = line, .Table = table, .Warnings = warnings};
  line.Chosen->Run(run, output);
  code = run.Code;
  output.Finish();
  ComplainOf(warnings, "");
}

SmbiosTable ReadListed(const CommandLine& line, const std::string& name,
                       std::vector<std::string>& warnings) {
  if (name.find('\0') != std::string::npos) {
    throw ToolError("no file has a zero byte in its name: mend the list");
  }
  SourceOptions source = line.Source;
  source.Image = ToPath(name);
  return ReadSource(source, warnings);
}

// Runs the command on an image of a list, and returns what a run on this image only would.
ExitCode RunOnListed(const CommandLine& line, const std::string& name, Output& output,
                     Progress& progress) {
  std::vector<std::string> warnings;
  SmbiosTable table;
  try {
    table = ReadListed(line, name, warnings);
  } catch (const ToolError& error) {
    progress.Hide();
    WriteJsonError(name, error.what(), output);
    output.Flush();
    Complain(error.what());
    return error.GetCode();
  }
  progress.Hide();
  CommandRun run = {.Line = line, .Table = table, .NameInList = name, .Warnings = warnings};
  line.Chosen->Run(run, output);
  output.Flush();
  ComplainOf(warnings, "'" + name + "': ");
  return run.Code;
}

void RunOnList(const CommandLine& line, Output& output, ExitCode& code) {
  ImageList list(*line.ImagesFrom);
  Progress progress(ShowsProgress() ? list.Count() : std::nullopt);
  DeferInterruption();
  for (std::size_t count = 1; const auto name = list.Next(); ++count) {
    const ExitCode codeOfThis = RunOnListed(line, *name, output, progress);
    // An image that cannot be used says more of the run than a faulty table.
    if (code != ExitCode::Failed && codeOfThis != ExitCode::Done) {
      code = codeOfThis;
    }
    progress.Show(count);
  }
  output.Finish();
}

}  // namespace

std::span<const Command> GetCommands() { return kCommands; }

ExitCode RunCommand(const CommandLine& line) {
  const std::unique_ptr<Output> output = OutputOf(line);
  ExitCode code = ExitCode::Done;
  try {
    if (line.ImagesFrom) {
      RunOnList(line, *output, code);
    } else {
      RunOnSource(line, *output, code);
    }
  } catch (const ReaderGone&) {
    // Whoever stops reading has seen enough.
  }
  EndIfInterrupted();
  return code;
}

}  // namespace kestrel
