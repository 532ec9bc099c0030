#pragma once

#include "platform/win32.h"

namespace kestrel {

class CDynLinkLibrary;

// What a library that extends an application framework registers when a process attaches it. The
// calls are those that such a library makes, under their own names; there is no framework behind
// them, so that the library runs in any host.
struct ExtensionModule {
  // Null while the module is not initialised.
  HINSTANCE Handle = nullptr;
  const CDynLinkLibrary* Library = nullptr;
};

// Returns 0 for a module that has no handle or is initialised already.
int AfxInitExtensionModule(ExtensionModule& module, HINSTANCE handle);

// Undoes the initialisation, if there was one.
void AfxTermExtensionModule(ExtensionModule& module);

// Registers an initialised module, for as long as the library is loaded.
class CDynLinkLibrary {
 public:
  explicit CDynLinkLibrary(ExtensionModule& module) { module.Library = this; }
};

}  // namespace kestrel
