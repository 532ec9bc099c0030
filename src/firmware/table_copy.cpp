#include <cstddef>
#include <optional>
#include <vector>

#include "model/firmware_access.h"
#include "model/smbios_reader.h"

namespace kestrel {

std::optional<TableCopy> SMBiosReader::CopyTable() {
  if (!EntryPoint && FindEntryPoint() == 0) {
    return std::nullopt;
  }
  TableCopy copy{std::vector<std::uint8_t>(EntryPoint->GetTableLength()), 0};
  if (copy.Bytes.empty()) {
    return copy;
  }
  copy.BytesRead = Access->ReadPhysical(EntryPoint->GetTableAddress(), copy.Bytes);
  if (copy.BytesRead == 0) {
    return std::nullopt;
  }
  return copy;
}

int SMBiosReader::ReadTable() {
  const std::optional<TableCopy> copy = CopyTable();
  if (!copy) {
    return 0;
  }
  WalkTable(copy->Bytes);
  return 1;
}

}  // namespace kestrel
