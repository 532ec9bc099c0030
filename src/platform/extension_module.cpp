#include "platform/extension_module.h"

namespace kestrel {

int AfxInitExtensionModule(ExtensionModule& module, HINSTANCE handle) {
  if (handle == nullptr || module.Handle != nullptr) {
    return 0;
  }
  module.Handle = handle;
  return 1;
}

void AfxTermExtensionModule(ExtensionModule& module) { module = {}; }

}  // namespace kestrel
