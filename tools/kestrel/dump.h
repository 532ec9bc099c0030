#pragma once

#include <string>

#include "model/smbios_table.h"

namespace kestrel {

// The bytes of a dump: the table's own entry point, naming offset 20h, and there the table. A table
// that came without an entry point gets one. Read as an image, a dump gives the same texts as the
// table.
std::string DumpOf(const SmbiosTable& table);

}  // namespace kestrel
