#include "firmware/table_folder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "base/entry_point_layout.h"
#include "firmware/entry_point.h"
#include "firmware/file_reader.h"

namespace kestrel {

namespace {

// Nothing, and the error of the system, when the file cannot be read.
std::optional<std::vector<std::uint8_t>> ReadUpTo(std::size_t limit, const std::string& path,
                                                  std::error_code& error) {
  FileReader file;
  if (!file.Open(path)) {
    error = file.GetError() ? file.GetError() : std::make_error_code(std::errc::is_a_directory);
    return std::nullopt;
  }
  std::vector<std::uint8_t> bytes = file.Read(0, limit);
  error = file.GetError();
  return error ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace

SourceResult ReadTableFolder(const std::string& folder) {
  std::error_code error;
  const auto start = ReadUpTo(kLargestEntryPoint, folder + "/smbios_entry_point", error);
  if (!start) {
    return {SourceProblem::CannotRead, error};
  }
  std::optional<EntryPointFacts> entryPoint = ParseEntryPoint(*start);
  if (!entryPoint) {
    return HasEntryPointAnchor(*start) ? SourceProblem::EntryPointCut : SourceProblem::NoEntryPoint;
  }
  auto table = ReadUpTo(std::min(entryPoint->TableLength, kLargestLoad), folder + "/DMI", error);
  if (!table) {
    return {SourceProblem::CannotRead, error};
  }
  return SmbiosTable{std::move(*entryPoint), std::move(*table)};
}

}  // namespace kestrel
