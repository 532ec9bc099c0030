#pragma once

#include <string>

#include "base/smbios_table.h"

namespace kestrel {

// The bytes of a dump: the table's entry point with the table address 20h, and the table at that
// offset. A table without an entry point gets one. Read as an image, a dump yields the same texts
// as the table.
std::string DumpOf(const SmbiosTable& table);

}  // namespace kestrel
