#include "firmware/file_reader.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace kestrel {

std::error_code FileReader::Open(const std::string& path, bool& notAFile) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  notAFile = !error && !std::filesystem::is_regular_file(status);
  if (error || notAFile) {
    return error;
  }
  Size = std::filesystem::file_size(path, error);
  if (error) {
    return error;
  }
  Stream.close();
  errno = 0;
  Stream.open(path, std::ios::binary);
  if (Stream) {
    return {};
  }
  return {errno != 0 ? errno : EIO, std::generic_category()};
}

std::size_t FileReader::Read(std::uint64_t offset, std::span<std::uint8_t> buffer) {
  std::size_t count = 0;
  if (offset < Size) {
    Stream.clear();
    Stream.seekg(static_cast<std::streamoff>(offset));
    // The stream counts in char, which may alias the bytes of the buffer.
    Stream.read(reinterpret_cast<char*>(buffer.data()),
                static_cast<std::streamsize>(buffer.size()));
    count = static_cast<std::size_t>(Stream.gcount());
  }
  std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(count), buffer.end(), std::uint8_t{0});
  return count;
}

std::vector<std::uint8_t> FileReader::Read(std::uint64_t offset, std::size_t count) {
  const std::uint64_t held = offset < Size ? Size - offset : 0;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min<std::uint64_t>(held, count)));
  bytes.resize(Read(offset, std::span(bytes)));
  return bytes;
}

}  // namespace kestrel
