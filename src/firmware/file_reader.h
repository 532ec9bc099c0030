#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace kestrel {

// A file of bytes, read piece by piece by the system's own calls. Names are UTF-8 on Windows and
// whatever the system takes elsewhere.
class FileReader {
 public:
  FileReader() = default;
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;
  ~FileReader();

  // Whether there is a regular file that can be read. GetError tells why not; for a folder, a
  // device and the like there is no error.
  bool Open(const std::string& path);

  std::uint64_t GetSize() const { return Size; }

  // At most `count` bytes from `offset` on; fewer at the end of the file, or where a read fails.
  std::vector<std::uint8_t> Read(std::uint64_t offset, std::size_t count);

  // The last failure of Open or Read. Later successes do not clear it.
  std::error_code GetError() const { return Error; }

 private:
  std::size_t ReadInto(std::span<std::uint8_t> buffer);

  int Descriptor = -1;
  std::uint64_t Size = 0;
  std::error_code Error;
};

// Whether `path` names a folder.
bool IsFolder(const std::string& path);

}  // namespace kestrel
