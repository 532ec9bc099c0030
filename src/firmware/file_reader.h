#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <span>
#include <system_error>
#include <vector>

namespace kestrel {

// A file of bytes, read piece by piece by the system's own calls.
//
// Standard input, and a file of which the system says no size, as in /proc, are streams: up to 17
// MiB are read at once and kept. What follows them can be read once, and only onwards.
class FileReader {
 public:
  // The size of a stream that goes on after what is kept of it.
  static constexpr std::uint64_t kUnknownSize = std::numeric_limits<std::uint64_t>::max();

  FileReader() = default;
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;
  ~FileReader();

  // Returns whether there is a regular file that can be read. GetError says why not; for a folder,
  // a device and the like there is no error.
  bool Open(const std::filesystem::path& path);

  // Returns whether standard input can be read.
  bool OpenStandardInput();

  std::uint64_t GetSize() const { return Size; }

  // At most `count` bytes from `offset` on; fewer at the end of the file, or where a read fails.
  std::vector<std::uint8_t> Read(std::uint64_t offset, std::size_t count);

  // The last failure. Later successes do not clear it.
  std::error_code GetError() const { return Error; }

 private:
  bool Fail();
  bool ReadAhead();
  bool MoveTo(std::uint64_t offset);
  std::size_t ReadInto(std::span<std::uint8_t> buffer);

  int Descriptor = -1;
  std::uint64_t Size = 0;
  // Of a stream: what is kept of its start, and how much of it was read so far.
  bool IsStream = false;
  std::vector<std::uint8_t> Kept;
  std::uint64_t Position = 0;
  std::error_code Error;
};

// Returns whether `path` names a folder.
bool IsFolder(const std::filesystem::path& path);

}  // namespace kestrel
