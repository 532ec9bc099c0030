#include "model/smbios_reader.h"

#include <algorithm>

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
  // The type byte has been read.
  StructureStart = cursor.GetPosition() - 1;
  object.SetLength(cursor.U8());
  object.SetHandle(cursor.U16());
}

void SMBiosReader::CollectStrings(SMObj& object, TableCursor& cursor) const {
  if (object.GetStringCount() == 0) {
    return;
  }
  cursor.MoveTo(StructureStart + object.GetLength());
  for (unsigned left = object.GetStringCount(); left != 0 && cursor.Peek() != 0; --left) {
    object.AddString(cursor.String());
    SkipString(cursor);
  }
}

std::size_t SMBiosReader::SkipString(TableCursor& cursor) {
  cursor.SkipString();
  return cursor.GetPosition();
}

}  // namespace kestrel
