#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kestrel {

// Ends the run as a finding, for which the fuzzer keeps the input.
void Require(bool holds, const std::string& expectation);

// A file of `Size` bytes that has `Bytes` from the offset `Start` on, and zeros elsewhere.
struct MemoryFile {
  std::string Path;
  std::span<const std::uint8_t> Bytes;
  std::uint64_t Start = 0;
  std::uint64_t Size = Bytes.size();
};

// Makes these the only files that there are. A FileReader reads them in place of the system's, so
// that an input costs no system call. The bytes must outlive every reader.
void SetMemoryFiles(std::vector<MemoryFile> files);

}  // namespace kestrel
