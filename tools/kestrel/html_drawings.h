#pragma once

#include "catalog/structure_scan.h"
#include "overview/overview.h"
#include "tools/kestrel/handle_names.h"
#include "tools/kestrel/html_writer.h"

namespace kestrel {

// Sections of the page with a drawing, each with a text that says the same. A section is left out
// where the table has nothing for it.

// The slots for memory in their places, each filled as far as its module is large.
void DrawMemory(HtmlWriter& html, const Overview& overview);

// The sockets for processors, with cores and caches.
void DrawProcessors(HtmlWriter& html, const Overview& overview);

// Which memory answers at which addresses, from 0 up.
void DrawAddressMap(HtmlWriter& html, const catalog::TableScan& scan, HandleNames& names);

}  // namespace kestrel
