#include "firmware/entry_point_search.h"

#include <array>

#include "base/entry_point_layout.h"
#include "base/table_cursor.h"
#include "model/firmware_access.h"
#include "model/smbios_reader.h"

namespace kestrel {

int FindDword(std::span<const std::uint8_t> buffer, std::uint32_t value, std::size_t& offset) {
  TableCursor cursor(buffer);
  while (!cursor.IsAtEnd()) {
    const std::size_t position = cursor.GetPosition();
    if (cursor.U32() == value) {
      offset = position;
      return 1;
    }
  }
  return 0;
}

int SMBiosReader::FindEntryPoint() {
  if (!Access) {
    return 0;
  }
  constexpr std::uint32_t kChunkSize = 256;
  for (std::uint32_t address = kBiosAreaStart; address < kBiosAreaEnd; address += kChunkSize) {
    std::array<std::uint8_t, kChunkSize> chunk{};
    std::size_t offset = 0;
    if (Access->ReadPhysical(address, chunk) == 0 || FindDword(chunk, kAnchor, offset) == 0) {
      continue;
    }
    // The entry point may reach into the next chunk, so it is read again from its start. If that
    // fails, the first read serves, provided that it got all of the entry point.
    std::array<std::uint8_t, kChunkSize> secondRead{};
    auto entryPoint = std::span<const std::uint8_t>(chunk).subspan(offset);
    if (Access->ReadPhysical(address + static_cast<std::uint32_t>(offset), secondRead) != 0) {
      entryPoint = secondRead;
    } else if (entryPoint.size() < entry_point32::kSize) {
      return 0;
    }
    TableCursor cursor(entryPoint);
    EntryPoint.emplace().Parse(cursor);
    return 1;
  }
  return 0;
}

}  // namespace kestrel
