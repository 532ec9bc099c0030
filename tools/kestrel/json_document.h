#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/smbios_table.h"
#include "catalog/structure_scan.h"

namespace kestrel {

// The JSON document of a table: UTF-8, indented by two blanks, lines that end in "\n", the same
// bytes for the same table on every system. With `types`, only structures of those.
//
// The text has at most 760 times as many bytes as the table, where 125 fields name one string of
// control characters; without such strings 140 times, and of real tables some 30 times.
std::string MakeJsonDocument(const SmbiosTable& table, const catalog::TableScan& scan,
                             std::span<const std::uint8_t> types);

}  // namespace kestrel
