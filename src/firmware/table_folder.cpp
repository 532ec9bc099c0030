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

// Returns nothing, and why, when the file cannot be read.
std::optional<std::vector<std::uint8_t>> ReadUpTo(std::size_t limit,
                                                  const std::filesystem::path& path,
                                                  SourceResult& why) {
  FileReader file;
  if (file.Open(path)) {
    std::vector<std::uint8_t> bytes = file.Read(0, limit);
    if (!file.GetError()) {
      return bytes;
    }
  }
  why = {file.GetError() ? SourceProblem::CannotRead : SourceProblem::NotAFile, file.GetError()};
  return std::nullopt;
}

}  // namespace

SourceResult ReadTableFolder(const std::filesystem::path& folder) {
  SourceResult why;
  const auto start = ReadUpTo(kLargestEntryPoint, folder / "smbios_entry_point", why);
  if (!start) {
    return why;
  }
  std::optional<EntryPointFacts> entryPoint = ParseEntryPoint(*start);
  if (!entryPoint) {
    return HasEntryPointAnchor(*start) ? SourceProblem::EntryPointCut : SourceProblem::NoEntryPoint;
  }
  auto table = ReadUpTo(std::min(entryPoint->TableLength, kLargestLoad), folder / kTableFile, why);
  if (!table) {
    return why;
  }
  return SmbiosTable{std::move(*entryPoint), std::move(*table)};
}

}  // namespace kestrel
