#include "model/table_walk.h"

#include <array>
#include <iterator>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

using TypeReader = void (SMBiosReader::*)(TableCursor&);

constexpr auto kReaderOfType = [] {
  std::array<TypeReader, 256> readers{};
#define KESTREL_STRUCTURE_TYPE(number) readers[number] = &SMBiosReader::ReadType##number;
#include "model/type_readers.def"
#undef KESTREL_STRUCTURE_TYPE
  return readers;
}();

void SkipStringSet(TableCursor& cursor) {
  if (cursor.Peek() == 0) {
    // An empty string set. Firmware pads it with more zeros than the two that close it, so the
    // whole run is skipped.
    do {
      cursor.Skip(1);
    } while (!cursor.IsAtEnd() && cursor.Peek() == 0);
    return;
  }
  // Each string ends with a zero, and one more zero closes the set.
  do {
    cursor.SkipString();
  } while (cursor.Peek() != 0);
  cursor.Skip(1);
}

}  // namespace

WalkedStructure WalkedStructureAt(std::span<const std::uint8_t> table, std::size_t start) {
  TableCursor cursor(table);
  cursor.MoveTo(start);
  const std::uint8_t type = cursor.U8();
  const std::uint8_t length = cursor.U8();
  cursor.MoveTo(start + length);
  const bool hasStrings = cursor.Peek() != 0;
  SkipStringSet(cursor);
  return {start, type, length, hasStrings, cursor.GetPosition()};
}

std::optional<WalkedStructure> TableWalk::Next() {
  if (Start >= Table.size()) {
    return std::nullopt;
  }
  const WalkedStructure structure = WalkedStructureAt(Table, Start);
  Start = structure.Next;
  return structure;
}

void SMBiosReader::WalkTable(std::span<const std::uint8_t> table) {
  // The objects go to another reader first: where memory runs out, this one stays as it was.
  SMBiosReader walker;
  walker.EntryPoint = EntryPoint;
  TableCursor cursor(table);
  TableWalk walk(table);
  while (const auto structure = walk.Next()) {
    const TypeReader reader = kReaderOfType[structure->Type];
    if (reader != nullptr) {
      cursor.MoveTo(structure->Start + 1);
      (walker.*reader)(cursor);
    }
  }
  Objects.insert(Objects.end(), std::make_move_iterator(walker.Objects.begin()),
                 std::make_move_iterator(walker.Objects.end()));
}

}  // namespace kestrel
