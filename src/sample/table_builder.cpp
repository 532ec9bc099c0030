#include "sample/table_builder.h"

#include "base/structure_header.h"

namespace kestrel {

void AppendStructure(std::vector<std::uint8_t>& table, std::uint8_t type, std::uint16_t handle,
                     std::span<const std::uint8_t> fields,
                     std::span<const std::string_view> strings) {
  table.push_back(type);
  table.push_back(static_cast<std::uint8_t>(kHeaderSize + fields.size()));
  table.push_back(static_cast<std::uint8_t>(handle));
  table.push_back(static_cast<std::uint8_t>(handle >> 8));
  table.insert(table.end(), fields.begin(), fields.end());
  for (const std::string_view text : strings) {
    for (const char character : text) {
      table.push_back(static_cast<std::uint8_t>(character));
    }
    table.push_back(0);
  }
  if (strings.empty()) {
    table.push_back(0);
  }
  table.push_back(0);
}

}  // namespace kestrel
