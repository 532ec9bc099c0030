#include "catalog/structure_scan.h"

#include <algorithm>

#include "base/table_cursor.h"

namespace kestrel::catalog {

namespace {

constexpr std::size_t kUsualStructureSize = 32;

bool IsZero(std::uint8_t byte) { return byte == 0; }

// Places the cursor on the zero that closes the string set at its position.
void SkipStrings(TableCursor& cursor) {
  if (cursor.Peek(0) == 0 && cursor.Peek(1) == 0) {
    // Without strings, both zeros of the pair close the set.
    cursor.Skip(1);
    return;
  }
  do {
    cursor.SkipString();
  } while (cursor.Peek() != 0);
}

}  // namespace

std::size_t Structure::GetEnd() const {
  return Offset + Formatted.size() + StringSet.size() + (IsClosed ? 1 : 0);
}

std::vector<std::string_view> Structure::GetStrings() const {
  std::vector<std::string_view> strings;
  TableCursor cursor(StringSet);
  // A set without strings is a single zero.
  if (StringSet.size() == 1 && cursor.Peek() == 0) {
    return strings;
  }
  while (!cursor.IsAtEnd()) {
    strings.push_back(cursor.String());
    cursor.SkipString();
  }
  return strings;
}

TableScan ScanTable(std::span<const std::uint8_t> table, EndRule rule) {
  TableScan scan;
  // Most tables have no more structures than this, so that their list is one allocation.
  scan.Structures.reserve(table.size() / kUsualStructureSize);
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    Structure structure;
    structure.Offset = cursor.GetPosition();
    structure.Type = cursor.U8();
    const std::size_t length = cursor.U8();
    structure.Handle = cursor.U16();
    const auto rest = table.subspan(structure.Offset);
    if (length < kHeaderSize || length > rest.size()) {
      const bool onlyZeros = std::all_of(rest.begin(), rest.end(), IsZero);
      if (!onlyZeros) {
        scan.Stop = length < kHeaderSize && rest.size() >= kHeaderSize ? ScanStop::LengthTooSmall
                                                                       : ScanStop::PastEnd;
      }
      break;
    }
    cursor.MoveTo(structure.Offset + length);
    SkipStrings(cursor);
    const std::size_t closing = cursor.GetPosition();
    structure.IsClosed = closing < table.size();
    structure.Formatted = rest.first(length);
    structure.StringSet =
        rest.subspan(length, std::min(closing, table.size()) - structure.Offset - length);
    cursor.MoveTo(structure.GetEnd());
    scan.End = structure.GetEnd();
    scan.Structures.push_back(structure);
    if ((rule.AfterEndOfTable && structure.Type == kEndOfTable) ||
        scan.Structures.size() == rule.StructureCount) {
      break;
    }
  }
  return scan;
}

TableScan ScanTable(const SmbiosTable& table) {
  const EntryPointFacts& entryPoint = table.EntryPoint;
  return ScanTable(table.Bytes, {.AfterEndOfTable = entryPoint.Kind == EntryPointKind::Bits64,
                                 .StructureCount = entryPoint.StructureCount});
}

}  // namespace kestrel::catalog
