#include "firmware/file_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#if defined(_WIN32)
#include <io.h>

#include "platform/wide_text.h"
#else
#include <unistd.h>
#endif

namespace kestrel {

namespace {

#if defined(_WIN32)

using Status = struct __stat64;

int GetStatus(const std::string& path, Status& status) {
  return _wstat64(ToWide(path).c_str(), &status);
}
int OpenToRead(const std::string& path) {
  return _wopen(ToWide(path).c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}
bool MoveTo(int descriptor, std::uint64_t offset) {
  return _lseeki64(descriptor, static_cast<long long>(offset), SEEK_SET) >= 0;
}
int ReadSome(int descriptor, std::span<std::uint8_t> buffer) {
  return _read(descriptor, buffer.data(), static_cast<unsigned>(buffer.size()));
}

#else

static_assert(sizeof(off_t) == 8, "files of any size can be read");

using Status = struct stat;

int GetStatus(const std::string& path, Status& status) { return stat(path.c_str(), &status); }
int OpenToRead(const std::string& path) {
  // Never waits, whatever has taken the place of the file by now.
  return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}
bool MoveTo(int descriptor, std::uint64_t offset) {
  return lseek(descriptor, static_cast<off_t>(offset), SEEK_SET) >= 0;
}
ssize_t ReadSome(int descriptor, std::span<std::uint8_t> buffer) {
  return read(descriptor, buffer.data(), buffer.size());
}

#endif

// What one read may take, on every system.
constexpr std::size_t kMostAtOnce = 0x1000000;

std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace

FileReader::~FileReader() {
  if (Descriptor >= 0) {
    close(Descriptor);
  }
}

bool FileReader::Open(const std::string& path) {
  Status status{};
  if (GetStatus(path, status) != 0) {
    Error = LastError();
    return false;
  }
  if (!S_ISREG(status.st_mode)) {
    return false;
  }
  Descriptor = OpenToRead(path);
  if (Descriptor < 0) {
    Error = LastError();
    return false;
  }
  Size = static_cast<std::uint64_t>(status.st_size);
  return true;
}

std::vector<std::uint8_t> FileReader::Read(std::uint64_t offset, std::size_t count) {
  const std::uint64_t held = offset < Size ? Size - offset : 0;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min<std::uint64_t>(held, count)));
  if (!bytes.empty()) {
    if (!MoveTo(Descriptor, offset)) {
      Error = LastError();
      return {};
    }
    bytes.resize(ReadInto(bytes));
  }
  return bytes;
}

std::size_t FileReader::ReadInto(std::span<std::uint8_t> buffer) {
  std::size_t total = 0;
  while (total < buffer.size()) {
    const std::size_t wanted = std::min(buffer.size() - total, kMostAtOnce);
    const auto count = ReadSome(Descriptor, buffer.subspan(total, wanted));
    if (count > 0) {
      total += static_cast<std::size_t>(count);
    } else if (count == 0) {
      break;
    } else if (errno != EINTR) {
      Error = LastError();
      break;
    }
  }
  return total;
}

bool IsFolder(const std::string& path) {
  Status status{};
  return GetStatus(path, status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace kestrel
