#include "types/type32_system_boot_information.h"

#include <memory>
#include <utility>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"

namespace kestrel {

void SMBiosReader::ReadType32(TableCursor& cursor) {
  auto object = std::make_unique<SMType32Obj>();
  ReadHeader(*object, cursor);
  std::array<std::uint8_t, 6> reserved{};
  cursor.Bytes(reserved);
  object->SetReserved(reserved);
  object->SetBootStatus(cursor.U8());
  AppendObject(std::move(object));
}

}  // namespace kestrel
