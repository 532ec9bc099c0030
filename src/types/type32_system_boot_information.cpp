#include "types/type32_system_boot_information.h"

#include "base/table_cursor.h"
#include "model/smbios_reader.h"

namespace kestrel {

void SMBiosReader::ReadType32(TableCursor& cursor) {
  ReadStructure<SMType32Obj>(cursor, [&](auto& object) {
    std::array<std::uint8_t, 6> reserved{};
    cursor.Bytes(reserved);
    object.SetReserved(reserved);
    object.SetBootStatus(cursor.U8());
  });
}

}  // namespace kestrel
