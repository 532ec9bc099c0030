#include "tools/kestrel/source.h"

#include <utility>

#include "model/text.h"
#include "sample/sample_table.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

#if defined(_WIN32)
constexpr const char* kNoMachineTables =
    "this machine shows no SMBIOS tables: run it as an administrator with the driver file beside "
    "it";
#else
constexpr const char* kNoMachineTables =
    "this machine shows no SMBIOS tables: run it as root where there is /sys/firmware/dmi/tables";
#endif

constexpr const char* kOtherSources = ", or use --image FILE or --sample";

struct ProblemText {
  ImageProblem Problem;
  // Stands behind the name of the image.
  const char* Text;
};

constexpr ProblemText kProblemTexts[] = {
    {ImageProblem::NotAFile, " is not a file: name a saved image"},
    {ImageProblem::Empty, " is empty: save the image again"},
    {ImageProblem::TooLarge,
     " is too large: an image ends below 4 GiB, a raw table at 65,535 bytes"},
    {ImageProblem::NotRecognised,
     " is not of the kind that --format names: leave it to be recognised"},
    {ImageProblem::NoEntryPoint,
     " has no SMBIOS entry point between F0000h and FFFFFh: save an image that holds it"},
    {ImageProblem::EntryPointCut, " ends inside its entry point: save the image again"},
    {ImageProblem::TableOutside,
     " does not hold the table that its entry point names: save an image that does"},
    {ImageProblem::TableEmpty, " has a table of no bytes: save the image again"},
};

std::string TextOfProblem(const ImageFirmware& image) {
  if (image.GetProblem() == ImageProblem::CannotOpen) {
    return " cannot be read (" + image.GetError().message() + "): name a file that can";
  }
  if (image.GetProblem() == ImageProblem::NotRecognised && image.GetKind() == ImageKind::Auto) {
    return " is no image of a known kind: name a saved image, or its kind with --format";
  }
  for (const ProblemText& row : kProblemTexts) {
    if (row.Problem == image.GetProblem()) {
      return row.Text;
    }
  }
  return " cannot be used: save the image again";
}

void WarnOfVersion(const FirmwareAccess& access, const SourceOptions& options,
                   OpenedSource& source) {
  const auto* image = dynamic_cast<const ImageFirmware*>(&access);
  if (options.RawVersion && image != nullptr && image->GetKind() != ImageKind::Raw) {
    source.Warnings.emplace_back("--smbios-version is left aside: the image has its own version");
  }
}

void WarnOfPresentation(const FirmwareAccess& access, OpenedSource& source) {
  // Only tables that are presented as memory can be shortened or cut on the way there.
  const auto* presented = dynamic_cast<const TableFirmware*>(&access);
  if (presented != nullptr && presented->IsShortened()) {
    source.Warnings.emplace_back(
        "the table is longer than 65,535 bytes: the structures beyond them are left out");
  }
  if (presented != nullptr && presented->IsCut()) {
    source.Warnings.emplace_back("the table is cut: it is shown as far as it goes");
  }
}

void WarnOfRead(OpenedSource& source) {
  const TableCopy& table = source.Table;
  if (table.BytesRead < table.Bytes.size()) {
    std::string& warning = source.Warnings.emplace_back();
    Append(warning,
           {"the table is cut, ", Decimal(table.BytesRead), " of ", Decimal(table.Bytes.size()),
            " bytes are there: it is shown as far as it goes"});
  }
}

std::unique_ptr<FirmwareAccess> MakeAccess(const SourceOptions& options) {
  if (options.Image) {
    return std::make_unique<ImageFirmware>(*options.Image, options.Format,
                                           options.RawVersion.value_or(SmbiosVersion{}));
  }
  if (options.Sample) {
    return std::make_unique<TableFirmware>(kSampleVersion, MakeSampleTable());
  }
  return MakeMachineAccess();
}

std::string TextOfFailure(const SourceOptions& options, const FirmwareAccess& access) {
  const auto* image = dynamic_cast<const ImageFirmware*>(&access);
  if (image != nullptr) {
    return "'" + *options.Image + "'" + TextOfProblem(*image);
  }
  return std::string(kNoMachineTables) + (options.MachineOnly ? "" : kOtherSources);
}

}  // namespace

OpenedSource OpenSource(const SourceOptions& options) {
  std::unique_ptr<FirmwareAccess> owned = MakeAccess(options);
  const FirmwareAccess& access = *owned;
  OpenedSource source;
  source.Reader.reset(new SMBiosReader(std::move(owned)));
  if (source.Reader->OpenAccess() == 0) {
    throw ToolError(TextOfFailure(options, access));
  }
  WarnOfVersion(access, options, source);
  WarnOfPresentation(access, source);
  std::optional<TableCopy> table = source.Reader->CopyTable();
  if (!table || table->Bytes.empty()) {
    throw ToolError(TextOfFailure(options, access));
  }
  source.Table = std::move(*table);
  WarnOfRead(source);
  return source;
}

}  // namespace kestrel
