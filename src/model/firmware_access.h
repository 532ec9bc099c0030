#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace kestrel {

// The way to a machine's physical memory, and the seam under everything: one class for each source
// of the same bytes. A fresh access is closed. Results are 1 for success and 0 for failure; a class
// reports nothing else through this interface.
class FirmwareAccess {
 public:
  FirmwareAccess() = default;
  FirmwareAccess(const FirmwareAccess&) = delete;
  FirmwareAccess& operator=(const FirmwareAccess&) = delete;
  virtual ~FirmwareAccess() = default;

  virtual int Open() = 0;
  // Safe in any state, after a failed Open as well.
  virtual int Close() noexcept = 0;
  // Copies the bytes from physical address `address` on into `buffer`. Returns the number of bytes
  // copied, without a gap; 0 when the access is closed or the address cannot be read.
  virtual std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) = 0;
};

// The access to the memory of the machine that the process runs on, as this system gives it.
std::unique_ptr<FirmwareAccess> MakeMachineAccess();

}  // namespace kestrel
