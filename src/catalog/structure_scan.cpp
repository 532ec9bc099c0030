#include "catalog/structure_scan.h"

#include <algorithm>

#include "base/table_cursor.h"

namespace kestrel::catalog {

namespace {

// A header, and the pair of zeros that closes an empty string set.
constexpr std::size_t kLeastStructureSize = kHeaderSize + 2;

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

TableScan ScanAll(StructureScanner scanner, std::size_t size) {
  TableScan scan;
  // No table has more, so the list is never copied into a larger one. That saves a tenth of the
  // memory that the check of 16 MiB of tiny structures takes; room that is not used costs none.
  scan.Structures.reserve(size / kLeastStructureSize + 1);
  while (const auto structure = scanner.Next()) {
    scan.Structures.push_back(*structure);
  }
  static_cast<ScanEnd&>(scan) = scanner.GetEnd();
  return scan;
}

}  // namespace

std::size_t Structure::GetEnd() const {
  return Offset + Formatted.size() + StringSet.size() + (IsClosed ? 1 : 0);
}

bool Structure::HasStrings() const {
  // A set without strings is a single zero.
  return !StringSet.empty() && (StringSet.size() != 1 || TableCursor(StringSet).Peek() != 0);
}

std::vector<std::string_view> Structure::GetStrings() const {
  std::vector<std::string_view> strings;
  ForEachString([&strings](std::string_view text) { strings.push_back(text); });
  return strings;
}

void Structure::ForEachString(const std::function<void(std::string_view)>& take) const {
  if (!HasStrings()) {
    return;
  }
  TableCursor cursor(StringSet);
  while (!cursor.IsAtEnd()) {
    take(cursor.String());
    cursor.SkipString();
  }
}

std::string_view Structure::GetString(std::uint64_t number) const {
  TableCursor cursor(StringSet);
  for (std::uint64_t before = 1; before < number && !cursor.IsAtEnd(); ++before) {
    cursor.SkipString();
  }
  return number != 0 ? cursor.String() : std::string_view();
}

StructureScanner::StructureScanner(const SmbiosTable& table)
    : StructureScanner(table.Bytes,
                       {.AfterEndOfTable = table.EntryPoint.Kind == EntryPointKind::Bits64,
                        .StructureCount = table.EntryPoint.StructureCount}) {}

bool StructureScanner::IsAtEnd() const {
  return End.End >= Table.size() || End.Stop != ScanStop::Complete ||
         (Count != 0 && Count == Rule.StructureCount) ||
         (Rule.AfterEndOfTable && LastType == kEndOfTable);
}

std::optional<Structure> StructureScanner::Next() {
  if (IsAtEnd()) {
    return std::nullopt;
  }
  TableCursor cursor(Table);
  cursor.MoveTo(End.End);
  Structure structure;
  structure.Offset = End.End;
  structure.Type = cursor.U8();
  const std::size_t length = cursor.U8();
  structure.Handle = cursor.U16();
  const auto rest = Table.subspan(structure.Offset);
  if (length < kHeaderSize || length > rest.size()) {
    const bool onlyZeros = std::all_of(rest.begin(), rest.end(), IsZero);
    if (!onlyZeros) {
      End.Stop = length < kHeaderSize && rest.size() >= kHeaderSize ? ScanStop::LengthTooSmall
                                                                    : ScanStop::PastEnd;
    }
    return std::nullopt;
  }
  cursor.MoveTo(structure.Offset + length);
  SkipStrings(cursor);
  const std::size_t closing = cursor.GetPosition();
  structure.IsClosed = closing < Table.size();
  structure.Formatted = rest.first(length);
  structure.StringSet =
      rest.subspan(length, std::min(closing, Table.size()) - structure.Offset - length);
  End.End = structure.GetEnd();
  LastType = structure.Type;
  ++Count;
  return structure;
}

TableScan ScanTable(std::span<const std::uint8_t> table, EndRule rule) {
  return ScanAll(StructureScanner(table, rule), table.size());
}

TableScan ScanTable(const SmbiosTable& table) {
  return ScanAll(StructureScanner(table), table.Bytes.size());
}

}  // namespace kestrel::catalog
