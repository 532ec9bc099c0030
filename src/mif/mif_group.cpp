#include "mif/mif_group.h"

#include "model/smbios_reader.h"
#include "model/text.h"

namespace kestrel {

namespace {

constexpr std::string_view kSlashes = "////////////////////////////////////////////////////\r\n";

Digits TakeId(int& counter) { return Decimal(static_cast<std::uint32_t>(counter++)); }

void AppendDescription(std::string& document, std::string_view indent, std::string_view description,
                       std::string_view continuationIndent) {
  Append(document, {indent, "Description = "});
  for (;;) {
    const std::size_t end = description.find('\n');
    Append(document, {"\"", description.substr(0, end), "\"\r\n"});
    if (end == std::string_view::npos) {
      return;
    }
    description.remove_prefix(end + 1);
    document.append(continuationIndent);
  }
}

void AppendType(std::string& document, const MifAttribute& attribute) {
  if (attribute.Type != kEnumeration) {
    Append(document, {"\t\tType = ", attribute.Type, "\r\n"});
    return;
  }
  Append(document, {"\t\tType = Start ", attribute.EnumWord, "\r\n"});
  for (const MifEnumItem& item : attribute.Items) {
    Append(document, {"\t\t\t", Decimal(static_cast<std::uint32_t>(item.Value)), " = \"", item.Text,
                      "\"\r\n"});
  }
  Append(document, {"\t\tEnd ", attribute.EnumWord, "\r\n"});
}

void AppendValue(std::string& document, const MifAttribute& attribute, const SMBiosReader& reader) {
  if (attribute.GetValue != nullptr) {
    Append(document, {"\t\tValue = \"", (reader.*attribute.GetValue)(), "\"\r\n"});
  } else if (attribute.Value != kNoValue) {
    Append(document, {"\t\tValue = ", attribute.Value, "\r\n"});
  }
}

void AppendAttribute(std::string& document, const MifAttribute& attribute, int& attributeCounter,
                     const SMBiosReader& reader) {
  Append(document, {"\tStart Attribute\r\n\t\tName = \"", attribute.Name,
                    "\"\r\n\t\tID = ", TakeId(attributeCounter), "\r\n"});
  AppendDescription(document, "\t\t", attribute.Description, attribute.DescriptionIndent);
  Append(document, {"\t\tAccess = Read-Only\r\n\t\tStorage = ", attribute.Storage, "\r\n"});
  AppendType(document, attribute);
  AppendValue(document, attribute, reader);
  document.append("\tEnd Attribute\r\n");
}

}  // namespace

void SMBiosReader::MakeGroup(const MifGroup& group, std::string& document, int& idCounter) const {
  Append(document, {kSlashes, group.Banner, "\r\n", kSlashes, "\r\nStart Group\r\n\tName = \"",
                    group.Name, "\"\r\n\tClass = \"", group.Class, "\"\r\n"});
  std::string table;
  if (group.Table != nullptr) {
    table = MakeMifTable(*group.Table, idCounter);
  }
  if (table.empty()) {
    // A group with rows is the template of its table, which then carries the ID.
    Append(document, {"\tID = ", TakeId(idCounter), "\r\n"});
  }
  AppendDescription(document, "\t", group.Description, "\t\t");
  if (!group.Key.empty()) {
    Append(document, {"\tKey = ", group.Key, "\r\n"});
  }
  Append(document, {"\tPragma = \"", group.Pragma, "\"\r\n"});
  int attributeCounter = 1;
  for (const MifAttribute& attribute : group.Attributes) {
    AppendAttribute(document, attribute, attributeCounter, *this);
  }
  Append(document, {"End Group\r\n\r\n", table});
}

}  // namespace kestrel
