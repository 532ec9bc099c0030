#include "tools/kestrel/json_document.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/type_catalog.h"
#include "tools/kestrel/windows_1252.h"

namespace kestrel {

namespace {

using Json = nlohmann::ordered_json;
using catalog::DecodedField;
using catalog::DecodedFields;
using catalog::FieldKind;
using catalog::Structure;
using Strings = std::vector<std::string_view>;

constexpr int kSchema = 1;
constexpr std::size_t kIndent = 2;

// Keys within an object differ, so that there is no need to look for them.
void Add(Json& object, std::string_view key, Json value) {
  auto& members = object.get_ref<Json::object_t&>();
  members.emplace_back(std::string(key), std::move(value));
}

Json TextOrNull(std::string_view text) { return text.empty() ? Json() : Json(std::string(text)); }

std::string FromFirmware(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    AppendUtf8(text, FromWindows1252(static_cast<unsigned char>(byte)));
  }
  return text;
}

void AppendHex(std::string& text, std::uint8_t byte, std::string_view digits) {
  text.push_back(digits[byte >> 4]);
  text.push_back(digits[byte & 0xFU]);
}

std::string HexOf(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::uint8_t byte : bytes) {
    AppendHex(text, byte, "0123456789abcdef");
  }
  return text;
}

// From version 2.6 on the first three fields are little-endian.
std::string TextOfUuid(std::span<const std::uint8_t> bytes, SmbiosVersion version) {
  constexpr std::size_t kLittleEndian[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  const bool isLittleEndian = version.Major > 2 || (version.Major == 2 && version.Minor >= 6);
  std::string text;
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    if (index == 4 || index == 6 || index == 8 || index == 10) {
      text.push_back('-');
    }
    AppendHex(text, bytes[isLittleEndian ? kLittleEndian[index] : index], "0123456789ABCDEF");
  }
  return text;
}

std::string TextOfCharacters(std::span<const std::uint8_t> bytes) {
  std::string text(bytes.begin(), bytes.end());
  text.resize(text.find_last_not_of('\0') + 1);
  return FromFirmware(text);
}

void AddCode(Json& object, std::uint64_t value, std::span<const catalog::Code> codes) {
  const auto code = std::lower_bound(
      codes.begin(), codes.end(), value,
      [](const catalog::Code& row, std::uint64_t number) { return row.Value < number; });
  const bool isListed = code != codes.end() && code->Value == value;
  Add(object, "code", value);
  Add(object, "text", isListed ? Json(std::string(code->Text)) : Json());
}

Json CodeToJson(std::uint64_t value, std::span<const catalog::Code> codes) {
  Json json = Json::object();
  AddCode(json, value, codes);
  return json;
}

Json BitsToJson(std::uint64_t value, std::span<const catalog::Bit> bits) {
  Json set = Json::array();
  for (const catalog::Bit& bit : bits) {
    if ((value >> bit.Number & 1U) != 0) {
      set.push_back(std::string(bit.Text));
    }
  }
  Json json = Json::object();
  Add(json, "value", value);
  Add(json, "set", std::move(set));
  return json;
}

Json PartsToJson(std::uint64_t whole, std::span<const catalog::Part> parts) {
  Json json = Json::object();
  Add(json, "value", whole);
  for (const catalog::Part& part : parts) {
    const std::uint64_t value = whole >> part.FirstBit & ((std::uint64_t{1} << part.Width) - 1);
    if (part.Key.empty()) {
      AddCode(json, value, part.Codes);
    } else if (part.Kind == catalog::PartKind::Code) {
      Add(json, part.Key, CodeToJson(value, part.Codes));
    } else {
      Add(json, part.Key, part.Kind == catalog::PartKind::Flag ? Json(value != 0) : Json(value));
    }
  }
  return json;
}

Json QuantityToJson(const DecodedField& field) {
  if (!field.IsKnown) {
    return {};
  }
  return field.Definition->Conversion.IsSigned ? Json(static_cast<std::int64_t>(field.Number))
                                               : Json(field.Number);
}

// Turns the fields of one structure into JSON.
class FieldWriter {
 public:
  FieldWriter(SmbiosVersion version, const Json& strings) : Version(version), Strings(strings) {}

  Json ObjectOf(const DecodedFields& fields) const {
    Json json = Json::object();
    for (const DecodedField& field : fields) {
      Add(json, field.Definition->Key, ValueOf(field));
    }
    return json;
  }

 private:
  Json ValueOf(const DecodedField& field) const {
    const catalog::Field& definition = *field.Definition;
    switch (definition.Kind) {
      case FieldKind::Number:
      case FieldKind::Handle:
      case FieldKind::Reserved:
        break;
      case FieldKind::String:
        return StringOf(field.Number);
      case FieldKind::Code:
        return CodeToJson(field.Number, definition.Codes);
      case FieldKind::Bits:
        return BitsToJson(field.Number, definition.Bits);
      case FieldKind::Parts:
        return PartsToJson(field.Number, definition.Parts);
      case FieldKind::Uuid:
        return TextOfUuid(field.Bytes, Version);
      case FieldKind::Characters:
        return TextOfCharacters(field.Bytes);
      case FieldKind::Bytes:
        return HexOf(field.Bytes);
      case FieldKind::List:
        return ListOf(field);
      case FieldKind::Quantity:
        return QuantityToJson(field);
    }
    return field.Number;
  }

  Json StringOf(std::uint64_t number) const {
    return number == 0 || number > Strings.size() ? Json()
                                                  : Strings[static_cast<std::size_t>(number) - 1];
  }

  Json ListOf(const DecodedField& field) const {
    Json json = Json::array();
    for (const DecodedFields& entry : field.Entries) {
      const bool isPlain = field.Definition->Entries->Fields.front().Key.empty();
      json.push_back(isPlain ? ValueOf(entry.front()) : ObjectOf(entry));
    }
    return json;
  }

  SmbiosVersion Version;
  const Json& Strings;
};

Json ToJson(const Structure& structure, SmbiosVersion version) {
  Json strings = Json::array();
  for (const std::string_view text : structure.GetStrings()) {
    strings.push_back(FromFirmware(text));
  }
  Json fields = Json::object();
  if (const auto* type = catalog::FindStructureType(structure.Type)) {
    fields = FieldWriter(version, strings).ObjectOf(catalog::DecodeFields(structure, *type));
  }
  Json json = Json::object();
  Add(json, "offset", structure.Offset);
  Add(json, "handle", structure.Handle);
  Add(json, "type", structure.Type);
  Add(json, "name", TextOrNull(catalog::GetTypeName(structure.Type)));
  Add(json, "length", structure.GetLength());
  Add(json, "fields", std::move(fields));
  Add(json, "strings", std::move(strings));
  Add(json, "data", HexOf(structure.Formatted));
  return json;
}

// Appends a value that stands `depth` levels deep. Control characters that JSON would let through
// are escaped like the others: DEL, and those at 80h to 9Fh, which start with C2h in UTF-8.
void AppendJson(std::string& text, const Json& json, std::size_t depth) {
  const std::string dumped = json.dump(int{kIndent});
  for (std::size_t index = 0; index < dumped.size(); ++index) {
    const auto byte = static_cast<unsigned char>(dumped[index]);
    const auto next = static_cast<unsigned char>(dumped[std::min(index + 1, dumped.size() - 1)]);
    if (byte == '\n') {
      text.push_back('\n');
      text.append(kIndent * depth, ' ');
    } else if (byte == 0x7F) {
      text.append("\\u007f");
    } else if (byte == 0xC2 && next < 0xA0) {
      text.append("\\u00");
      AppendHex(text, next, "0123456789abcdef");
      ++index;
    } else {
      text.push_back(dumped[index]);
    }
  }
}

std::string TextOfVersion(SmbiosVersion version) {
  std::string text;
  Append(text, {Decimal(version.Major), ".", Decimal(version.Minor)});
  return text;
}

Json AnchorOf(EntryPointKind kind) {
  switch (kind) {
    case EntryPointKind::None:
      break;
    case EntryPointKind::Bits32:
      return "_SM_";
    case EntryPointKind::Bits64:
      return "_SM3_";
  }
  return {};
}

}  // namespace

std::string MakeJsonDocument(const SmbiosTable& table, const catalog::TableScan& scan,
                             std::span<const std::uint8_t> types) {
  const EntryPointFacts& entryPoint = table.EntryPoint;
  Json smbios = Json::object();
  Add(smbios, "version", TextOfVersion(entryPoint.Version));
  Add(smbios, "entry_point", AnchorOf(entryPoint.Kind));
  Add(smbios, "table_length", entryPoint.TableLength);

  // One structure at a time, since a tree of all would take many times the room of the text.
  std::string text;
  Append(text, {"{\n  \"schema\": ", Decimal(kSchema), ",\n  \"smbios\": "});
  AppendJson(text, smbios, 1);
  text.append(",\n  \"structures\": [");
  std::string_view separator = "\n    ";
  for (const Structure& structure : scan.Structures) {
    const bool isWanted =
        types.empty() || std::find(types.begin(), types.end(), structure.Type) != types.end();
    if (isWanted) {
      text.append(separator);
      AppendJson(text, ToJson(structure, entryPoint.Version), 2);
      separator = ",\n    ";
    }
  }
  text.append(separator.front() == ',' ? "\n  ]\n}\n" : "]\n}\n");
  return text;
}

}  // namespace kestrel
