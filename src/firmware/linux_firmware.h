#pragma once

#include <optional>

#include "firmware/table_firmware.h"

namespace kestrel {

// Where the Linux kernel publishes the tables of the machine it runs on; only root may read them.
inline constexpr const char* kKernelTables = "/sys/firmware/dmi/tables";

// The tables of the machine that the process runs on, as the Linux kernel publishes them.
class LinuxFirmware final : public FirmwareAccess {
 public:
  // 0 when the kernel publishes no tables, they cannot be read, or there is no known entry point
  // in them.
  int Open() override;
  int Close() noexcept override;
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override;

 private:
  std::optional<TableFirmware> Tables;
};

}  // namespace kestrel
