#include "mif/mif_group.h"

#include "mif/mif_group_text.h"
#include "model/smbios_reader.h"
#include "model/text.h"

namespace kestrel {

namespace {

// Takes the text as far as the next gap, and the gap with it.
std::string_view TakeStretch(std::string_view& text) {
  const std::size_t gap = text.find(kMifGap);
  const std::string_view stretch = text.substr(0, gap);
  text.remove_prefix(gap + kMifGap.size());
  return stretch;
}

}  // namespace

void SMBiosReader::MakeGroup(const MifGroupText& group, std::string& document,
                             int& idCounter) const {
  std::string_view text = group.Text;
  document.append(TakeStretch(text));
  std::string table;
  if (group.Table != nullptr) {
    table = MakeMifTable(*group.Table, idCounter);
  }
  if (table.empty()) {
    // A group with rows is the template of its table, which then carries the ID.
    const auto id = static_cast<std::uint32_t>(idCounter++);
    Append(document, {"\tID = ", Decimal(id), "\r\n"});
  }
  for (const MifValueGetter getValue : group.Values) {
    Append(document, {TakeStretch(text), (this->*getValue)()});
  }
  Append(document, {text, table});
}

}  // namespace kestrel
