#include "catalog/decoder.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "base/structure_header.h"
#include "base/table_cursor.h"

namespace kestrel::catalog {

namespace {

// The little-endian number of `width` bytes, eight at most, at `offset`.
std::uint64_t ReadNumber(std::span<const std::uint8_t> bytes, std::size_t offset,
                         std::size_t width) {
  TableCursor cursor(bytes);
  cursor.MoveTo(offset);
  std::uint64_t number = 0;
  for (std::size_t index = 0; index < width; ++index) {
    number |= std::uint64_t{cursor.U8()} << (8 * index);
  }
  return number;
}

std::size_t ByteAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::size_t>(ReadNumber(bytes, offset, 1));
}

// A signed number of `width` bytes as one of eight.
std::uint64_t ExtendSign(std::uint64_t number, std::size_t width) {
  const std::uint64_t sign = std::uint64_t{1} << (8 * width - 1);
  return (number ^ sign) - sign;
}

// A UUID of zeros is not set, one of ones not present.
bool IsUuid(std::span<const std::uint8_t> bytes) {
  const auto isFirst = [bytes](std::uint8_t byte) { return byte == bytes.front(); };
  const bool isUniform = std::all_of(bytes.begin(), bytes.end(), isFirst);
  return !isUniform || (bytes.front() != 0 && bytes.front() != 0xFF);
}

std::span<const std::uint8_t> WithoutOuterZeros(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty() && bytes.front() == 0) {
    bytes = bytes.subspan(1);
  }
  while (!bytes.empty() && bytes.back() == 0) {
    bytes = bytes.first(bytes.size() - 1);
  }
  return bytes;
}

// Decodes the fields of one structure, or of one entry of a list, from its first byte on.
class FieldReader {
 public:
  // `bytes` are those of the structure or the entry, `whole` those of the structure.
  FieldReader(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> whole,
              std::size_t position)
      : Bytes(bytes), Whole(whole), Position(position) {}

  // Whether all of them are there.
  bool Read(std::span<const Field> fields);
  // Reads a field at a fixed place by itself.
  std::optional<DecodedValue> ReadAlone(std::span<const Field> fields, std::string_view key);

  std::size_t GetPosition() const { return Position; }
  DecodedFields TakeFields() { return std::move(Fields); }

 private:
  std::size_t Left() const { return Bytes.size() - Position; }
  void SetBefore(std::span<const std::uint8_t> bytes) {
    BytesBefore = bytes;
    NumberBefore = bytes.size() <= sizeof(std::uint64_t) ? ReadNumber(bytes, 0, bytes.size()) : 0;
  }
  std::size_t SizeOf(const Field& field) const;
  std::optional<std::uint64_t> Convert(const ConversionRule& rule) const;
  std::size_t CountOf(const List& list) const;
  DecodedValue MakeOfNumberBefore(const Field& field) const;
  DecodedValue MakeOfBytes(const Field& field, std::span<const std::uint8_t> bytes) const;
  bool ReadList(const Field& field);
  std::size_t SizeOfEntry(const List& list) const;
  bool ReadEntry(const List& list, std::size_t size, std::vector<DecodedFields>& entries);

  std::span<const std::uint8_t> Bytes;
  std::span<const std::uint8_t> Whole;
  std::size_t Position;
  // The field before and its number, for a list that it counts and for quantities.
  std::span<const std::uint8_t> BytesBefore;
  std::uint64_t NumberBefore = 0;
  DecodedFields Fields;
};

bool FieldReader::Read(std::span<const Field> fields) {
  // Saves 4% of the instructions of a JSON document.
  Fields.reserve(fields.size());
  for (const Field& field : fields) {
    if (IsMadeOfNumberBefore(field)) {
      Fields.push_back({MakeOfNumberBefore(field), {}});
      continue;
    }
    if (field.Kind == FieldKind::List) {
      if (!ReadList(field)) {
        return false;
      }
      continue;
    }
    const std::size_t size = SizeOf(field);
    if (size > Left()) {
      return false;
    }
    const auto bytes = Bytes.subspan(Position, size);
    Position += size;
    if (field.Kind != FieldKind::Reserved) {
      SetBefore(bytes);
      Fields.push_back({MakeOfBytes(field, bytes), {}});
    }
  }
  return true;
}

std::optional<DecodedValue> FieldReader::ReadAlone(std::span<const Field> fields,
                                                   std::string_view key) {
  const auto field = std::find_if(fields.begin(), fields.end(),
                                  [key](const Field& other) { return other.Key == key; });
  if (field == fields.end()) {
    return std::nullopt;
  }
  auto place = field;
  while (IsMadeOfNumberBefore(*place)) {
    --place;
  }
  const std::size_t end = std::size_t{place->Offset} + place->Width;
  if (place->Offset == kFollows || place->Width == 0 || end > Bytes.size()) {
    return std::nullopt;
  }
  SetBefore(Bytes.subspan(place->Offset, place->Width));
  return field == place ? MakeOfBytes(*field, BytesBefore) : MakeOfNumberBefore(*field);
}

DecodedValue FieldReader::MakeOfNumberBefore(const Field& field) const {
  const auto number = Convert(field.Conversion);
  return {.Definition = &field, .Number = number.value_or(0), .IsKnown = number.has_value()};
}

DecodedValue FieldReader::MakeOfBytes(const Field& field,
                                      std::span<const std::uint8_t> bytes) const {
  DecodedValue decoded = {.Definition = &field, .Bytes = bytes, .Number = NumberBefore};
  if (field.Kind == FieldKind::Quantity) {
    decoded = MakeOfNumberBefore(field);
    decoded.Bytes = bytes;
  } else if (field.Kind == FieldKind::Uuid) {
    decoded.IsKnown = IsUuid(bytes);
  } else if (field.Kind == FieldKind::Characters) {
    decoded.Bytes = WithoutOuterZeros(bytes);
  }
  return decoded;
}

std::size_t FieldReader::SizeOf(const Field& field) const {
  if (field.LengthOffset != 0) {
    return ByteAt(Bytes, field.LengthOffset);
  }
  return field.Width == kRest ? Left() : field.Width;
}

std::optional<std::uint64_t> FieldReader::Convert(const ConversionRule& rule) const {
  if (NumberBefore == rule.Unknown) {
    return std::nullopt;
  }
  if (rule.Convert == nullptr) {
    return (rule.IsSigned ? ExtendSign(NumberBefore, BytesBefore.size()) : NumberBefore) *
           rule.Factor;
  }
  OtherNumbers others;
  for (std::size_t index = 0; index < others.size(); ++index) {
    const NumberPlace& place = rule.Others[index];
    if (place.Width != 0 && std::size_t{place.Offset} + place.Width <= Bytes.size()) {
      others[index] = ReadNumber(Bytes, place.Offset, place.Width);
    }
  }
  return rule.Convert(NumberBefore, others);
}

std::size_t FieldReader::CountOf(const List& list) const {
  switch (list.CountRule) {
    case List::Count::FieldBefore:
      return static_cast<std::size_t>(NumberBefore);
    case List::Count::FromField:
      return ByteAt(Whole, list.CountOffset);
    case List::Count::ToTheEnd:
      break;
  }
  return Left();
}

std::size_t FieldReader::SizeOfEntry(const List& list) const {
  switch (list.SizeRule) {
    case List::Size::Fixed:
      return list.SizeOrOffset;
    case List::Size::FromField:
      return ByteAt(Whole, list.SizeOrOffset);
    case List::Size::FirstByte:
      return ByteAt(Bytes, Position);
    case List::Size::AsItsFields:
      break;
  }
  return Left();
}

bool FieldReader::ReadList(const Field& field) {
  const List& list = *field.Entries;
  const std::size_t index = Fields.size();
  Fields.push_back({{.Definition = &field}, {}});
  const bool toTheEnd = list.CountRule == List::Count::ToTheEnd;
  for (std::size_t count = CountOf(list); count > 0; --count) {
    if (toTheEnd && Left() == 0) {
      break;
    }
    const std::size_t size = SizeOfEntry(list);
    if (size == 0 && list.SizeRule == List::Size::FromField) {
      // So many entries of no bytes take none.
      break;
    }
    if (size == 0 || size > Left() || !ReadEntry(list, size, Fields[index].Entries)) {
      return false;
    }
  }
  return true;
}

bool FieldReader::ReadEntry(const List& list, std::size_t size,
                            std::vector<DecodedFields>& entries) {
  FieldReader entry(Bytes.subspan(Position, size), Whole, 0);
  const bool isWhole = entry.Read(list.Fields);
  if (list.SizeRule == List::Size::AsItsFields) {
    if (!isWhole) {
      return false;
    }
    size = entry.GetPosition();
  }
  entries.push_back(entry.TakeFields());
  Position += size;
  return true;
}

}  // namespace

DecodedFields DecodeFields(const Structure& structure, const StructureType& type) {
  FieldReader reader(structure.Formatted, structure.Formatted, kHeaderSize);
  reader.Read(type.Fields);
  return reader.TakeFields();
}

std::optional<DecodedValue> DecodeField(const Structure& structure, const StructureType& type,
                                        std::string_view key) {
  return FieldReader(structure.Formatted, structure.Formatted, kHeaderSize)
      .ReadAlone(type.Fields, key);
}

}  // namespace kestrel::catalog
