#include "tools/kestrel/structure_lines.h"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "base/structure_header.h"
#include "base/table_cursor.h"
#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/type_catalog.h"
#include "catalog/uuid.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

using catalog::DecodedField;
using catalog::DecodedFields;
using catalog::FieldKind;
using catalog::Part;
using catalog::PartKind;
using catalog::Structure;

// Handles that name no structure: there is none, or the firmware does not say which.
constexpr std::uint64_t kNoHandle = 0xFFFF;
constexpr std::uint64_t kNotProvided = 0xFFFE;

// A string as a line shows it.
std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos
             ? "(blank)"
             : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string_view WithoutEnding(std::string_view key, std::string_view ending) {
  return key.ends_with(ending) ? key.substr(0, key.size() - ending.size()) : key;
}

std::string TextOfPart(const Part& part, std::uint64_t whole) {
  constexpr std::size_t kWidth = 1;
  const std::uint64_t value = ValueOf(part, whole);
  switch (part.Kind) {
    case PartKind::Flag:
      return value != 0 ? "yes" : "no";
    case PartKind::Code:
      return TextOfCode(part.Codes, value, kWidth);
    case PartKind::Number:
      break;
  }
  return TextOfNumber(part.Key, value, kWidth, part.Codes);
}

std::string TextOf(const DecodedField& quantity) {
  const catalog::Field& definition = *quantity.Definition;
  return quantity.IsKnown
             ? TextOfQuantity(definition.Key, quantity.Number, definition.Conversion.IsSigned)
             : "unknown";
}

bool IsQuantity(const DecodedField& field) { return field.Definition->Kind == FieldKind::Quantity; }

// The offsets of fields that hold more of a number before them, for which the quantity stands that
// is made of both.
std::bitset<256> OffsetsOfExtensions(std::span<const DecodedField> fields) {
  std::bitset<256> offsets;
  std::uint8_t offset = 0;
  for (const DecodedField& field : fields) {
    if (!IsMadeOfNumberBefore(*field.Definition)) {
      offset = field.Definition->Offset;
    } else if (IsQuantity(field)) {
      for (const catalog::NumberPlace& place : field.Definition->Conversion.Others) {
        if (place.Offset > offset && !place.SaysMore) {
          offsets.set(place.Offset);
        }
      }
    }
  }
  return offsets;
}

// Makes the lines of one structure.
class LineMaker {
 public:
  LineMaker(const Structure& structure, SmbiosVersion version, HandleNames& names,
            const TakeLine& take)
      : Source(structure), Version(version), Names(names), Take(take) {}

  void MakeLines() {
    const catalog::StructureType* type = catalog::FindStructureType(Source.Type);
    if (type != nullptr) {
      AddFields(catalog::DecodeFields(Source, *type), 0, false);
    }
    AddOtherStrings();
    if (type == nullptr) {
      AddBytes(Source.Formatted.subspan(kHeaderSize), {.Label = "Bytes"});
    }
  }

 private:
  void AddFields(std::span<const DecodedField> fields, std::size_t depth, bool isEntry);
  void AddField(const DecodedField& field, const StructureLine& line);
  // A field, and what is made of its number.
  void AddNumber(const DecodedField& field, std::span<const DecodedField> madeOfIt,
                 const StructureLine& line);
  void AddBits(const DecodedField& field, const StructureLine& line);
  void AddParts(const DecodedField& field, StructureLine line);
  void AddHandle(const DecodedField& field, StructureLine line);
  void AddString(const DecodedField& field, const StructureLine& line);
  void AddBytes(std::span<const std::uint8_t> bytes, const StructureLine& line);
  void AddList(const DecodedField& list, const StructureLine& line);
  void AddOtherStrings();

  void Add(StructureLine line, std::string_view value) const {
    line.Value = value;
    Take(line);
  }

  void AddBelow(const StructureLine& line, std::string_view label, std::string_view value) const {
    Take({.Depth = line.Depth + 1, .Label = label, .Value = value});
  }

  const Structure& Source;
  SmbiosVersion Version;
  HandleNames& Names;
  const TakeLine& Take;
  // The strings that fields name, by number: as long as the table, and named any number of times.
  std::map<std::uint64_t, std::string> NamedStrings;
};

void LineMaker::AddFields(std::span<const DecodedField> fields, std::size_t depth, bool isEntry) {
  const std::bitset<256> extensions = OffsetsOfExtensions(fields);
  StructureLine line = {.Depth = depth, .BeginsEntry = isEntry};
  while (!fields.empty()) {
    const DecodedField& field = fields.front();
    const catalog::Field& definition = *field.Definition;
    const auto end = std::find_if(fields.begin() + 1, fields.end(), [](const DecodedField& next) {
      return !IsMadeOfNumberBefore(*next.Definition);
    });
    const auto madeOfIt = std::span(fields.begin() + 1, end);
    fields = fields.last(fields.size() - 1 - madeOfIt.size());
    if (extensions.test(definition.Offset)) {
      continue;
    }
    const std::string label =
        LabelOf(definition.Kind == FieldKind::Handle ? WithoutEnding(definition.Key, "_handle")
                                                     : definition.Key);
    line.Label = label;
    AddNumber(field, madeOfIt, line);
    line.BeginsEntry = false;
  }
}

void LineMaker::AddField(const DecodedField& field, const StructureLine& line) {
  const catalog::Field& definition = *field.Definition;
  switch (definition.Kind) {
    case FieldKind::Number:
      Add(line, TextOfNumber(definition.Key, field.Number, field.Bytes.size(), definition.Codes));
      break;
    case FieldKind::String:
      AddString(field, line);
      break;
    case FieldKind::Code:
      Add(line, TextOfCode(definition.Codes, field.Number, field.Bytes.size()));
      break;
    case FieldKind::Bits:
      AddBits(field, line);
      break;
    case FieldKind::Parts:
      AddParts(field, line);
      break;
    case FieldKind::Handle:
      AddHandle(field, line);
      break;
    case FieldKind::Uuid:
      Add(line, field.IsKnown              ? catalog::TextOfUuid(field.Bytes, Version)
                : field.Bytes.front() == 0 ? "not set"
                                           : "not present");
      break;
    case FieldKind::Characters:
      Add(line, WithoutBlanks(TextOfFirmware(TableCursor(field.Bytes).String())));
      break;
    case FieldKind::Bytes:
      AddBytes(field.Bytes, line);
      break;
    case FieldKind::List:
      AddList(field, line);
      break;
    case FieldKind::Quantity:
      Add(line, TextOf(field));
      break;
    case FieldKind::Reserved:
      break;
  }
}

void LineMaker::AddNumber(const DecodedField& field, std::span<const DecodedField> madeOfIt,
                          const StructureLine& line) {
  const auto quantities = std::count_if(madeOfIt.begin(), madeOfIt.end(), IsQuantity);
  const auto isKnown = [](const DecodedField& other) { return IsQuantity(other) && other.IsKnown; };
  if (quantities == 1) {
    Add(line, TextOf(*std::find_if(madeOfIt.begin(), madeOfIt.end(), IsQuantity)));
    // Beside the number there may be flags.
    for (const Part& part : field.Definition->Parts) {
      if (part.Kind != PartKind::Number) {
        AddBelow(line, LabelOf(part.Key), TextOfPart(part, field.Number));
      }
    }
  } else if (std::none_of(madeOfIt.begin(), madeOfIt.end(), isKnown)) {
    AddField(field, line);
  }
  for (const DecodedField& other : madeOfIt) {
    if (other.IsKnown && !(quantities == 1 && IsQuantity(other))) {
      const std::string label = LabelOf(other.Definition->Key);
      AddField(other, {.Depth = line.Depth, .Label = label});
    }
  }
}

void LineMaker::AddBits(const DecodedField& field, const StructureLine& line) {
  const auto isSet = [&field](const catalog::Bit& bit) {
    return (field.Number >> bit.Number & 1U) != 0;
  };
  const auto& bits = field.Definition->Bits;
  if (std::none_of(bits.begin(), bits.end(), isSet)) {
    Add(line, field.Number == 0 ? "none" : TextOfCode({}, field.Number, field.Bytes.size()));
    return;
  }
  Add(line, {});
  for (const catalog::Bit& bit : bits) {
    if (isSet(bit)) {
      AddBelow(line, {}, bit.Text);
    }
  }
}

void LineMaker::AddParts(const DecodedField& field, StructureLine line) {
  const std::string_view other = catalog::FindText(field.Definition->Codes, field.Number);
  if (!other.empty()) {
    Add(line, other);
    return;
  }
  const auto& parts = field.Definition->Parts;
  // A code that is the field itself.
  const auto code =
      std::find_if(parts.begin(), parts.end(), [](const Part& part) { return part.Key.empty(); });
  Add(line, code != parts.end() ? TextOfPart(*code, field.Number) : std::string());
  for (const Part& part : parts) {
    if (!part.Key.empty()) {
      AddBelow(line, LabelOf(part.Key), TextOfPart(part, field.Number));
    }
  }
}

void LineMaker::AddHandle(const DecodedField& field, StructureLine line) {
  if (field.Number == kNoHandle || field.Number == kNotProvided) {
    Add(line, field.Number == kNoHandle ? "none" : "not provided");
    return;
  }
  line.Target = Names.Find(static_cast<std::uint16_t>(field.Number));
  Add(line, Join({Hex(field.Number, 4), "h (",
                  line.Target != nullptr ? Names.NameOf(*line.Target) : "no structure", ")"}));
}

void LineMaker::AddString(const DecodedField& field, const StructureLine& line) {
  if (field.Number == 0) {
    return;
  }
  const auto [known, isNew] = NamedStrings.try_emplace(field.Number);
  if (isNew) {
    known->second = TextOfFirmware(Source.GetString(field.Number));
  }
  if (!known->second.empty()) {
    Add(line, WithoutBlanks(known->second));
  }
}

void LineMaker::AddBytes(std::span<const std::uint8_t> bytes, const StructureLine& line) {
  constexpr std::size_t kMostInLine = 16;
  if (bytes.size() <= kMostInLine) {
    if (!bytes.empty()) {
      Add(line, TextOfBytes(bytes));
    }
    return;
  }
  Add(line, {});
  for (; !bytes.empty(); bytes = bytes.subspan(std::min(kMostInLine, bytes.size()))) {
    AddBelow(line, {}, TextOfBytes(bytes.first(std::min(kMostInLine, bytes.size()))));
  }
}

void LineMaker::AddList(const DecodedField& list, const StructureLine& line) {
  if (list.Entries.empty()) {
    return;
  }
  Add(line, {});
  for (const DecodedFields& entry : list.Entries) {
    AddFields(entry, line.Depth + 1, entry.size() > 1);
  }
}

void LineMaker::AddOtherStrings() {
  const StructureLine line = {.Label = "Strings"};
  std::uint64_t number = 0;
  bool isFirst = true;
  Source.ForEachString([&](std::string_view text) {
    ++number;
    if (NamedStrings.contains(number)) {
      return;
    }
    if (isFirst) {
      Add(line, {});
      isFirst = false;
    }
    AddBelow(line, Decimal(number), WithoutBlanks(TextOfFirmware(text)));
  });
}

}  // namespace

void DescribeStructure(const catalog::Structure& structure, SmbiosVersion version,
                       HandleNames& names, const TakeLine& take) {
  LineMaker(structure, version, names, take).MakeLines();
}

}  // namespace kestrel
