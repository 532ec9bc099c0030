#include "model/table_walk.h"

#include <array>
#include <cstdint>

#include "model/smbios_reader.h"
#include "model/table_cursor.h"

namespace kestrel {

namespace {

using TypeReader = void (SMBiosReader::*)(TableCursor&);

struct DispatchRow {
  std::uint8_t Type;
  TypeReader Reader;
};

constexpr DispatchRow kDispatch[] = {
    {0, &SMBiosReader::ReadType0},
    {1, &SMBiosReader::ReadType1},
    {2, &SMBiosReader::ReadType2},
    {3, &SMBiosReader::ReadType3},
    {4, &SMBiosReader::ReadType4},
    {5, &SMBiosReader::ReadType5},
    {6, &SMBiosReader::ReadType6},
    {7, &SMBiosReader::ReadType7},
    {16, &SMBiosReader::ReadType16},
    {17, &SMBiosReader::ReadType17},
    {18, &SMBiosReader::ReadType18},
    {19, &SMBiosReader::ReadType19},
    {20, &SMBiosReader::ReadType20},
    {33, &SMBiosReader::ReadType33},
    {8, &SMBiosReader::ReadType8},
    {9, &SMBiosReader::ReadType9},
    {10, &SMBiosReader::ReadType10},
    {11, &SMBiosReader::ReadType11},
    {12, &SMBiosReader::ReadType12},
    {13, &SMBiosReader::ReadType13},
    {14, &SMBiosReader::ReadType14},
    {15, &SMBiosReader::ReadType15},
    {26, &SMBiosReader::ReadType26},
    {27, &SMBiosReader::ReadType27},
    {28, &SMBiosReader::ReadType28},
    {29, &SMBiosReader::ReadType29},
    {34, &SMBiosReader::ReadType34},
    {35, &SMBiosReader::ReadType35},
    {36, &SMBiosReader::ReadType36},
    {37, &SMBiosReader::ReadType37},
    {38, &SMBiosReader::ReadType38},
    {39, &SMBiosReader::ReadType39},
    {21, &SMBiosReader::ReadType21},
    {22, &SMBiosReader::ReadType22},
    {23, &SMBiosReader::ReadType23},
    {24, &SMBiosReader::ReadType24},
    {25, &SMBiosReader::ReadType25},
    {30, &SMBiosReader::ReadType30},
    {32, &SMBiosReader::ReadType32},
    {126, &SMBiosReader::ReadType126},
    {127, &SMBiosReader::ReadType127},
};

constexpr auto kReaderOfType = [] {
  std::array<TypeReader, 256> readers{};
  for (const DispatchRow& row : kDispatch) {
    readers[row.Type] = row.Reader;
  }
  return readers;
}();

void SkipStringSet(TableCursor& cursor) {
  if (cursor.Peek() == 0) {
    // An empty string set. Firmware pads with more zeros than the two that close it, so the whole
    // run goes.
    do {
      cursor.Skip(1);
    } while (!cursor.IsAtEnd() && cursor.Peek() == 0);
    return;
  }
  cursor.Skip(1);
  while (!cursor.IsPastEnd()) {
    if (cursor.Peek() == 0 && cursor.Peek(1) == 0) {
      cursor.Skip(2);
      return;
    }
    cursor.Skip(1);
  }
}

}  // namespace

void MoveToNextStructure(TableCursor& cursor, std::size_t structureStart) {
  cursor.MoveTo(structureStart + 1);
  const std::uint8_t length = cursor.U8();
  cursor.MoveTo(structureStart + length);
  SkipStringSet(cursor);
}

void SMBiosReader::WalkTable(std::span<const std::uint8_t> table) {
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    StructureStart = cursor.GetPosition();
    const TypeReader reader = kReaderOfType[cursor.U8()];
    if (reader != nullptr) {
      (this->*reader)(cursor);
    }
    MoveToNextStructure(cursor, StructureStart);
  }
}

}  // namespace kestrel
