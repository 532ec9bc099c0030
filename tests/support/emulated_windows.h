#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/win32.h"

namespace kestrel {

// A Windows machine: Windows XP unless told otherwise.
struct WindowsSetup {
  DWORD PlatformId = VER_PLATFORM_WIN32_NT;
  DWORD MajorVersion = 5;
  DWORD MinorVersion = 1;
  // Whether the version query knows the record of 156 bytes.
  bool HasExtendedRecord = true;
  // The state of a service that an earlier host left, or 0.
  DWORD ServiceState = 0;
  DWORD MillisecondsToStart = 500;
  DWORD MillisecondsToStop = 500;
};

// Such a machine under the functions of platform/win32.h, which act on the one that lives. The
// test fails where a function is misused.
struct EmulatedWindows {
  // Further than any clock goes here.
  static constexpr DWORD kNever = 0x7FFFFFFF;

  explicit EmulatedWindows(const WindowsSetup& setup = {});
  EmulatedWindows(const EmulatedWindows&) = delete;
  EmulatedWindows& operator=(const EmulatedWindows&) = delete;
  ~EmulatedWindows();

  WindowsSetup Setup;
  std::string ModulePath = R"(C:\Host\host.exe)";
  // Whether bytes from 81h on begin a character of two bytes.
  bool IsDoubleByte = false;
  // What the driver says it copied, where that is not the truth.
  std::optional<DWORD> ReportedBytes;
  // The number, from 0 on, of a call that fails. A handle that cannot be closed is gone all the
  // same.
  std::optional<std::size_t> FailingCall;

  // What happened: a line for each call, with numbers in hexadecimal and handles numbered as they
  // were opened, and what is open.
  std::string Calls;
  std::size_t CallCount = 0;
  // The name of the function of a call, counted from 0.
  std::string GetCall(std::size_t number) const;
  std::set<std::pair<std::uintptr_t, char>> OpenHandles;
  std::uintptr_t LastHandle = 0;
  // In milliseconds. It moves when somebody sleeps, and nobody waits for it.
  DWORD Clock = 0;
  // The service: its file, and when its pending state ends.
  std::string BinaryPath;
  DWORD Due = kNever;
  // What the driver has noted.
  DWORD Address = 0;
};

}  // namespace kestrel
