#include "tools/kestrel/source.h"

#include <utility>

#include "base/text.h"
#include "firmware/table_measure.h"
#include "sample/sample_table.h"
#include "tools/kestrel/file_name.h"
#include "tools/kestrel/machine.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

struct ProblemText {
  SourceProblem Problem;
  const char* Text;
};

constexpr ProblemText kProblemTexts[] = {
    {SourceProblem::NotAFile,
     " is not a file: name a saved image, or pass it on standard input with --image -"},
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
    if (source.Problem == SourceProblem::NotAFile) {
      return " has a smbios_entry_point or DMI that is not a file: copy both as files";
    }
    if (source.Problem == SourceProblem::NoEntryPoint) {
      return " has no entry point of a known kind: read its DMI by --format raw";
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

void WarnOfVersion(const SourceOptions& options, ImageKind kind,
                   std::vector<std::string>& warnings) {
  if (options.RawVersion && kind != ImageKind::Raw) {
    warnings.emplace_back("--smbios-version is ignored: the image has its own version");
  }
  if (!options.RawVersion && kind == ImageKind::Raw && !options.IgnoresVersion) {
    warnings.emplace_back(
        "a raw table has no version, so it is read as 2.3: give the right one with "
        "--smbios-version");
  }
}

SmbiosTable ReadNamedImage(const SourceOptions& options, std::vector<std::string>& warnings) {
  const bool isStandardInput = *options.Image == "-";
  const std::string name = isStandardInput ? "standard input" : Quoted(*options.Image);
  const SmbiosVersion rawVersion = options.RawVersion.value_or(SmbiosVersion{});
  ImageResult image = isStandardInput ? ReadImageFromStandardInput(options.Format, rawVersion)
                                      : ReadImage(*options.Image, options.Format, rawVersion);
  if (image.Source.Problem != SourceProblem::None) {
    throw ToolError(name + TextOf(image));
  }
  if (image.Source.Table.Bytes.empty()) {
    throw ToolError(name + " has a table of no bytes: save the image again");
  }
  WarnOfVersion(options, image.Kind, warnings);
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
  // A 64-bit entry point does not say how many bytes there should be.
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
