#include "mif/mif_group.h"

#include <string>
#include <string_view>

#include "base/text.h"
#include "mif/mif_group_text.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Splits off the text up to the next gap and drops the gap.
std::string_view TakeUpToGap(std::string_view& text) {
  const std::size_t gap = text.find(kMifGap);
  const std::string_view taken = text.substr(0, gap);
  text.remove_prefix(gap + kMifGap.size());
  return taken;
}

constexpr std::size_t kUsualIdLineSize = std::string_view("\tID = 10\r\n").size();

}  // namespace

std::string SMBiosReader::MakeGroup(const MifGroupText& group, int& idCounter) const {
  std::string table;
  if (group.TableCode) {
    table = MakeMifTable(idCounter, *group.TableCode);
  }
  std::string text;
  text.reserve(group.Text.size() + kUsualIdLineSize + table.size());
  std::string_view rest = group.Text;
  text.append(TakeUpToGap(rest));
  if (table.empty()) {
    // A group with rows is the template of its table, which then carries the ID.
    const auto id = static_cast<std::uint32_t>(idCounter++);
    Append(text, {"\tID = ", Decimal(id), "\r\n"});
  }
  for (const MifValueGetter getValue : group.Values) {
    Append(text, {TakeUpToGap(rest), (this->*getValue)()});
  }
  Append(text, {rest, table});
  return text;
}

}  // namespace kestrel
