#include "firmware/table_measure.h"

#include <algorithm>

#include "base/structure_header.h"
#include "base/table_cursor.h"
#include "model/table_walk.h"

namespace kestrel {

TableSize MeasureTable(std::span<const std::uint8_t> table, std::size_t limit,
                       bool stopAtEndOfTable) {
  TableSize size;
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    const std::size_t start = cursor.GetPosition();
    const std::uint8_t type = cursor.U8();
    const std::uint8_t length = cursor.U8();
    cursor.MoveTo(start + length);
    const bool hasStrings = cursor.Peek() != 0;
    MoveToNextStructure(cursor, start);
    if (type == 0 && length == 0) {
      continue;
    }
    // The walk passes over any number of zeros after a structure without strings; two are its own.
    std::size_t end = std::min(cursor.GetPosition(), table.size());
    if (!hasStrings) {
      end = std::min(end, start + length + 2);
    }
    if (end > limit) {
      break;
    }
    size.Bytes = end;
    ++size.Structures;
    size.LargestStructure = std::max(size.LargestStructure, end - start);
    size.HasEndOfTable = size.HasEndOfTable || type == kEndOfTable;
    if (size.HasEndOfTable && stopAtEndOfTable) {
      break;
    }
  }
  return size;
}

bool IsCut(const SmbiosTable& table) {
  if (table.Bytes.size() >= table.EntryPoint.TableLength) {
    return false;
  }
  return table.EntryPoint.Kind != EntryPointKind::Bits64 ||
         !MeasureTable(table.Bytes, table.Bytes.size(), true).HasEndOfTable;
}

}  // namespace kestrel
