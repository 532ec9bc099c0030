#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr std::string_view kSettings[] = {"Disabled", "Enabled", "Not Implemented", "Unknown"};

// The text of the two lowest bits.
std::string_view TextOfSetting(unsigned bits) { return kSettings[bits & 3U]; }

// Hardware Security: which of the system's passwords are enabled, and its reset button. Layout:
// DMTF DSP0134, "Hardware Security (Type 24) structure".
class SMType24Obj final : public SMObj {
 public:
  SMType24Obj() { SetType(24); }

  void SetHardwareSecuritySettings(std::uint8_t value) { HardwareSecuritySettings = value; }

  ItemText GetHardwareSecuritySettingsText() const {
    return {"Hardware Security Setting : Power-on Password Status--",
            TextOfSetting(HardwareSecuritySettings >> 6U),
            "; Keyboard Password Status--",
            TextOfSetting(HardwareSecuritySettings >> 4U),
            "; Administrator Password Status--",
            TextOfSetting(HardwareSecuritySettings >> 2U),
            "; Front Panel Reset Status--",
            TextOfSetting(HardwareSecuritySettings)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t HardwareSecuritySettings = 0;
};

std::string SMType24Obj::ToString() const {
  TextBlock block("Hardware Security (Type 24)");
  block.Item(GetHardwareSecuritySettingsText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType24(TableCursor& cursor) {
  ReadStructure<SMType24Obj>(
      cursor, [&](auto& object) { object.SetHardwareSecuritySettings(cursor.U8()); });
}

}  // namespace kestrel
