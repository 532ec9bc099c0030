#pragma once

#include <string>
#include <vector>

#include "catalog/structure_scan.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/walk_comparison.h"

namespace kestrel {

// Writes a line per structure, in table order: offset, type, length, handle, name, and a star where
// the report and the MIF document lose the structure or see another.
void ListStructures(const catalog::TableScan& scan, const WalkComparison& comparison,
                    Output& output);

// What a reader of the list should know besides, one line each: what the star means, and what
// NotesOnEnd tells.
std::vector<std::string> NotesOnList(const catalog::TableScan& scan,
                                     const WalkComparison& comparison);

// Where the structures end although the table does not, if they do, as one line.
std::vector<std::string> NotesOnEnd(const catalog::ScanEnd& end);

}  // namespace kestrel
