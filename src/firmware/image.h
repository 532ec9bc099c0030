#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "firmware/source_result.h"

namespace kestrel {

// What a saved image of firmware memory is.
enum class ImageKind {
  Auto,    // a folder, else whichever of the others fits first, in their order
  Folder,  // the kernel's two files, smbios_entry_point and DMI
  Memory,  // 1 MiB or more whose file offset is the physical address, or the 64 KiB from F0000h on
  Dump,    // an entry point, and the table at the file offset that it names, or next to it
  Rsmb,    // calling method, major, minor, revision (a byte each), 32-bit table length, the table
  Raw,     // a bare structure table
};

struct ImageResult {
  SourceResult Source;
  // The kind that the image is; the one asked for when it cannot be used.
  ImageKind Kind;
};

// Reads the table of a saved image. `rawVersion` is the version that a raw table is read as; the
// other kinds carry their own. Only what is looked at is read, however large the file. Of a folder,
// the kind Raw reads the table without its entry point.
ImageResult ReadImage(const std::filesystem::path& path, ImageKind kind, SmbiosVersion rawVersion);

// The same of standard input, which need not be a file: it is read as far as the table.
ImageResult ReadImageFromStandardInput(ImageKind kind, SmbiosVersion rawVersion);

// Reads the header of an image of the kind Rsmb, which is also what Windows returns for 'RSMB'.
// Nothing when `bytes` are fewer.
inline constexpr std::size_t kRsmbHeaderSize = 8;
std::optional<EntryPointFacts> ParseRsmbHeader(std::span<const std::uint8_t> bytes);

}  // namespace kestrel
