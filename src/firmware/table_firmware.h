#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "firmware/firmware_access.h"
#include "firmware/sparse_memory.h"
#include "model/sm_entry_point.h"

namespace kestrel {

struct SmbiosVersion {
  std::uint8_t Major = 2;
  std::uint8_t Minor = 3;
};

// What the entry point of a saved or handed-over table says.
struct EntryPointFacts {
  SmbiosVersion Version;
  // Where the table lies in the memory, or the file, that the entry point belongs to.
  std::uint64_t TableAddress = 0;
  // For a 64-bit entry point the most that the table may take, else what it takes.
  std::uint32_t TableLength = 0;
  bool Is64Bit = false;
  // The bytes that the entry point itself takes.
  std::size_t Size = 0;
};

enum class EntryPointParse { NotThere, Cut, Parsed };

// Reads the 32-bit ("_SM_") or 64-bit ("_SM3_") entry point at the start of `bytes`. Layouts: DMTF
// DSP0134, "SMBIOS 2.1 (32-bit) Entry Point structure" and "SMBIOS 3.0 (64-bit) Entry Point
// structure".
EntryPointParse ParseEntryPoint(std::span<const std::uint8_t> bytes, EntryPointFacts& facts);

// The most bytes that an entry point of either kind takes.
inline constexpr std::size_t kLargestEntryPoint = SMEntryPoint::kSize;

// Far more than any firmware has: bounds what a 64-bit entry point or a header can have loaded.
inline constexpr std::size_t kLargestLoad = 16UL * 1024UL * 1024UL;

// The most bytes that a 32-bit entry point can announce.
inline constexpr std::size_t kLongestTable = 65535;

// A 32-bit entry point with both checksums, for a table of `tableLength` bytes of which `table`
// may hold fewer.
std::vector<std::uint8_t> MakeEntryPoint(SmbiosVersion version, std::uint32_t tableAddress,
                                         std::uint16_t tableLength,
                                         std::span<const std::uint8_t> table);

// A structure table in memory, presented as physical memory: a 32-bit entry point at the start of
// the BIOS area, the table above the first megabyte.
class TableFirmware : public FirmwareAccess {
 public:
  TableFirmware() = default;
  TableFirmware(SmbiosVersion version, std::vector<std::uint8_t> table);

  int Open() override { return 1; }
  int Close() noexcept override { return 1; }
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override;

  // Whether the table had more whole structures than a 32-bit entry point can announce, so that the
  // last ones are not presented.
  bool IsShortened() const { return Shortened; }
  // Whether the table ends before its End-of-Table structure and before the bound that a 64-bit
  // entry point gives. A read of the table tells this for a 32-bit entry point.
  bool IsCut() const { return Cut; }

 protected:
  // Takes the place of whatever was presented before. A table of a 64-bit entry point ends with its
  // End-of-Table structure; one of a 32-bit entry point takes `facts.TableLength` bytes, of which
  // `table` may hold fewer.
  void Present(const EntryPointFacts& facts, std::vector<std::uint8_t> table);
  void PresentNothing() { Memory.Clear(); }

 private:
  SparseMemory Memory;
  bool Shortened = false;
  bool Cut = false;
};

}  // namespace kestrel
