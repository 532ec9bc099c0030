#include "firmware/entry_point_search.h"

#include <array>

#include "firmware/firmware_access.h"
#include "model/smbios_reader.h"
#include "model/table_cursor.h"

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
  std::array<std::uint8_t, 256> chunk{};
  constexpr auto kChunkSize = static_cast<std::uint32_t>(chunk.size());
  for (std::uint32_t address = kBiosAreaStart; address < kBiosAreaEnd; address += kChunkSize) {
    std::size_t offset = 0;
    if (Access->ReadPhysical(address, chunk) == 0 || FindDword(chunk, kAnchor, offset) == 0) {
      continue;
    }
    // The structure may begin near the end of its chunk, so it is read again from its start.
    if (Access->ReadPhysical(address + static_cast<std::uint32_t>(offset), chunk) == 0) {
      continue;
    }
    TableCursor cursor(chunk);
    EntryPoint.emplace().Parse(cursor);
    return 1;
  }
  return 0;
}

}  // namespace kestrel
