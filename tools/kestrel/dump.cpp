#include "tools/kestrel/dump.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "catalog/structure_scan.h"
#include "firmware/entry_point.h"

namespace kestrel {

namespace {

constexpr std::uint32_t kTableOffset = 0x20;

// The structures by the published rules: whoever reads a dump stops after as many as it announces.
TableSize SizeOf(std::span<const std::uint8_t> table) {
  const catalog::TableScan scan = catalog::ScanTable(table, {});
  TableSize size;
  size.Structures = scan.Structures.size();
  for (const catalog::Structure& structure : scan.Structures) {
    size.LargestStructure = std::max(size.LargestStructure, structure.GetEnd() - structure.Offset);
  }
  return size;
}

std::vector<std::uint8_t> EntryPointOf(const SmbiosTable& table) {
  const EntryPointFacts& facts = table.EntryPoint;
  if (facts.Kind != EntryPointKind::None) {
    return WithTableAddress(facts, kTableOffset);
  }
  if (facts.TableLength > kLongestTable) {
    return Make64BitEntryPoint(facts.Version, kTableOffset, facts.TableLength);
  }
  return MakeEntryPoint(facts.Version, kTableOffset, static_cast<std::uint16_t>(facts.TableLength),
                        SizeOf(table.Bytes));
}

}  // namespace

std::string DumpOf(const SmbiosTable& table) {
  const std::vector<std::uint8_t> entryPoint = EntryPointOf(table);
  std::string dump(entryPoint.begin(), entryPoint.end());
  dump.resize(kTableOffset);
  return dump.append(table.Bytes.begin(), table.Bytes.end());
}

}  // namespace kestrel
