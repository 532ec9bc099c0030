#include "tools/kestrel/dump.h"

#include <cstdint>
#include <vector>

#include "firmware/entry_point.h"

namespace kestrel {

namespace {

constexpr std::uint32_t kTableOffset = 0x20;

std::vector<std::uint8_t> EntryPointOf(const SmbiosTable& table) {
  const EntryPointFacts& facts = table.EntryPoint;
  if (facts.Kind != EntryPointKind::None) {
    return WithTableAddress(facts, kTableOffset);
  }
  if (facts.TableLength > kLongestTable) {
    return Make64BitEntryPoint(facts.Version, kTableOffset, facts.TableLength);
  }
  return MakeEntryPoint(facts.Version, kTableOffset, static_cast<std::uint16_t>(facts.TableLength),
                        table.Bytes);
}

}  // namespace

std::string DumpOf(const SmbiosTable& table) {
  const std::vector<std::uint8_t> entryPoint = EntryPointOf(table);
  std::string dump(entryPoint.begin(), entryPoint.end());
  dump.resize(kTableOffset);
  return dump.append(table.Bytes.begin(), table.Bytes.end());
}

}  // namespace kestrel
