#pragma once

// The functions of Windows that Kestrel uses, and no others. On Windows they are the real ones.
// Elsewhere they are declared here under their own names, so that the sources that use them compile
// everywhere and the tests can link a Windows of their own.

#if defined(_WIN32)

// Makes the service functions plain ones instead of imports: win32_services.cpp defines them.
#define _ADVAPI32_
#if !defined(NOMINMAX)
#define NOMINMAX 1
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

// A member function is called that.
#undef StartService

#else

#include <cstdint>

// The names, and the handle that is none, are those of Windows.
// NOLINTBEGIN(readability-identifier-naming,performance-no-int-to-ptr)

#define WINAPI

using BOOL = int;
using WORD = std::uint16_t;
using BYTE = std::uint8_t;
using DWORD = std::uint32_t;
using LPDWORD = DWORD*;
using LPVOID = void*;
using LPSTR = char*;
using LPCSTR = const char*;
using HANDLE = void*;
using HINSTANCE = struct Win32Module*;
using HMODULE = HINSTANCE;
using SC_HANDLE = struct Win32ServiceObject*;

inline void* const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

inline constexpr DWORD MAX_PATH = 260;

inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

inline constexpr DWORD VER_PLATFORM_WIN32s = 0;
inline constexpr DWORD VER_PLATFORM_WIN32_WINDOWS = 1;
inline constexpr DWORD VER_PLATFORM_WIN32_NT = 2;

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD CREATE_NEW = 1;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD FILE_FLAG_DELETE_ON_CLOSE = 0x4000000;

inline constexpr DWORD SC_MANAGER_ALL_ACCESS = 0xF003F;
inline constexpr DWORD SERVICE_ALL_ACCESS = 0xF01FF;
inline constexpr DWORD SERVICE_KERNEL_DRIVER = 1;
inline constexpr DWORD SERVICE_AUTO_START = 2;
inline constexpr DWORD SERVICE_ERROR_NORMAL = 1;
inline constexpr DWORD SERVICE_CONTROL_STOP = 1;
inline constexpr DWORD SERVICE_CONTROL_INTERROGATE = 4;
inline constexpr DWORD SERVICE_STOPPED = 1;
inline constexpr DWORD SERVICE_RUNNING = 4;

struct OSVERSIONINFOA {
  DWORD dwOSVersionInfoSize;
  DWORD dwMajorVersion;
  DWORD dwMinorVersion;
  DWORD dwBuildNumber;
  DWORD dwPlatformId;
  char szCSDVersion[128];
};

struct OSVERSIONINFOEXA {
  DWORD dwOSVersionInfoSize;
  DWORD dwMajorVersion;
  DWORD dwMinorVersion;
  DWORD dwBuildNumber;
  DWORD dwPlatformId;
  char szCSDVersion[128];
  WORD wServicePackMajor;
  WORD wServicePackMinor;
  WORD wSuiteMask;
  BYTE wProductType;
  BYTE wReserved;
};

struct SERVICE_STATUS {
  DWORD dwServiceType;
  DWORD dwCurrentState;
  DWORD dwControlsAccepted;
  DWORD dwWin32ExitCode;
  DWORD dwServiceSpecificExitCode;
  DWORD dwCheckPoint;
  DWORD dwWaitHint;
};

extern "C" {

BOOL GetVersionExA(OSVERSIONINFOA* version);
DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size);
BOOL IsDBCSLeadByte(BYTE byte);
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPVOID security, DWORD disposition,
                   DWORD flags, HANDLE templateFile);
BOOL DeviceIoControl(HANDLE device, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                     DWORD outputSize, LPDWORD bytesReturned, LPVOID overlapped);
BOOL CloseHandle(HANDLE handle);
void Sleep(DWORD milliseconds);

SC_HANDLE OpenSCManagerA(LPCSTR machine, LPCSTR database, DWORD access);
SC_HANDLE OpenServiceA(SC_HANDLE manager, LPCSTR name, DWORD access);
SC_HANDLE CreateServiceA(SC_HANDLE manager, LPCSTR name, LPCSTR displayName, DWORD access,
                         DWORD type, DWORD startType, DWORD errorControl, LPCSTR binaryPath,
                         LPCSTR loadOrderGroup, LPDWORD tag, LPCSTR dependencies, LPCSTR account,
                         LPCSTR password);
BOOL StartServiceA(SC_HANDLE service, DWORD argumentCount, LPCSTR* arguments);
BOOL ControlService(SC_HANDLE service, DWORD control, SERVICE_STATUS* status);
BOOL DeleteService(SC_HANDLE service);
BOOL CloseServiceHandle(SC_HANDLE handle);
}

// NOLINTEND(readability-identifier-naming,performance-no-int-to-ptr)

#endif
