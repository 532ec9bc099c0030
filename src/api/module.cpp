#include <optional>

#include "platform/extension_module.h"

namespace {

kestrel::ExtensionModule extensionModule;
std::optional<kestrel::CDynLinkLibrary> dynLinkLibrary;

}  // namespace

// A process in which the library cannot register itself does not get it loaded. The reader has no
// part in this: OpenSMBios and CloseSMBios create and destroy it.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (kestrel::AfxInitExtensionModule(extensionModule, module) == 0) {
      return FALSE;
    }
    dynLinkLibrary.emplace(extensionModule);
  } else if (reason == DLL_PROCESS_DETACH) {
    kestrel::AfxTermExtensionModule(extensionModule);
  }
  return TRUE;
}
