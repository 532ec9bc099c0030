#include "tools/kestrel/json_document.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "base/entry_point_layout.h"
#include "base/table_cursor.h"
#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/meant_version.h"
#include "catalog/type_catalog.h"
#include "catalog/uuid.h"
#include "tools/kestrel/json_text.h"
#include "tools/kestrel/json_writer.h"
#include "tools/kestrel/overview_json.h"

namespace kestrel {

namespace {

using catalog::DecodedField;
using catalog::DecodedFields;
using catalog::FieldKind;
using catalog::Structure;

constexpr unsigned kSchema = 1;

// The strings of a structure as JSON, each converted once however many fields name it.
class QuotedStrings {
 public:
  void Set(const Structure& structure) {
    Quoted.clear();
    Starts.clear();
    if (!structure.HasStrings()) {
      return;
    }
    // Six bytes for each of a string's own, and three for the zero that ends it: the text never
    // grows into another one. Room that stays unused is never touched.
    Quoted.reserve(6 * structure.StringSet.size());
    TableCursor cursor(structure.StringSet);
    while (!cursor.IsAtEnd()) {
      if (Starts.size() < kMostNamed) {
        Starts.push_back(Quoted.size());
      }
      AppendQuotedFirmwareText(Quoted, cursor.String());
      Quoted.push_back(kEnd);
      cursor.SkipString();
    }
  }

  // Empty for number 0, and for a number beyond the set.
  std::string_view Get(std::uint64_t number) const {
    return number == 0 || number > Starts.size()
               ? std::string_view()
               : FirstOf(GetAll().substr(Starts[static_cast<std::size_t>(number) - 1]));
  }

  // All of them, one after the other.
  std::string_view GetAll() const { return Quoted; }
  static std::string_view TakeFirst(std::string_view& all) {
    const std::string_view first = FirstOf(all);
    all.remove_prefix(first.size() + 1);
    return first;
  }

 private:
  // No JSON string has one inside.
  static constexpr char kEnd = '\n';
  // A string's number is a byte.
  static constexpr std::size_t kMostNamed = 255;

  static std::string_view FirstOf(std::string_view all) { return all.substr(0, all.find(kEnd)); }

  std::string Quoted;
  std::vector<std::size_t> Starts;
};

// Writes documents by a writer of RapidJSON.
template <typename Writer>
class DocumentWriter {
 public:
  explicit DocumentWriter(Output& output)
      : Stream(output), Levels(Room.data(), sizeof(Room)), Json(Stream, &Levels) {
    if constexpr (std::is_same_v<Writer, JsonIndentedWriter>) {
      Json.SetIndent(' ', kJsonIndent);
    }
  }

  catalog::ScanEnd WriteTable(const SmbiosTable& table, const JsonOptions& options) {
    Version = catalog::MeantVersion(table.EntryPoint.Version);
    Start();
    if (options.Source) {
      Utf8("source", *options.Source);
    }
    WriteEntryPoint(table.EntryPoint);
    const catalog::ScanEnd end =
        options.OnlyOverview ? FindEnd(table) : WriteStructures(table, options.Types);
    if (options.Types.empty()) {
      Key("overview");
      WriteJsonOverview(Json, Overview(table));
    }
    End();
    return end;
  }

  void WriteFaults(const catalog::FaultList& faults, std::optional<std::string_view> source) {
    Start();
    if (source) {
      Utf8("source", *source);
    } else {
      Key("source");
      Json.Null();
    }
    Key("faults");
    Json.StartArray();
    for (const catalog::Fault& fault : faults.GetFaults()) {
      WriteFault(fault);
    }
    Json.EndArray();
    End();
  }

  void WriteError(std::string_view source, std::string_view message) {
    Start();
    Utf8("source", source);
    Utf8("error", message);
    End();
  }

 private:
  void Start() {
    Json.StartObject();
    Number("schema", kSchema);
  }
  void End() {
    Json.EndObject();
    Stream.Put('\n');
  }

  static rapidjson::SizeType SizeOf(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
  }

  void Key(std::string_view key) { Json.PlainText(key); }
  void Number(std::string_view key, std::uint64_t value) {
    Key(key);
    Json.Uint64(value);
  }
  template <typename Integer>
  void NumberOrNull(std::string_view key, const std::optional<Integer>& value) {
    Key(key);
    Json.UintOrNull(value);
  }
  // A text of the tool's own; null where it is empty.
  void TextOrNull(std::string_view text) {
    text.empty() ? Json.Null() : Json.String(text.data(), SizeOf(text));
  }
  void Utf8(std::string_view key, std::string_view text) {
    Key(key);
    Scratch.clear();
    AppendQuotedUtf8(Scratch, text);
    Json.QuotedOrNull(Scratch);
  }
  void Hex(std::span<const std::uint8_t> bytes) {
    Scratch.clear();
    AppendQuotedHex(Scratch, bytes);
    Json.QuotedOrNull(Scratch);
  }

  static catalog::ScanEnd FindEnd(const SmbiosTable& table) {
    catalog::StructureScanner scanner(table);
    while (scanner.Next()) {
    }
    return scanner.GetEnd();
  }
  catalog::ScanEnd WriteStructures(const SmbiosTable& table, std::span<const std::uint8_t> types);

  void WriteEntryPoint(const EntryPointFacts& entryPoint);
  void WriteFault(const catalog::Fault& fault);
  void WriteStructure(const Structure& structure);
  void WriteFields(const DecodedFields& fields);
  void WriteValue(const DecodedField& field);
  void WriteCodeMembers(std::uint64_t value, std::span<const catalog::Code> codes);
  void WriteCode(std::uint64_t value, std::span<const catalog::Code> codes);
  void WriteBits(std::uint64_t value, std::span<const catalog::Bit> bits);
  void WriteParts(std::uint64_t whole, std::span<const catalog::Part> parts);
  void WriteCharacters(std::span<const std::uint8_t> bytes);
  void WriteList(const DecodedField& field);

  JsonStream Stream;
  JsonLevelRoom Room;
  JsonLevelAllocator Levels;
  Writer Json;
  SmbiosVersion Version;
  QuotedStrings Strings;
  std::string Scratch;
};

std::string_view AnchorOf(EntryPointKind kind) {
  switch (kind) {
    case EntryPointKind::None:
      break;
    case EntryPointKind::Bits32:
      return entry_point32::kAnchor;
    case EntryPointKind::Bits64:
      return entry_point64::kAnchor;
  }
  return {};
}

template <typename Writer>
void DocumentWriter<Writer>::WriteEntryPoint(const EntryPointFacts& entryPoint) {
  Key("smbios");
  Json.StartObject();
  Key("version");
  TextOrNull(Join({Decimal(entryPoint.Version.Major), ".", Decimal(entryPoint.Version.Minor)}));
  Key("entry_point");
  TextOrNull(AnchorOf(entryPoint.Kind));
  Number("table_length", entryPoint.TableLength);
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteFault(const catalog::Fault& fault) {
  Json.StartObject();
  NumberOrNull("offset", fault.Place.Offset);
  NumberOrNull("type", fault.Place.Type);
  NumberOrNull("handle", fault.Place.Handle);
  Key("severity");
  TextOrNull(fault.Severity == catalog::FaultSeverity::Error ? "error" : "remark");
  Key("text");
  TextOrNull(fault.Text);
  Json.EndObject();
}

template <typename Writer>
catalog::ScanEnd DocumentWriter<Writer>::WriteStructures(const SmbiosTable& table,
                                                         std::span<const std::uint8_t> types) {
  Key("structures");
  Json.StartArray();
  catalog::StructureScanner scanner(table);
  while (const auto structure = scanner.Next()) {
    if (types.empty() || std::find(types.begin(), types.end(), structure->Type) != types.end()) {
      WriteStructure(*structure);
    }
  }
  Json.EndArray();
  return scanner.GetEnd();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteStructure(const Structure& structure) {
  Strings.Set(structure);
  Json.StartObject();
  Number("offset", structure.Offset);
  Number("handle", structure.Handle);
  Number("type", structure.Type);
  Key("name");
  TextOrNull(catalog::GetTypeName(structure.Type));
  Number("length", structure.GetLength());
  Key("fields");
  const auto* type = catalog::FindStructureType(structure.Type);
  WriteFields(type != nullptr ? catalog::DecodeFields(structure, *type) : DecodedFields());
  Key("strings");
  Json.StartArray();
  for (std::string_view strings = Strings.GetAll(); !strings.empty();) {
    Json.QuotedOrNull(QuotedStrings::TakeFirst(strings));
  }
  Json.EndArray();
  Key("data");
  Hex(structure.Formatted);
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteFields(const DecodedFields& fields) {
  Json.StartObject();
  for (const DecodedField& field : fields) {
    Key(field.Definition->Key);
    WriteValue(field);
  }
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteValue(const DecodedField& field) {
  if (!field.IsKnown) {
    Json.Null();
    return;
  }
  const catalog::Field& definition = *field.Definition;
  switch (definition.Kind) {
    case FieldKind::Number:
    case FieldKind::Handle:
    case FieldKind::Reserved:
      Json.Uint64(field.Number);
      break;
    case FieldKind::String:
      Json.QuotedOrNull(Strings.Get(field.Number));
      break;
    case FieldKind::Code:
      WriteCode(field.Number, definition.Codes);
      break;
    case FieldKind::Bits:
      WriteBits(field.Number, definition.Bits);
      break;
    case FieldKind::Parts:
      WriteParts(field.Number, definition.Parts);
      break;
    case FieldKind::Uuid:
      Json.PlainText(catalog::TextOfUuid(field.Bytes, Version));
      break;
    case FieldKind::Characters:
      WriteCharacters(field.Bytes);
      break;
    case FieldKind::Bytes:
      Hex(field.Bytes);
      break;
    case FieldKind::List:
      WriteList(field);
      break;
    case FieldKind::Quantity:
      definition.Conversion.IsSigned ? Json.Int64(static_cast<std::int64_t>(field.Number))
                                     : Json.Uint64(field.Number);
      break;
  }
}

template <typename Writer>
void DocumentWriter<Writer>::WriteCodeMembers(std::uint64_t value,
                                              std::span<const catalog::Code> codes) {
  Number("code", value);
  Key("text");
  TextOrNull(catalog::FindText(codes, value));
}

template <typename Writer>
void DocumentWriter<Writer>::WriteCode(std::uint64_t value, std::span<const catalog::Code> codes) {
  Json.StartObject();
  WriteCodeMembers(value, codes);
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteBits(std::uint64_t value, std::span<const catalog::Bit> bits) {
  Json.StartObject();
  Number("value", value);
  Key("set");
  Json.StartArray();
  for (const catalog::Bit& bit : bits) {
    if ((value >> bit.Number & 1U) != 0) {
      TextOrNull(bit.Text);
    }
  }
  Json.EndArray();
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteParts(std::uint64_t whole, std::span<const catalog::Part> parts) {
  Json.StartObject();
  Number("value", whole);
  for (const catalog::Part& part : parts) {
    const std::uint64_t value = ValueOf(part, whole);
    if (part.Key.empty()) {
      WriteCodeMembers(value, part.Codes);
      continue;
    }
    Key(part.Key);
    switch (part.Kind) {
      case catalog::PartKind::Number:
        Json.Uint64(value);
        break;
      case catalog::PartKind::Flag:
        Json.Bool(value != 0);
        break;
      case catalog::PartKind::Code:
        WriteCode(value, part.Codes);
        break;
    }
  }
  Json.EndObject();
}

template <typename Writer>
void DocumentWriter<Writer>::WriteCharacters(std::span<const std::uint8_t> bytes) {
  // Text and bytes share their storage; char may alias any object.
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  Scratch.clear();
  AppendQuotedFirmwareText(Scratch, text);
  Json.QuotedOrNull(Scratch);
}

template <typename Writer>
void DocumentWriter<Writer>::WriteList(const DecodedField& field) {
  const bool isPlain = field.Definition->Entries->Fields.front().Key.empty();
  Json.StartArray();
  for (const DecodedFields& entry : field.Entries) {
    isPlain ? WriteValue(entry.front()) : WriteFields(entry);
  }
  Json.EndArray();
}

}  // namespace

catalog::ScanEnd WriteJsonDocument(const SmbiosTable& table, const JsonOptions& options,
                                   Output& output) {
  return options.OneLine ? DocumentWriter<JsonLineWriter>(output).WriteTable(table, options)
                         : DocumentWriter<JsonIndentedWriter>(output).WriteTable(table, options);
}

void WriteJsonFaults(const catalog::FaultList& faults, std::optional<std::string_view> source,
                     Output& output) {
  DocumentWriter<JsonLineWriter>(output).WriteFaults(faults, source);
}

void WriteJsonError(std::string_view source, std::string_view message, Output& output) {
  DocumentWriter<JsonLineWriter>(output).WriteError(source, message);
}

}  // namespace kestrel
