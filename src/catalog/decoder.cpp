#include "catalog/decoder.h"

#include <cstddef>
#include <utility>

#include "base/structure_header.h"

namespace kestrel::catalog {

namespace {

std::size_t ByteAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::size_t>(ReadNumber(bytes, offset, 1));
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

  std::size_t GetPosition() const { return Position; }
  DecodedFields TakeFields() { return std::move(Fields); }

 private:
  std::size_t Left() const { return Bytes.size() - Position; }
  std::size_t SizeOf(const Field& field) const;
  std::size_t CountOf(const List& list) const;
  bool ReadList(const Field& field);
  std::size_t SizeOfEntry(const List& list) const;
  bool ReadEntry(const List& list, std::size_t size, std::vector<DecodedFields>& entries);

  std::span<const std::uint8_t> Bytes;
  std::span<const std::uint8_t> Whole;
  std::size_t Position;
  // What the field before says, for a list that it counts.
  std::uint64_t NumberBefore = 0;
  DecodedFields Fields;
};

bool FieldReader::Read(std::span<const Field> fields) {
  for (const Field& field : fields) {
    if (field.FieldKind == Kind::Derived) {
      Fields.push_back({.Definition = &field, .Derived = Derive(*field.Derived, Bytes)});
      continue;
    }
    if (field.FieldKind == Kind::List) {
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
    if (field.FieldKind != Kind::Reserved) {
      NumberBefore = size <= sizeof(std::uint64_t) ? ReadNumber(bytes, 0, size) : 0;
      Fields.push_back({.Definition = &field, .Bytes = bytes, .Number = NumberBefore});
    }
  }
  return true;
}

std::size_t FieldReader::SizeOf(const Field& field) const {
  if (field.LengthOffset != 0) {
    return ByteAt(Bytes, field.LengthOffset);
  }
  return field.Width == kRest ? Left() : field.Width;
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
  Fields.push_back({.Definition = &field});
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

}  // namespace kestrel::catalog
