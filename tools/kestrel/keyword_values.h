#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/smbios_table.h"
#include "catalog/structure_fields.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/output.h"

namespace kestrel {

// A name by which scripts ask for a value.
struct Keyword {
  std::string_view Name;
  // The value stands in a field of each structure of this type.
  std::uint8_t Type;
  std::string_view Key;
  // What a script gets of it; empty where the structure does not have it.
  std::string (*ValueOf)(const catalog::StructureFields& fields, std::string_view key,
                         SmbiosVersion version);
};

// All keywords, by subject.
std::span<const Keyword> GetKeywords();

// The keyword of that name, or nullptr.
const Keyword* FindKeyword(std::string_view name);

// The name of the keyword that is most like `name`.
std::string_view NearestKeyword(std::string_view name);

// Writes a line for each structure that has the value, in table order: UTF-8, with the line ends of
// this system. Texts of the firmware lose the blanks around them, and nothing else. Returns whether
// there was any.
bool WriteKeyword(const Keyword& keyword, const catalog::TableScan& scan, SmbiosVersion version,
                  Output& output);

}  // namespace kestrel
