#include "catalog/faults.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

#include "base/entry_point_layout.h"
#include "base/structure_header.h"
#include "base/table_cursor.h"
#include "base/text.h"
#include "catalog/meant_version.h"
#include "catalog/type_catalog.h"

namespace kestrel::catalog {

namespace {

// Handles from here on are kept for other uses, of which two stand in fields that name nothing.
constexpr std::uint16_t kFirstReservedHandle = 0xFF00;
constexpr std::uint16_t kNoErrorInformation = 0xFFFE;
constexpr std::uint16_t kNoHandle = 0xFFFF;

// Cache Information and System Slots are asked for only where there is a cache or a slot.
constexpr std::uint8_t kRequiredTypes[] = {0, 1, 3, 4, 16, 17, 19, 32};

constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

// A number as people write it in hexadecimal.
std::string HexOf(std::uint64_t value, std::size_t width) { return Join({Hex(value, width), "h"}); }

bool IsAtLeast(SmbiosVersion version, std::uint8_t major, std::uint8_t minor) {
  return version.Major > major || (version.Major == major && version.Minor >= minor);
}

std::string TextOf(SmbiosVersion version) {
  return Join({Decimal(version.Major), ".", Decimal(version.Minor)});
}

std::string NameOf(std::uint8_t type) {
  const std::string_view name = GetTypeName(type);
  return Join({"type ", Decimal(type), name.empty() ? "" : " (", name, name.empty() ? "" : ")"});
}

FaultPlace PlaceOf(const Structure& structure) {
  return {structure.Offset, structure.Type, structure.Handle};
}

bool IsEnd(const Structure& structure) { return structure.Type == kEndOfTable; }

// How many strings the structure has, without a list of them.
std::size_t CountStrings(const Structure& structure) {
  const auto set = structure.StringSet;
  if (set.empty() || (set.size() == 1 && set.front() == 0)) {
    return 0;
  }
  const auto zeros = std::count(set.begin(), set.end(), std::uint8_t{0});
  return static_cast<std::size_t>(zeros) + (set.back() == 0 ? 0 : 1);
}

// Looks at what is not in a single structure.
class TableChecker {
 public:
  TableChecker(const SmbiosTable& table, const TableScan& scan, FaultList& faults)
      : Table(table),
        EntryPoint(table.EntryPoint),
        Version(MeantVersion(table.EntryPoint.Version)),
        Scan(scan),
        Faults(faults) {}

  void CheckEntryPoint();
  void CheckEnd();
  void CheckRequiredTypes();

 private:
  void CheckVersion();
  void CheckEntryPointLength(std::size_t length, bool is64Bit);
  void Check32BitEntryPoint();
  void CheckChecksum(std::span<const std::uint8_t> bytes, std::string_view name);
  void CheckSizes();
  void CheckBytesAfterEnd(bool isEnded);

  void AddToEntryPoint(FaultSeverity severity, std::string_view kind, std::string text) {
    Faults.Add({}, severity, {kind}, std::move(text));
  }
  void AddAt(std::size_t offset, FaultSeverity severity, std::string_view kind, std::string text) {
    Faults.Add({.Offset = offset}, severity, {kind}, std::move(text));
  }

  const SmbiosTable& Table;
  const EntryPointFacts& EntryPoint;
  SmbiosVersion Version;
  const TableScan& Scan;
  FaultList& Faults;
};

void TableChecker::CheckEntryPoint() {
  CheckVersion();
  if (EntryPoint.Kind == EntryPointKind::None) {
    return;
  }
  const bool is64Bit = EntryPoint.Kind == EntryPointKind::Bits64;
  const std::span<const std::uint8_t> bytes(EntryPoint.Bytes);
  TableCursor cursor(bytes);
  const std::size_t length = cursor.Peek(is64Bit ? entry_point64::kLength : entry_point32::kLength);
  CheckEntryPointLength(length, is64Bit);
  // Of a longer entry point not all bytes are at hand.
  if (length <= bytes.size()) {
    CheckChecksum(bytes.first(length), "checksum");
  }
  if (!is64Bit) {
    Check32BitEntryPoint();
  }
  if (Table.IsElsewhere) {
    // Most of these are dumps that keep the address of the machine's memory.
    AddToEntryPoint(FaultSeverity::Remark, "elsewhere",
                    Join({"its table address is ", HexOf(EntryPoint.TableAddress, 8),
                          ", but the table is at another place of the image"}));
  }
  // A 64-bit entry point has a bound for the length, and no count.
  if (!is64Bit) {
    CheckSizes();
  }
}

void TableChecker::CheckVersion() {
  if (Version == EntryPoint.Version) {
    return;
  }
  // Without an entry point, the table's source announces the version.
  const bool hasEntryPoint = EntryPoint.Kind != EntryPointKind::None;
  Faults.Add(hasEntryPoint ? FaultPlace{} : FaultPlace{.Offset = 0}, FaultSeverity::Remark,
             {"version"},
             Join({"the version is ", TextOf(EntryPoint.Version),
                   ", which does not exist and is taken for ", TextOf(Version)}));
}

void TableChecker::CheckEntryPointLength(std::size_t length, bool is64Bit) {
  const std::size_t layout = is64Bit ? entry_point64::kSize : entry_point32::kSize;
  const std::size_t shortest = is64Bit ? layout : entry_point32::kShortestSize;
  if (length != layout) {
    AddToEntryPoint(length < shortest ? FaultSeverity::Error : FaultSeverity::Remark, "length",
                    Join({"its length is ", HexOf(length, 2), " instead of ", HexOf(layout, 2)}));
  }
}

void TableChecker::Check32BitEntryPoint() {
  const std::span<const std::uint8_t> bytes(EntryPoint.Bytes);
  const auto intermediate =
      bytes.subspan(std::min(entry_point32::kIntermediateStart, bytes.size()));
  if (!StartsWith(intermediate, entry_point32::kIntermediateAnchor)) {
    AddToEntryPoint(FaultSeverity::Error, "anchor", "its intermediate anchor is not _DMI_");
  }
  CheckChecksum(intermediate.first(std::min(entry_point32::kIntermediateSize, intermediate.size())),
                "intermediate checksum");
  TableCursor cursor(bytes);
  const unsigned revision = cursor.Peek(entry_point32::kBcdRevision);
  if (revision != 0 && revision != Version.Major * 16U + Version.Minor) {
    AddToEntryPoint(FaultSeverity::Remark, "revision",
                    Join({"its BCD revision is ", HexOf(revision, 2), " with version ",
                          TextOf(EntryPoint.Version)}));
  }
}

void TableChecker::CheckChecksum(std::span<const std::uint8_t> bytes, std::string_view name) {
  const std::uint8_t sum = ByteSum(bytes);
  if (sum != 0) {
    AddToEntryPoint(FaultSeverity::Error, name,
                    Join({"its ", name, " is wrong: the sum is ", HexOf(sum, 2)}));
  }
}

void TableChecker::CheckSizes() {
  if (EntryPoint.TableLength > Table.Bytes.size()) {
    AddToEntryPoint(FaultSeverity::Error, "table length",
                    Join({"its table length is ", Decimal(EntryPoint.TableLength), ", but ",
                          Decimal(Table.Bytes.size()), " bytes are there"}));
  }
  const auto& structures = Scan.Structures;
  // What looks like structures after the last one that is counted, an End-of-Table, are none.
  const bool isComplete = EntryPoint.StructureCount == structures.size() && !structures.empty() &&
                          IsEnd(structures.back());
  const std::size_t count =
      isComplete ? structures.size() : ScanTable(Table.Bytes, EndRule{}).Structures.size();
  if (EntryPoint.StructureCount != count) {
    AddToEntryPoint(FaultSeverity::Error, "count",
                    Join({"its count of structures is ", Decimal(EntryPoint.StructureCount),
                          ", but ", Decimal(count), " are there"}));
  }
  std::size_t largest = 0;
  for (const Structure& structure : structures) {
    largest = std::max(largest, structure.GetEnd() - structure.Offset);
  }
  if (EntryPoint.LargestStructure < largest) {
    AddToEntryPoint(
        FaultSeverity::Remark, "largest",
        Join({"its size of the largest structure is ", Decimal(EntryPoint.LargestStructure),
              ", but ", Decimal(largest), " are taken"}));
  }
}

void TableChecker::CheckEnd() {
  const auto& structures = Scan.Structures;
  CheckBytesAfterEnd(!structures.empty() && IsEnd(structures.back()));
  const auto end = std::find_if(structures.begin(), structures.end(), IsEnd);
  if (end == structures.end()) {
    if (IsAtLeast(Version, 2, 2)) {
      AddAt(Scan.End, FaultSeverity::Error, "no end", "there is no End-of-Table");
    }
  } else if (end + 1 != structures.end()) {
    AddAt((end + 1)->Offset, FaultSeverity::Error, "after end",
          Join({Decimal(static_cast<std::uint64_t>(structures.end() - end - 1)),
                " structures follow End-of-Table"}));
  }
}

// No reader gets to bytes after an End-of-Table that is the last structure.
void TableChecker::CheckBytesAfterEnd(bool isEnded) {
  const auto rest = std::span<const std::uint8_t>(Table.Bytes).subspan(Scan.End);
  const FaultSeverity severity = isEnded ? FaultSeverity::Remark : FaultSeverity::Error;
  if (Scan.Stop != ScanStop::Complete) {
    TableCursor cursor(rest);
    const std::string length = HexOf(cursor.Peek(1), 2);
    AddAt(Scan.End, severity, "stop",
          Scan.Stop == ScanStop::LengthTooSmall
              ? Join({"a structure there would have a Length of ", length, ", below 04h"})
              : Join({"a structure there would have a Length of ", length,
                      " and go past the end of the table, ", HexOf(Table.Bytes.size(), 4)}));
  } else if (!rest.empty()) {
    const bool onlyZeros =
        std::all_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte == 0; });
    AddAt(Scan.End, onlyZeros ? FaultSeverity::Remark : severity, "rest",
          Join({Decimal(rest.size()), onlyZeros ? " zeros" : " bytes",
                " follow the last structure"}));
  }
}

void TableChecker::CheckRequiredTypes() {
  if (!IsAtLeast(Version, 2, 3)) {
    return;
  }
  std::bitset<256> present;
  for (const Structure& structure : Scan.Structures) {
    present.set(structure.Type);
  }
  std::string missing;
  for (const std::uint8_t type : kRequiredTypes) {
    if (!present.test(type)) {
      missing.append(missing.empty() ? "" : ", ").append(NameOf(type));
    }
  }
  if (!missing.empty()) {
    AddAt(Scan.End, FaultSeverity::Remark, "required",
          Join({"required types are missing: ", missing}));
  }
}

}  // namespace

void FaultList::Add(const FaultPlace& place, FaultSeverity severity, const FaultKind& kind,
                    std::string text) {
  const auto [known, isNew] = KnownFaults.try_emplace({place.Type, kind.Name, kind.Key},
                                                      Known{Faults.size(), place.Offset});
  if (isNew) {
    Faults.push_back({place, severity, std::move(text)});
  } else if (std::exchange(known->second.LastOffset, place.Offset) != place.Offset) {
    ++Faults[known->second.Index].More;
  }
}

bool FaultList::HasErrors() const {
  return std::any_of(Faults.begin(), Faults.end(),
                     [](const Fault& fault) { return fault.Severity == FaultSeverity::Error; });
}

StructureChecker::StructureChecker(const SmbiosTable& table, const TableScan& scan)
    : Version(MeantVersion(table.EntryPoint.Version)) {
  FirstOfType.fill(kNowhere);
  for (const Structure& structure : scan.Structures) {
    const HandleUsers first = {structure.Offset, structure.Type, {}};
    UsersOfHandle.try_emplace(structure.Handle, first).first->second.Types.set(structure.Type);
    std::size_t& firstOfType = FirstOfType[structure.Type];
    firstOfType = std::min(firstOfType, structure.Offset);
  }
}

void StructureChecker::Check(const Structure& structure, FaultList& faults) const {
  if (!structure.IsClosed) {
    faults.Add(PlaceOf(structure), IsEnd(structure) ? FaultSeverity::Remark : FaultSeverity::Error,
               {"open"}, "its string set does not end before the table");
  }
  CheckHandle(structure, faults);
  const StructureType* type = FindStructureType(structure.Type);
  if (type == nullptr) {
    return;
  }
  if (type->IsSingle && structure.Offset != FirstOfType[structure.Type]) {
    faults.Add(PlaceOf(structure), FaultSeverity::Error, {"single"},
               "a table has no more than one of its type");
  }
  CheckLength(structure, *type, faults);
  CheckFields(structure, DecodeFields(structure, *type), CountStrings(structure), faults);
}

void StructureChecker::CheckHandle(const Structure& structure, FaultList& faults) const {
  const std::size_t first = UsersOfHandle.at(structure.Handle).FirstOffset;
  if (first != structure.Offset) {
    faults.Add(PlaceOf(structure), FaultSeverity::Error, {"same handle"},
               Join({"its handle is ", HexOf(structure.Handle, 4), ", as that of the structure at ",
                     HexOf(first, 4)}));
  }
  if (structure.Handle >= kFirstReservedHandle && IsAtLeast(Version, 2, 1)) {
    faults.Add(PlaceOf(structure), FaultSeverity::Remark, {"reserved handle"},
               Join({"its handle is ", HexOf(structure.Handle, 4), ", of which those from ",
                     HexOf(kFirstReservedHandle, 4), " on are reserved"}));
  }
}

void StructureChecker::CheckLength(const Structure& structure, const StructureType& type,
                                   FaultList& faults) const {
  const LeastLength* least = nullptr;
  for (const LeastLength& row : type.LeastLengths) {
    // No reader expects less than the first version of the type has, in any version of the table.
    if (least == nullptr || IsAtLeast(Version, row.Major, row.Minor)) {
      least = &row;
    }
  }
  if (least == nullptr || structure.GetLength() >= least->Length) {
    return;
  }
  const LeastLength& first = type.LeastLengths.front();
  const bool isBelowFirst = structure.GetLength() < first.Length;
  faults.Add(PlaceOf(structure), isBelowFirst ? FaultSeverity::Error : FaultSeverity::Remark,
             {isBelowFirst ? "length" : "older length"},
             isBelowFirst
                 ? Join({"its Length is ", HexOf(structure.GetLength(), 2), ", ",
                         HexOf(first.Length, 2), " at least in every version"})
                 : Join({"its Length is ", HexOf(structure.GetLength(), 2), ", ",
                         HexOf(least->Length, 2), " at least in version ", TextOf(Version)}));
}

void StructureChecker::CheckFields(const Structure& structure, const DecodedFields& fields,
                                   std::size_t strings, FaultList& faults) const {
  for (const DecodedField& field : fields) {
    const std::string_view key = field.Definition->Key;
    if (field.Definition->Kind == FieldKind::String && field.Number > strings) {
      faults.Add(PlaceOf(structure), FaultSeverity::Error, {"string", key},
                 Join({key, " names string ", Decimal(field.Number), " of ", Decimal(strings)}));
    }
    if (field.Definition->Kind == FieldKind::Handle) {
      CheckReference(structure, field, faults);
    }
    for (const DecodedFields& entry : field.Entries) {
      CheckFields(structure, entry, strings, faults);
    }
  }
}

void StructureChecker::CheckReference(const Structure& structure, const DecodedField& field,
                                      FaultList& faults) const {
  const auto handle = static_cast<std::uint16_t>(field.Number);
  if (handle == kNoHandle || handle == kNoErrorInformation) {
    return;
  }
  const Field& definition = *field.Definition;
  const std::string_view key = definition.Key.empty() ? "a handle of its list" : definition.Key;
  const auto users = UsersOfHandle.find(handle);
  if (users == UsersOfHandle.end()) {
    faults.Add(PlaceOf(structure), FaultSeverity::Error, {"no target", key},
               Join({key, " is ", HexOf(handle, 4), ", which no structure has"}));
    return;
  }
  const auto isOfType = [&](std::uint8_t type) { return users->second.Types.test(type); };
  const auto targets = definition.Targets;
  // What is inactive at the moment may be of any type later.
  if (!targets.empty() && !isOfType(kInactive) &&
      std::none_of(targets.begin(), targets.end(), isOfType)) {
    faults.Add(PlaceOf(structure), FaultSeverity::Error, {"other target", key},
               Join({key, " is ", HexOf(handle, 4), ", a structure of ",
                     NameOf(users->second.FirstType)}));
  }
}

FaultList FindFaults(const SmbiosTable& table, const TableScan& scan) {
  FaultList faults;
  TableChecker whole(table, scan, faults);
  whole.CheckEntryPoint();
  const StructureChecker checker(table, scan);
  for (const Structure& structure : scan.Structures) {
    checker.Check(structure, faults);
  }
  whole.CheckEnd();
  whole.CheckRequiredTypes();
  return faults;
}

}  // namespace kestrel::catalog
