#pragma once

#include "base/smbios_table.h"

namespace kestrel::catalog {

// The version of the standard that firmware means by the one it announces: 2.3 by 2.31
// and 2.33, 2.6 by 2.51. None of these three was ever published. Everything that depends on the
// version asks for this one.
constexpr SmbiosVersion MeantVersion(SmbiosVersion announced) {
  if (announced == SmbiosVersion{2, 31} || announced == SmbiosVersion{2, 33}) {
    return {2, 3};
  }
  return announced == SmbiosVersion{2, 51} ? SmbiosVersion{2, 6} : announced;
}

}  // namespace kestrel::catalog
