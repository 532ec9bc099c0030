#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "firmware/table_firmware.h"

namespace kestrel {

using Bytes = std::vector<std::uint8_t>;

// A whole structure with handle 0: `fields` are the bytes from offset 04h on.
Bytes Structure(std::uint8_t type, const Bytes& fields,
                std::initializer_list<std::string_view> strings = {});

// The parts, one behind the other: structures make a table, fields make a structure.
Bytes Join(std::initializer_list<Bytes> parts);

// The library's texts of a table, which goes the whole way from physical memory on.
std::string ReportOf(const Bytes& table, SmbiosVersion version = {});
std::string MifOf(const Bytes& table, SmbiosVersion version = {});

// The rows of the table called `name` in the MIF document of `table`, without their tabs and line
// ends; empty when the document has no such table.
std::vector<std::string> MifRowsOf(const Bytes& table, std::string_view name,
                                   SmbiosVersion version = {});

// The content of a file under tests/expected/.
std::string ExpectedText(const std::string& name);

}  // namespace kestrel
