#include "model/smbios_reader.h"

#include <algorithm>
#include <utility>

#include "base/table_cursor.h"

namespace kestrel {

int SMBiosReader::GetSpecVersion() const {
  return EntryPoint ? EntryPoint->GetMajorVersion() * 10 + EntryPoint->GetMinorVersion() : 0;
}

const SMObj* SMBiosReader::GetFirstObj(std::uint8_t type) const {
  const auto found = std::find_if(Objects.begin(), Objects.end(),
                                  [type](const auto& object) { return object->GetType() == type; });
  return found == Objects.end() ? nullptr : found->get();
}

void SMBiosReader::ReadHeader(SMObj& object, TableCursor& cursor) {
  object.SetLength(cursor.U8());
  object.SetHandle(cursor.U16());
}

void SMBiosReader::CollectStrings(SMObj& object, TableCursor& cursor) const {
  const std::size_t start = StructureStart + object.GetLength();
  unsigned held = 0;
  for (cursor.MoveTo(start); held < object.GetStringCount() && cursor.Peek() != 0; ++held) {
    SkipString(cursor);
  }
  object.ReserveStrings(held);
  cursor.MoveTo(start);
  for (unsigned taken = 0; taken < held; ++taken) {
    object.AddString(cursor.String());
    SkipString(cursor);
  }
}

std::size_t SMBiosReader::SkipString(TableCursor& cursor) {
  cursor.SkipString();
  return cursor.GetPosition();
}

void SMBiosReader::AppendObject(std::unique_ptr<const SMObj> object) {
  Walked->push_back(std::move(object));
}

}  // namespace kestrel
