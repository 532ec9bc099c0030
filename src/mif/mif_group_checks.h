#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.h"
#include "mif/mif_group.h"
#include "mif/mif_table.h"
#include "model/smbios_reader.h"

namespace kestrel {

// The value of an enumeration is one of its items, and no item comes twice.
consteval bool HasSoundEnumerations(const MifGroup& group) {
  for (const MifAttribute& attribute : group.Attributes) {
    bool hasItem = attribute.Type != kEnumeration || attribute.Value == kNoValue;
    std::uint64_t next = 0;
    for (const MifEnumItem& item : attribute.Items) {
      if (item.Value < next) {
        return false;
      }
      next = std::uint64_t{item.Value} + 1;
      hasItem = hasItem || attribute.Value == std::string_view(Decimal(item.Value));
    }
    if (!hasItem) {
      return false;
    }
  }
  return true;
}

// The key, such as "1, 2", names attributes of the group.
consteval bool HasKeyAttributes(const MifGroup& group) {
  std::size_t id = 0;
  for (const char character : group.Key) {
    if (character >= '0' && character <= '9') {
      id = 10 * id + static_cast<std::size_t>(character - '0');
    } else if (character == ',' && id >= 1 && id <= group.Attributes.size()) {
      id = 0;
    } else if (character != ' ') {
      return false;
    }
  }
  return group.Key.empty() || (id >= 1 && id <= group.Attributes.size());
}

// The rows of a table are those of its group.
consteval bool HasTableOfItsClass(const MifGroup& group) {
  for (const MifTable& table : kMifTables) {
    if (group.TableCode == table.Code) {
      return table.Class == group.Class;
    }
  }
  return !group.TableCode;
}

template <const MifGroup& Group>
std::string SMBiosReader::MakeGroup(int& idCounter) const {
  static_assert(HasSoundEnumerations(Group));
  static_assert(HasKeyAttributes(Group));
  static_assert(HasTableOfItsClass(Group));
  return WriteGroup(Group, idCounter);
}

}  // namespace kestrel
