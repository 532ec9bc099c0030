#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/smbios_table.h"
#include "firmware/image.h"

namespace kestrel {

// Which table a command works on: an image, else the sample, else that of the machine it runs on.
struct SourceOptions {
  std::optional<std::string> Image;
  ImageKind Format = ImageKind::Auto;
  // For a raw table, which carries no version.
  std::optional<SmbiosVersion> RawVersion;
  bool Sample = false;
  // Whether the command takes no other source, so that messages do not suggest one.
  bool MachineOnly = false;
};

// Returns a table of at least one byte. Appends what a person should know about it, one line each.
// Throws ToolError when there is no table.
SmbiosTable ReadSource(const SourceOptions& options, std::vector<std::string>& warnings);

}  // namespace kestrel
