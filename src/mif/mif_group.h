#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kestrel {

class SMBiosReader;

// The data of which the groups of the MIF document are made. Templates follow the DMTF master
// files of the Desktop Management Interface; whatever deviates from them is a field here.

struct MifEnumItem {
  std::uint32_t Value;
  std::string_view Text;
};

// How an enumeration spells the word of its first and last line.
inline constexpr std::string_view kEnumCapitals = "ENUM";
inline constexpr std::string_view kEnumMixedCase = "Enum";

// Types of attributes.
inline constexpr std::string_view kInteger = "Integer";
inline constexpr std::string_view kInteger64 = "Integer64";
inline constexpr std::string_view kDate = "Date";
inline constexpr std::string_view kDisplayString64 = "DisplayString(64)";
inline constexpr std::string_view kDisplayString80 = "DisplayString(80)";
inline constexpr std::string_view kOctetString64 = "OctetString(64)";
// The attribute's items give the type.
inline constexpr std::string_view kEnumeration;

inline constexpr std::string_view kCommon = "Common";
inline constexpr std::string_view kSpecific = "Specific";

// Stands in a fixed text for what only a document knows.
inline constexpr std::string_view kMifGap("\0", 1);

// Default values, as they stand in the document.
inline constexpr std::string_view kEmptyString = "\"\"";
// A text of the system described, which one of the group's Values gives.
inline constexpr std::string_view kSystemText("\"\0\"", 3);
// The attribute has no Value line.
inline constexpr std::string_view kNoValue;

// Gives a text that stands between the double quotes of a Value line.
using MifValueGetter = std::string (SMBiosReader::*)() const;

// A description is one text in which "\n" parts the literals that stand on lines of their own.

struct MifAttribute {
  std::string_view Name;
  std::string_view Storage;
  std::string_view Type;
  std::string_view Value = kNoValue;
  std::string_view Description = {};
  std::span<const MifEnumItem> Items = {};
  std::string_view EnumWord = kEnumCapitals;
  // Stands before each literal of the description but the first.
  std::string_view ContinuationIndent = "\t\t\t";
};

// The table code of the BIOS characteristics, which are rows of the first BIOS Information object;
// every other code is the structure type whose objects give the rows.
inline constexpr std::uint8_t kBiosCharacteristicsTable = 128;

struct MifGroup {
  // The line between the two lines of slashes.
  std::string_view Banner;
  std::string_view Name;
  std::string_view Class;
  std::string_view Description;
  // The attributes that make the key, or empty for a group without one.
  std::string_view Key;
  std::string_view Pragma;
  std::span<const MifAttribute> Attributes;
  // The values of the attributes that have kSystemText, in the order of the attributes.
  std::span<const MifValueGetter> Values = {};
  // Empty for a group that never has a table.
  std::optional<std::uint8_t> TableCode = {};
};

}  // namespace kestrel
