#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace kestrel {

// A file of bytes, read piece by piece, so that its size costs nothing.
class FileReader {
 public:
  // The error of the system, or none. Anything but a regular file is refused as well: `notAFile`
  // tells it from a file that cannot be opened.
  std::error_code Open(const std::string& path, bool& notAFile);
  void Close() { Stream.close(); }
  bool IsOpen() const { return Stream.is_open(); }

  std::uint64_t GetSize() const { return Size; }

  // Fills `buffer` from `offset` on. Gives the number of bytes that the file holds there; the rest
  // of the buffer is zero.
  std::size_t Read(std::uint64_t offset, std::span<std::uint8_t> buffer);
  // At most `count` bytes from `offset` on.
  std::vector<std::uint8_t> Read(std::uint64_t offset, std::size_t count);

 private:
  std::ifstream Stream;
  std::uint64_t Size = 0;
};

}  // namespace kestrel
