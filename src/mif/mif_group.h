#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kestrel {

class SMBiosReader;

// The data that the groups of the MIF document are composed of. The templates follow the DMTF
// master files of the Desktop Management Interface; fields tell where a group departs from them.

struct MifEnumItem {
  std::uint32_t Value;
  std::string_view Text;
};

// How an enumeration spells the word in its first and last line.
inline constexpr std::string_view kEnumCapitals = "ENUM";
inline constexpr std::string_view kEnumMixedCase = "Enum";

// Attribute types.
inline constexpr std::string_view kInteger = "Integer";
inline constexpr std::string_view kInteger64 = "Integer64";
inline constexpr std::string_view kDate = "Date";
inline constexpr std::string_view kDisplayString64 = "DisplayString(64)";
inline constexpr std::string_view kDisplayString80 = "DisplayString(80)";
inline constexpr std::string_view kOctetString64 = "OctetString(64)";
// The attribute is an enumeration of its items.
inline constexpr std::string_view kEnumeration;

inline constexpr std::string_view kCommon = "Common";
inline constexpr std::string_view kSpecific = "Specific";

// Default values, as the document spells them.
inline constexpr std::string_view kEmptyString = "\"\"";
// The attribute has no Value line.
inline constexpr std::string_view kNoValue;

// Returns a text about the system, which stands between double quotes.
using MifValueGetter = std::string (SMBiosReader::*)() const;

// In a description, "\n" separates literals, each on a line by itself.

struct MifAttribute {
  std::string_view Name;
  std::string_view Storage;
  std::string_view Type;
  std::string_view Value = kNoValue;
  // Gives the value in place of Value.
  MifValueGetter GetValue = nullptr;
  std::string_view Description = {};
  std::span<const MifEnumItem> Items = {};
  std::string_view EnumWord = kEnumCapitals;
  // The tabs before each literal of the description except the first.
  std::uint8_t ContinuationTabs = 3;
};

// The table code of the BIOS characteristics, whose rows come from the first BIOS Information
// object. Any other code is the structure type whose objects supply the rows.
inline constexpr std::uint8_t kBiosCharacteristicsTable = 128;

struct MifGroup {
  // The line between the two lines of slashes.
  std::string_view Banner;
  std::string_view Name;
  std::string_view Class;
  std::string_view Description;
  // The IDs of the key's attributes, or empty for a group without a key.
  std::string_view Key;
  std::string_view Pragma;
  std::span<const MifAttribute> Attributes;
  // Empty for a group that never has a table.
  std::optional<std::uint8_t> TableCode = {};
};

}  // namespace kestrel
