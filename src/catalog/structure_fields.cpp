#include "catalog/structure_fields.h"

#include "base/table_cursor.h"
#include "catalog/type_catalog.h"

namespace kestrel::catalog {

StructureFields::StructureFields(const Structure& structure)
    : Source(structure), Type(FindStructureType(structure.Type)) {}

std::optional<DecodedValue> StructureFields::Find(std::string_view key) const {
  return Type != nullptr ? DecodeField(Source, *Type, key) : std::nullopt;
}

std::optional<std::uint64_t> StructureFields::GetNumber(std::string_view key) const {
  const std::optional<DecodedValue> field = Find(key);
  return field ? std::optional(field->Number) : std::nullopt;
}

std::optional<std::uint64_t> StructureFields::GetQuantity(std::string_view key) const {
  const std::optional<DecodedValue> field = Find(key);
  return field && field->IsKnown ? std::optional(field->Number) : std::nullopt;
}

std::string_view StructureFields::GetString(std::string_view key) const {
  return Source.GetString(GetNumber(key).value_or(0));
}

std::string_view StructureFields::GetCharacters(std::string_view key) const {
  const std::optional<DecodedValue> field = Find(key);
  return field ? TableCursor(field->Bytes).String() : std::string_view();
}

std::string_view StructureFields::GetCodeText(std::string_view key) const {
  const std::optional<DecodedValue> field = Find(key);
  if (!field) {
    return {};
  }
  for (const Part& part : field->Definition->Parts) {
    if (part.Key.empty()) {
      return FindText(part.Codes, ValueOf(part, field->Number));
    }
  }
  return FindText(field->Definition->Codes, field->Number);
}

std::string_view StructureFields::GetPartText(std::string_view key, std::string_view part) const {
  const std::optional<DecodedValue> field = Find(key);
  if (field) {
    for (const Part& known : field->Definition->Parts) {
      if (known.Key == part) {
        return FindText(known.Codes, ValueOf(known, field->Number));
      }
    }
  }
  return {};
}

std::optional<bool> StructureFields::GetBit(std::string_view key, std::uint8_t bit) const {
  const std::optional<std::uint64_t> number = GetNumber(key);
  return number ? std::optional((*number >> bit & 1U) != 0) : std::nullopt;
}

}  // namespace kestrel::catalog
