#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/smbios_table.h"
#include "firmware/image.h"

namespace kestrel {

// Which table a command works on: an image, else the sample, else that of the machine it runs on.
struct SourceOptions {
  // "-" is standard input.
  std::optional<std::filesystem::path> Image;
  ImageKind Format = ImageKind::Auto;
  // For a raw table, which carries no version.
  std::optional<SmbiosVersion> RawVersion;
  bool Sample = false;
  // Whether the command takes no other source, so that messages do not suggest one.
  bool MachineOnly = false;
  // Whether the command shows the same for every version, so that none has to be given.
  bool IgnoresVersion = false;
};

// Returns a table of at least one byte. Appends what a person should know about it, one line each.
// Throws ToolError when there is no table.
SmbiosTable ReadSource(const SourceOptions& options, std::vector<std::string>& warnings);

}  // namespace kestrel
