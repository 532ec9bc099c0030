#include "fuzz/support.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "firmware/file_reader.h"

namespace kestrel {

namespace {

std::vector<MemoryFile>& Files() {
  static std::vector<MemoryFile> files;
  return files;
}

}  // namespace

void Require(bool holds, const std::string& expectation) {
  if (!holds) {
    static_cast<void>(std::fputs((expectation + "\n").c_str(), stderr));
    std::abort();
  }
}

void SetMemoryFiles(std::vector<MemoryFile> files) { Files() = std::move(files); }

FileReader::~FileReader() { Descriptor = -1; }

bool FileReader::Open(const std::filesystem::path& path) {
  const auto file = std::find_if(Files().begin(), Files().end(),
                                 [&](const MemoryFile& other) { return other.Path == path; });
  if (file == Files().end()) {
    Error = std::make_error_code(std::errc::no_such_file_or_directory);
    return false;
  }
  Descriptor = static_cast<int>(file - Files().begin());
  Size = file->Size;
  return true;
}

std::vector<std::uint8_t> FileReader::Read(std::uint64_t offset, std::size_t count) {
  const MemoryFile& file = Files()[static_cast<std::size_t>(Descriptor)];
  const std::uint64_t start = std::min(offset, Size);
  const std::uint64_t end = start + std::min<std::uint64_t>(Size - start, count);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(end - start));
  const std::uint64_t firstHeld = std::max(start, file.Start);
  const std::uint64_t endHeld = std::min(end, file.Start + file.Bytes.size());
  if (firstHeld < endHeld) {
    const auto held = file.Bytes.subspan(static_cast<std::size_t>(firstHeld - file.Start),
                                         static_cast<std::size_t>(endHeld - firstHeld));
    std::copy(held.begin(), held.end(),
              bytes.begin() + static_cast<std::ptrdiff_t>(firstHeld - start));
  }
  return bytes;
}

// No target reads it.
bool FileReader::OpenStandardInput() { return false; }

bool IsFolder(const std::filesystem::path& path) {
  return std::any_of(Files().begin(), Files().end(),
                     [&](const MemoryFile& file) { return file.Path.parent_path() == path; });
}

}  // namespace kestrel
