#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/smbios_table.h"
#include "catalog/faults.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/output.h"

namespace kestrel {

// How the JSON of a table is written, and what of it.
struct JsonOptions {
  // On one line without blanks, instead of indented by two.
  bool OneLine = false;
  // The name that the table came by, where that is a part of the document. See WriteSource.
  std::optional<std::string_view> Source = std::nullopt;
  // Only structures of these types, and no overview; all where there are none.
  std::span<const std::uint8_t> Types = {};
  // The overview instead of the structures.
  bool OnlyOverview = false;
};

// All JSON is UTF-8 and ends in "\n", the same bytes for the same table on every system. Control
// characters are escaped, DEL and those from 80h to 9Fh like the others. What is not UTF-8 in a
// name or a message becomes U+FFFD.

// Writes the document of a table, and returns where and why its structures end. Takes little room
// besides the table: at most six times what the strings of one structure take, and what an overview
// keeps.
//
// The document has at most 2 KB, and 760 times as many bytes as the table, where 125 fields name
// one string of control characters; without such strings 140 times, and of real tables some 30
// times.
catalog::ScanEnd WriteJsonDocument(const SmbiosTable& table, const JsonOptions& options,
                                   Output& output);

// Writes the faults of a table on one line. The source is null without a name.
void WriteJsonFaults(const catalog::FaultList& faults, std::optional<std::string_view> source,
                     Output& output);

// Writes on one line why there is no table to be had from a source.
void WriteJsonError(std::string_view source, std::string_view message, Output& output);

}  // namespace kestrel
