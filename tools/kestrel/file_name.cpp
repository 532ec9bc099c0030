#include "tools/kestrel/file_name.h"

#include "base/text.h"

namespace kestrel {

// The bytes of a u8string are UTF-8 to Windows, and pass unchanged elsewhere.

std::filesystem::path ToPath(std::string_view name) {
  return std::u8string(name.begin(), name.end());
}

std::string NameOf(const std::filesystem::path& path) {
  const std::u8string name = path.u8string();
  return {name.begin(), name.end()};
}

std::string Quoted(const std::filesystem::path& path) { return Join({"'", NameOf(path), "'"}); }

}  // namespace kestrel
