#include "tools/kestrel/output.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowCannotWrite(const std::string& target, const std::error_code& error) {
  throw ToolError(target + " cannot be written (" + error.message() +
                  "): write to a place that takes it");
}

std::error_code LastError() { return {errno, std::generic_category()}; }

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

using File = std::unique_ptr<std::FILE, CloseFile>;

// Writes and closes.
std::error_code WriteAndClose(File file, std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0) {
    return LastError();
  }
  return std::fclose(file.release()) == 0 ? std::error_code() : LastError();
}

// Opens a file that was not there before, never one that somebody else made meanwhile.
File CreateNew(const fs::path& path) {
#if defined(_WIN32)
  std::error_code ignored;
  return fs::exists(path, ignored) ? File() : File(std::fopen(path.string().c_str(), "wb"));
#else
  return File(std::fopen(path.c_str(), "wbx"));
#endif
}

// Opens a new file whose name is that of the target and more. Gives none, and the system's error,
// when that fails.
File CreateBeside(const fs::path& target, fs::path& path, std::error_code& error) {
  constexpr int kMostNames = 100;
  for (int number = 0; number < kMostNames; ++number) {
    path = target.string() + ".new" + std::to_string(number);
    errno = 0;
    File file = CreateNew(path);
    error = LastError();
    std::error_code ignored;
    if (file || !fs::exists(path, ignored)) {
      return file;
    }
  }
  return {};
}

// A file that takes the place of another belongs to the same people.
void TakeOverOwnership(const fs::path& from, const fs::path& path) {
  std::error_code ignored;
#if !defined(_WIN32)
  struct stat status = {};
  if (stat(from.c_str(), &status) == 0) {
    // Only root may; everybody else owns what they write.
    static_cast<void>(chown(path.c_str(), status.st_uid, status.st_gid) == 0);
  }
#endif
  fs::permissions(path, fs::status(from, ignored).permissions(), ignored);
}

std::error_code WriteInPlace(const std::string& path, std::string_view bytes) {
  errno = 0;
  File file(std::fopen(path.c_str(), "wb"));
  return file ? WriteAndClose(std::move(file), bytes) : LastError();
}

std::error_code Replace(const fs::path& target, std::string_view bytes) {
  fs::path path;
  std::error_code error;
  File file = CreateBeside(target, path, error);
  if (!file) {
    return error;
  }
  std::error_code ignored;
  if (fs::exists(target, ignored)) {
    TakeOverOwnership(target, path);
  }
  error = WriteAndClose(std::move(file), bytes);
  if (!error) {
    fs::rename(path, target, error);
  }
  if (error) {
    fs::remove(path, ignored);
  }
  return error;
}

}  // namespace

void WriteToStandardOutput(std::string_view text) {
#if defined(_WIN32)
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  errno = 0;
  const bool written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!written && errno != EPIPE) {
    ThrowCannotWrite("standard output", LastError());
  }
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::error_code failure;
  const fs::file_status status = fs::status(path, failure);
  std::error_code error;
  if (fs::is_regular_file(status)) {
    // What a link names is replaced, not the link.
    error = Replace(fs::canonical(path, failure), bytes);
  } else if (fs::exists(status) || fs::is_symlink(fs::symlink_status(path, failure))) {
    error = WriteInPlace(path, bytes);
  } else {
    error = Replace(path, bytes);
  }
  if (error) {
    ThrowCannotWrite("'" + path + "'", error);
  }
}

}  // namespace kestrel
