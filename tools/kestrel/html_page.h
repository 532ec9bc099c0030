#pragma once

#include "base/smbios_table.h"
#include "catalog/faults.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/output.h"

namespace kestrel {

// Writes a page for a browser: the machine at a glance, with drawings, what is wrong with its
// table, and every structure in words. HTML5 in one file that asks for nothing else: no script, no
// fonts, no addresses. UTF-8; lines end in "\n" on every system. `scan` and `faults` are those of
// the table.
void WriteHtmlPage(const SmbiosTable& table, const catalog::TableScan& scan,
                   const catalog::FaultList& faults, Output& output);

}  // namespace kestrel
