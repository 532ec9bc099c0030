#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "catalog/table_scan.h"
#include "model/smbios_table.h"

namespace kestrel {

// The JSON document of a table: UTF-8, indented by two blanks, lines that end in "\n", the same
// bytes for the same table on every system. With `types`, only structures of those.
std::string MakeJsonDocument(const SmbiosTable& table, const catalog::TableScan& scan,
                             std::span<const std::uint8_t> types);

}  // namespace kestrel
