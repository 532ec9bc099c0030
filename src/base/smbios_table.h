#pragma once

#include <cstdint>
#include <vector>

namespace kestrel {

struct SmbiosVersion {
  std::uint8_t Major = 2;
  std::uint8_t Minor = 3;

  bool operator==(const SmbiosVersion&) const = default;
};

enum class EntryPointKind : std::uint8_t {
  None,    // the table came without one
  Bits32,  // "_SM_"
  Bits64,  // "_SM3_"
};

// What the entry point of a table says, or whoever handed over a table without one. Layouts: DMTF
// DSP0134, "SMBIOS 2.1 (32-bit) Entry Point structure" and "SMBIOS 3.0 (64-bit) Entry Point
// structure".
struct EntryPointFacts {
  EntryPointKind Kind = EntryPointKind::None;
  // The entry point itself, at most 32 bytes, as the firmware wrote it. A 32-bit one of 30 bytes
  // has the byte that it lacks: the one that makes its intermediate checksum right.
  std::vector<std::uint8_t> Bytes;
  SmbiosVersion Version;
  // Where the table lies in the memory, or the file, that the entry point belongs to.
  std::uint64_t TableAddress = 0;
  // The length of the table in bytes; for a 64-bit entry point the most that it may take.
  std::uint32_t TableLength = 0;
  // 32-bit entry points only: 0 where it is not known.
  std::uint16_t StructureCount = 0;
  std::uint16_t LargestStructure = 0;
};

// A structure table of any length, and what is known of it.
struct SmbiosTable {
  EntryPointFacts EntryPoint;
  // At most EntryPoint.TableLength bytes; fewer where no more could be read.
  std::vector<std::uint8_t> Bytes;
  // Whether its source has it at another place than the entry point names.
  bool IsElsewhere = false;
};

}  // namespace kestrel
