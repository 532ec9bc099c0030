#include "model/table_walk.h"

#include <array>
#include <cstdint>
#include <iterator>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

using TypeReader = void (SMBiosReader::*)(TableCursor&);

constexpr auto kReaderOfType = [] {
  std::array<TypeReader, 256> readers{};
#define KESTREL_STRUCTURE_TYPE(number) readers[number] = &SMBiosReader::ReadType##number;
#include "model/structure_types.def"
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

void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart) {
  cursor.MoveTo(structureStart + 1);
  const std::uint8_t length = cursor.U8();
  cursor.MoveTo(structureStart + length);
  SkipStringSet(cursor);
}

void SMBiosReader::WalkTable(std::span<const std::uint8_t> table) {
  SMObjList walked;
  Walked = &walked;
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    StructureStart = cursor.GetPosition();
    const TypeReader reader = kReaderOfType[cursor.U8()];
    if (reader != nullptr) {
      (this->*reader)(cursor);
    }
    MoveToNextStructure(cursor, StructureStart);
  }
  Objects.insert(Objects.end(), std::make_move_iterator(walked.begin()),
                 std::make_move_iterator(walked.end()));
  Walked = nullptr;
}

}  // namespace kestrel
