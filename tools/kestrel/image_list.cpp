#include "tools/kestrel/image_list.h"

#include <cerrno>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "tools/kestrel/file_name.h"
#include "tools/kestrel/interruption.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

// As text, whose lines may end in "\r\n" on Windows.
std::FILE* OpenList(const std::filesystem::path& path) {
#if defined(_WIN32)
  return _wfopen(path.c_str(), L"r");
#else
  return std::fopen(path.c_str(), "re");
#endif
}

bool IsFile(std::FILE* file) {
  struct stat status = {};
  return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
}

// Says what errno says.
[[noreturn]] void ThrowCannotReadList(const std::string& list) {
  throw ToolError(list + " cannot be read (" + std::generic_category().message(errno) +
                  "): name a list that can");
}

}  // namespace

void ImageList::Closer::operator()(std::FILE* file) const {
  if (file != stdin) {
    static_cast<void>(std::fclose(file));
  }
}

ImageList::ImageList(const std::filesystem::path& path)
    : Name(path == "-" ? "standard input" : Quoted(path)),
      File(path == "-" ? stdin : OpenList(path)) {
  if (!File) {
    ThrowCannotReadList(Name);
  }
}

std::optional<std::string> ImageList::Next() {
  std::string name;
  int character = std::getc(File.get());
  bool isEnd = character == EOF;
  for (; character != '\n' && character != EOF; character = std::getc(File.get())) {
    name.push_back(static_cast<char>(character));
  }
  if (IsInterrupted()) {
    return std::nullopt;
  }
  if (std::ferror(File.get()) != 0) {
    ThrowCannotReadList(Name);
  }
  return isEnd ? std::nullopt : std::optional(std::move(name));
}

std::optional<std::size_t> ImageList::Count() {
  if (!IsFile(File.get())) {
    return std::nullopt;
  }
  std::size_t count = 0;
  while (Next()) {
    ++count;
  }
  std::rewind(File.get());
  return count;
}

}  // namespace kestrel
