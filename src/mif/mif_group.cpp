#include "mif/mif_group.h"

#include "base/text.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr std::string_view kSlashes = "////////////////////////////////////////////////////\r\n";

// The description's line, which stands after `tabs` tabs, and its continuation lines.
void AppendDescription(std::string& text, std::size_t tabs, std::string_view description,
                       std::size_t continuationTabs) {
  text.append(tabs, '\t');
  text.append("Description = ");
  for (;;) {
    const std::size_t end = description.find('\n');
    Append(text, {"\"", description.substr(0, end), "\"\r\n"});
    if (end == std::string_view::npos) {
      return;
    }
    description.remove_prefix(end + 1);
    text.append(continuationTabs, '\t');
  }
}

void AppendType(std::string& text, const MifAttribute& attribute) {
  if (attribute.Type != kEnumeration) {
    Append(text, {"\t\tType = ", attribute.Type, "\r\n"});
    return;
  }
  Append(text, {"\t\tType = Start ", attribute.EnumWord, "\r\n"});
  for (const MifEnumItem& item : attribute.Items) {
    Append(text, {"\t\t\t", Decimal(item.Value), " = \"", item.Text, "\"\r\n"});
  }
  Append(text, {"\t\tEnd ", attribute.EnumWord, "\r\n"});
}

void AppendAttribute(std::string& text, const MifAttribute& attribute, int id,
                     const SMBiosReader& reader) {
  Append(text, {"\tStart Attribute\r\n\t\tName = \"", attribute.Name,
                "\"\r\n\t\tID = ", SignedDecimal(id), "\r\n"});
  AppendDescription(text, 2, attribute.Description, attribute.ContinuationTabs);
  Append(text, {"\t\tAccess = Read-Only\r\n\t\tStorage = ", attribute.Storage, "\r\n"});
  AppendType(text, attribute);
  if (attribute.GetValue != nullptr) {
    Append(text, {"\t\tValue = \"", (reader.*attribute.GetValue)(), "\"\r\n"});
  } else if (attribute.Value != kNoValue) {
    Append(text, {"\t\tValue = ", attribute.Value, "\r\n"});
  }
  text.append("\tEnd Attribute\r\n");
}

}  // namespace

std::string SMBiosReader::WriteGroup(const MifGroup& group, int& idCounter) const {
  std::string table;
  if (group.TableCode) {
    table = MakeMifTable(idCounter, *group.TableCode);
  }
  std::string text;
  Append(text, {kSlashes, group.Banner, "\r\n", kSlashes, "\r\nStart Group\r\n\tName = \"",
                group.Name, "\"\r\n\tClass = \"", group.Class, "\"\r\n"});
  if (table.empty()) {
    // A group with rows is the template of its table, which then carries the ID.
    Append(text, {"\tID = ", SignedDecimal(idCounter++), "\r\n"});
  }
  AppendDescription(text, 1, group.Description, 2);
  if (!group.Key.empty()) {
    Append(text, {"\tKey = ", group.Key, "\r\n"});
  }
  Append(text, {"\tPragma = \"", group.Pragma, "\"\r\n"});
  int attributeId = 1;
  for (const MifAttribute& attribute : group.Attributes) {
    AppendAttribute(text, attribute, attributeId++, *this);
  }
  Append(text, {"End Group\r\n\r\n", table});
  return text;
}

}  // namespace kestrel
