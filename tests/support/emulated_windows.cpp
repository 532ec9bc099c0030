#include "tests/support/emulated_windows.h"

#include <gtest/gtest.h>
#include <span>

#include "base/text.h"

namespace {

using kestrel::EmulatedWindows;

EmulatedWindows* emulated = nullptr;

constexpr DWORD kStartPending = 2;
constexpr DWORD kStopPending = 3;

// Kinds of handles; the manager of services is one of them.
constexpr char kService = 's';
constexpr char kDevice = 'd';

std::string Text(std::uintptr_t number) { return std::string(kestrel::Hex(number, 1)); }
std::string Text(const void* handle) { return Text(reinterpret_cast<std::uintptr_t>(handle)); }
std::string Text(const char* text) { return text != nullptr ? '"' + std::string(text) + '"' : "0"; }

// Records a call. False when it is the one that fails.
template <typename... Arguments>
bool Begin(const char* name, Arguments... arguments) {
  emulated->Calls += name;
  const char* separator = "(";
  ((emulated->Calls.append(separator).append(Text(arguments)), separator = ", "), ...);
  emulated->Calls += ")\n";
  return emulated->FailingCall != emulated->CallCount++;
}

template <typename Handle>
Handle Open(char kind) {
  emulated->OpenHandles.emplace(++emulated->LastHandle, kind);
  return reinterpret_cast<Handle>(emulated->LastHandle);  // NOLINT(performance-no-int-to-ptr)
}

// Whether a handle is open, as it should be, and of that kind.
bool IsOpen(const void* handle, char kind) {
  const bool isOpen =
      emulated->OpenHandles.contains({reinterpret_cast<std::uintptr_t>(handle), kind});
  EXPECT_TRUE(isOpen) << emulated->Calls;
  return isOpen;
}

BOOL Close(const void* handle, char kind, bool succeeds) {
  const bool wasOpen = IsOpen(handle, kind);
  emulated->OpenHandles.erase({reinterpret_cast<std::uintptr_t>(handle), kind});
  return wasOpen && succeeds;
}

// The state of the service as of now, or 0.
DWORD& ServiceState() {
  DWORD& state = emulated->Setup.ServiceState;
  if (emulated->Due <= emulated->Clock) {
    state = state == kStartPending ? SERVICE_RUNNING : SERVICE_STOPPED;
    emulated->Due = EmulatedWindows::kNever;
  }
  return state;
}

void ChangeService(DWORD pendingState, DWORD milliseconds) {
  emulated->Setup.ServiceState = pendingState;
  emulated->Due = emulated->Clock + milliseconds;
}

}  // namespace

namespace kestrel {

EmulatedWindows::EmulatedWindows(const WindowsSetup& setup) : Setup(setup) { emulated = this; }

EmulatedWindows::~EmulatedWindows() { emulated = nullptr; }

std::string EmulatedWindows::GetCall(std::size_t number) const {
  std::size_t start = 0;
  for (; number != 0; --number) {
    start = Calls.find('\n', start) + 1;
  }
  return Calls.substr(start, Calls.find('(', start) - start);
}

}  // namespace kestrel

BOOL GetVersionExA(OSVERSIONINFOA* version) {
  const DWORD size = version->dwOSVersionInfoSize;
  const bool isKnown = size == 148 || (size == 156 && emulated->Setup.HasExtendedRecord);
  if (!Begin("GetVersionExA", size) || !isKnown) {
    return FALSE;
  }
  version->dwPlatformId = emulated->Setup.PlatformId;
  version->dwMajorVersion = emulated->Setup.MajorVersion;
  version->dwMinorVersion = emulated->Setup.MinorVersion;
  return TRUE;
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
  if (!Begin("GetModuleFileNameA", module, size)) {
    return 0;
  }
  // A path that does not fit is cut. No path gets a terminating zero here: its length is enough.
  return static_cast<DWORD>(emulated->ModulePath.copy(path, size));
}

BOOL IsDBCSLeadByte(BYTE byte) { return emulated->IsDoubleByte && byte >= 0x81 ? TRUE : FALSE; }

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPVOID security, DWORD disposition,
                   DWORD flags, HANDLE templateFile) {
  const bool succeeds =
      Begin("CreateFileA", path, access, share, security, disposition, flags, templateFile);
  const bool isThere =
      emulated->Setup.PlatformId == VER_PLATFORM_WIN32_WINDOWS || ServiceState() == SERVICE_RUNNING;
  return succeeds && isThere ? Open<HANDLE>(kDevice) : INVALID_HANDLE_VALUE;
}

// Memory has the lowest byte of its address everywhere.
BOOL DeviceIoControl(HANDLE device, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                     DWORD outputSize, LPDWORD bytesReturned, LPVOID overlapped) {
  const DWORD number = input != nullptr ? *static_cast<const DWORD*>(input) : 0;
  const char* buffer = output != nullptr ? "buffer" : nullptr;
  if (!Begin("DeviceIoControl", device, code, number, inputSize, buffer, outputSize, overlapped) ||
      !IsOpen(device, kDevice)) {
    return FALSE;
  }
  *bytesReturned = 0;
  if (code == 0x222018) {
    emulated->Address = number;
  } else if (code == 0x222040) {
    for (BYTE& byte : std::span(static_cast<BYTE*>(output), outputSize)) {
      byte = static_cast<BYTE>(emulated->Address++);
    }
    *bytesReturned = emulated->ReportedBytes.value_or(outputSize);
  }
  return TRUE;
}

BOOL CloseHandle(HANDLE handle) { return Close(handle, kDevice, Begin("CloseHandle", handle)); }

void Sleep(DWORD milliseconds) {
  Begin("Sleep", milliseconds);
  emulated->Clock += milliseconds;
}

SC_HANDLE OpenSCManagerA(LPCSTR machineName, LPCSTR database, DWORD access) {
  return Begin("OpenSCManagerA", machineName, database, access) ? Open<SC_HANDLE>(kService)
                                                                : nullptr;
}

SC_HANDLE OpenServiceA(SC_HANDLE manager, LPCSTR name, DWORD access) {
  const bool succeeds = Begin("OpenServiceA", manager, name, access);
  return IsOpen(manager, kService) && succeeds && ServiceState() != 0 ? Open<SC_HANDLE>(kService)
                                                                      : nullptr;
}

SC_HANDLE CreateServiceA(SC_HANDLE manager, LPCSTR name, LPCSTR displayName, DWORD access,
                         DWORD type, DWORD startType, DWORD errorControl, LPCSTR binaryPath,
                         LPCSTR loadOrderGroup, LPDWORD tag, LPCSTR dependencies, LPCSTR account,
                         LPCSTR password) {
  if (!Begin("CreateServiceA", manager, name, displayName, access, type, startType, errorControl,
             binaryPath, loadOrderGroup, tag, dependencies, account, password) ||
      !IsOpen(manager, kService) || ServiceState() != 0) {
    return nullptr;
  }
  emulated->BinaryPath = binaryPath;
  ServiceState() = SERVICE_STOPPED;
  return Open<SC_HANDLE>(kService);
}

BOOL StartServiceA(SC_HANDLE service, DWORD argumentCount, LPCSTR* arguments) {
  const void* texts = arguments;
  if (!Begin("StartServiceA", service, argumentCount, texts) || !IsOpen(service, kService) ||
      ServiceState() != SERVICE_STOPPED) {
    return FALSE;
  }
  ChangeService(kStartPending, emulated->Setup.MillisecondsToStart);
  return TRUE;
}

BOOL ControlService(SC_HANDLE service, DWORD control, SERVICE_STATUS* status) {
  if (!Begin("ControlService", service, control) || !IsOpen(service, kService)) {
    return FALSE;
  }
  if (control == SERVICE_CONTROL_STOP) {
    if (ServiceState() != SERVICE_RUNNING) {
      return FALSE;
    }
    ChangeService(kStopPending, emulated->Setup.MillisecondsToStop);
  }
  status->dwCurrentState = ServiceState();
  // A service that is stopped refuses, and still gives its state.
  return status->dwCurrentState != SERVICE_STOPPED;
}

BOOL DeleteService(SC_HANDLE service) {
  if (!Begin("DeleteService", service) || !IsOpen(service, kService)) {
    return FALSE;
  }
  emulated->Setup.ServiceState = 0;
  return TRUE;
}

BOOL CloseServiceHandle(SC_HANDLE handle) {
  return Close(handle, kService, Begin("CloseServiceHandle", handle));
}
