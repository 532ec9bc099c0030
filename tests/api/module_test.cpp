#include <gmock/gmock.h>

#include "kestrel.h"
#include "tests/support/emulated_windows.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

namespace kestrel {
namespace {

const auto kModule = reinterpret_cast<HINSTANCE>(&DllMain);

TEST(ModuleTest, LoadsOnlyWhereItCanRegister) {
  EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr), 0);
  EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_DETACH, nullptr), 1);
  EXPECT_EQ(DllMain(kModule, DLL_PROCESS_ATTACH, nullptr), 1);
  EXPECT_EQ(DllMain(kModule, DLL_PROCESS_ATTACH, nullptr), 0);
  EXPECT_EQ(DllMain(kModule, DLL_PROCESS_DETACH, nullptr), 1);
  EXPECT_EQ(DllMain(kModule, DLL_PROCESS_ATTACH, nullptr), 1);
  EXPECT_EQ(DllMain(kModule, DLL_PROCESS_DETACH, nullptr), 1);
}

TEST(ModuleTest, LeavesTheReaderToTheHost) {
  EmulatedWindows windows;
  DllMain(kModule, DLL_PROCESS_ATTACH, nullptr);
  EXPECT_EQ(CloseSMBios(), 0);
  EXPECT_EQ(OpenSMBios(), 1);
  const auto calls = windows.Calls;
  DllMain(kModule, DLL_PROCESS_DETACH, nullptr);
  EXPECT_EQ(windows.Calls, calls);
  EXPECT_EQ(CloseSMBios(), 1);
}

}  // namespace
}  // namespace kestrel
