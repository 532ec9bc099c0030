#include <algorithm>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "firmware/access_driver.h"
#include "firmware/entry_point.h"
#include "firmware/image.h"
#include "model/smbios_reader.h"
#include "platform/win32.h"
#include "tools/kestrel/machine.h"

namespace kestrel {

namespace {

constexpr DWORD kRsmbProvider = 0x52534D42;  // 'RSMB'

// The table as Windows itself has read it. Looked up when it is called, since earlier systems lack
// the function.
std::vector<std::uint8_t> CallSystem() {
  using Function = UINT(WINAPI*)(DWORD provider, DWORD table, void* buffer, DWORD size);
  const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("kernel32.dll"), "GetSystemFirmwareTable")));
  if (function == nullptr) {
    return {};
  }
  std::vector<std::uint8_t> bytes;
  UINT count = function(kRsmbProvider, 0, nullptr, 0);
  // The table may grow between two calls.
  while (count > bytes.size()) {
    bytes.resize(count);
    count = function(kRsmbProvider, 0, bytes.data(), static_cast<DWORD>(bytes.size()));
  }
  bytes.resize(count);
  return bytes;
}

std::optional<SmbiosTable> ReadFromSystem() {
  const std::vector<std::uint8_t> bytes = CallSystem();
  auto facts = ParseRsmbHeader(bytes);
  if (!facts) {
    return std::nullopt;
  }
  const auto table = std::span(bytes).subspan(kRsmbHeaderSize);
  const auto held = table.first(std::min<std::size_t>(table.size(), facts->TableLength));
  if (held.empty()) {
    return std::nullopt;
  }
  return SmbiosTable{std::move(*facts), {held.begin(), held.end()}};
}

// Closes the access with the reader, so that no driver stays behind when something goes wrong.
struct ReaderCloser {
  void operator()(SMBiosReader* reader) const {
    reader->CloseAccess();
    delete reader;
  }
};

std::optional<SmbiosTable> ReadThrough(SMBiosReader& reader) {
  std::optional<TableCopy> copy = reader.CopyTable();
  if (!copy || copy->Bytes.empty()) {
    return std::nullopt;
  }
  copy->Bytes.resize(copy->BytesRead);
  auto entryPoint = ParseEntryPoint(EntryPointBytes(*reader.GetEntryPoint()));
  return SmbiosTable{std::move(entryPoint).value_or(EntryPointFacts{}), std::move(copy->Bytes)};
}

}  // namespace

std::optional<SmbiosTable> ReadMachine(std::string& failure) {
  auto owned = std::make_unique<AccessDriver>();
  const AccessDriver& driver = *owned;
  const std::unique_ptr<SMBiosReader, ReaderCloser> reader(new SMBiosReader(std::move(owned)));
  std::optional<SmbiosTable> table;
  if (reader->OpenAccess()) {
    table = ReadThrough(*reader);
  }
  if (driver.GetOsPlatform() == Platform::Unknown) {
    table = ReadFromSystem();
    failure = "Windows hands over no SMBIOS tables: run it on the machine itself";
  } else {
    failure =
        "this machine shows no SMBIOS tables: run it as an administrator with the driver file "
        "beside it";
  }
  return table;
}

}  // namespace kestrel
