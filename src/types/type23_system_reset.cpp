#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// System Reset: whether and when the firmware resets a system that hangs. Its values are shown as
// stored. Layout: DMTF DSP0134, "System Reset (Type 23) structure".
class SMType23Obj final : public SMObj {
 public:
  SMType23Obj() { SetType(23); }

  void SetCapabilities(std::uint8_t value) { Capabilities = value; }
  void SetResetCount(std::uint16_t value) { ResetCount = value; }
  void SetResetLimit(std::uint16_t value) { ResetLimit = value; }
  void SetTimerInterval(std::uint16_t value) { TimerInterval = value; }
  void SetTimeout(std::uint16_t value) { Timeout = value; }

  ItemText GetCapabilitiesText() const { return {"Capabilities : ", Hex(Capabilities, 2)}; }
  ItemText GetResetCountText() const { return {"Reset Count : ", Hex(ResetCount, 4)}; }
  ItemText GetResetLimitText() const { return {"Reset Limit : ", Hex(ResetLimit, 4)}; }
  ItemText GetTimerIntervalText() const { return {"Timer Interval : ", Hex(TimerInterval, 4)}; }
  ItemText GetTimeoutText() const { return {"Timeout : ", Hex(Timeout, 4)}; }

  std::string ToString() const override;

 private:
  std::uint16_t Timeout = 0;
  std::uint16_t TimerInterval = 0;
  std::uint16_t ResetLimit = 0;
  std::uint16_t ResetCount = 0;
  std::uint8_t Capabilities = 0;
};

std::string SMType23Obj::ToString() const {
  TextBlock block("System Reset (Type 23)");
  block.Item(GetCapabilitiesText());
  block.Item(GetResetCountText());
  block.Item(GetResetLimitText());
  block.Item(GetTimerIntervalText());
  block.Item(GetTimeoutText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType23(TableCursor& cursor) {
  ReadStructure<SMType23Obj>(cursor, [&](auto& object) {
    object.SetCapabilities(cursor.U8());
    object.SetResetCount(cursor.U16());
    object.SetResetLimit(cursor.U16());
    object.SetTimerInterval(cursor.U16());
    object.SetTimeout(cursor.U16());
  });
}

}  // namespace kestrel
