#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string_view>
#include <type_traits>

#include "catalog/structure_scan.h"
#include "catalog/type_definition.h"

// Faults of the data that would show as wrong output, found when a table of types is compiled:
//
//     static_assert(AreWellFormed(kTypeList));
//
// The compiler names the condition that fails, and the table.
namespace kestrel::catalog {

namespace well_formed {

// What is thrown while compiling stops the compiler there.
consteval void Require(bool condition, const char* what) {
  if (!condition) {
    throw std::logic_error(what);
  }
}

consteval bool IsKey(std::string_view key) {
  return !key.empty() && std::all_of(key.begin(), key.end(), [](char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9') ||
           character == '_';
  });
}

template <typename Value>
consteval bool IsOneOf(const Value& value,
                       std::initializer_list<std::type_identity_t<Value>> values) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

consteval bool Fits(std::uint64_t value, unsigned bits) { return bits >= 64 || value >> bits == 0; }

consteval void CheckCodes(std::span<const Code> codes, unsigned bits) {
  for (std::size_t index = 0; index < codes.size(); ++index) {
    const Code& code = codes[index];
    Require(Fits(code.Last, bits), "a code is too large for its field");
    Require(code.First <= code.Last, "a range of codes has no codes");
    Require(index == 0 || codes[index - 1].Last < code.First, "codes do not ascend");
    Require(!codes[index].Text.empty(), "a code has no text");
  }
}

consteval void CheckBits(std::span<const Bit> bits, unsigned width) {
  for (std::size_t index = 0; index < bits.size(); ++index) {
    Require(bits[index].Number < width, "a bit is outside its field");
    Require(index == 0 || bits[index - 1].Number < bits[index].Number, "bits do not ascend");
    Require(!bits[index].Text.empty(), "a bit has no text");
  }
}

consteval void CheckParts(std::span<const Part> parts, unsigned width) {
  unsigned next = 0;
  for (const Part& part : parts) {
    if (part.Key.empty()) {
      Require(part.Kind == PartKind::Code && part.FirstBit == 0, "a part needs a key");
    } else {
      Require(IsKey(part.Key) && !IsOneOf(part.Key, {"value", "code", "text"}),
              "a part's key is that of something else");
    }
    Require(part.FirstBit >= next, "parts overlap, or do not ascend");
    next = part.FirstBit + unsigned{part.Width};
    Require(part.Width > 0 && next <= width, "a part is outside its field");
    CheckCodes(part.Codes, part.Width);
  }
}

consteval void CheckWidth(const Field& field) {
  if (IsMadeOfNumberBefore(field)) {
    return;
  }
  switch (field.Kind) {
    case FieldKind::String:
      Require(field.Width == 1, "a string number takes a byte");
      break;
    case FieldKind::Code:
      Require(IsOneOf(field.Width, {1, 2}), "a code takes one or two bytes");
      break;
    case FieldKind::Number:
    case FieldKind::Bits:
    case FieldKind::Parts:
    case FieldKind::Quantity:
      Require(IsOneOf(field.Width, {1, 2, 4, 8}), "a number takes 1, 2, 4 or 8 bytes");
      break;
    case FieldKind::Handle:
      Require(field.Width == 2, "a handle takes two bytes");
      break;
    case FieldKind::Uuid:
      Require(field.Width == 16, "a UUID takes sixteen bytes");
      break;
    case FieldKind::Characters:
    case FieldKind::Reserved:
      Require(field.Width > 0, "a field needs a width");
      break;
    case FieldKind::Bytes:
    case FieldKind::List:
      break;
  }
}

consteval bool HasVaryingSize(const Field& field) {
  return field.Kind == FieldKind::List || (field.Kind == FieldKind::Bytes && field.Width == 0);
}

// Whether fields before the index `end` have one of that kind, offset and width.
consteval bool HasNumber(std::span<const Field> fields, std::size_t end, std::uint8_t offset,
                         std::uint8_t width) {
  for (const Field& field : fields.first(end)) {
    if (field.Offset == offset && field.Width == width &&
        IsOneOf(field.Kind, {FieldKind::Number, FieldKind::Parts, FieldKind::Code})) {
      return true;
    }
  }
  return false;
}

consteval void CheckConversion(std::span<const Field> fields, std::size_t index) {
  std::size_t before = index;
  while (before > 0 && IsMadeOfNumberBefore(fields[before])) {
    --before;
  }
  Require(IsOneOf(fields[before].Kind, {FieldKind::Number, FieldKind::Parts}),
          "what is made of a number stands after it");
  for (const NumberPlace& place : fields[index].Conversion.Others) {
    Require(place.Width == 0 || HasNumber(fields, fields.size(), place.Offset, place.Width),
            "a number is made of a field that is not there");
  }
}

consteval void CheckFields(std::span<const Field> fields, unsigned start);

consteval unsigned FixedSize(std::span<const Field> fields) {
  unsigned size = 0;
  for (const Field& field : fields) {
    Require(!HasVaryingSize(field), "an entry of fixed size has a field that is not");
    size += field.Width;
  }
  return size;
}

consteval void CheckList(std::span<const Field> fields, std::size_t index) {
  const List& list = *fields[index].Entries;
  Require(!list.Fields.empty(), "an entry needs fields");
  for (const Field& field : list.Fields) {
    Require(field.Kind != FieldKind::List && !IsMadeOfNumberBefore(field),
            "an entry has no lists and no quantities");
  }
  if (list.Fields.size() > 1 || !list.Fields.front().Key.empty()) {
    CheckFields(list.Fields, 0);
  }
  if (list.CountRule == List::Count::FieldBefore) {
    Require(index > 0 && fields[index - 1].Kind == FieldKind::Number,
            "a count stands before its list");
  }
  if (list.CountRule == List::Count::FromField) {
    Require(HasNumber(fields, index, list.CountOffset, 1), "a list's count is not there");
  }
  switch (list.SizeRule) {
    case List::Size::Fixed:
      Require(FixedSize(list.Fields) == list.SizeOrOffset, "an entry is as long as its fields");
      break;
    case List::Size::FromField:
      Require(HasNumber(fields, index, list.SizeOrOffset, 1), "a list's entry size is not there");
      break;
    case List::Size::FirstByte:
    case List::Size::AsItsFields:
      Require(list.Fields.front().Width == 1, "an entry starts with a byte");
      break;
  }
}

consteval void CheckField(std::span<const Field> fields, std::size_t index) {
  const Field& field = fields[index];
  const unsigned bits = IsMadeOfNumberBefore(field) ? 64U : 8U * field.Width;
  CheckWidth(field);
  // A narrow field and its wider successor may share a table, so any code will do.
  CheckCodes(field.Codes, 16);
  CheckBits(field.Bits, bits);
  CheckParts(field.Parts, bits);
  if (field.LengthOffset != 0) {
    Require(HasNumber(fields, index, field.LengthOffset, 1), "a field's length is not there");
  }
  if (field.Kind == FieldKind::Reserved) {
    return;
  }
  Require(IsKey(field.Key), "a field needs a key of lower-case letters, digits and underscores");
  for (const Field& earlier : fields.first(index)) {
    Require(earlier.Key != field.Key, "two fields have one key");
  }
}

consteval void CheckFields(std::span<const Field> fields, unsigned start) {
  unsigned next = start;
  bool varies = false;
  for (std::size_t index = 0; index < fields.size(); ++index) {
    const Field& field = fields[index];
    CheckField(fields, index);
    if (IsMadeOfNumberBefore(field)) {
      CheckConversion(fields, index);
      continue;
    }
    Require(field.Offset == (varies ? kFollows : next), "fields leave a gap, or overlap");
    next += field.Width;
    varies = varies || HasVaryingSize(field);
    if (field.Kind == FieldKind::List) {
      CheckList(fields, index);
    }
  }
}

consteval void CheckLeastLengths(std::span<const LeastLength> lengths) {
  for (std::size_t index = 0; index < lengths.size(); ++index) {
    const LeastLength& length = lengths[index];
    Require(length.Length >= kHeaderSize, "a structure has at least its header");
    if (index > 0) {
      const LeastLength& earlier = lengths[index - 1];
      Require(earlier.Length < length.Length &&
                  (earlier.Major < length.Major ||
                   (earlier.Major == length.Major && earlier.Minor < length.Minor)),
              "least lengths do not ascend");
    }
  }
}

}  // namespace well_formed

consteval bool AreWellFormed(std::span<const StructureType> types) {
  for (std::size_t index = 0; index < types.size(); ++index) {
    well_formed::Require(index == 0 || types[index - 1].Type < types[index].Type,
                         "types do not ascend");
    well_formed::Require(!types[index].Name.empty(), "a type needs a name");
    well_formed::CheckFields(types[index].Fields, kHeaderSize);
    well_formed::CheckLeastLengths(types[index].LeastLengths);
  }
  return true;
}

}  // namespace kestrel::catalog
