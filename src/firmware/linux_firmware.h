#pragma once

#include "firmware/table_firmware.h"

namespace kestrel {

// The tables of the machine that the process runs on, as the Linux kernel publishes them under
// /sys/firmware/dmi/tables. Reading them takes root.
class LinuxFirmware final : public TableFirmware {
 public:
  // 0 when the kernel publishes no tables, they cannot be read, or there is no known entry point
  // in them.
  int Open() override;
  int Close() noexcept override;
};

}  // namespace kestrel
