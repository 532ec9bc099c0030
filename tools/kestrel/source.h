#pragma once

#include <optional>
#include <string>
#include <vector>

#include "firmware/image.h"
#include "model/smbios_table.h"

namespace kestrel {

// Which table a command works on: an image, else the sample, else that of the machine it runs on.
struct SourceOptions {
  std::optional<std::string> Image;
  ImageKind Format = ImageKind::Auto;
  // For a raw table, which carries no version.
  std::optional<SmbiosVersion> RawVersion;
  bool Sample = false;
  // Whether the command takes none of the others, so that nobody is told of them.
  bool MachineOnly = false;
};

// Reads the table, which has a byte at least. Adds what a person should know of it, one line each.
// Throws ToolError when there is none to be had.
SmbiosTable ReadSource(const SourceOptions& options, std::vector<std::string>& warnings);

}  // namespace kestrel
