#pragma once

#include <string>

#include "tools/kestrel/source.h"

namespace kestrel {

// The bytes of a dump of the source: an entry point, then the table at offset 20h, as the entry
// point says. Read as an image, a dump gives the same texts as its source.
std::string MakeDump(const OpenedSource& source);

}  // namespace kestrel
