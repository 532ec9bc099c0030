#include "catalog/faults.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>

#include "base/entry_point_layout.h"
#include "base/table_cursor.h"
#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/type_catalog.h"

namespace kestrel::catalog {

namespace {

// Handles from here on are kept for other uses, of which two stand in fields that name nothing.
constexpr std::uint16_t kFirstReservedHandle = 0xFF00;
constexpr std::uint16_t kNoErrorInformation = 0xFFFE;
constexpr std::uint16_t kNoHandle = 0xFFFF;

constexpr std::uint8_t kRequiredTypes[] = {0, 1, 3, 4, 7, 9, 16, 17, 19, 32};

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

// Looks at one table, from its entry point to its last byte.
class FaultFinder {
 public:
  FaultFinder(const SmbiosTable& table, const TableScan& scan)
      : Table(table), EntryPoint(table.EntryPoint), Scan(scan) {
    for (const Structure& structure : scan.Structures) {
      TypesOfHandle[structure.Handle].push_back(structure.Type);
    }
  }

  FaultList Find() {
    CheckEntryPoint();
    for (const Structure& structure : Scan.Structures) {
      CheckStructure(structure);
    }
    CheckEnd();
    CheckHandles();
    CheckPresence();
    return std::move(Faults);
  }

 private:
  void CheckEntryPoint();
  void Check32BitEntryPoint();
  void CheckChecksum(std::span<const std::uint8_t> bytes, std::string_view name);
  void CheckSizes();
  void CheckStructure(const Structure& structure);
  void CheckLength(const Structure& structure, const StructureType& type);
  void CheckFields(const Structure& structure, const DecodedFields& fields, std::size_t strings);
  void CheckHandle(const Structure& structure, const DecodedField& field);
  void CheckEnd();
  void CheckHandles();
  void CheckPresence();

  void AddToEntryPoint(Severity severity, std::string text) {
    const std::string kind = text;
    Faults.Add({}, severity, kind, std::move(text));
  }
  // A fault that the whole table has, whatever the types of its structures.
  void AddAt(std::size_t offset, Severity severity, std::string_view kind, std::string text) {
    Faults.Add({offset, std::nullopt}, severity, kind, std::move(text));
  }
  void AddTo(const Structure& structure, Severity severity, std::string_view kind,
             std::string text) {
    Faults.Add(PlaceOf(structure), severity, kind, std::move(text));
  }

  const SmbiosTable& Table;
  const EntryPointFacts& EntryPoint;
  const TableScan& Scan;
  std::map<std::uint16_t, std::vector<std::uint8_t>> TypesOfHandle;
  FaultList Faults;
};

void FaultFinder::CheckEntryPoint() {
  if (EntryPoint.Kind == EntryPointKind::None) {
    return;
  }
  const bool is64Bit = EntryPoint.Kind == EntryPointKind::Bits64;
  const std::size_t layout = is64Bit ? entry_point64::kSize : entry_point32::kSize;
  const std::span<const std::uint8_t> bytes(EntryPoint.Bytes);
  TableCursor cursor(bytes);
  const std::size_t length = cursor.Peek(is64Bit ? entry_point64::kLength : entry_point32::kLength);
  if (length != layout) {
    const bool isOldLength = !is64Bit && length == entry_point32::kShortestSize;
    AddToEntryPoint(isOldLength ? Severity::Remark : Severity::Error,
                    Join({"its length is ", HexOf(length, 2), " instead of ", HexOf(layout, 2)}));
  }
  CheckChecksum(bytes.first(std::min(bytes.size(), length < layout - 1 ? layout : length)),
                "checksum");
  if (!is64Bit) {
    Check32BitEntryPoint();
  }
  if (Table.IsElsewhere) {
    // Most of these are dumps that keep the address of the machine's memory.
    AddToEntryPoint(Severity::Remark,
                    Join({"its table address is ", HexOf(EntryPoint.TableAddress, 8),
                          ", but the table is at another place of the image"}));
  }
  CheckSizes();
}

void FaultFinder::Check32BitEntryPoint() {
  const std::span<const std::uint8_t> bytes(EntryPoint.Bytes);
  const auto intermediate =
      bytes.subspan(std::min(entry_point32::kIntermediateStart, bytes.size()));
  if (!StartsWith(intermediate, entry_point32::kIntermediateAnchor)) {
    AddToEntryPoint(Severity::Error, "its intermediate anchor is not _DMI_");
  }
  CheckChecksum(intermediate.first(std::min(entry_point32::kIntermediateSize, intermediate.size())),
                "intermediate checksum");
  TableCursor cursor(bytes);
  const unsigned revision = cursor.Peek(entry_point32::kBcdRevision);
  const unsigned expected = EntryPoint.Version.Major * 16U + EntryPoint.Version.Minor;
  if (revision != 0 && revision != expected) {
    AddToEntryPoint(Severity::Remark, Join({"its BCD revision is ", HexOf(revision, 2),
                                            " with version ", TextOf(EntryPoint.Version)}));
  }
}

void FaultFinder::CheckChecksum(std::span<const std::uint8_t> bytes, std::string_view name) {
  const std::uint8_t sum = ByteSum(bytes);
  if (sum != 0) {
    AddToEntryPoint(Severity::Error, Join({"its ", name, " is wrong: the sum is ", HexOf(sum, 2)}));
  }
}

void FaultFinder::CheckSizes() {
  if (EntryPoint.Kind == EntryPointKind::Bits64) {
    // Its length is a bound, and it has no count.
    return;
  }
  if (EntryPoint.TableLength > Table.Bytes.size()) {
    AddToEntryPoint(Severity::Error,
                    Join({"its table length is ", Decimal(EntryPoint.TableLength), ", but ",
                          Decimal(Table.Bytes.size()), " bytes are there"}));
  }
  const TableScan whole = ScanTable(Table.Bytes, EndRule{});
  if (EntryPoint.StructureCount != whole.Structures.size()) {
    AddToEntryPoint(Severity::Error,
                    Join({"its count of structures is ", Decimal(EntryPoint.StructureCount),
                          ", but ", Decimal(whole.Structures.size()), " are there"}));
  }
  std::size_t largest = 0;
  for (const Structure& structure : Scan.Structures) {
    largest = std::max(largest, structure.GetEnd() - structure.Offset);
  }
  if (EntryPoint.LargestStructure != largest) {
    AddToEntryPoint(Severity::Remark, Join({"its size of the largest structure is ",
                                            Decimal(EntryPoint.LargestStructure), ", but ",
                                            Decimal(largest), " are taken"}));
  }
}

void FaultFinder::CheckStructure(const Structure& structure) {
  if (!structure.IsClosed) {
    AddTo(structure, Severity::Error, "open", "its string set does not end before the table");
  }
  if (const StructureType* type = FindStructureType(structure.Type)) {
    CheckLength(structure, *type);
    CheckFields(structure, DecodeFields(structure, *type), structure.GetStrings().size());
  }
}

void FaultFinder::CheckLength(const Structure& structure, const StructureType& type) {
  std::uint8_t least = 0;
  for (const LeastLength& row : type.LeastLengths) {
    if (IsAtLeast(EntryPoint.Version, row.Major, row.Minor)) {
      least = row.Length;
    }
  }
  if (structure.GetLength() < least) {
    AddTo(structure, Severity::Error, "length",
          Join({"its Length is ", HexOf(structure.GetLength(), 2), ", in version ",
                TextOf(EntryPoint.Version), " ", HexOf(least, 2), " at least"}));
  }
}

void FaultFinder::CheckFields(const Structure& structure, const DecodedFields& fields,
                              std::size_t strings) {
  for (const DecodedField& field : fields) {
    if (field.Definition->Kind == FieldKind::String && field.Number > strings) {
      AddTo(structure, Severity::Error, "string",
            Join({field.Definition->Key, " names string ", Decimal(field.Number), " of ",
                  Decimal(strings)}));
    }
    if (field.Definition->Kind == FieldKind::Handle) {
      CheckHandle(structure, field);
    }
    for (const DecodedFields& entry : field.Entries) {
      CheckFields(structure, entry, strings);
    }
  }
}

void FaultFinder::CheckHandle(const Structure& structure, const DecodedField& field) {
  const auto handle = static_cast<std::uint16_t>(field.Number);
  if (handle == kNoHandle || handle == kNoErrorInformation) {
    return;
  }
  const std::string_view key =
      field.Definition->Key.empty() ? "a handle of its list" : field.Definition->Key;
  const auto found = TypesOfHandle.find(handle);
  if (found == TypesOfHandle.end()) {
    AddTo(structure, Severity::Error, Join({"no ", key}),
          Join({key, " is ", HexOf(handle, 4), ", which no structure has"}));
    return;
  }
  const auto targets = field.Definition->Targets;
  const std::vector<std::uint8_t>& types = found->second;
  if (!targets.empty() && std::find_first_of(types.begin(), types.end(), targets.begin(),
                                             targets.end()) == types.end()) {
    AddTo(structure, Severity::Error, Join({"other ", key}),
          Join({key, " is ", HexOf(handle, 4), ", a structure of ", NameOf(types.front())}));
  }
}

void FaultFinder::CheckEnd() {
  const std::span<const std::uint8_t> bytes(Table.Bytes);
  const auto& structures = Scan.Structures;
  const auto isEnd = [](const Structure& structure) { return structure.Type == kEndOfTable; };
  const auto end = std::find_if(structures.begin(), structures.end(), isEnd);
  if (Scan.Stop != ScanStop::Complete) {
    TableCursor cursor(bytes);
    cursor.MoveTo(Scan.End + 1);
    const std::string length = HexOf(cursor.U8(), 2);
    AddAt(Scan.End, Severity::Error, "stop",
          Scan.Stop == ScanStop::LengthTooSmall
              ? Join({"a structure there would have a Length of ", length, ", below 04h"})
              : Join({"a structure there would have a Length of ", length,
                      " and go past the end of the table, ", HexOf(bytes.size(), 4)}));
  } else if (Scan.End < bytes.size()) {
    const auto rest = bytes.subspan(Scan.End);
    const bool onlyZeros =
        std::all_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte == 0; });
    AddAt(Scan.End, onlyZeros ? Severity::Remark : Severity::Error, "rest",
          Join({Decimal(rest.size()), onlyZeros ? " zeros" : " bytes",
                " follow the last structure"}));
  }
  if (end == structures.end()) {
    if (IsAtLeast(EntryPoint.Version, 2, 2)) {
      AddAt(Scan.End, Severity::Error, "no end", "there is no End-of-Table");
    }
  } else if (end + 1 != structures.end()) {
    AddAt((end + 1)->Offset, Severity::Error, "after end",
          Join({Decimal(static_cast<std::uint64_t>(structures.end() - end - 1)),
                " structures follow End-of-Table"}));
  }
}

void FaultFinder::CheckHandles() {
  std::map<std::uint16_t, std::size_t> firstOf;
  for (const Structure& structure : Scan.Structures) {
    const auto [first, isNew] = firstOf.emplace(structure.Handle, structure.Offset);
    if (!isNew) {
      AddAt(structure.Offset, Severity::Error, "same handle",
            Join({"its handle is ", HexOf(structure.Handle, 4), ", as that of the structure at ",
                  HexOf(first->second, 4)}));
    }
    if (structure.Handle >= kFirstReservedHandle && IsAtLeast(EntryPoint.Version, 2, 1)) {
      AddAt(structure.Offset, Severity::Remark, "reserved handle",
            Join({"its handle is ", HexOf(structure.Handle, 4), ", of which those from ",
                  HexOf(kFirstReservedHandle, 4), " on are reserved"}));
    }
  }
}

void FaultFinder::CheckPresence() {
  std::array<std::size_t, 256> counts{};
  for (const Structure& structure : Scan.Structures) {
    const StructureType* type = FindStructureType(structure.Type);
    if (++counts[structure.Type] > 1 && type != nullptr && type->IsSingle) {
      AddTo(structure, Severity::Error, "single", "a table has no more than one of its type");
    }
  }
  if (!IsAtLeast(EntryPoint.Version, 2, 3)) {
    return;
  }
  std::string missing;
  for (const std::uint8_t type : kRequiredTypes) {
    if (counts[type] == 0) {
      missing.append(missing.empty() ? "" : ", ").append(NameOf(type));
    }
  }
  if (!missing.empty()) {
    AddAt(Scan.End, Severity::Remark, "required", Join({"required types are missing: ", missing}));
  }
}

}  // namespace

void FaultList::Add(const FaultPlace& place, Severity severity, std::string_view kind,
                    std::string text) {
  const auto [known, isNew] = IndexOf.emplace(Key(place.Type, std::string(kind)), Faults.size());
  if (isNew) {
    Faults.push_back({place, severity, std::move(text)});
  } else {
    ++Faults[known->second].More;
  }
}

bool FaultList::HasErrors() const {
  return std::any_of(Faults.begin(), Faults.end(),
                     [](const Fault& fault) { return fault.Kind == Severity::Error; });
}

FaultList FindFaults(const SmbiosTable& table, const TableScan& scan) {
  return FaultFinder(table, scan).Find();
}

}  // namespace kestrel::catalog
