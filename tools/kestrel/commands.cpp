#include "tools/kestrel/commands.h"

#include <utility>

#include "model/text.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/dump.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/source.h"
#include "tools/kestrel/structure_list.h"
#include "tools/kestrel/tool_error.h"
#include "types/type0_bios_information.h"

namespace kestrel {

namespace {

std::string TextOfBios(const SMBiosReader& reader) {
  const SMType0Obj* bios = reader.GetType0Obj();
  if (bios == nullptr) {
    throw ToolError("the table has no BIOS Information: see what it has with 'kestrel list'");
  }
  std::string text;
  Append(text, {bios->GetVendorText(), "\r\n", bios->GetVersionText(), "\r\n",
                bios->GetReleaseDateText(), "\r\n"});
  return text;
}

std::string TextOf(const CommandLine& line, OpenedSource& source) {
  if (line.Chosen == Command::Save) {
    return MakeDump(source);
  }
  if (line.Chosen == Command::List) {
    return ToConsoleText(ListStructures(source.Table.Bytes));
  }
  SMBiosReader& reader = *source.Reader;
  reader.WalkTable(source.Table.Bytes);
  if (line.Chosen == Command::Mif) {
    return reader.ObjsToMifString();
  }
  std::string text = line.Chosen == Command::Bios ? TextOfBios(reader) : reader.BuildTextReport();
  if (!line.Exact) {
    text = ToConsoleText(text);
  }
  return text;
}

}  // namespace

std::vector<std::string> RunCommand(const CommandLine& line) {
  OpenedSource source = OpenSource(line.Source);
  const std::string text = TextOf(line, source);
  if (line.Output) {
    WriteFile(*line.Output, text);
  } else {
    WriteToStandardOutput(text);
  }
  return std::move(source.Warnings);
}

}  // namespace kestrel
