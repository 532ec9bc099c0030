#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/text.h"
#include "mif/mif_group.h"
#include "mif/mif_table.h"

namespace kestrel {

// The part of a group's text that is the same in every document. It is composed at compile time; a
// document copies it and fills the gaps.
struct MifGroupText {
  // With a kMifGap for the ID line, which a group with rows does not have, and one for each value.
  std::string_view Text;
  std::span<const MifValueGetter> Values;
  std::optional<std::uint8_t> TableCode;
};

// Composes the text of a group, or only counts its characters if the target is null.
class MifGroupComposer {
 public:
  constexpr explicit MifGroupComposer(char* target) : Target(target) {}

  // Returns the number of characters.
  constexpr std::size_t Compose(const MifGroup& group) {
    Add({kSlashes, group.Banner, "\r\n", kSlashes, "\r\nStart Group\r\n\tName = \"", group.Name,
         "\"\r\n\tClass = \"", group.Class, "\"\r\n", kMifGap});
    AddDescription("\t", group.Description, "\t\t");
    if (!group.Key.empty()) {
      Add({"\tKey = ", group.Key, "\r\n"});
    }
    Add({"\tPragma = \"", group.Pragma, "\"\r\n"});
    std::uint32_t id = 1;
    for (const MifAttribute& attribute : group.Attributes) {
      AddAttribute(attribute, id++);
    }
    Add({"End Group\r\n\r\n"});
    return Size;
  }

 private:
  static constexpr std::string_view kSlashes =
      "////////////////////////////////////////////////////\r\n";

  constexpr void AddAttribute(const MifAttribute& attribute, std::uint32_t id) {
    Add({"\tStart Attribute\r\n\t\tName = \"", attribute.Name, "\"\r\n\t\tID = ", Decimal(id),
         "\r\n"});
    AddDescription("\t\t", attribute.Description, attribute.ContinuationIndent);
    Add({"\t\tAccess = Read-Only\r\n\t\tStorage = ", attribute.Storage, "\r\n"});
    AddType(attribute);
    if (attribute.Value != kNoValue) {
      Add({"\t\tValue = ", attribute.Value, "\r\n"});
    }
    Add({"\tEnd Attribute\r\n"});
  }

  constexpr void AddDescription(std::string_view indent, std::string_view description,
                                std::string_view continuationIndent) {
    Add({indent, "Description = "});
    for (;;) {
      const std::size_t end = description.find('\n');
      Add({"\"", description.substr(0, end), "\"\r\n"});
      if (end == std::string_view::npos) {
        return;
      }
      description.remove_prefix(end + 1);
      Add({continuationIndent});
    }
  }

  constexpr void AddType(const MifAttribute& attribute) {
    if (attribute.Type != kEnumeration) {
      Add({"\t\tType = ", attribute.Type, "\r\n"});
      return;
    }
    Add({"\t\tType = Start ", attribute.EnumWord, "\r\n"});
    for (const MifEnumItem& item : attribute.Items) {
      Add({"\t\t\t", Decimal(item.Value), " = \"", item.Text, "\"\r\n"});
    }
    Add({"\t\tEnd ", attribute.EnumWord, "\r\n"});
  }

  constexpr void Add(Pieces pieces) {
    for (const std::string_view piece : pieces) {
      if (Target != nullptr) {
        std::copy(piece.begin(), piece.end(), Target + Size);
      }
      Size += piece.size();
    }
  }

  char* Target;
  std::size_t Size = 0;
};

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

consteval bool HasValuePerSystemText(const MifGroup& group) {
  const auto gaps =
      std::count_if(group.Attributes.begin(), group.Attributes.end(),
                    [](const MifAttribute& attribute) { return attribute.Value == kSystemText; });
  return static_cast<std::size_t>(gaps) == group.Values.size();
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
inline constexpr auto kMifGroupCharacters = [] {
  static_assert(HasSoundEnumerations(Group));
  static_assert(HasKeyAttributes(Group));
  static_assert(HasValuePerSystemText(Group));
  static_assert(HasTableOfItsClass(Group));
  std::array<char, MifGroupComposer(nullptr).Compose(Group)> characters{};
  MifGroupComposer(characters.data()).Compose(Group);
  return characters;
}();

template <const MifGroup& Group>
inline constexpr MifGroupText kMifGroupText = {
    .Text = {kMifGroupCharacters<Group>.data(), kMifGroupCharacters<Group>.size()},
    .Values = Group.Values,
    .TableCode = Group.TableCode,
};

}  // namespace kestrel
