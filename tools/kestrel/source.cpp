#include "tools/kestrel/source.h"

#include <utility>

#include "base/text.h"
#include "firmware/table_measure.h"
#include "sample/sample_table.h"
#include "tools/kestrel/machine.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

struct ProblemText {
  SourceProblem Problem;
  const char* Text;
};

constexpr ProblemText kProblemTexts[] = {
    {SourceProblem::NotAFile, " is not a file: name a saved image"},
    {SourceProblem::Empty, " is empty: save the image again"},
    {SourceProblem::TooLarge, " is too large: a raw table ends at 16 MiB"},
    {SourceProblem::NotRecognised,
     " is not of the kind that --format names: leave it to be recognised"},
    {SourceProblem::NoEntryPoint,
     " has no SMBIOS entry point between F0000h and FFFFFh: save an image that holds it"},
    {SourceProblem::EntryPointCut, " ends inside its entry point: save the image again"},
    {SourceProblem::TableOutside,
     " does not hold the table that its entry point names: save an image that does"},
    {SourceProblem::TableEmpty, " has a table of no bytes: save the image again"},
};

// Follows the name of the image.
std::string TextOf(const ImageResult& image) {
  const SourceResult& source = image.Source;
  if (image.Kind == ImageKind::Folder) {
    if (source.Error == std::errc::no_such_file_or_directory) {
      return " is no folder with smbios_entry_point and DMI: name one, or a saved image";
    }
    if (source.Problem == SourceProblem::NoEntryPoint) {
      return " has no entry point of a known kind: use --image with its DMI";
    }
  }
  if (source.Problem == SourceProblem::CannotRead) {
    return " cannot be read (" + source.Error.message() + "): name a file that can";
  }
  if (source.Problem == SourceProblem::NotRecognised && image.Kind == ImageKind::Auto) {
    return " is no image of a known kind: name a saved image, or its kind with --format";
  }
  for (const ProblemText& row : kProblemTexts) {
    if (row.Problem == source.Problem) {
      return row.Text;
    }
  }
  return " cannot be used: save the image again";
}

SmbiosTable ReadNamedImage(const SourceOptions& options, std::vector<std::string>& warnings) {
  ImageResult image =
      ReadImage(*options.Image, options.Format, options.RawVersion.value_or(SmbiosVersion{}));
  if (image.Source.Problem != SourceProblem::None) {
    throw ToolError("'" + *options.Image + "'" + TextOf(image));
  }
  if (image.Source.Table.Bytes.empty()) {
    throw ToolError("'" + *options.Image + "' has a table of no bytes: save the image again");
  }
  if (options.RawVersion && image.Kind != ImageKind::Raw) {
    warnings.emplace_back("--smbios-version is ignored: the image has its own version");
  }
  return std::move(image.Source.Table);
}

SmbiosTable ReadThisMachine(const SourceOptions& options) {
  std::string failure;
  std::optional<SmbiosTable> table = ReadMachine(failure);
  if (!table) {
    throw ToolError(failure + (options.MachineOnly ? "" : ", or use --image FILE or --sample"));
  }
  return std::move(*table);
}

SmbiosTable SampleTable() {
  SmbiosTable table;
  table.Bytes = MakeSampleTable();
  table.EntryPoint.Version = kSampleVersion;
  table.EntryPoint.TableLength = static_cast<std::uint32_t>(table.Bytes.size());
  return table;
}

void WarnOfCut(const SmbiosTable& table, std::vector<std::string>& warnings) {
  if (!IsCut(table)) {
    return;
  }
  std::string& warning = warnings.emplace_back("the table is cut");
  // A 64-bit entry point does not tell how many bytes there should be.
  if (table.EntryPoint.Kind != EntryPointKind::Bits64) {
    Append(warning, {", ", Decimal(table.Bytes.size()), " of ",
                     Decimal(table.EntryPoint.TableLength), " bytes are there"});
  }
  warning.append(": it is shown as far as it goes");
}

}  // namespace

SmbiosTable ReadSource(const SourceOptions& options, std::vector<std::string>& warnings) {
  SmbiosTable table = options.Image    ? ReadNamedImage(options, warnings)
                      : options.Sample ? SampleTable()
                                       : ReadThisMachine(options);
  WarnOfCut(table, warnings);
  return table;
}

}  // namespace kestrel
