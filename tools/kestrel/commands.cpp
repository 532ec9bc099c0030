#include "tools/kestrel/commands.h"

#include <memory>
#include <utility>

#include "firmware/table_firmware.h"
#include "model/smbios_reader.h"
#include "model/text.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/dump.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/structure_list.h"
#include "tools/kestrel/tool_error.h"
#include "types/type0_bios_information.h"

namespace kestrel {

namespace {

// The structures that the library finds in the table. Warns of what it does not get to see.
std::unique_ptr<SMBiosReader> ReadAsLibrary(CommandRun& run) {
  auto firmware = std::make_unique<TableFirmware>(run.Table);
  if (firmware->IsShortened()) {
    run.Warnings.emplace_back(
        "the table is longer than 65,535 bytes: the structures after them are left out");
  }
  auto reader = std::make_unique<SMBiosReader>(std::move(firmware));
  reader->ReadTable();
  return reader;
}

std::string MakeReport(CommandRun& run) {
  std::string report = ReadAsLibrary(run)->BuildTextReport();
  return run.Line.Exact ? report : ToConsoleText(report);
}

std::string MakeMif(CommandRun& run) { return ReadAsLibrary(run)->ObjsToMifString(); }

std::string MakeBios(CommandRun& run) {
  const auto reader = ReadAsLibrary(run);
  const SMType0Obj* bios = reader->GetType0Obj();
  if (bios == nullptr) {
    throw ToolError("the table has no BIOS Information: see what it has with 'kestrel list'");
  }
  std::string text;
  Append(text, {bios->GetVendorText(), "\r\n", bios->GetVersionText(), "\r\n",
                bios->GetReleaseDateText(), "\r\n"});
  return ToConsoleText(text);
}

std::string MakeList(CommandRun& run) { return ToConsoleText(ListStructures(run.Table.Bytes)); }

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
