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
    {0, &SMBiosReader::ReadType0},      // BIOS Information
    {1, &SMBiosReader::ReadType1},      // System Information
    {2, &SMBiosReader::ReadType2},      // Base Board Information
    {3, &SMBiosReader::ReadType3},      // System Enclosure or Chassis
    {4, &SMBiosReader::ReadType4},      // Processor Information
    {5, &SMBiosReader::ReadType5},      // Memory Controller Information
    {6, &SMBiosReader::ReadType6},      // Memory Module Information
    {7, &SMBiosReader::ReadType7},      // Cache Information
    {8, &SMBiosReader::ReadType8},      // Port Connector Information
    {9, &SMBiosReader::ReadType9},      // System Slots
    {10, &SMBiosReader::ReadType10},    // On Board Devices Information
    {11, &SMBiosReader::ReadType11},    // OEM Strings
    {12, &SMBiosReader::ReadType12},    // System Configuration Options
    {13, &SMBiosReader::ReadType13},    // BIOS Language Information
    {14, &SMBiosReader::ReadType14},    // Group Associations
    {15, &SMBiosReader::ReadType15},    // System Event Log
    {16, &SMBiosReader::ReadType16},    // Physical Memory Array
    {17, &SMBiosReader::ReadType17},    // Memory Device
    {18, &SMBiosReader::ReadType18},    // 32-bit Memory Error Information
    {19, &SMBiosReader::ReadType19},    // Memory Array Mapped Address
    {20, &SMBiosReader::ReadType20},    // Memory Device Mapped Address
    {21, &SMBiosReader::ReadType21},    // Built-in Pointing Device
    {22, &SMBiosReader::ReadType22},    // Portable Battery
    {23, &SMBiosReader::ReadType23},    // System Reset
    {24, &SMBiosReader::ReadType24},    // Hardware Security
    {25, &SMBiosReader::ReadType25},    // System Power Controls
    {26, &SMBiosReader::ReadType26},    // Voltage Probe
    {27, &SMBiosReader::ReadType27},    // Cooling Device
    {28, &SMBiosReader::ReadType28},    // Temperature Probe
    {29, &SMBiosReader::ReadType29},    // Electrical Current Probe
    {30, &SMBiosReader::ReadType30},    // Out-of-Band Remote Access
    {32, &SMBiosReader::ReadType32},    // System Boot Information
    {33, &SMBiosReader::ReadType33},    // 64-bit Memory Error Information
    {34, &SMBiosReader::ReadType34},    // Management Device
    {35, &SMBiosReader::ReadType35},    // Management Device Component
    {36, &SMBiosReader::ReadType36},    // Management Device Threshold Data
    {37, &SMBiosReader::ReadType37},    // Memory Channel
    {38, &SMBiosReader::ReadType38},    // IPMI Device Information
    {39, &SMBiosReader::ReadType39},    // System Power Supply
    {126, &SMBiosReader::ReadType126},  // Inactive
    {127, &SMBiosReader::ReadType127},  // End-of-Table
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
  // Each string ends in a zero; the one behind the last string's closes the set.
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
  const auto earlier = static_cast<std::ptrdiff_t>(Objects.size());
  try {
    AppendObjects(table);
  } catch (...) {
    Objects.erase(Objects.begin() + earlier, Objects.end());
    throw;
  }
}

void SMBiosReader::AppendObjects(std::span<const std::uint8_t> table) {
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
