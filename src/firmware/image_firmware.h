#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <system_error>

#include "firmware/file_reader.h"
#include "firmware/table_firmware.h"

namespace kestrel {

// What a saved image of firmware memory is.
enum class ImageKind {
  Auto,    // whichever of the others fits first, in their order
  Memory,  // 1 MiB or more whose file offset is the physical address, or the 64 KiB from F0000h on
  Dump,    // an entry point, and the table at the file offset that it names
  Rsmb,    // calling method, major, minor, revision (a byte each), 32-bit table length, the table
  Raw,     // a bare structure table of at most 65,535 bytes
};

// Why an image cannot be used.
enum class ImageProblem {
  None,
  CannotOpen,     // GetError tells why
  NotAFile,       // a directory or a device
  Empty,          // no bytes at all
  TooLarge,       // beyond the 32-bit address space, or too long for a raw table
  NotRecognised,  // none of the kinds fits, or not the one that was asked for
  NoEntryPoint,   // a memory image without an entry point in the BIOS area
  EntryPointCut,  // the image ends inside the entry point
  TableOutside,   // the table that the entry point names does not begin in the image
  TableEmpty,     // the entry point, or the header, announces a table of no bytes
};

// A saved image of firmware memory. Reads of the file go only where the table is, however large the
// file.
class ImageFirmware final : public TableFirmware {
 public:
  // `rawVersion` is the version that a raw table is read as; the other kinds carry their own.
  ImageFirmware(std::string path, ImageKind kind, SmbiosVersion rawVersion);

  // 0 when the image cannot be used; GetProblem then tells why.
  int Open() override;
  int Close() noexcept override;
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override;

  ImageProblem GetProblem() const { return Problem; }
  std::error_code GetError() const { return Error; }
  // The kind asked for; after Open succeeded, the kind that the image is.
  ImageKind GetKind() const { return Kind; }

 private:
  ImageProblem OpenFile();
  ImageProblem Recognise();
  ImageProblem Load(ImageKind kind);
  ImageProblem LoadMemory();
  ImageProblem LoadDump();
  ImageProblem LoadRsmb();
  ImageProblem LoadRaw();
  ImageProblem PresentFromFile(const EntryPointFacts& facts, std::uint64_t tableOffset);
  bool LooksLikeTable();

  std::string Path;
  ImageKind Kind;
  SmbiosVersion RawVersion;
  FileReader File;
  // A memory image is read in place: the physical address of its first byte.
  bool IsMemory = false;
  std::uint32_t MemoryStart = 0;
  ImageProblem Problem = ImageProblem::None;
  std::error_code Error;
};

}  // namespace kestrel
