#include "tests/support/emulated_windows.h"

#include <algorithm>
#include <span>
#include <utility>

#include "model/text.h"

namespace kestrel {

namespace {

EmulatedWindows* machine = nullptr;

constexpr DWORD kStartPending = 2;
constexpr DWORD kStopPending = 3;

std::uintptr_t NumberOf(const void* handle) { return reinterpret_cast<std::uintptr_t>(handle); }

std::string Text(std::uintptr_t number) { return std::string(Hex(number, 1)); }
std::string Text(const void* handle) { return Text(NumberOf(handle)); }
std::string Text(const char* text) {
  std::string quoted;
  Append(quoted, text != nullptr ? Pieces{"\"", text, "\""} : Pieces{"0"});
  return quoted;
}

// A call as it is recorded.
template <typename... Arguments>
std::string Call(const char* name, Arguments... arguments) {
  std::string call = name;
  const char* separator = "(";
  ((Append(call, {separator, Text(arguments)}), separator = ", "), ...);
  return call + ")";
}

template <typename Handle>
Handle HandleOf(std::uintptr_t number) {
  return reinterpret_cast<Handle>(number);  // NOLINT(performance-no-int-to-ptr): as Windows does.
}

}  // namespace

EmulatedWindows::EmulatedWindows() { machine = this; }

EmulatedWindows::~EmulatedWindows() { machine = nullptr; }

bool EmulatedWindows::Begin(std::string call) {
  Calls.push_back(std::move(call));
  return FailingCall != Calls.size() - 1;
}

std::uintptr_t EmulatedWindows::Open(Object object) {
  OpenHandles.emplace(++LastHandle, std::move(object));
  return LastHandle;
}

EmulatedWindows::Object* EmulatedWindows::Find(const void* handle, Object::Kind type) {
  const auto found = OpenHandles.find(NumberOf(handle));
  if (found == OpenHandles.end() || found->second.Type != type) {
    Mistakes.push_back("wrong handle: " + Calls.back());
    return nullptr;
  }
  return &found->second;
}

void EmulatedWindows::Close(const void* handle, bool isDevice) {
  const auto found = OpenHandles.find(NumberOf(handle));
  if (found == OpenHandles.end() || (found->second.Type == Object::Kind::Device) != isDevice) {
    Mistakes.push_back("wrong handle: " + Calls.back());
    return;
  }
  OpenHandles.erase(found);
}

EmulatedWindows::Service* EmulatedWindows::FindService(const std::string& name) {
  const auto found = Services.find(name);
  if (found == Services.end()) {
    return nullptr;
  }
  Service& service = found->second;
  if (service.Due <= Clock) {
    service.State = service.State == kStartPending ? SERVICE_RUNNING : SERVICE_STOPPED;
    service.Due = kNever;
  }
  return &service;
}

EmulatedWindows::Service* EmulatedWindows::FindService(const void* handle) {
  const Object* object = Find(handle, Object::Kind::Service);
  return object != nullptr ? FindService(object->Name) : nullptr;
}

}  // namespace kestrel

using kestrel::Call;
using kestrel::EmulatedWindows;
using kestrel::HandleOf;
using kestrel::machine;
using Object = EmulatedWindows::Object;

BOOL GetVersionExA(OSVERSIONINFOA* version) {
  const DWORD size = version->dwOSVersionInfoSize;
  if (!machine->Begin(Call("GetVersionExA", size)) ||
      (size != sizeof(OSVERSIONINFOA) &&
       !(size == sizeof(OSVERSIONINFOEXA) && machine->HasExtendedRecord))) {
    return FALSE;
  }
  const std::span record(reinterpret_cast<const BYTE*>(version), size);
  if (std::any_of(record.begin() + sizeof(size), record.end(),
                  [](BYTE byte) { return byte != 0; })) {
    machine->Mistakes.push_back("record not cleared: " + machine->Calls.back());
  }
  version->dwPlatformId = machine->PlatformId;
  version->dwMajorVersion = machine->MajorVersion;
  version->dwMinorVersion = machine->MinorVersion;
  return TRUE;
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
  if (!machine->Begin(Call("GetModuleFileNameA", module, size))) {
    return 0;
  }
  // A path that does not fit is cut, without a terminating zero.
  const std::size_t length = machine->ModulePath.copy(path, size);
  if (length < size) {
    path[length] = '\0';
  }
  return static_cast<DWORD>(length);
}

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPVOID security, DWORD disposition,
                   DWORD flags, HANDLE templateFile) {
  if (!machine->Begin(
          Call("CreateFileA", path, access, share, security, disposition, flags, templateFile))) {
    return INVALID_HANDLE_VALUE;
  }
  const std::string device = path;
  const EmulatedWindows::Service* petrel = machine->FindService(std::string("Petrel"));
  const bool isThere =
      machine->PlatformId == VER_PLATFORM_WIN32_WINDOWS
          ? device == R"(\\.\SKUA.VXD)"
          : device == R"(\\.\Petrel)" && petrel != nullptr && petrel->State == SERVICE_RUNNING;
  return isThere ? HandleOf<HANDLE>(machine->Open({Object::Kind::Device})) : INVALID_HANDLE_VALUE;
}

BOOL DeviceIoControl(HANDLE device, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                     DWORD outputSize, LPDWORD bytesReturned, LPVOID overlapped) {
  const DWORD number = input != nullptr ? *static_cast<const DWORD*>(input) : 0;
  const char* buffer = output != nullptr ? "buffer" : nullptr;
  if (!machine->Begin(Call("DeviceIoControl", device, code, number, inputSize, buffer, outputSize,
                           overlapped))) {
    return FALSE;
  }
  Object* driver = machine->Find(device, Object::Kind::Device);
  if (driver == nullptr) {
    return FALSE;
  }
  switch (code) {
    case 0x222018:
      driver->Address = number;
      *bytesReturned = 0;
      return inputSize == 4 && outputSize == 0 ? TRUE : FALSE;
    case 0x222020:
      driver->Length = number;
      *bytesReturned = 0;
      return inputSize == 4 && outputSize == 0 ? TRUE : FALSE;
    case 0x222040:
      *bytesReturned = machine->Memory.Read(driver->Address,
                                            std::span(static_cast<BYTE*>(output), driver->Length));
      *bytesReturned = machine->ReportedBytes.value_or(*bytesReturned);
      return inputSize == 0 && outputSize == driver->Length ? TRUE : FALSE;
    default:
      return FALSE;
  }
}

BOOL CloseHandle(HANDLE handle) {
  const bool succeeds = machine->Begin(Call("CloseHandle", handle));
  machine->Close(handle, true);
  return succeeds ? TRUE : FALSE;
}

void Sleep(DWORD milliseconds) {
  machine->Begin(Call("Sleep", milliseconds));
  machine->Clock += milliseconds;
}

SC_HANDLE OpenSCManagerA(LPCSTR machineName, LPCSTR database, DWORD access) {
  const bool succeeds = machine->Begin(Call("OpenSCManagerA", machineName, database, access));
  return succeeds && machine->PlatformId == VER_PLATFORM_WIN32_NT
             ? HandleOf<SC_HANDLE>(machine->Open({Object::Kind::Manager}))
             : nullptr;
}

SC_HANDLE OpenServiceA(SC_HANDLE manager, LPCSTR name, DWORD access) {
  const bool succeeds = machine->Begin(Call("OpenServiceA", manager, name, access));
  return machine->Find(manager, Object::Kind::Manager) != nullptr && succeeds &&
                 machine->Services.contains(name)
             ? HandleOf<SC_HANDLE>(machine->Open({Object::Kind::Service, name}))
             : nullptr;
}

SC_HANDLE CreateServiceA(SC_HANDLE manager, LPCSTR name, LPCSTR displayName, DWORD access,
                         DWORD type, DWORD startType, DWORD errorControl, LPCSTR binaryPath,
                         LPCSTR loadOrderGroup, LPDWORD tag, LPCSTR dependencies, LPCSTR account,
                         LPCSTR password) {
  const bool succeeds = machine->Begin(Call(
      "CreateServiceA", manager, name, displayName, access, type, startType, errorControl,
      binaryPath, loadOrderGroup, static_cast<const void*>(tag), dependencies, account, password));
  if (machine->Find(manager, Object::Kind::Manager) == nullptr || !succeeds ||
      machine->Services.contains(name)) {
    return nullptr;
  }
  machine->Services[name].BinaryPath = binaryPath;
  return HandleOf<SC_HANDLE>(machine->Open({Object::Kind::Service, name}));
}

BOOL StartServiceA(SC_HANDLE service, DWORD argumentCount, LPCSTR* arguments) {
  const bool succeeds = machine->Begin(
      Call("StartServiceA", service, argumentCount, static_cast<const void*>(arguments)));
  EmulatedWindows::Service* entry = machine->FindService(service);
  if (!succeeds || entry == nullptr || entry->State != SERVICE_STOPPED) {
    return FALSE;
  }
  entry->State = kestrel::kStartPending;
  entry->Due = machine->Clock + machine->MillisecondsToStart;
  return TRUE;
}

BOOL ControlService(SC_HANDLE service, DWORD control, SERVICE_STATUS* status) {
  const bool succeeds = machine->Begin(Call("ControlService", service, control));
  EmulatedWindows::Service* entry = machine->FindService(service);
  if (!succeeds || entry == nullptr) {
    return FALSE;
  }
  if (control == SERVICE_CONTROL_STOP) {
    if (entry->State != SERVICE_RUNNING) {
      return FALSE;
    }
    entry->State = kestrel::kStopPending;
    entry->Due = machine->Clock + machine->MillisecondsToStop;
  }
  status->dwCurrentState = entry->State;
  return entry->State != SERVICE_STOPPED || machine->StoppedServicesAnswer ? TRUE : FALSE;
}

BOOL DeleteService(SC_HANDLE service) {
  const bool succeeds = machine->Begin(Call("DeleteService", service));
  const Object* object = machine->Find(service, Object::Kind::Service);
  return object != nullptr && succeeds && machine->Services.erase(object->Name) != 0 ? TRUE : FALSE;
}

BOOL CloseServiceHandle(SC_HANDLE handle) {
  const bool succeeds = machine->Begin(Call("CloseServiceHandle", handle));
  machine->Close(handle, false);
  return succeeds ? TRUE : FALSE;
}
