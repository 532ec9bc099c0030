#include "firmware/entry_point.h"

#include <algorithm>
#include <array>

#include "base/entry_point_layout.h"
#include "base/table_cursor.h"

namespace kestrel {

namespace {

std::span<const std::uint8_t> BytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// The byte that makes the sum of all 0.
std::uint8_t ChecksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(0U - ByteSum(bytes));
}

void AppendInteger(std::vector<std::uint8_t>& bytes, std::uint64_t value, std::size_t width) {
  for (std::size_t index = 0; index < width; ++index) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
  }
}

void AppendBytes(std::vector<std::uint8_t>& bytes, std::span<const std::uint8_t> more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

std::uint16_t UpToWord(std::size_t value) {
  return static_cast<std::uint16_t>(std::min<std::size_t>(value, 0xFFFF));
}

// The bytes that the entry point says it takes, at least those of its layout.
std::vector<std::uint8_t> OwnBytes(std::span<const std::uint8_t> bytes, std::size_t layout,
                                   std::size_t announced) {
  const std::size_t size = std::clamp(announced, layout, kLargestEntryPoint);
  const auto own = bytes.first(std::min(size, bytes.size()));
  return {own.begin(), own.end()};
}

EntryPointFacts Parse32(std::span<const std::uint8_t> bytes) {
  TableCursor cursor(bytes);
  SMEntryPoint record;
  record.Parse(cursor);
  EntryPointFacts facts;
  facts.Kind = EntryPointKind::Bits32;
  facts.Bytes = OwnBytes(bytes, entry_point32::kSize, record.GetEntryPointLength());
  if (facts.Bytes.size() == entry_point32::kShortestSize) {
    // The kernel publishes as many bytes as the length says, after it has summed one more.
    facts.Bytes.push_back(
        ChecksumOf(std::span(facts.Bytes).subspan(entry_point32::kIntermediateStart)));
  }
  facts.Version = {record.GetMajorVersion(), record.GetMinorVersion()};
  facts.TableAddress = record.GetTableAddress();
  facts.TableLength = record.GetTableLength();
  facts.StructureCount = record.GetStructureCount();
  facts.LargestStructure = record.GetMaxStructureSize();
  return facts;
}

EntryPointFacts Parse64(std::span<const std::uint8_t> bytes) {
  TableCursor cursor(bytes);
  cursor.MoveTo(entry_point64::kLength);
  EntryPointFacts facts;
  facts.Kind = EntryPointKind::Bits64;
  facts.Bytes = OwnBytes(bytes, entry_point64::kSize, cursor.U8());
  facts.Version.Major = cursor.U8();
  facts.Version.Minor = cursor.U8();
  cursor.MoveTo(entry_point64::kTableLength);
  facts.TableLength = cursor.U32();
  facts.TableAddress = cursor.U64();
  return facts;
}

}  // namespace

bool HasEntryPointAnchor(std::span<const std::uint8_t> bytes) {
  return StartsWith(bytes, entry_point32::kAnchor) || StartsWith(bytes, entry_point64::kAnchor);
}

std::optional<EntryPointFacts> ParseEntryPoint(std::span<const std::uint8_t> bytes) {
  if (StartsWith(bytes, entry_point32::kAnchor) && bytes.size() >= entry_point32::kShortestSize) {
    return Parse32(bytes);
  }
  if (StartsWith(bytes, entry_point64::kAnchor) && bytes.size() >= entry_point64::kSize) {
    return Parse64(bytes);
  }
  return std::nullopt;
}

std::vector<std::uint8_t> EntryPointBytes(const SMEntryPoint& record) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(entry_point32::kSize);
  AppendBytes(bytes, record.GetAnchor());
  bytes.push_back(record.GetChecksum());
  bytes.push_back(record.GetEntryPointLength());
  bytes.push_back(record.GetMajorVersion());
  bytes.push_back(record.GetMinorVersion());
  AppendInteger(bytes, record.GetMaxStructureSize(), 2);
  bytes.push_back(record.GetEntryPointRevision());
  AppendBytes(bytes, record.GetFormattedArea());
  AppendBytes(bytes, record.GetIntermediateAnchor());
  bytes.push_back(record.GetIntermediateChecksum());
  AppendInteger(bytes, record.GetTableLength(), 2);
  AppendInteger(bytes, record.GetTableAddress(), 4);
  AppendInteger(bytes, record.GetStructureCount(), 2);
  bytes.push_back(record.GetBcdRevision());
  return bytes;
}

std::vector<std::uint8_t> MakeEntryPoint(SmbiosVersion version, std::uint32_t tableAddress,
                                         std::uint16_t tableLength, const TableSize& size) {
  SMEntryPoint record;
  record.SetAnchor(BytesOf(entry_point32::kAnchor));
  record.SetEntryPointLength(entry_point32::kSize);
  record.SetMajorVersion(version.Major);
  record.SetMinorVersion(version.Minor);
  record.SetMaxStructureSize(UpToWord(size.LargestStructure));
  record.SetIntermediateAnchor(BytesOf(entry_point32::kIntermediateAnchor));
  record.SetTableLength(tableLength);
  record.SetTableAddress(tableAddress);
  record.SetStructureCount(UpToWord(size.Structures));
  record.SetBcdRevision(
      static_cast<std::uint8_t>((version.Major & 15U) << 4 | (version.Minor & 15U)));
  std::vector<std::uint8_t> bytes = EntryPointBytes(record);
  bytes[entry_point32::kIntermediateChecksum] =
      ChecksumOf(std::span(bytes).subspan(entry_point32::kIntermediateStart));
  bytes[entry_point32::kChecksum] = ChecksumOf(bytes);
  return bytes;
}

std::vector<std::uint8_t> Make64BitEntryPoint(SmbiosVersion version, std::uint64_t tableAddress,
                                              std::uint32_t tableLength) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(entry_point64::kSize);
  AppendBytes(bytes, BytesOf(entry_point64::kAnchor));
  AppendBytes(bytes, std::array<std::uint8_t, 7>{0, entry_point64::kSize, version.Major,
                                                 version.Minor, 0, 1, 0});
  AppendInteger(bytes, tableLength, 4);
  AppendInteger(bytes, tableAddress, 8);
  bytes[entry_point64::kChecksum] = ChecksumOf(bytes);
  return bytes;
}

std::vector<std::uint8_t> WithTableAddress(const EntryPointFacts& entryPoint,
                                           std::uint32_t tableAddress) {
  const bool is64Bit = entryPoint.Kind == EntryPointKind::Bits64;
  std::vector<std::uint8_t> bytes = entryPoint.Bytes;
  const auto address = std::span(bytes).subspan(
      is64Bit ? entry_point64::kTableAddress : entry_point32::kTableAddress,
      is64Bit ? sizeof(std::uint64_t) : sizeof(std::uint32_t));
  const std::uint8_t before = ByteSum(address);
  for (std::size_t index = 0; index < address.size(); ++index) {
    address[index] = static_cast<std::uint8_t>(index < 4 ? tableAddress >> (8 * index) : 0);
  }
  // In a 32-bit entry point the inner checksum makes up for the address, so the outer one
  // stays.
  std::uint8_t& checksum =
      bytes[is64Bit ? entry_point64::kChecksum : entry_point32::kIntermediateChecksum];
  checksum = static_cast<std::uint8_t>(checksum + before - ByteSum(address));
  return bytes;
}

}  // namespace kestrel
