#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "firmware/image_firmware.h"
#include "firmware/table_firmware.h"
#include "model/smbios_reader.h"

namespace kestrel {

// Which tables a command works on: an image, else the sample, else the machine it runs on.
struct SourceOptions {
  std::optional<std::string> Image;
  ImageKind Format = ImageKind::Auto;
  // For a raw table, which carries no version.
  std::optional<SmbiosVersion> RawVersion;
  bool Sample = false;
  // Whether the command takes none of the others, so that nobody is told of them.
  bool MachineOnly = false;
};

// A reader whose access is closed with it, so that no driver stays behind, whatever goes wrong.
struct ReaderCloser {
  void operator()(SMBiosReader* reader) const {
    reader->CloseAccess();
    delete reader;
  }
};

// Tables that were found, with the reader that found them.
struct OpenedSource {
  std::unique_ptr<SMBiosReader, ReaderCloser> Reader;
  TableCopy Table;
  // What a person should know of the table, one line each.
  std::vector<std::string> Warnings;
};

// Finds the entry point and copies the table, without walking it. Throws ToolError when there is
// none to be had.
OpenedSource OpenSource(const SourceOptions& options);

}  // namespace kestrel
