#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kestrel {

// Ends the run as a finding, for which the fuzzer keeps the input.
void Require(bool holds, const std::string& expectation);

// A file of `Size` bytes that has `Bytes` from the offset `Start` on, and zeros elsewhere.
struct MemoryFile {
  std::filesystem::path Path;
  std::span<const std::uint8_t> Bytes;
  std::uint64_t Start = 0;
  std::uint64_t Size = Bytes.size();
};

// Replaces the file system by these files for every FileReader, so that an input costs no system
// call. The bytes must outlive every reader.
void SetMemoryFiles(std::vector<MemoryFile> files);

}  // namespace kestrel
