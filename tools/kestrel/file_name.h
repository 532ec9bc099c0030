#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

// The file that a name on the command line means, as the system's calls take it. Names are UTF-8 on
// Windows, and any bytes elsewhere.
std::filesystem::path ToPath(std::string_view name);

// The name again.
std::string NameOf(const std::filesystem::path& path);

// The name in quotes, for a message.
std::string Quoted(const std::filesystem::path& path);

}  // namespace kestrel
