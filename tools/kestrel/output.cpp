#include "tools/kestrel/output.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#if defined(_WIN32)
#include <io.h>

#include "platform/wide_text.h"
#include "platform/win32.h"
#else
#include <unistd.h>
#endif

#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

constexpr int kStandardOutput = 1;

// Old consoles of Windows take no more than some 60 KiB at once.
constexpr std::size_t kMostAtOnce = 0x8000;

#if defined(_WIN32)

int Open(const std::string& path, int flags) {
  return _wopen(ToWide(path).c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

// Opens and empties a file that is there; of a link itself, not what it names.
int OpenWithoutLinks(const std::string& path) {
  HANDLE file = CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                            TRUNCATE_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    errno = EACCES;
    return -1;
  }
  return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
}

bool IsRegularFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(ToWide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0;
}

int Write(int descriptor, std::string_view bytes) {
  return _write(descriptor, bytes.data(), static_cast<unsigned>(bytes.size()));
}

void Remove(const std::string& path) { _wunlink(ToWide(path).c_str()); }

void MakeBinary(int descriptor) { _setmode(descriptor, _O_BINARY); }

#else

int Open(const std::string& path, int flags) {
  // Permissions for everybody, less those that the process's mask takes away.
  return open(path.c_str(), flags | O_CLOEXEC,
              S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
}

int OpenWithoutLinks(const std::string& path) {
  return Open(path, O_WRONLY | O_TRUNC | O_NOFOLLOW | O_NONBLOCK);
}

bool IsRegularFile(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

ssize_t Write(int descriptor, std::string_view bytes) {
  return write(descriptor, bytes.data(), bytes.size());
}

void Remove(const std::string& path) { unlink(path.c_str()); }

void MakeBinary(int /*descriptor*/) {}

#endif

std::error_code LastError() { return {errno, std::generic_category()}; }

std::error_code WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = Write(descriptor, bytes.substr(0, kMostAtOnce));
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return LastError();
    }
  }
  return {};
}

// Takes what an attempt to open a file gave.
std::error_code WriteAndClose(int descriptor, std::string_view bytes) {
  if (descriptor < 0) {
    return LastError();
  }
  const std::error_code error = WriteAll(descriptor, bytes);
  return close(descriptor) == 0 || error ? error : LastError();
}

void ThrowIf(std::error_code error, const std::string& target) {
  if (error) {
    throw ToolError(target + " cannot be written (" + error.message() +
                    "): write to a place that takes it");
  }
}

std::string Quoted(const std::string& path) { return "'" + path + "'"; }

// Takes what an attempt to open a file returned. Removes a new file that cannot be written
// completely.
void Fill(const std::string& path, int descriptor, bool isNew, std::string_view bytes) {
  const std::error_code error = WriteAndClose(descriptor, bytes);
  if (error && isNew) {
    Remove(path);
  }
  ThrowIf(error, Quoted(path));
}

}  // namespace

void WriteToStandardOutput(std::string_view bytes) {
  MakeBinary(kStandardOutput);
  const std::error_code error = WriteAll(kStandardOutput, bytes);
  if (error != std::errc::broken_pipe) {
    ThrowIf(error, "standard output");
  }
}

void WriteFile(const std::string& path, std::string_view bytes) {
  int descriptor = Open(path, O_WRONLY | O_CREAT | O_EXCL);
  const bool isNew = descriptor >= 0;
  if (!isNew && errno == EEXIST) {
    descriptor = Open(path, O_WRONLY | O_CREAT | O_TRUNC);
  }
  Fill(path, descriptor, isNew, bytes);
}

void WriteNewFile(const std::string& path, std::string_view bytes, bool force) {
  int descriptor = Open(path, O_WRONLY | O_CREAT | O_EXCL);
  const bool isNew = descriptor >= 0;
  if (!isNew && errno == EEXIST) {
    if (!force) {
      throw ToolError(Quoted(path) + " is there already: name another file, or use --force");
    }
    if (!IsRegularFile(path)) {
      throw ToolError(Quoted(path) + " is not a regular file: name another one");
    }
    descriptor = OpenWithoutLinks(path);
  }
  Fill(path, descriptor, isNew, bytes);
}

}  // namespace kestrel
