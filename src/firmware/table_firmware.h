#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/smbios_table.h"
#include "firmware/sparse_memory.h"
#include "model/firmware_access.h"

namespace kestrel {

// A structure table presented as physical memory: a 32-bit entry point at the start of the BIOS
// area, the table above the first megabyte. The reader thus finds and reads every table in the same
// way, wherever it came from.
//
// A longer table ends after the last whole structure within 65,535 bytes. A table with a 64-bit
// entry point, which states only an upper bound, ends after its first End-of-Table structure.
class TableFirmware final : public FirmwareAccess {
 public:
  explicit TableFirmware(const SmbiosTable& table);
  TableFirmware(SmbiosVersion version, std::vector<std::uint8_t> table);

  int Open() override { return 1; }
  int Close() noexcept override { return 1; }
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override;

  // Whether structures are left out because they do not fit.
  bool IsShortened() const { return Shortened; }

 private:
  SparseMemory Memory;
  bool Shortened = false;
};

}  // namespace kestrel
