#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "model/smbios_reader.h"
#include "model/table_cursor.h"
#include "model/text.h"

namespace kestrel {

namespace {

// By the value of a status field, which is two bits wide.
constexpr std::string_view kStatuses[] = {"Disabled", "Enabled", "Not Implemented", "Unknown"};

// Hardware Security: which passwords and locks of the system are in force. Layout: DMTF DSP0134,
// "Hardware Security (Type 24) structure".
class SMType24Obj final : public SMObj {
 public:
  SMType24Obj() { SetType(24); }

  void SetHardwareSecuritySettings(std::uint8_t value) { HardwareSecuritySettings = value; }

  std::string ToString() const override;

 private:
  std::string_view GetStatusText(unsigned lowestBit) const {
    return kStatuses[HardwareSecuritySettings >> lowestBit & 3U];
  }

  std::uint8_t HardwareSecuritySettings = 0;
};

std::string SMType24Obj::ToString() const {
  TextBlock block("Hardware Security (Type 24)");
  block.Item({"Hardware Security Setting : Power-on Password Status--", GetStatusText(6),
              "; Keyboard Password Status--", GetStatusText(4), "; Administrator Password Status--",
              GetStatusText(2), "; Front Panel Reset Status--", GetStatusText(0)});
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType24(TableCursor& cursor) {
  auto object = std::make_unique<SMType24Obj>();
  ReadHeader(*object, cursor);
  object->SetHardwareSecuritySettings(cursor.U8());
  AppendObject(std::move(object));
}

}  // namespace kestrel
