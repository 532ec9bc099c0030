#include "tools/kestrel/output.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

namespace fs = std::filesystem;

#if defined(_WIN32)
constexpr const char* kCreateNew = "wb";
#else
// Never through a link that somebody put in the way.
constexpr const char* kCreateNew = "wbx";
#endif

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

std::error_code WriteOpened(const std::string& path, const char* mode, std::string_view bytes) {
  errno = 0;
  File file(std::fopen(path.c_str(), mode));
  return file ? WriteAndClose(std::move(file), bytes) : LastError();
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
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    if (const std::error_code error = WriteOpened(path, "wb", bytes)) {
      ThrowCannotWrite("'" + path + "'", error);
    }
    return;
  }
  // What a link names is replaced, not the link.
  const fs::path target =
      fs::is_regular_file(status) ? fs::canonical(path, ignored) : fs::path(path);
  const std::string beside = target.string() + ".kestrel-new";
  fs::remove(beside, ignored);
  std::error_code error = WriteOpened(beside, kCreateNew, bytes);
  if (!error) {
    if (fs::is_regular_file(status)) {
      fs::permissions(beside, status.permissions(), ignored);
    }
    fs::rename(beside, target, error);
  }
  if (error) {
    fs::remove(beside, ignored);
    ThrowCannotWrite("'" + path + "'", error);
  }
}

}  // namespace kestrel
