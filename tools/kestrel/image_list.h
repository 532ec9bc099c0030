#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace kestrel {

// The names of images in a list: one per line, any bytes but a newline. They are read as they come,
// so that the list may be the output of a program that is still at work.
class ImageList {
 public:
  // Opens the file, or standard input for "-". Throws ToolError.
  explicit ImageList(const std::filesystem::path& path);

  // The next name, or nothing at the end. An interruption is one. Throws ToolError.
  std::optional<std::string> Next();

  // How many names there are before any is read; nothing where the list is no file.
  std::optional<std::size_t> Count();

 private:
  struct Closer {
    void operator()(std::FILE* file) const;
  };

  // For messages.
  std::string Name;
  std::unique_ptr<std::FILE, Closer> File;
};

}  // namespace kestrel
