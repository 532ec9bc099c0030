#include "tools/kestrel/walk_comparison.h"

#include <algorithm>
#include <iterator>

#include "base/structure_header.h"
#include "model/table_walk.h"
#include "types/type00_bios_information.h"

namespace kestrel {

namespace {

// A shorter one is taken for zeros between structures.
bool IsDropped(const catalog::Structure& structure) {
  return structure.Type == kBiosInformation &&
         structure.Formatted.size() < kShortestBiosInformation;
}

StructurePlace PlaceOfStructure(const catalog::Structure& structure) {
  return {structure.Offset, structure.Type, structure.Handle};
}

// The offset after the last byte that is not zero.
std::size_t EndOfContent(std::span<const std::uint8_t> bytes) {
  const auto last = std::find_if(bytes.rbegin(), bytes.rend(), [](auto byte) { return byte != 0; });
  return static_cast<std::size_t>(std::distance(last, bytes.rend()));
}

bool HasOffset(const std::vector<StructurePlace>& places, std::size_t offset) {
  const auto place = std::lower_bound(
      places.begin(), places.end(), offset,
      [](const StructurePlace& left, std::size_t right) { return left.Offset < right; });
  return place != places.end() && place->Offset == offset;
}

}  // namespace

bool WalkComparison::Differs(std::size_t offset) const {
  return HasOffset(Lost, offset) || HasOffset(CutShort, offset);
}

WalkComparison CompareWithWalk(const catalog::TableScan& scan,
                               std::span<const std::uint8_t> walked) {
  WalkComparison comparison;
  const std::size_t endOfContent = EndOfContent(walked);
  auto scanned = scan.Structures.begin();
  const auto end = scan.Structures.end();
  TableWalk walk(walked);
  while (const auto structure = walk.Next()) {
    const std::size_t start = structure->Start;
    for (; scanned != end && scanned->Offset < start; ++scanned) {
      comparison.Lost.push_back(PlaceOfStructure(*scanned));
    }
    if (scanned == end || scanned->Offset != start) {
      if (start < endOfContent) {
        comparison.Invented.push_back({start, structure->Type});
      }
      continue;
    }
    if (IsDropped(*scanned)) {
      comparison.Lost.push_back(PlaceOfStructure(*scanned));
    } else if (structure->Next < scanned->GetEnd()) {
      comparison.CutShort.push_back(PlaceOfStructure(*scanned));
    }
    ++scanned;
  }
  const auto rest = static_cast<std::size_t>(std::distance(scanned, end));
  comparison.Lost.reserve(comparison.Lost.size() + rest);
  std::transform(scanned, end, std::back_inserter(comparison.Lost), PlaceOfStructure);
  return comparison;
}

}  // namespace kestrel
