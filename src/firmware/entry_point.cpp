#include "firmware/entry_point.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "model/table_cursor.h"

namespace kestrel {

namespace {

constexpr std::array<std::uint8_t, 4> kAnchor32 = {'_', 'S', 'M', '_'};
constexpr std::array<std::uint8_t, 5> kAnchor64 = {'_', 'S', 'M', '3', '_'};
constexpr std::array<std::uint8_t, 5> kIntermediateAnchor = {'_', 'D', 'M', 'I', '_'};

constexpr std::size_t kSize64 = 24;

// Some firmware publishes a byte too few, which repeats the version.
constexpr std::size_t kShortestSize32 = 30;

// Offsets in an entry point. The second half of a 32-bit one has a checksum of its own.
constexpr std::size_t kChecksum32 = 0x04;
constexpr std::size_t kIntermediateStart = 0x10;
constexpr std::size_t kIntermediateChecksum32 = 0x15;
constexpr std::size_t kAddress32 = 0x18;
constexpr std::size_t kChecksum64 = 0x05;
constexpr std::size_t kAddress64 = 0x10;

bool StartsWith(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> start) {
  return bytes.size() >= start.size() && std::equal(start.begin(), start.end(), bytes.begin());
}

std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

// The byte that makes the sum of all 0.
std::uint8_t ChecksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(0U - Sum(bytes));
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
  facts.Bytes = OwnBytes(bytes, SMEntryPoint::kSize, record.GetEntryPointLength());
  facts.Version = {record.GetMajorVersion(), record.GetMinorVersion()};
  facts.TableAddress = record.GetTableAddress();
  facts.TableLength = record.GetTableLength();
  facts.StructureCount = record.GetStructureCount();
  facts.LargestStructure = record.GetMaxStructureSize();
  return facts;
}

EntryPointFacts Parse64(std::span<const std::uint8_t> bytes) {
  TableCursor cursor(bytes);
  cursor.MoveTo(0x06);
  EntryPointFacts facts;
  facts.Kind = EntryPointKind::Bits64;
  facts.Bytes = OwnBytes(bytes, kSize64, cursor.U8());
  facts.Version.Major = cursor.U8();
  facts.Version.Minor = cursor.U8();
  facts.DocRevision = cursor.U8();
  cursor.MoveTo(0x0C);
  facts.TableLength = cursor.U32();
  facts.TableAddress = cursor.U64();
  return facts;
}

}  // namespace

bool HasEntryPointAnchor(std::span<const std::uint8_t> bytes) {
  return StartsWith(bytes, kAnchor32) || StartsWith(bytes, kAnchor64);
}

std::optional<EntryPointFacts> ParseEntryPoint(std::span<const std::uint8_t> bytes) {
  if (StartsWith(bytes, kAnchor32) && bytes.size() >= kShortestSize32) {
    return Parse32(bytes);
  }
  if (StartsWith(bytes, kAnchor64) && bytes.size() >= kSize64) {
    return Parse64(bytes);
  }
  return std::nullopt;
}

std::vector<std::uint8_t> EntryPointBytes(const SMEntryPoint& record) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(SMEntryPoint::kSize);
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
  record.SetAnchor(kAnchor32);
  record.SetEntryPointLength(SMEntryPoint::kSize);
  record.SetMajorVersion(version.Major);
  record.SetMinorVersion(version.Minor);
  record.SetMaxStructureSize(UpToWord(size.LargestStructure));
  record.SetIntermediateAnchor(kIntermediateAnchor);
  record.SetTableLength(tableLength);
  record.SetTableAddress(tableAddress);
  record.SetStructureCount(UpToWord(size.Structures));
  record.SetBcdRevision(
      static_cast<std::uint8_t>((version.Major & 15U) << 4 | (version.Minor & 15U)));
  std::vector<std::uint8_t> bytes = EntryPointBytes(record);
  bytes[kIntermediateChecksum32] = ChecksumOf(std::span(bytes).subspan(kIntermediateStart));
  bytes[kChecksum32] = ChecksumOf(bytes);
  return bytes;
}

std::vector<std::uint8_t> Make64BitEntryPoint(SmbiosVersion version, std::uint64_t tableAddress,
                                              std::uint32_t tableLength) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(kSize64);
  AppendBytes(bytes, kAnchor64);
  AppendBytes(bytes,
              std::array<std::uint8_t, 7>{0, kSize64, version.Major, version.Minor, 0, 1, 0});
  AppendInteger(bytes, tableLength, 4);
  AppendInteger(bytes, tableAddress, 8);
  bytes[kChecksum64] = ChecksumOf(bytes);
  return bytes;
}

std::vector<std::uint8_t> WithTableAddress(const EntryPointFacts& entryPoint,
                                           std::uint32_t tableAddress) {
  const bool is64Bit = entryPoint.Kind == EntryPointKind::Bits64;
  std::vector<std::uint8_t> bytes = entryPoint.Bytes;
  const auto address = std::span(bytes).subspan(
      is64Bit ? kAddress64 : kAddress32, is64Bit ? sizeof(std::uint64_t) : sizeof(std::uint32_t));
  const std::uint8_t before = Sum(address);
  for (std::size_t index = 0; index < address.size(); ++index) {
    address[index] = static_cast<std::uint8_t>(index < 4 ? tableAddress >> (8 * index) : 0);
  }
  // In a 32-bit entry point the inner checksum makes up for the address, so the outer one
  // stays.
  std::uint8_t& checksum = bytes[is64Bit ? kChecksum64 : kIntermediateChecksum32];
  checksum = static_cast<std::uint8_t>(checksum + before - Sum(address));
  return bytes;
}

}  // namespace kestrel
