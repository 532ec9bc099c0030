#include "firmware/table_firmware.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include "firmware/entry_point_search.h"
#include "model/table_cursor.h"
#include "model/table_walk.h"

namespace kestrel {

namespace {

constexpr std::uint32_t kTableAddress = 0x100000;

// The bytes of a 64-bit entry point.
constexpr std::size_t kEntryPoint64Size = 24;

// The part of a 32-bit entry point that has a checksum of its own.
constexpr std::size_t kIntermediateStart = 16;
constexpr std::size_t kChecksumOffset = 4;
constexpr std::size_t kIntermediateChecksumOffset = 21;

constexpr std::string_view kAnchor32 = "_SM_";
constexpr std::string_view kAnchor64 = "_SM3_";

bool StartsWith(std::span<const std::uint8_t> bytes, std::string_view text) {
  return bytes.size() >= text.size() && std::equal(text.begin(), text.end(), bytes.begin());
}

// The byte that makes the sum of all 0.
std::uint8_t ChecksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(0U - std::accumulate(bytes.begin(), bytes.end(), 0U));
}

void AppendText(std::vector<std::uint8_t>& bytes, std::string_view text) {
  for (const char character : text) {
    bytes.push_back(static_cast<std::uint8_t>(character));
  }
}

void AppendInteger(std::vector<std::uint8_t>& bytes, std::uint64_t value, std::size_t width) {
  for (std::size_t index = 0; index < width; ++index) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
  }
}

struct TableSize {
  // Behind the last structure that ends at or before the limit.
  std::size_t Bytes = 0;
  std::uint16_t Structures = 0;
  std::uint16_t LargestStructure = 0;
  bool HasEndOfTable = false;
};

// Measures structures, one cut by the end of the table among them, up to `limit`, or up to the
// first End-of-Table structure if asked to.
TableSize MeasureTable(std::span<const std::uint8_t> table, std::size_t limit,
                       bool stopAtEndOfTable) {
  TableSize size;
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    const std::size_t start = cursor.GetPosition();
    const std::uint8_t type = cursor.Peek();
    MoveToNextStructure(cursor, start);
    const std::size_t end = std::min(cursor.GetPosition(), table.size());
    if (end > limit) {
      break;
    }
    size.Bytes = end;
    ++size.Structures;
    size.LargestStructure = std::max(
        size.LargestStructure, static_cast<std::uint16_t>(std::min(end - start, kLongestTable)));
    if (type == kEndOfTable && stopAtEndOfTable) {
      size.HasEndOfTable = true;
      break;
    }
  }
  return size;
}

}  // namespace

EntryPointParse ParseEntryPoint(std::span<const std::uint8_t> bytes, EntryPointFacts& facts) {
  TableCursor cursor(bytes);
  if (StartsWith(bytes, kAnchor64)) {
    if (bytes.size() < kEntryPoint64Size) {
      return EntryPointParse::Cut;
    }
    facts.Is64Bit = true;
    facts.Size = kEntryPoint64Size;
    cursor.MoveTo(0x07);
    facts.Version.Major = cursor.U8();
    facts.Version.Minor = cursor.U8();
    cursor.MoveTo(0x0C);
    facts.TableLength = cursor.U32();
    facts.TableAddress = cursor.U64();
    return EntryPointParse::Parsed;
  }
  if (!StartsWith(bytes, kAnchor32)) {
    return EntryPointParse::NotThere;
  }
  if (bytes.size() < SMEntryPoint::kSize) {
    return EntryPointParse::Cut;
  }
  SMEntryPoint record;
  record.Parse(cursor);
  facts.Is64Bit = false;
  facts.Size = SMEntryPoint::kSize;
  facts.Version = {record.GetMajorVersion(), record.GetMinorVersion()};
  facts.TableLength = record.GetTableLength();
  facts.TableAddress = record.GetTableAddress();
  return EntryPointParse::Parsed;
}

std::vector<std::uint8_t> MakeEntryPoint(SmbiosVersion version, std::uint32_t tableAddress,
                                         std::uint16_t tableLength,
                                         std::span<const std::uint8_t> table) {
  const TableSize size = MeasureTable(table, table.size(), false);
  std::vector<std::uint8_t> bytes;
  AppendText(bytes, kAnchor32);
  bytes.push_back(0);
  bytes.push_back(SMEntryPoint::kSize);
  bytes.push_back(version.Major);
  bytes.push_back(version.Minor);
  AppendInteger(bytes, size.LargestStructure, 2);
  AppendInteger(bytes, 0, 6);  // entry point revision and formatted area
  AppendText(bytes, "_DMI_");
  bytes.push_back(0);
  AppendInteger(bytes, tableLength, 2);
  AppendInteger(bytes, tableAddress, 4);
  AppendInteger(bytes, size.Structures, 2);
  bytes.push_back(static_cast<std::uint8_t>((version.Major & 15U) << 4 | (version.Minor & 15U)));
  bytes[kIntermediateChecksumOffset] = ChecksumOf(std::span(bytes).subspan(kIntermediateStart));
  bytes[kChecksumOffset] = ChecksumOf(bytes);
  return bytes;
}

TableFirmware::TableFirmware(SmbiosVersion version, std::vector<std::uint8_t> table) {
  const auto length = static_cast<std::uint32_t>(table.size());
  EntryPointFacts facts;
  facts.Version = version;
  facts.TableLength = length;
  Present(facts, std::move(table));
}

void TableFirmware::Present(const EntryPointFacts& facts, std::vector<std::uint8_t> table) {
  std::size_t length = facts.TableLength;
  Shortened = false;
  Cut = false;
  if (facts.Is64Bit || length > kLongestTable) {
    // A 64-bit entry point announces no more than a bound; the table's own end says how long it is.
    const TableSize whole = MeasureTable(table, table.size(), facts.Is64Bit);
    const TableSize fitting = MeasureTable(table, kLongestTable, facts.Is64Bit);
    length = fitting.Bytes;
    Shortened = fitting.Bytes < whole.Bytes;
    Cut = facts.Is64Bit && !whole.HasEndOfTable && table.size() < facts.TableLength;
    table.resize(length);
  }
  auto entryPoint =
      MakeEntryPoint(facts.Version, kTableAddress, static_cast<std::uint16_t>(length), table);
  SparseMemory memory;
  memory.Map(kBiosAreaStart, std::move(entryPoint));
  memory.Map(kTableAddress, std::move(table));
  Memory = std::move(memory);
}

std::uint32_t TableFirmware::ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) {
  return Memory.Read(address, buffer);
}

}  // namespace kestrel
