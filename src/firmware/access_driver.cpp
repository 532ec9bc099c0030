#include "firmware/access_driver.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "drivers/control_codes.h"

namespace kestrel {

namespace {

constexpr const char* kVirtualDevice = R"(\\.\SKUA.VXD)";
constexpr const char* kKernelDevice = R"(\\.\Petrel)";
constexpr std::string_view kDriverFileNT4 = "PetrelNt.sys";
constexpr std::string_view kDriverFile2000 = "Petrel.sys";

constexpr int kPolls = 10;
constexpr DWORD kPollInterval = 1000;

static_assert(sizeof(OSVERSIONINFOA) == 148 && sizeof(OSVERSIONINFOEXA) == 156);

struct ServiceHandleCloser {
  using pointer = SC_HANDLE;
  void operator()(SC_HANDLE handle) const { CloseServiceHandle(handle); }
};

// Of the service manager or of a service.
using ServiceHandle = std::unique_ptr<void, ServiceHandleCloser>;

ServiceHandle OpenManager() {
  return ServiceHandle(OpenSCManagerA(nullptr, nullptr, SC_MANAGER_ALL_ACCESS));
}

// Null when there is no manager either.
ServiceHandle OpenInstalledService(const ServiceHandle& manager, const char* serviceName) {
  return ServiceHandle(manager ? OpenServiceA(manager.get(), serviceName, SERVICE_ALL_ACCESS)
                               : nullptr);
}

// Returns false when the service does not tell its state.
bool Interrogate(const ServiceHandle& service, DWORD& state) {
  SERVICE_STATUS status{};
  const BOOL answered = ControlService(service.get(), SERVICE_CONTROL_INTERROGATE, &status);
  state = status.dwCurrentState;
  return answered != FALSE;
}

bool Stop(const ServiceHandle& service) {
  SERVICE_STATUS status{};
  return ControlService(service.get(), SERVICE_CONTROL_STOP, &status) != FALSE;
}

bool WaitFor(const ServiceHandle& service, DWORD wantedState) {
  for (int poll = 0; poll < kPolls; ++poll) {
    Sleep(kPollInterval);
    DWORD state = 0;
    // A service that does not run any more may refuse to answer, and still says so by its state.
    const bool answered = Interrogate(service, state) || state == SERVICE_STOPPED;
    if (answered && state == wantedState) {
      return true;
    }
  }
  return false;
}

Platform PlatformOf(const OSVERSIONINFOEXA& version) {
  const DWORD major = version.dwMajorVersion;
  switch (version.dwPlatformId) {
    case VER_PLATFORM_WIN32s:
      return Platform::Win32s;
    case VER_PLATFORM_WIN32_WINDOWS:
      return major < 4 || (major == 4 && version.dwMinorVersion == 0) ? Platform::Windows95
                                                                      : Platform::Windows98;
    case VER_PLATFORM_WIN32_NT:
      if (major <= 4) {
        return Platform::WindowsNT4;
      }
      return major == 5 ? Platform::Windows2000 : Platform::Unknown;
    default:
      return Platform::Unknown;
  }
}

// The length of the folder's name, with the backslash that ends it; 0 where the path has none. In a
// double-byte code page the second byte of a character may be that of a backslash.
std::size_t LengthOfFolder(std::string_view path) {
  std::size_t length = 0;
  for (std::size_t index = 0; index < path.size(); ++index) {
    if (IsDBCSLeadByte(static_cast<BYTE>(path[index])) != FALSE) {
      ++index;
    } else if (path[index] == '\\') {
      length = index + 1;
    }
  }
  return length;
}

}  // namespace

int AccessDriver::Open() {
  DetectPlatform();
  switch (OsPlatform) {
    case Platform::Windows95:
    case Platform::Windows98:
      return OpenVirtualDevice() ? 1 : 0;
    case Platform::WindowsNT4:
      return OpenKernelDriver(kDriverFileNT4) ? 1 : 0;
    case Platform::Windows2000:
      return OpenKernelDriver(kDriverFile2000) ? 1 : 0;
    default:
      return 0;
  }
}

int AccessDriver::Close() noexcept {
  switch (OsPlatform) {
    case Platform::Windows95:
    case Platform::Windows98:
      return CloseDevice() ? 1 : 0;
    case Platform::WindowsNT4:
    case Platform::Windows2000:
      CloseDevice();
      return RemoveService(ServiceName);
    default:
      return 1;
  }
}

std::uint32_t AccessDriver::ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) {
  const auto length = static_cast<DWORD>(buffer.size());
  if (Device == nullptr || !Request(WINDOW_NOTE_ADDRESS, address) ||
      !Request(WINDOW_NOTE_LENGTH, length)) {
    return 0;
  }
  DWORD count = 0;
  if (DeviceIoControl(Device, WINDOW_COPY_MEMORY, nullptr, 0, buffer.data(), length, &count,
                      nullptr) == FALSE) {
    return 0;
  }
  // A driver may claim more than the buffer holds.
  return std::min(count, length);
}

int AccessDriver::DetectPlatform() {
  OSVERSIONINFOEXA version{};
  auto* record = reinterpret_cast<OSVERSIONINFOA*>(&version);
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOEXA);
  if (GetVersionExA(record) == FALSE) {
    // The 9x family, and Windows NT 4 before its last service packs, know only the plain record.
    version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOA);
    if (GetVersionExA(record) == FALSE) {
      return 0;
    }
  }
  OsPlatform = PlatformOf(version);
  return 1;
}

// Opening the device loads the driver and closing it unloads the driver, which is what creating and
// deleting mean here.
bool AccessDriver::OpenVirtualDevice() {
  return SetDevice(
      CreateFileA(kVirtualDevice, 0, 0, nullptr, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

bool AccessDriver::OpenKernelDriver(std::string_view driverFile) {
  if (!MakeDriverPath(driverFile) || LoadDriver(ServiceName, DriverPath.data()) == 0) {
    return false;
  }
  if (OpenDevice() == 0) {
    RemoveService(ServiceName);
    return false;
  }
  return true;
}

// The driver lies beside the host program. A path that was cut installs nothing: it might name
// another file.
bool AccessDriver::MakeDriverPath(std::string_view driverFile) {
  const std::size_t length =
      GetModuleFileNameA(nullptr, DriverPath.data(), static_cast<DWORD>(DriverPath.size()));
  if (length == 0 || length >= DriverPath.size()) {
    return false;
  }
  const std::size_t folder = LengthOfFolder({DriverPath.data(), length});
  if (folder + driverFile.size() >= DriverPath.size()) {
    return false;
  }
  driverFile.copy(&DriverPath[folder], driverFile.size());
  DriverPath[folder + driverFile.size()] = '\0';
  return true;
}

int AccessDriver::LoadDriver(const char* serviceName, const char* driverPath) {
  return InstallService(serviceName, driverPath) != 0 && StartService(serviceName) != 0 ? 1 : 0;
}

// A service that is there already, left by a host that ended without closing, is only stopped.
int AccessDriver::InstallService(const char* serviceName, const char* driverPath) {
  const ServiceHandle manager = OpenManager();
  if (!manager) {
    return 0;
  }
  if (const ServiceHandle service = OpenInstalledService(manager, serviceName)) {
    DWORD state = 0;
    if (!Interrogate(service, state) || state == SERVICE_STOPPED) {
      return 1;
    }
    return Stop(service) && WaitFor(service, SERVICE_STOPPED) ? 1 : 0;
  }
  const ServiceHandle created(CreateServiceA(manager.get(), serviceName, serviceName,
                                             SERVICE_ALL_ACCESS, SERVICE_KERNEL_DRIVER,
                                             SERVICE_AUTO_START, SERVICE_ERROR_NORMAL, driverPath,
                                             nullptr, nullptr, nullptr, nullptr, nullptr));
  return created ? 1 : 0;
}

int AccessDriver::StartService(const char* serviceName) {
  ServiceHandle manager = OpenManager();
  ServiceHandle service = OpenInstalledService(manager, serviceName);
  if (!service) {
    return 0;
  }
  const bool runs =
      StartServiceA(service.get(), 0, nullptr) != FALSE && WaitFor(service, SERVICE_RUNNING);
  service.reset();
  manager.reset();
  if (!runs) {
    RemoveService(serviceName);
    return 0;
  }
  return 1;
}

int AccessDriver::RemoveService(const char* serviceName) {
  const ServiceHandle manager = OpenManager();
  const ServiceHandle service = OpenInstalledService(manager, serviceName);
  if (!service) {
    return 0;
  }
  Stop(service);
  DeleteService(service.get());
  return 1;
}

int AccessDriver::OpenDevice() {
  return SetDevice(CreateFileA(kKernelDevice, GENERIC_READ | GENERIC_WRITE,
                               FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
             ? 1
             : 0;
}

bool AccessDriver::SetDevice(HANDLE device) {
  Device = device != INVALID_HANDLE_VALUE ? device : nullptr;
  return Device != nullptr;
}

bool AccessDriver::CloseDevice() {
  HANDLE device = std::exchange(Device, nullptr);
  return device != nullptr && CloseHandle(device) != FALSE;
}

bool AccessDriver::Request(DWORD code, std::uint32_t input) {
  DWORD count = 0;
  return DeviceIoControl(Device, code, &input, sizeof(input), nullptr, 0, &count, nullptr) != FALSE;
}

std::unique_ptr<FirmwareAccess> MakeMachineAccess() { return std::make_unique<AccessDriver>(); }

}  // namespace kestrel
