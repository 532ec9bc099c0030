#include "platform/win32.h"

// The service functions, looked up when they are called: Windows 95, 98 and Me have no service
// manager and need not have the functions, and a library that imported them would not load there.
// Where one is not there it fails, as it does without a service manager.

namespace {

// Loaded once and kept, since the handles of the service manager live in it.
HMODULE serviceModule = nullptr;

template <typename Result, typename... Parameters>
Result Call(const char* name, Result(WINAPI* /*function*/)(Parameters...),
            Parameters... parameters) {
  if (serviceModule == nullptr) {
    serviceModule = LoadLibraryA("ADVAPI32.dll");
  }
  FARPROC address = serviceModule != nullptr ? GetProcAddress(serviceModule, name) : nullptr;
  if (address == nullptr) {
    return {};
  }
  using Function = Result(WINAPI*)(Parameters...);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address))(parameters...);
}

}  // namespace

SC_HANDLE WINAPI OpenSCManagerA(LPCSTR machine, LPCSTR database, DWORD access) {
  return Call("OpenSCManagerA", OpenSCManagerA, machine, database, access);
}

SC_HANDLE WINAPI OpenServiceA(SC_HANDLE manager, LPCSTR name, DWORD access) {
  return Call("OpenServiceA", OpenServiceA, manager, name, access);
}

SC_HANDLE WINAPI CreateServiceA(SC_HANDLE manager, LPCSTR name, LPCSTR displayName, DWORD access,
                                DWORD type, DWORD startType, DWORD errorControl, LPCSTR binaryPath,
                                LPCSTR loadOrderGroup, LPDWORD tag, LPCSTR dependencies,
                                LPCSTR account, LPCSTR password) {
  return Call("CreateServiceA", CreateServiceA, manager, name, displayName, access, type, startType,
              errorControl, binaryPath, loadOrderGroup, tag, dependencies, account, password);
}

BOOL WINAPI StartServiceA(SC_HANDLE service, DWORD argumentCount, LPCSTR* arguments) {
  return Call("StartServiceA", StartServiceA, service, argumentCount, arguments);
}

BOOL WINAPI ControlService(SC_HANDLE service, DWORD control, SERVICE_STATUS* status) {
  return Call("ControlService", ControlService, service, control, status);
}

BOOL WINAPI DeleteService(SC_HANDLE service) {
  return Call("DeleteService", DeleteService, service);
}

BOOL WINAPI CloseServiceHandle(SC_HANDLE handle) {
  return Call("CloseServiceHandle", CloseServiceHandle, handle);
}
