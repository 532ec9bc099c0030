#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "catalog/structure_scan.h"

namespace kestrel {

// A structure that only one of two readers sees, or that both see differently.
struct StructurePlace {
  std::size_t Offset;
  std::uint8_t Type;
  // That of the scan's structure.
  std::uint16_t Handle = 0;
};

// How the walk that the report and the MIF document rest on differs from the scan. Structures that
// it reaches and that the texts leave out by their nature are no difference.
struct WalkComparison {
  // All in table order.
  //
  // Structures of the scan that the walk does not reach, or whose block is dropped.
  std::vector<StructurePlace> Lost;
  // Structures that the walk takes to end before they do, so that it sees other strings.
  std::vector<StructurePlace> CutShort;
  // What the walk takes for a structure and the scan does not. Zeros after the last structure are
  // none.
  std::vector<StructurePlace> Invented;

  // Whether the texts have the structure that the scan finds at `offset` not at all, or otherwise.
  bool Differs(std::size_t offset) const;
};

// `walked` is the table as the walk gets it: it may have fewer bytes than what was scanned.
WalkComparison CompareWithWalk(const catalog::TableScan& scan,
                               std::span<const std::uint8_t> walked);

}  // namespace kestrel
