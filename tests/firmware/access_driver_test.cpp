#include "firmware/access_driver.h"

#include <array>
#include <gmock/gmock.h>
#include <utility>

#include "tests/support/emulated_windows.h"

namespace kestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr DWORD kNever = EmulatedWindows::kNever;

constexpr WindowsSetup kWindows95 = {
    .PlatformId = 1, .MajorVersion = 4, .MinorVersion = 0, .HasExtendedRecord = false};
constexpr WindowsSetup kWindows98 = {
    .PlatformId = 1, .MajorVersion = 4, .MinorVersion = 10, .HasExtendedRecord = false};
constexpr WindowsSetup kNT4 = {.MajorVersion = 4, .MinorVersion = 0};
constexpr WindowsSetup kXP = {};
constexpr WindowsSetup kLeftStopped = {.ServiceState = SERVICE_STOPPED};
constexpr WindowsSetup kLeftRunning = {.ServiceState = SERVICE_RUNNING};

TEST(AccessDriverTest, DetectsThePlatform) {
  const struct {
    DWORD PlatformId;
    DWORD Major;
    DWORD Minor;
    Platform Expected;
  } cases[] = {{1, 3, 95, Platform::Windows95},       {1, 4, 0, Platform::Windows95},
               {1, 4, 1, Platform::Windows98},        {1, 0xFFFFFFFF, 0, Platform::Windows98},
               {2, 3, 51, Platform::WindowsNT4},      {2, 4, 99, Platform::WindowsNT4},
               {2, 5, 2, Platform::Windows2000},      {2, 6, 0, Platform::Unknown},
               {2, 0xFFFFFFFF, 0, Platform::Unknown}, {0, 1, 30, Platform::Win32s},
               {3, 4, 0, Platform::Unknown}};
  for (const auto& test : cases) {
    EmulatedWindows windows({test.PlatformId, test.Major, test.Minor});
    AccessDriver driver;
    driver.Open();
    EXPECT_EQ(driver.GetOsPlatform(), test.Expected) << &test - cases;
  }
}

TEST(AccessDriverTest, MakesItsCallsInOrder) {
  const std::string detect = "GetVersionExA(9C)\n";
  const std::string virtualDevice = R"(GetVersionExA(9C)
GetVersionExA(94)
CreateFileA("\\.\SKUA.VXD", 0, 0, 0, 1, 4000000, 0)
CloseHandle(1)
)";
  const std::string find = R"(GetVersionExA(9C)
GetModuleFileNameA(0, 104)
OpenSCManagerA(0, 0, F003F)
OpenServiceA(1, "Petrel", F01FF)
)";
  const std::string create = R"(CreateServiceA(1, "Petrel", "Petrel", F01FF, 1, 2, 1, "C:\Host\)";
  const std::string interrogate = "ControlService(2, 4)\n";
  const std::string stop = "ControlService(2, 1)\nSleep(3E8)\nControlService(2, 4)\n";
  const std::string run = R"(CloseServiceHandle(2)
CloseServiceHandle(1)
OpenSCManagerA(0, 0, F003F)
OpenServiceA(3, "Petrel", F01FF)
StartServiceA(4, 0, 0)
Sleep(3E8)
ControlService(4, 4)
CloseServiceHandle(4)
CloseServiceHandle(3)
CreateFileA("\\.\Petrel", C0000000, 3, 0, 3, 80, 0)
CloseHandle(5)
OpenSCManagerA(0, 0, F003F)
OpenServiceA(6, "Petrel", F01FF)
ControlService(7, 1)
DeleteService(7)
CloseServiceHandle(7)
CloseServiceHandle(6)
)";
  const struct {
    WindowsSetup Setup;
    std::string Calls;
  } cases[] = {
      {kWindows95, virtualDevice},
      {kWindows98, virtualDevice},
      {kNT4, find + create + "PetrelNt.sys\", 0, 0, 0, 0, 0)\n" + run},
      {kXP, find + create + "Petrel.sys\", 0, 0, 0, 0, 0)\n" + run},
      {kLeftStopped, find + interrogate + run},
      {kLeftRunning, find + interrogate + stop + run},
      {{.MajorVersion = 6}, detect},
      {{.PlatformId = 0}, detect},
  };
  for (const auto& test : cases) {
    EmulatedWindows windows(test.Setup);
    AccessDriver driver;
    driver.Open();
    driver.Close();
    EXPECT_EQ(windows.Calls, test.Calls);
  }
}

TEST(AccessDriverTest, FindsTheDriverBesideTheHost) {
  const struct {
    std::string Host;
    // Empty when no service may be installed.
    std::string Driver;
    bool IsDoubleByte = false;
  } cases[] = {
      {"host.exe", "Petrel.sys"},
      {R"(\\Server\A B\c.d\host)", R"(\\Server\A B\c.d\Petrel.sys)"},
      {"C:\\\x83\\host.exe", "C:\\\x83\\Petrel.sys"},
      {"C:\\\x83\\host.exe", "C:\\Petrel.sys", true},
      {"C:\\\x83\\\\host.exe", "C:\\\x83\\\\Petrel.sys", true},
      // A host of 259 characters, and one too many.
      {R"(C:\)" + std::string(256, 'h'), R"(C:\Petrel.sys)"},
      {R"(C:\)" + std::string(257, 'h'), ""},
      // A driver of 259 characters, and one too many.
      {std::string(248, 'd') + R"(\longer.exe)", std::string(248, 'd') + R"(\Petrel.sys)"},
      {std::string(249, 'd') + R"(\host.exe)", ""},
  };
  for (const auto& test : cases) {
    EmulatedWindows windows;
    windows.ModulePath = test.Host;
    windows.IsDoubleByte = test.IsDoubleByte;
    EXPECT_EQ(AccessDriver().Open(), test.Driver.empty() ? 0 : 1) << test.Host;
    EXPECT_EQ(windows.BinaryPath, test.Driver);
  }
}

// How a host fares that opens, reads and closes, and whether the service is installed before it
// closes, if it could not open, and after.
std::string RunHost(EmulatedWindows& windows) {
  AccessDriver driver;
  EXPECT_EQ(driver.Close(), 1);
  std::array<std::uint8_t, 4> buffer{};
  const bool isOpen = driver.Open() == 1;
  const char* before = !isOpen && windows.Setup.ServiceState != 0 ? ", installed" : "";
  const char* read = driver.ReadPhysical(0, buffer) == 4 ? "reads" : isOpen ? "opens" : "fails";
  const char* closed = driver.Close() == 1 ? "" : ", not closed";
  const char* after = windows.Setup.ServiceState != 0 ? ", left installed" : "";
  EXPECT_THAT(windows.OpenHandles, IsEmpty());
  return std::string(read) + before + closed + after;
}

TEST(AccessDriverTest, EndsCleanWhicheverCallFails) {
  const std::string install = R"(GetModuleFileNameA: fails, not closed
OpenSCManagerA: fails, not closed
CreateServiceA: fails, not closed
)";
  const std::string find = R"(GetModuleFileNameA: fails, installed
OpenSCManagerA: fails, installed
OpenServiceA: fails, installed
)";
  const std::string stop = "ControlService: fails, not closed\nControlService: fails, installed\n";
  const std::string start = R"(OpenSCManagerA: fails, installed
OpenServiceA: fails, installed
StartServiceA: fails, not closed
)";
  const std::string answer = "ControlService: fails, not closed\n";
  const std::string readAndClose = R"(CreateFileA: fails, not closed
DeviceIoControl: opens
DeviceIoControl: opens
DeviceIoControl: opens
OpenSCManagerA: reads, not closed, left installed
OpenServiceA: reads, not closed, left installed
DeleteService: reads, left installed
)";
  const struct {
    const char* Name;
    WindowsSetup Setup;
    DWORD Milliseconds;
    std::string Outcome;
    // Each call that changes the outcome when it fails.
    std::string Changes;
  } cases[] = {
      {"Windows 95", kWindows95, 0, "reads", R"(GetVersionExA: fails
CreateFileA: fails, not closed
DeviceIoControl: opens
DeviceIoControl: opens
DeviceIoControl: opens
CloseHandle: reads, not closed
)"},
      {"XP", kXP, 1000, "reads", install + start + readAndClose},
      {"a service left stopped", kLeftStopped, 1000, "reads", find + start + readAndClose},
      {"a service left running", kLeftRunning, 2000, "reads", find + stop + start + readAndClose},
      {"a service that starts late",
       {.MillisecondsToStart = 10000},
       10000,
       "reads",
       install + start + answer + readAndClose},
      {"a service that does not stop",
       {.ServiceState = SERVICE_RUNNING, .MillisecondsToStop = kNever},
       10000,
       "fails, installed",
       R"(ControlService: fails, not closed
OpenSCManagerA: fails, installed, not closed, left installed
OpenServiceA: fails, installed, not closed, left installed
DeleteService: fails, installed, left installed
)"},
      {"a service that does not start",
       {.MillisecondsToStart = kNever},
       10000,
       "fails, not closed",
       R"(OpenSCManagerA: fails, installed
OpenServiceA: fails, installed
OpenSCManagerA: fails, installed
OpenServiceA: fails, installed
DeleteService: fails, installed
)"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.Name);
    std::string changes;
    for (std::size_t failing = 0;; ++failing) {
      EmulatedWindows windows(test.Setup);
      windows.FailingCall = failing;
      const std::string outcome = RunHost(windows);
      if (windows.CallCount == failing) {
        // There is no such call: nothing failed.
        EXPECT_EQ(outcome, test.Outcome);
        EXPECT_EQ(windows.Clock, test.Milliseconds);
        break;
      }
      if (outcome != test.Outcome) {
        changes += windows.GetCall(failing) + ": " + outcome + "\n";
      }
    }
    EXPECT_EQ(changes, test.Changes);
  }
}

TEST(AccessDriverTest, LeavesTheDeviceToClose) {
  EmulatedWindows windows;
  { ASSERT_EQ(AccessDriver().Open(), 1); }
  EXPECT_THAT(windows.OpenHandles, ElementsAre(std::pair(5, 'd')));
}

TEST(AccessDriverTest, SendsThreeRequestsForARead) {
  EmulatedWindows windows;
  AccessDriver driver;
  std::array<std::uint8_t, 4> buffer{};
  EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 0);
  EXPECT_THAT(windows.Calls, IsEmpty());
  ASSERT_EQ(driver.Open(), 1);
  windows.Calls.clear();
  EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 4);
  EXPECT_THAT(buffer, ElementsAre(0xF0, 0xF1, 0xF2, 0xF3));
  EXPECT_EQ(windows.Calls, R"(DeviceIoControl(5, 222018, FFFFFFF0, 4, 0, 0, 0)
DeviceIoControl(5, 222020, 4, 4, 0, 0, 0)
DeviceIoControl(5, 222040, 0, 0, "buffer", 4, 0)
)");
  // A driver that claims more than the buffer holds is believed up to the buffer.
  for (const auto& [reported, result] : {std::pair<DWORD, std::uint32_t>{3, 3}, {0, 0}, {5, 4}}) {
    windows.ReportedBytes = reported;
    EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), result);
  }
  for (std::size_t failing = 1; failing <= 3; ++failing) {
    windows.FailingCall = windows.CallCount + failing - 1;
    EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 0);
    EXPECT_EQ(windows.CallCount, *windows.FailingCall + 1);
  }
}

}  // namespace
}  // namespace kestrel
