#include "firmware/file_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kestrel {

namespace {

constexpr int kStandardInput = 0;

#if defined(_WIN32)

using Status = struct __stat64;

int GetStatus(const std::filesystem::path& path, Status& status) {
  return _wstat64(path.c_str(), &status);
}
int OpenToRead(const std::filesystem::path& path) {
  return _wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}
void MakeBinary(int descriptor) { _setmode(descriptor, _O_BINARY); }
bool Seek(int descriptor, std::uint64_t offset) {
  return _lseeki64(descriptor, static_cast<long long>(offset), SEEK_SET) >= 0;
}
int ReadSome(int descriptor, std::span<std::uint8_t> buffer) {
  return _read(descriptor, buffer.data(), static_cast<unsigned>(buffer.size()));
}

#else

static_assert(sizeof(off_t) == 8, "files of any size can be read");

using Status = struct stat;

int GetStatus(const std::filesystem::path& path, Status& status) {
  return stat(path.c_str(), &status);
}
int OpenToRead(const std::filesystem::path& path) {
  // Never waits, even if a pipe has taken the place of the file by now.
  return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}
void MakeBinary(int /*descriptor*/) {}
bool Seek(int descriptor, std::uint64_t offset) {
  return lseek(descriptor, static_cast<off_t>(offset), SEEK_SET) >= 0;
}
ssize_t ReadSome(int descriptor, std::span<std::uint8_t> buffer) {
  return read(descriptor, buffer.data(), buffer.size());
}

#endif

// One read takes no more than this on any system.
constexpr std::size_t kMostPerRead = 0x1000000;

constexpr std::size_t kFirstKept = 0x10000;
// The longest table that is loaded, and the first megabyte, which may say where it is.
constexpr std::size_t kMostKept = 0x1100000;

}  // namespace

FileReader::~FileReader() {
  if (Descriptor > kStandardInput) {
    close(Descriptor);
  }
}

bool FileReader::Open(const std::filesystem::path& path) {
  Status status{};
  if (GetStatus(path, status) != 0) {
    return Fail();
  }
  if (!S_ISREG(status.st_mode)) {
    return false;
  }
  Descriptor = OpenToRead(path);
  if (Descriptor < 0) {
    return Fail();
  }
  Size = static_cast<std::uint64_t>(status.st_size);
  return Size != 0 || ReadAhead();
}

bool FileReader::OpenStandardInput() {
  Descriptor = kStandardInput;
  MakeBinary(Descriptor);
  return ReadAhead();
}

std::vector<std::uint8_t> FileReader::Read(std::uint64_t offset, std::size_t count) {
  const std::uint64_t held = offset < Size ? Size - offset : 0;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min<std::uint64_t>(held, count)));
  std::size_t copied = 0;
  if (offset < Kept.size()) {
    copied = std::min(bytes.size(), Kept.size() - static_cast<std::size_t>(offset));
    std::copy_n(Kept.begin() + static_cast<std::ptrdiff_t>(offset), copied, bytes.begin());
  }
  if (copied < bytes.size()) {
    const bool isThere = MoveTo(offset + copied);
    bytes.resize(copied + (isThere ? ReadInto(std::span(bytes).subspan(copied)) : 0));
  }
  return bytes;
}

bool FileReader::Fail() {
  Error.assign(errno, std::generic_category());
  return false;
}

bool FileReader::ReadAhead() {
  IsStream = true;
  while (Kept.size() == Position && Position < kMostKept) {
    Kept.resize(std::clamp(2 * Kept.size(), kFirstKept, kMostKept));
    ReadInto(std::span(Kept).subspan(static_cast<std::size_t>(Position)));
  }
  const bool isWhole = Position < Kept.size();
  Kept.resize(static_cast<std::size_t>(Position));
  Size = isWhole ? Position : kUnknownSize;
  return !Error;
}

bool FileReader::MoveTo(std::uint64_t offset) {
  if (!IsStream) {
    return Seek(Descriptor, offset) || Fail();
  }
  std::vector<std::uint8_t> passed(kFirstKept);
  while (Position < offset) {
    const auto left = std::min<std::uint64_t>(passed.size(), offset - Position);
    if (ReadInto(std::span(passed).first(static_cast<std::size_t>(left))) == 0) {
      return false;
    }
  }
  return Position == offset;
}

std::size_t FileReader::ReadInto(std::span<std::uint8_t> buffer) {
  std::size_t total = 0;
  while (total < buffer.size()) {
    const std::size_t wanted = std::min(buffer.size() - total, kMostPerRead);
    const auto count = ReadSome(Descriptor, buffer.subspan(total, wanted));
    if (count > 0) {
      total += static_cast<std::size_t>(count);
    } else if (count == 0) {
      break;
    } else if (errno != EINTR) {
      Fail();
      break;
    }
  }
  Position += total;
  return total;
}

bool IsFolder(const std::filesystem::path& path) {
  Status status{};
  return GetStatus(path, status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace kestrel
