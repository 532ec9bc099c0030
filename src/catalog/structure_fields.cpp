#include "catalog/structure_fields.h"

#include <algorithm>

#include "base/table_cursor.h"
#include "catalog/type_catalog.h"

namespace kestrel::catalog {

namespace {

DecodedFields FieldsOf(const Structure& structure) {
  const StructureType* type = FindStructureType(structure.Type);
  return type != nullptr ? DecodeFields(structure, *type) : DecodedFields();
}

}  // namespace

StructureFields::StructureFields(const Structure& structure)
    : Source(structure), Fields(FieldsOf(structure)) {}

const DecodedField* StructureFields::Find(std::string_view key) const {
  const auto field = std::find_if(Fields.begin(), Fields.end(), [key](const DecodedField& decoded) {
    return decoded.Definition->Key == key;
  });
  return field != Fields.end() ? &*field : nullptr;
}

std::optional<std::uint64_t> StructureFields::GetNumber(std::string_view key) const {
  const DecodedField* field = Find(key);
  return field != nullptr ? std::optional(field->Number) : std::nullopt;
}

std::optional<std::uint64_t> StructureFields::GetQuantity(std::string_view key) const {
  const DecodedField* field = Find(key);
  return field != nullptr && field->IsKnown ? std::optional(field->Number) : std::nullopt;
}

std::string_view StructureFields::GetString(std::string_view key) const {
  return Source.GetString(GetNumber(key).value_or(0));
}

std::string_view StructureFields::GetCharacters(std::string_view key) const {
  const DecodedField* field = Find(key);
  return field != nullptr ? TableCursor(field->Bytes).String() : std::string_view();
}

std::string_view StructureFields::GetCodeText(std::string_view key) const {
  const DecodedField* field = Find(key);
  if (field == nullptr) {
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
  const DecodedField* field = Find(key);
  if (field != nullptr) {
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
