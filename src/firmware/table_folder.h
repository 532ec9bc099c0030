#pragma once

#include <filesystem>

#include "firmware/source_result.h"

namespace kestrel {

// Reads the table from a folder with two files, as the Linux kernel publishes it: the entry point
// in smbios_entry_point, the table in DMI.
SourceResult ReadTableFolder(const std::filesystem::path& folder);

// The name of the file with the table.
inline constexpr const char* kTableFile = "DMI";

}  // namespace kestrel
