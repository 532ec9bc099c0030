#include "firmware/linux_firmware.h"

#include <memory>

#include "firmware/table_folder.h"

namespace kestrel {

int LinuxFirmware::Open() {
  Tables.reset();
  const SourceResult result = ReadTableFolder(kKernelTables);
  if (result.Problem != SourceProblem::None) {
    return 0;
  }
  Tables.emplace(result.Table);
  return 1;
}

int LinuxFirmware::Close() noexcept {
  Tables.reset();
  return 1;
}

std::uint32_t LinuxFirmware::ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) {
  return Tables ? Tables->ReadPhysical(address, buffer) : 0;
}

std::unique_ptr<FirmwareAccess> MakeMachineAccess() { return std::make_unique<LinuxFirmware>(); }

}  // namespace kestrel
