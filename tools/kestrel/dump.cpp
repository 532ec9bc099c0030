#include "tools/kestrel/dump.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kestrel {

namespace {

constexpr std::uint8_t kTableOffset = 0x20;

}  // namespace

std::string MakeDump(const OpenedSource& source) {
  const SMEntryPoint& entryPoint = *source.Reader->GetEntryPoint();
  // What could not be read stays out, so that the dump is as short as what it was made from.
  const auto table = std::span(source.Table.Bytes).first(source.Table.BytesRead);
  std::vector<std::uint8_t> bytes =
      MakeEntryPoint({entryPoint.GetMajorVersion(), entryPoint.GetMinorVersion()}, kTableOffset,
                     entryPoint.GetTableLength(), table);
  bytes.resize(kTableOffset);
  std::string dump(bytes.begin(), bytes.end());
  return dump.append(table.begin(), table.end());
}

}  // namespace kestrel
