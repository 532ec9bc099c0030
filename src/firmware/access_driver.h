#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "model/firmware_access.h"
#include "platform/win32.h"

namespace kestrel {

enum class Platform : std::int32_t {
  Unknown = 0,
  Windows95 = 1,
  Windows98 = 2,
  WindowsNT4 = 3,
  Windows2000 = 4,
  Win32s = 5,
};

// Physical memory of a Windows machine, through a driver outside the library: on Windows 95, 98 and
// Me the virtual device driver SKUA, which lives as long as its device is open; on Windows NT 4,
// 2000 and XP the kernel driver Petrel, which Open installs as a service from a file beside the
// host program and starts, and Close removes. The destructor closes nothing.
class AccessDriver final : public FirmwareAccess {
 public:
  // Blocks for at least a second where a service has to be started or stopped, for twenty at most.
  int Open() override;
  // On Windows NT 4, 2000 and XP returns whether the service could be removed, which is tried
  // whether or not Open got as far as installing it.
  int Close() noexcept override;
  // 0 when any of the requests to the driver fails; the buffer is then as the driver left it.
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override;

  // Unknown until Open has detected it.
  Platform GetOsPlatform() const { return OsPlatform; }

 private:
  // The steps of opening and closing return 1 or 0, as the exports that they serve do. Their parts
  // return bool.
  int DetectPlatform();
  static int LoadDriver(const char* serviceName, const char* driverPath);
  static int InstallService(const char* serviceName, const char* driverPath);
  static int StartService(const char* serviceName);
  static int RemoveService(const char* serviceName);
  int OpenDevice();

  bool OpenVirtualDevice();
  bool OpenKernelDriver(std::string_view driverFile);
  bool MakeDriverPath(std::string_view driverFile);
  bool SetDevice(HANDLE device);
  bool CloseDevice();
  bool Request(DWORD code, std::uint32_t input);

  Platform OsPlatform = Platform::Unknown;
  const char* ServiceName = "Petrel";
  std::array<char, MAX_PATH> DriverPath{};
  // Null while the device is not open, whatever Windows returned instead of a handle.
  HANDLE Device = nullptr;
};

}  // namespace kestrel
