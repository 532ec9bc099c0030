#include "tests/support/tables.h"

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>

#include "model/smbios_reader.h"
#include "tools/kestrel/table_builder.h"

namespace kestrel {

namespace {

std::unique_ptr<SMBiosReader> ReaderOf(const Bytes& table, SmbiosVersion version) {
  auto reader = std::make_unique<SMBiosReader>(std::make_unique<TableFirmware>(version, table));
  if (reader->OpenAccess() == 0 || reader->ReadTable() == 0) {
    throw std::runtime_error("the table could not be read");
  }
  return reader;
}

}  // namespace

Bytes Structure(std::uint8_t type, const Bytes& fields,
                std::initializer_list<std::string_view> strings) {
  Bytes bytes;
  AppendStructure(bytes, type, 0, fields, {strings.begin(), strings.size()});
  return bytes;
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

std::vector<std::string> MifRowsOf(const Bytes& table, std::string_view name,
                                   SmbiosVersion version) {
  const std::string document = MifOf(table, version);
  const std::string head = "Start Table\r\n\tNAME = \"" + std::string(name) + "\"\r\n";
  std::vector<std::string> rows;
  std::size_t position = document.find(head);
  while (position != std::string::npos && document.compare(position, 9, "End Table") != 0) {
    const std::size_t end = document.find("\r\n", position);
    if (document.compare(position, 2, "\t{") == 0) {
      rows.push_back(document.substr(position + 1, end - position - 1));
    }
    position = end + 2;
  }
  return rows;
}

std::string ExpectedText(const std::string& name) {
  std::ifstream file(std::string(KESTREL_EXPECTED_TEXTS) + "/" + name, std::ios::binary);
  if (!file) {
    throw std::runtime_error("there is no expected text " + name);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kestrel
