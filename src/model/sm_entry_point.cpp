#include "model/sm_entry_point.h"

#include <algorithm>

#include "base/table_cursor.h"

namespace kestrel {

namespace {

template <std::size_t Width>
void CopyUpToWidth(std::span<const std::uint8_t> source, std::array<std::uint8_t, Width>& field) {
  std::copy_n(source.begin(), std::min(source.size(), Width), field.begin());
}

template <std::size_t Width>
std::array<std::uint8_t, Width> TakeBytes(TableCursor& cursor) {
  std::array<std::uint8_t, Width> bytes{};
  cursor.Bytes(bytes);
  return bytes;
}

}  // namespace

void SMEntryPoint::Parse(TableCursor& cursor) {
  SetAnchor(TakeBytes<4>(cursor));
  SetChecksum(cursor.U8());
  SetEntryPointLength(cursor.U8());
  SetMajorVersion(cursor.U8());
  SetMinorVersion(cursor.U8());
  SetMaxStructureSize(cursor.U16());
  SetEntryPointRevision(cursor.U8());
  SetFormattedArea(TakeBytes<5>(cursor));
  SetIntermediateAnchor(TakeBytes<5>(cursor));
  SetIntermediateChecksum(cursor.U8());
  SetTableLength(cursor.U16());
  SetTableAddress(cursor.U32());
  SetStructureCount(cursor.U16());
  SetBcdRevision(cursor.U8());
}

void SMEntryPoint::SetAnchor(std::span<const std::uint8_t> source) {
  CopyUpToWidth(source, Anchor);
}

void SMEntryPoint::SetFormattedArea(std::span<const std::uint8_t> source) {
  CopyUpToWidth(source, FormattedArea);
}

void SMEntryPoint::SetIntermediateAnchor(std::span<const std::uint8_t> source) {
  CopyUpToWidth(source, IntermediateAnchor);
}

}  // namespace kestrel
