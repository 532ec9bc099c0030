#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "catalog/structure_scan.h"
#include "catalog/type_definition.h"

namespace kestrel::catalog {

struct DecodedField;
using DecodedFields = std::vector<DecodedField>;

// What a field says. Its views live as long as the bytes of the table.
struct DecodedValue {
  const Field* Definition = nullptr;
  // The bytes that it takes; none for a list and for what is made of the field before it.
  // Characters are without zeros at either end.
  std::span<const std::uint8_t> Bytes = {};
  // The number that up to eight bytes are; for a quantity the number in its unit, an std::int64_t
  // where the quantity is signed.
  std::uint64_t Number = 0;
  // Not where firmware says that it does not know, or where the number has no meaning: of a
  // quantity, of what is made of the field before it, and of a UUID that is not set.
  bool IsKnown = true;
};

// A field of a structure.
struct DecodedField : DecodedValue {
  // The entries of a list. An entry of a list of plain values has one field.
  std::vector<DecodedFields> Entries = {};
};

// The fields that the structure has, in order, reserved ones left out. A field is there when the
// structure's Length reaches to its end; the first one that is cut, or whose entries are, is the
// end. A list keeps the entries before the one that is cut.
DecodedFields DecodeFields(const Structure& structure, const StructureType& type);

// One of these fields, without decoding the others. Only of fields at a fixed place, which lists
// and what comes after them are not.
std::optional<DecodedValue> DecodeField(const Structure& structure, const StructureType& type,
                                        std::string_view key);

}  // namespace kestrel::catalog
