#include "firmware/access_driver.h"

#include <cctype>
#include <gmock/gmock.h>
#include <utility>

#include "firmware/table_firmware.h"
#include "kestrel.h"
#include "tests/support/emulated_windows.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

using testing::IsEmpty;

using Preparation = void (*)(EmulatedWindows&);

void Windows95(EmulatedWindows& windows) {
  windows.PlatformId = 1;
  windows.MajorVersion = 4;
  windows.MinorVersion = 0;
  windows.HasExtendedRecord = false;
}

void Windows98(EmulatedWindows& windows) {
  windows.PlatformId = 1;
  windows.MajorVersion = 4;
  windows.MinorVersion = 10;
  windows.HasExtendedRecord = false;
}

void WindowsNT4(EmulatedWindows& windows) {
  windows.MajorVersion = 4;
  windows.MinorVersion = 0;
}

void WindowsXP(EmulatedWindows& /*windows*/) {}

void WindowsVista(EmulatedWindows& windows) { windows.MajorVersion = 6; }

void Win32s(EmulatedWindows& windows) { windows.PlatformId = 0; }

void LeftRunning(EmulatedWindows& windows) {
  windows.Services["Petrel"] = {R"(D:\Other\Petrel.sys)", SERVICE_RUNNING};
}

void LeftStopped(EmulatedWindows& windows) {
  windows.Services["Petrel"] = {R"(D:\Other\Petrel.sys)", SERVICE_STOPPED};
}

void LeftRunningAndRefusingOnceStopped(EmulatedWindows& windows) {
  LeftRunning(windows);
  windows.StoppedServicesAnswer = false;
}

void StuckInStopping(EmulatedWindows& windows) {
  LeftRunning(windows);
  windows.MillisecondsToStop = EmulatedWindows::kNever;
}

void StoppingForTenSeconds(EmulatedWindows& windows) {
  LeftRunning(windows);
  windows.MillisecondsToStop = 10000;
}

void StartingForTenSeconds(EmulatedWindows& windows) { windows.MillisecondsToStart = 10000; }

void NeverStarting(EmulatedWindows& windows) {
  windows.MillisecondsToStart = EmulatedWindows::kNever;
}

// How a host that opens, reads and closes fared: 'r' it read, 'o' it opened but read nothing, 'x'
// it did not open; a capital letter when a service is left.
char RunHost(EmulatedWindows& windows) {
  const Bytes table = {0x7F, 4, 0, 0, 0, 0};
  windows.Memory.Map(0xF0000, MakeEntryPoint({2, 3}, 0xFFFF0000, 6, table));
  windows.Memory.Map(0xFFFF0000, table);
  const bool opened = OpenSMBios() == 1;
  const bool read = ReadSMObjects() == 1;
  EXPECT_TRUE(opened || !read);
  EXPECT_EQ(CloseSMBios(), 1);
  EXPECT_EQ(CloseSMBios(), 0);
  EXPECT_THAT(windows.OpenHandles, IsEmpty());
  EXPECT_THAT(windows.Mistakes, IsEmpty());
  const char outcome = read ? 'r' : opened ? 'o' : 'x';
  return windows.Services.empty() ? outcome : static_cast<char>(std::toupper(outcome));
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

TEST(AccessDriverTest, DetectsThePlatform) {
  const struct {
    DWORD PlatformId;
    DWORD Major;
    DWORD Minor;
    Platform Expected;
  } cases[] = {
      {1, 3, 95, Platform::Windows95},
      {1, 4, 0, Platform::Windows95},
      {1, 4, 1, Platform::Windows98},
      {1, 5, 0, Platform::Windows98},
      {1, 0xFFFFFFFF, 0, Platform::Windows98},
      {2, 3, 51, Platform::WindowsNT4},
      {2, 4, 99, Platform::WindowsNT4},
      {2, 5, 0, Platform::Windows2000},
      {2, 5, 2, Platform::Windows2000},
      {2, 6, 0, Platform::Unknown},
      {2, 0xFFFFFFFF, 0, Platform::Unknown},
      {0, 1, 30, Platform::Win32s},
      {3, 4, 0, Platform::Unknown},
  };
  for (const auto& test : cases) {
    for (const bool extended : {true, false}) {
      EmulatedWindows windows;
      windows.PlatformId = test.PlatformId;
      windows.MajorVersion = test.Major;
      windows.MinorVersion = test.Minor;
      windows.HasExtendedRecord = extended;
      AccessDriver driver;
      driver.Open();
      EXPECT_EQ(driver.GetOsPlatform(), test.Expected)
          << test.PlatformId << ": " << test.Major << "." << test.Minor;
    }
  }
}

TEST(AccessDriverTest, MakesItsCallsInOrder) {
  const std::string detect = "GetVersionExA(9C)\n";
  const std::string virtualDevice = R"(CreateFileA("\\.\SKUA.VXD", 0, 0, 0, 1, 4000000, 0)
CloseHandle(1)
)";
  const std::string find = R"(GetVersionExA(9C)
GetModuleFileNameA(0, 104)
OpenSCManagerA(0, 0, F003F)
OpenServiceA(1, "Petrel", F01FF)
)";
  const auto create = [](const std::string& path) {
    return R"(CreateServiceA(1, "Petrel", "Petrel", F01FF, 1, 2, 1, ")" + path +
           "\", 0, 0, 0, 0, 0)\n";
  };
  const std::string interrogate = "ControlService(2, 4)\n";
  const std::string stop = "ControlService(2, 1)\nSleep(3E8)\nControlService(2, 4)\n";
  const std::string startAndRemove = R"(CloseServiceHandle(2)
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
    Preparation Machine;
    std::string Calls;
  } cases[] = {
      {Windows95, detect + "GetVersionExA(94)\n" + virtualDevice},
      {Windows98, detect + "GetVersionExA(94)\n" + virtualDevice},
      {WindowsNT4, find + create(R"(C:\Host\PetrelNt.sys)") + startAndRemove},
      {WindowsXP, find + create(R"(C:\Host\Petrel.sys)") + startAndRemove},
      {LeftStopped, find + interrogate + startAndRemove},
      {LeftRunning, find + interrogate + stop + startAndRemove},
      {LeftRunningAndRefusingOnceStopped, find + interrogate + stop + startAndRemove},
      {WindowsVista, detect},
      {Win32s, detect},
  };
  for (const auto& test : cases) {
    EmulatedWindows windows;
    test.Machine(windows);
    EXPECT_EQ(OpenSMBios(), test.Calls == detect ? 0 : 1);
    EXPECT_EQ(CloseSMBios(), 1);
    EXPECT_EQ(JoinLines(windows.Calls), test.Calls);
  }
}

TEST(AccessDriverTest, FindsTheDriverBesideTheHost) {
  const struct {
    std::string Host;
    // Empty when no service may be installed.
    std::string Driver;
  } cases[] = {
      {"host.exe", "Petrel.sys"},
      {R"(C:\host.exe)", R"(C:\Petrel.sys)"},
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
    EXPECT_EQ(OpenSMBios(), test.Driver.empty() ? 0 : 1) << test.Host;
    EXPECT_EQ(windows.Services.empty(), test.Driver.empty());
    EXPECT_EQ(windows.Services["Petrel"].BinaryPath, test.Driver);
    CloseSMBios();
  }
}

TEST(AccessDriverTest, EndsCleanWhicheverCallFails) {
  const std::string load = "xxxrrrrx";
  // The second of three reads may fail: the first has all of the entry point, too.
  const std::string read = "ooorrrooo";
  const std::string close = "rRRrRrr";
  const struct {
    Preparation Machine;
    DWORD Milliseconds;
    // How the host fares when this call of its run fails, for each call.
    std::string Outcomes;
  } cases[] = {
      {Windows95, 0, "rxx" + read + "r"},
      {Windows98, 0, "rxx" + read + "r"},
      {WindowsNT4, 1000, "rxxrxrr" + load + read + close},
      {WindowsXP, 1000, "rxxrxrr" + load + read + close},
      {LeftStopped, 1000, "rxxxrrr" + load + read + close},
      {LeftRunning, 2000, "rxxxxxrrrr" + load + read + close},
      {StoppingForTenSeconds, 11000, "rxxxxxrrrrrrrrrrrrrrrrrrrxrr" + load + read + close},
      {StartingForTenSeconds, 10000, "rxxrxrrxxxrrrrrrrrrrrrrrrrrrrxrrx" + read + close},
      {StuckInStopping, 10000, std::string(37, 'x')},
      {NeverStarting, 10000, std::string(44, 'x')},
  };
  for (const auto& test : cases) {
    std::string outcomes;
    for (std::size_t failing = 0;; ++failing) {
      EmulatedWindows windows;
      test.Machine(windows);
      windows.FailingCall = failing;
      const char outcome = RunHost(windows);
      if (windows.Calls.size() == failing) {
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

// What Open itself does after a call that fails: Close, which would mend much, is not called.
TEST(AccessDriverTest, CleansUpWhatDidNotOpen) {
  const std::string remove = R"(OpenSCManagerA(0, 0, F003F)
OpenServiceA(5, "Petrel", F01FF)
ControlService(6, 1)
DeleteService(6)
CloseServiceHandle(6)
CloseServiceHandle(5)
)";
  const struct {
    Preparation Machine;
    std::size_t FailingCall;
    // That one and those behind it.
    std::string Calls;
  } cases[] = {
      {LeftRunning, 5, "ControlService(2, 1)\nCloseServiceHandle(2)\nCloseServiceHandle(1)\n"},
      {WindowsXP, 7, "OpenSCManagerA(0, 0, F003F)\n"},
      {WindowsXP, 8, "OpenServiceA(3, \"Petrel\", F01FF)\nCloseServiceHandle(3)\n"},
      {WindowsXP, 9,
       "StartServiceA(4, 0, 0)\nCloseServiceHandle(4)\nCloseServiceHandle(3)\n" + remove},
      {WindowsXP, 14, "CreateFileA(\"\\\\.\\Petrel\", C0000000, 3, 0, 3, 80, 0)\n" + remove},
  };
  for (const auto& test : cases) {
    EmulatedWindows windows;
    test.Machine(windows);
    windows.FailingCall = test.FailingCall;
    EXPECT_EQ(AccessDriver().Open(), 0);
    windows.Calls.erase(windows.Calls.begin(),
                        windows.Calls.begin() + static_cast<std::ptrdiff_t>(test.FailingCall));
    EXPECT_EQ(JoinLines(windows.Calls), test.Calls);
  }
}

TEST(AccessDriverTest, StopsAServiceThatIsStarting) {
  EmulatedWindows windows;
  LeftRunning(windows);
  windows.Services["Petrel"].State = 2;
  EXPECT_EQ(AccessDriver().Open(), 0);
  EXPECT_EQ(windows.Calls.at(5), "ControlService(2, 1)");
}

TEST(AccessDriverTest, TellsHowClosingWent) {
  const struct {
    Preparation Machine;
    int First;
    int Second;
  } cases[] = {
      {Windows95, 1, 0},
      {WindowsXP, 1, 0},
      {WindowsVista, 1, 1},
  };
  for (const auto& test : cases) {
    EmulatedWindows windows;
    test.Machine(windows);
    AccessDriver driver;
    EXPECT_EQ(driver.Close(), 1);
    driver.Open();
    EXPECT_EQ(driver.Close(), test.First);
    EXPECT_EQ(driver.Close(), test.Second);
    EXPECT_THAT(windows.Mistakes, IsEmpty());
  }
}

TEST(AccessDriverTest, DoesNotLookAtHowStoppingAndDeletingWent) {
  for (const std::size_t callOfClose : {std::size_t{3}, std::size_t{4}}) {
    EmulatedWindows windows;
    AccessDriver driver;
    ASSERT_EQ(driver.Open(), 1);
    windows.FailingCall = windows.Calls.size() + callOfClose;
    EXPECT_EQ(driver.Close(), 1);
    EXPECT_EQ(windows.Calls.size(), *windows.FailingCall + (7 - callOfClose));
  }
}

TEST(AccessDriverTest, SendsThreeRequestsForARead) {
  EmulatedWindows windows;
  windows.Memory.Map(0xFFFFFFF0, {1, 2, 3, 4, 5, 6, 7, 8});
  AccessDriver driver;
  Bytes buffer(4);
  EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 0);
  EXPECT_THAT(windows.Calls, IsEmpty());
  ASSERT_EQ(driver.Open(), 1);
  windows.Calls.clear();
  EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 4);
  EXPECT_EQ(buffer, Bytes({1, 2, 3, 4}));
  EXPECT_EQ(JoinLines(windows.Calls), R"(DeviceIoControl(5, 222018, FFFFFFF0, 4, 0, 0, 0)
DeviceIoControl(5, 222020, 4, 4, 0, 0, 0)
DeviceIoControl(5, 222040, 0, 0, "buffer", 4, 0)
)");
  // A driver that claims more than the buffer holds is believed up to the buffer.
  for (const auto& [reported, result] : {std::pair<DWORD, std::uint32_t>{3, 3}, {0, 0}, {5, 4}}) {
    windows.ReportedBytes = reported;
    EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), result);
  }
  for (std::size_t failing = 0; failing < 3; ++failing) {
    windows.Calls.clear();
    windows.FailingCall = failing;
    EXPECT_EQ(driver.ReadPhysical(0xFFFFFFF0, buffer), 0);
    EXPECT_EQ(windows.Calls.size(), failing + 1);
  }
}

}  // namespace
}  // namespace kestrel
