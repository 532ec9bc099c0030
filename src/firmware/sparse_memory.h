#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kestrel {

// Physical memory of which only some regions hold bytes.
class SparseMemory {
 public:
  void Map(std::uint32_t address, std::vector<std::uint8_t> bytes);

  // Fills `buffer` from `address` on, with zeros from the first address that no region holds.
  // Returns the number of bytes that came from a region; a read does not continue from one region
  // into the next.
  std::uint32_t Read(std::uint32_t address, std::span<std::uint8_t> buffer) const;

 private:
  struct Region {
    std::uint32_t Address;
    std::vector<std::uint8_t> Bytes;
  };

  std::vector<Region> Regions;
};

}  // namespace kestrel
