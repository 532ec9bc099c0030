#pragma once

#include <cstddef>
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

// The structure with another handle.
Bytes WithHandle(std::uint8_t handle, Bytes structure);

// End-of-Table.
inline const Bytes kEnd = {127, 4, 0, 0, 0, 0};

// The parts, one after the other: structures make a table, fields make a structure.
Bytes Join(std::initializer_list<Bytes> parts);

// The library's texts of a table, which goes the whole way from physical memory on.
std::string ReportOf(const Bytes& table, SmbiosVersion version = {});
std::string MifOf(const Bytes& table, SmbiosVersion version = {});

// The rows that the objects of type `type` give, in table order, numbered from 1 on.
std::string MifRowsOf(const Bytes& table, std::uint8_t type, SmbiosVersion version = {});

// Where a check below is called: its failures name that line, not the one in here.
struct Caller {
  const char* File = __builtin_FILE();
  int Line = __builtin_LINE();
};

// A table, often of one structure only, and the whole report of it.
struct ReportCase {
  const char* Name;
  Bytes Table;
  std::string_view Report;
  SmbiosVersion Version = {};
};

void ExpectReports(std::initializer_list<ReportCase> cases, Caller caller = {});

// Bytes put at an offset of a structure, and a line that its block then has, without tab and line
// end. "\r\n" within the line stands for itself.
struct LineCase {
  std::size_t Offset;
  Bytes Value;
  std::string_view Line;
};

void ExpectLines(const Bytes& structure, std::initializer_list<LineCase> cases, Caller caller = {});

// The same for the row that the structure gives in the MIF table of its type.
void ExpectMifRows(const Bytes& structure, std::initializer_list<LineCase> cases,
                   Caller caller = {});

// The content of a file under tests/expected/.
std::string ExpectedText(const std::string& name);

}  // namespace kestrel
