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
using catalog::Kind;
using catalog::Part;
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

std::uint64_t ValueOfPart(const Part& part, std::uint64_t whole) {
  return whole >> part.FirstBit & ((std::uint64_t{1} << part.Width) - 1);
}

std::string TextOfPart(const Part& part, std::uint64_t whole) {
  constexpr std::size_t kWidth = 1;
  const std::uint64_t value = ValueOfPart(part, whole);
  switch (part.PartKind) {
    case Part::Kind::Flag:
      return value != 0 ? "yes" : "no";
    case Part::Kind::Code:
      return TextOfCode(part.Codes, value, kWidth);
    case Part::Kind::Number:
      break;
  }
  return TextOfNumber(part.Key, value, kWidth);
}

std::string TextOfUuidOrNone(std::span<const std::uint8_t> bytes, SmbiosVersion version) {
  if (catalog::IsNoUuid(bytes)) {
    return bytes.front() == 0 ? "not set" : "not present";
  }
  return catalog::TextOfUuid(bytes, version);
}

// The offsets of fields of which a quantity of another field is made.
std::bitset<256> OffsetsOfOperands(const DecodedFields& fields) {
  std::bitset<256> offsets;
  for (const DecodedField& field : fields) {
    if (field.Definition->FieldKind == Kind::Derived) {
      offsets.set(field.Definition->Derived->Second);
    }
  }
  // A field at offset 0 has none.
  return offsets.reset(0);
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
  void AddFields(const DecodedFields& fields, std::size_t depth, bool isEntry);
  void AddField(const DecodedField& field, const StructureLine& line);
  void AddQuantity(const DecodedField& field, const DecodedField& quantity,
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

void LineMaker::AddFields(const DecodedFields& fields, std::size_t depth, bool isEntry) {
  const std::bitset<256> operands = OffsetsOfOperands(fields);
  StructureLine line = {.Depth = depth, .BeginsEntry = isEntry};
  for (std::size_t index = 0; index < fields.size(); ++index) {
    const DecodedField& field = fields[index];
    const catalog::Field& definition = *field.Definition;
    if (operands.test(definition.Offset)) {
      continue;
    }
    const std::string label =
        LabelOf(definition.FieldKind == Kind::Handle ? WithoutEnding(definition.Key, "_handle")
                                                     : definition.Key);
    line.Label = label;
    const bool hasQuantity =
        index + 1 < fields.size() && fields[index + 1].Definition->FieldKind == Kind::Derived;
    if (hasQuantity) {
      AddQuantity(field, fields[++index], line);
    } else {
      AddField(field, line);
    }
    line.BeginsEntry = false;
  }
}

void LineMaker::AddField(const DecodedField& field, const StructureLine& line) {
  const catalog::Field& definition = *field.Definition;
  switch (definition.FieldKind) {
    case Kind::Number:
      Add(line, TextOfNumber(definition.Key, field.Number, field.Bytes.size()));
      break;
    case Kind::String:
      AddString(field, line);
      break;
    case Kind::Code:
      Add(line, TextOfCode(definition.Codes, field.Number, field.Bytes.size()));
      break;
    case Kind::Bits:
      AddBits(field, line);
      break;
    case Kind::Parts:
      AddParts(field, line);
      break;
    case Kind::Handle:
      AddHandle(field, line);
      break;
    case Kind::Uuid:
      Add(line, TextOfUuidOrNone(field.Bytes, Version));
      break;
    case Kind::Characters:
      Add(line, WithoutBlanks(TextOfFirmware(TableCursor(field.Bytes).String())));
      break;
    case Kind::Bytes:
      AddBytes(field.Bytes, line);
      break;
    case Kind::List:
      AddList(field, line);
      break;
    case Kind::Reserved:
    case Kind::Derived:
      break;
  }
}

void LineMaker::AddQuantity(const DecodedField& field, const DecodedField& quantity,
                            const StructureLine& line) {
  Add(line,
      quantity.Derived ? TextOfQuantity(quantity.Definition->Key, *quantity.Derived) : "unknown");
  // Beside the number there may be flags.
  for (const Part& part : field.Definition->Parts) {
    if (part.PartKind != Part::Kind::Number) {
      AddBelow(line, LabelOf(part.Key), TextOfPart(part, field.Number));
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
