#include "firmware/linux_firmware.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "firmware/file_reader.h"

namespace kestrel {

namespace {

constexpr const char* kEntryPointFile = "/sys/firmware/dmi/tables/smbios_entry_point";
constexpr const char* kTableFile = "/sys/firmware/dmi/tables/DMI";

bool ReadKernelFile(const char* path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
  FileReader file;
  bool notAFile = false;
  if (file.Open(path, notAFile) || notAFile) {
    return false;
  }
  bytes = file.Read(0, limit);
  return true;
}

}  // namespace

int LinuxFirmware::Open() {
  std::vector<std::uint8_t> entryPoint;
  EntryPointFacts facts;
  if (!ReadKernelFile(kEntryPointFile, kLargestEntryPoint, entryPoint) ||
      ParseEntryPoint(entryPoint, facts) != EntryPointParse::Parsed) {
    return 0;
  }
  std::vector<std::uint8_t> table;
  const std::size_t announced = std::min<std::size_t>(facts.TableLength, kLargestLoad);
  if (!ReadKernelFile(kTableFile, announced, table)) {
    return 0;
  }
  Present(facts, std::move(table));
  return 1;
}

int LinuxFirmware::Close() noexcept {
  PresentNothing();
  return 1;
}

std::unique_ptr<FirmwareAccess> MakeMachineAccess() { return std::make_unique<LinuxFirmware>(); }

}  // namespace kestrel
