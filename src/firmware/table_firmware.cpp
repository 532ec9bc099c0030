#include "firmware/table_firmware.h"

#include <cstddef>
#include <utility>

#include "firmware/entry_point.h"
#include "firmware/entry_point_search.h"
#include "firmware/table_measure.h"

namespace kestrel {

namespace {

constexpr std::uint32_t kTableAddress = 0x100000;

SmbiosTable TableOf(SmbiosVersion version, std::vector<std::uint8_t> bytes) {
  SmbiosTable table;
  table.EntryPoint.Version = version;
  table.EntryPoint.TableLength = static_cast<std::uint32_t>(bytes.size());
  table.Bytes = std::move(bytes);
  return table;
}

}  // namespace

TableFirmware::TableFirmware(const SmbiosTable& table) {
  std::vector<std::uint8_t> bytes = table.Bytes;
  std::size_t length = table.EntryPoint.TableLength;
  const EntryPointKind kind = table.EntryPoint.Kind;
  if (kind == EntryPointKind::Bits64 || length > kLongestTable) {
    const std::size_t whole = MeasureTable(bytes, bytes.size(), kind).Bytes;
    length = MeasureTable(bytes, kLongestTable, kind).Bytes;
    Shortened = length < whole;
    bytes.resize(length);
    bytes.shrink_to_fit();
  }
  // The reader asks for address, length and version only, so the structures need not be counted.
  Memory.Map(kBiosAreaStart, MakeEntryPoint(table.EntryPoint.Version, kTableAddress,
                                            static_cast<std::uint16_t>(length), {}));
  Memory.Map(kTableAddress, std::move(bytes));
}

TableFirmware::TableFirmware(SmbiosVersion version, std::vector<std::uint8_t> table)
    : TableFirmware(TableOf(version, std::move(table))) {}

std::uint32_t TableFirmware::ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) {
  return Memory.Read(address, buffer);
}

}  // namespace kestrel
