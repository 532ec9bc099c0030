#include "firmware/table_measure.h"

#include <algorithm>

#include "base/structure_header.h"
#include "model/table_walk.h"

namespace kestrel {

TableSize MeasureTable(std::span<const std::uint8_t> table, std::size_t limit,
                       EntryPointKind entryPoint) {
  TableSize size;
  TableWalk walk(table);
  while (const auto structure = walk.Next()) {
    if (structure->Type == 0 && structure->Length == 0) {
      continue;
    }
    // The walk passes over any number of zeros after a structure without strings; two are its own.
    std::size_t end = std::min(structure->Next, table.size());
    if (!structure->HasStrings) {
      end = std::min(end, structure->Start + structure->Length + 2);
    }
    if (end > limit) {
      break;
    }
    size.Bytes = end;
    ++size.Structures;
    size.LargestStructure = std::max(size.LargestStructure, end - structure->Start);
    size.HasEndOfTable = size.HasEndOfTable || structure->Type == kEndOfTable;
    if (size.HasEndOfTable && entryPoint == EntryPointKind::Bits64) {
      break;
    }
  }
  return size;
}

bool IsCut(const SmbiosTable& table) {
  const EntryPointFacts& entryPoint = table.EntryPoint;
  if (table.Bytes.size() >= entryPoint.TableLength) {
    return false;
  }
  return entryPoint.Kind != EntryPointKind::Bits64 ||
         !MeasureTable(table.Bytes, table.Bytes.size(), entryPoint.Kind).HasEndOfTable;
}

}  // namespace kestrel
