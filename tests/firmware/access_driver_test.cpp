#include "firmware/access_driver.h"

#include <array>
#include <cctype>
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
  } cases[] = {
      {"host.exe", "Petrel.sys"},
      {R"(\\Server\A B\c.d\host)", R"(\\Server\A B\c.d\Petrel.sys)"},
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
    EXPECT_EQ(AccessDriver().Open(), test.Driver.empty() ? 0 : 1) << test.Host;
    EXPECT_EQ(windows.BinaryPath, test.Driver);
  }
}

// How a host that opens, reads and closes fares: 'r' it reads, 'o' it opens but reads nothing, 'x'
// it does not open, 'l' nor does it take its service away before it closes; a capital letter when a
// service is left in the end.
char RunHost(EmulatedWindows& windows) {
  AccessDriver driver;
  std::array<std::uint8_t, 4> buffer{};
  const bool opened = driver.Open() == 1;
  const char unopened = windows.Setup.ServiceState == 0 ? 'x' : 'l';
  const bool read = driver.ReadPhysical(0, buffer) == 4;
  driver.Close();
  EXPECT_THAT(windows.OpenHandles, IsEmpty());
  const char outcome = read ? 'r' : opened ? 'o' : unopened;
  return windows.Setup.ServiceState == 0 ? outcome : static_cast<char>(std::toupper(outcome));
}

TEST(AccessDriverTest, EndsCleanWhicheverCallFails) {
  const std::string loadAndRead = "llxrrrrxooo";
  const std::string close = "rRRrRrr";
  const struct {
    WindowsSetup Setup;
    DWORD Milliseconds;
    // How the host fares when this call of its run fails, for each call.
    std::string Outcomes;
  } cases[] = {
      {kWindows95, 0, "rxxooor"},
      {kXP, 1000, "rxxrxrr" + loadAndRead + close},
      {kLeftStopped, 1000, "rlllrrr" + loadAndRead + close},
      {kLeftRunning, 2000, "rlllxlrrrr" + loadAndRead + close},
      {{.MillisecondsToStart = 10000}, 10000, "rxxrxrrllxrrrrrrrrrrrrrrrrrrrxrrxooo" + close},
      {{.ServiceState = SERVICE_RUNNING, .MillisecondsToStop = kNever},
       10000,
       "llllx" + std::string(23, 'l') + "LLlLll"},
      {{.MillisecondsToStart = kNever}, 10000, "xxxxxxxll" + std::string(23, 'x') + "llxlxxxxx"},
  };
  for (const auto& test : cases) {
    std::string outcomes;
    for (std::size_t failing = 0;; ++failing) {
      EmulatedWindows windows(test.Setup);
      windows.FailingCall = failing;
      const char outcome = RunHost(windows);
      if (windows.CallCount == failing) {
        // There is no such call: nothing failed.
        EXPECT_EQ(outcome, test.Outcomes.front());
        EXPECT_EQ(windows.Clock, test.Milliseconds);
        break;
      }
      outcomes += outcome;
    }
    EXPECT_EQ(outcomes, test.Outcomes);
  }
}

TEST(AccessDriverTest, ReturnsHowClosingWent) {
  const struct {
    WindowsSetup Setup;
    // When this call of Close fails, for each call; then when none does.
    std::string Results;
  } cases[] = {{kWindows95, "01"}, {kXP, "10011111"}};
  for (const auto& test : cases) {
    std::string results;
    while (results.size() < test.Results.size()) {
      EmulatedWindows windows(test.Setup);
      AccessDriver driver;
      EXPECT_EQ(driver.Close(), 1);
      driver.Open();
      windows.FailingCall = windows.CallCount + results.size();
      results += std::to_string(driver.Close());
      windows.FailingCall.reset();
      EXPECT_EQ(driver.Close(), windows.Setup.ServiceState != 0 ? 1 : 0);
    }
    EXPECT_EQ(results, test.Results);
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
