#include "firmware/sparse_memory.h"

#include <algorithm>
#include <utility>

namespace kestrel {

void SparseMemory::Map(std::uint32_t address, std::vector<std::uint8_t> bytes) {
  Regions.push_back({address, std::move(bytes)});
}

std::uint32_t SparseMemory::Read(std::uint32_t address, std::span<std::uint8_t> buffer) const {
  std::fill(buffer.begin(), buffer.end(), std::uint8_t{0});
  for (const Region& region : Regions) {
    if (address < region.Address || address - region.Address >= region.Bytes.size()) {
      continue;
    }
    const auto held = std::span(region.Bytes).subspan(address - region.Address);
    const std::size_t count = std::min(held.size(), buffer.size());
    std::copy_n(held.begin(), count, buffer.begin());
    return static_cast<std::uint32_t>(count);
  }
  return 0;
}

}  // namespace kestrel
