#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "catalog/decoder.h"
#include "catalog/structure_scan.h"

namespace kestrel::catalog {

// The fields of one structure at fixed places, found by their keys. Each function returns nothing,
// or an empty text, where the structure has no such field: its type does not, or it is too short.
class StructureFields {
 public:
  // The fields of nothing.
  StructureFields() = default;
  explicit StructureFields(const Structure& structure);

  std::optional<DecodedValue> Find(std::string_view key) const;

  std::optional<std::uint64_t> GetNumber(std::string_view key) const;
  // A quantity that is known, in its base unit.
  std::optional<std::uint64_t> GetQuantity(std::string_view key) const;
  // The string that the field names.
  std::string_view GetString(std::string_view key) const;
  // The characters that stand in the field.
  std::string_view GetCharacters(std::string_view key) const;
  // The published text of a code, also of one that shares its field with flags.
  std::string_view GetCodeText(std::string_view key) const;
  // The published text of a code among several values in the field.
  std::string_view GetPartText(std::string_view key, std::string_view part) const;
  // Whether a bit of the field is set.
  std::optional<bool> GetBit(std::string_view key, std::uint8_t bit) const;

 private:
  Structure Source;
  const StructureType* Type = nullptr;
};

}  // namespace kestrel::catalog
