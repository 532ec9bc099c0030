#pragma once

#include <string>

#include "catalog/faults.h"
#include "tools/kestrel/walk_comparison.h"

namespace kestrel {

// Adds where the library's walk differs from the scan: as remarks, since the pinned texts are at
// fault and not the table.
void AddWalkFaults(catalog::FaultList& faults, const WalkComparison& comparison);

// A line per fault: offset, type and name, in how many more places, "error" or "remark", what is
// wrong. Lines end with "\r\n".
std::string ListFaults(const catalog::FaultList& faults);

}  // namespace kestrel
