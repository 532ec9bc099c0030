#include "firmware/firmware_access.h"
#include "model/smbios_reader.h"

namespace kestrel {

SMBiosReader::SMBiosReader(std::unique_ptr<FirmwareAccess> access) : Access(std::move(access)) {}

SMBiosReader::~SMBiosReader() = default;

int SMBiosReader::OpenAccess() { return Access ? Access->Open() : 0; }

int SMBiosReader::CloseAccess() { return Access ? Access->Close() : 0; }

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
  const auto earlier = static_cast<std::ptrdiff_t>(Objects.size());
  try {
    WalkTable(copy->Bytes);
  } catch (...) {
    Objects.erase(Objects.begin() + earlier, Objects.end());
    throw;
  }
  return 1;
}

}  // namespace kestrel
