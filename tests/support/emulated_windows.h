#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "firmware/sparse_memory.h"
#include "platform/win32.h"

namespace kestrel {

// A Windows machine behind the functions of platform/win32.h, which act on the one that lives. A
// test sets it up, and asks it afterwards what happened.
struct EmulatedWindows {
  // Further than any clock goes here.
  static constexpr DWORD kNever = 0x7FFFFFFF;

  struct Service {
    std::string BinaryPath;
    DWORD State = SERVICE_STOPPED;
    // When a pending state ends, by the clock.
    DWORD Due = kNever;
  };

  // What a handle stands for.
  struct Object {
    enum class Kind { Manager, Service, Device } Type;
    // Of a service.
    std::string Name = {};
    // Of a device: what the driver noted.
    DWORD Address = 0;
    DWORD Length = 0;
  };

  EmulatedWindows();
  EmulatedWindows(const EmulatedWindows&) = delete;
  EmulatedWindows& operator=(const EmulatedWindows&) = delete;
  ~EmulatedWindows();

  // The machine: Windows XP unless told otherwise.
  DWORD PlatformId = VER_PLATFORM_WIN32_NT;
  DWORD MajorVersion = 5;
  DWORD MinorVersion = 1;
  // Whether the version query knows the record of 156 bytes.
  bool HasExtendedRecord = true;
  std::string ModulePath = R"(C:\Host\host.exe)";
  std::map<std::string, Service> Services;
  DWORD MillisecondsToStart = 500;
  DWORD MillisecondsToStop = 500;
  // Whether a service that is stopped answers with success, beside telling its state.
  bool StoppedServicesAnswer = true;
  SparseMemory Memory;
  // What the driver says it copied, where that is not the truth.
  std::optional<DWORD> ReportedBytes;

  // The number, from 0 on, of a call that fails. A handle that cannot be closed is gone all the
  // same.
  std::optional<std::size_t> FailingCall;

  // What happened: a line for each call, with numbers in hexadecimal and handles numbered as they
  // were opened, and a line for each misuse of a function.
  std::vector<std::string> Calls;
  std::vector<std::string> Mistakes;
  std::map<std::uintptr_t, Object> OpenHandles;
  // In milliseconds. It moves when somebody sleeps, and nobody waits for it.
  DWORD Clock = 0;

  // What the functions share.

  // Records a call; false when it is the one that fails.
  bool Begin(std::string call);
  std::uintptr_t Open(Object object);
  // What an open handle stands for, or nullptr and a mistake.
  Object* Find(const void* handle, Object::Kind type);
  void Close(const void* handle, bool isDevice);
  // The service of that name or behind that handle, in its state as of now, or nullptr.
  Service* FindService(const std::string& name);
  Service* FindService(const void* handle);

  std::uintptr_t LastHandle = 0;
};

}  // namespace kestrel
