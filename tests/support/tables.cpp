#include "tests/support/tables.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "model/smbios_reader.h"
#include "sample/table_builder.h"

namespace kestrel {

namespace {

std::unique_ptr<SMBiosReader> ReaderOf(const Bytes& table, SmbiosVersion version) {
  auto reader = std::make_unique<SMBiosReader>(std::make_unique<TableFirmware>(version, table));
  if (reader->OpenAccess() == 0 || reader->ReadTable() == 0) {
    throw std::runtime_error("the table could not be read");
  }
  return reader;
}

Bytes WithBytes(Bytes structure, const LineCase& test) {
  std::copy(test.Value.begin(), test.Value.end(),
            structure.begin() + static_cast<std::ptrdiff_t>(test.Offset));
  return structure;
}

}  // namespace

Bytes Structure(std::uint8_t type, const Bytes& fields,
                std::initializer_list<std::string_view> strings) {
  Bytes bytes;
  AppendStructure(bytes, type, 0, fields, {strings.begin(), strings.size()});
  return bytes;
}

Bytes WithHandle(std::uint8_t handle, Bytes structure) {
  structure[2] = handle;
  return structure;
}

Bytes Join(std::initializer_list<Bytes> parts) {
  Bytes joined;
  for (const Bytes& part : parts) {
    joined.insert(joined.end(), part.begin(), part.end());
  }
  return joined;
}

std::string ReportOf(const Bytes& table, SmbiosVersion version) {
  return ReaderOf(table, version)->BuildTextReport();
}

std::string MifOf(const Bytes& table, SmbiosVersion version) {
  return ReaderOf(table, version)->ObjsToMifString();
}

std::string MifRowsOf(const Bytes& table, std::uint8_t type, SmbiosVersion version) {
  const auto reader = ReaderOf(table, version);
  std::string rows;
  int rowIndex = 1;
  for (const auto& object : reader->GetObjects()) {
    if (object->GetType() == type) {
      rows.append(object->GetMifTableRow(rowIndex));
    }
  }
  return rows;
}

void ExpectReports(std::initializer_list<ReportCase> cases, Caller caller) {
  const testing::ScopedTrace trace(caller.File, caller.Line, "called here");
  for (const ReportCase& test : cases) {
    EXPECT_EQ(ReportOf(test.Table, test.Version), test.Report) << test.Name;
  }
}

void ExpectLines(const Bytes& structure, std::initializer_list<LineCase> cases, Caller caller) {
  const testing::ScopedTrace trace(caller.File, caller.Line, "called here");
  for (const LineCase& test : cases) {
    const std::string line = kestrel::Join({"\r\n\t", test.Line, "\r\n"});
    EXPECT_THAT(ReportOf(WithBytes(structure, test)), testing::HasSubstr(line));
  }
}

void ExpectMifRows(const Bytes& structure, std::initializer_list<LineCase> cases, Caller caller) {
  const testing::ScopedTrace trace(caller.File, caller.Line, "called here");
  for (const LineCase& test : cases) {
    const std::string row = kestrel::Join({"\t", test.Line, "\r\n"});
    EXPECT_EQ(MifRowsOf(WithBytes(structure, test), structure.front()), row);
  }
}

std::string ExpectedText(const std::string& name) {
  std::ifstream file(std::string(KESTREL_EXPECTED_TEXTS) + "/" + name, std::ios::binary);
  if (!file) {
    throw std::runtime_error("there is no expected text " + name);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kestrel
