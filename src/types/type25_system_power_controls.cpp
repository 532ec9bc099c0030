#include <cstdint>
#include <string>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// A half above 9 is no BCD digit and is shown as the number it is: FFh, which stands for every
// month or day, is "1515".
ItemText TextOfBcd(std::uint8_t value) { return {Decimal(value >> 4U), Decimal(value & 0x0FU)}; }

// System Power Controls: when the system next turns itself on. Every field holds two BCD digits.
// Layout: DMTF DSP0134, "System Power Controls (Type 25) structure".
class SMType25Obj final : public SMObj {
 public:
  SMType25Obj() { SetType(25); }

  void SetNextScheduledPowerOnMonth(std::uint8_t value) { NextScheduledPowerOnMonth = value; }
  void SetNextScheduledPowerOnDay(std::uint8_t value) { NextScheduledPowerOnDay = value; }
  void SetNextScheduledPowerOnHour(std::uint8_t value) { NextScheduledPowerOnHour = value; }
  void SetNextScheduledPowerOnMinute(std::uint8_t value) { NextScheduledPowerOnMinute = value; }
  void SetNextScheduledPowerOnSecond(std::uint8_t value) { NextScheduledPowerOnSecond = value; }

  ItemText GetNextScheduledPowerOnMonthText() const {
    return {"Next Scheduled Power-on Month : ", TextOfBcd(NextScheduledPowerOnMonth)};
  }
  ItemText GetNextScheduledPowerOnDayText() const {
    return {"Next Scheduled Power-on Day : ", TextOfBcd(NextScheduledPowerOnDay)};
  }
  ItemText GetNextScheduledPowerOnHourText() const {
    return {"Next Scheduled Power-on Hour : ", TextOfBcd(NextScheduledPowerOnHour)};
  }
  ItemText GetNextScheduledPowerOnMinuteText() const {
    return {"Next Scheduled Power-on Minute : ", TextOfBcd(NextScheduledPowerOnMinute)};
  }
  ItemText GetNextScheduledPowerOnSecondText() const {
    return {"Next Scheduled Power-on Second : ", TextOfBcd(NextScheduledPowerOnSecond)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t NextScheduledPowerOnSecond = 0;
  std::uint8_t NextScheduledPowerOnMinute = 0;
  std::uint8_t NextScheduledPowerOnHour = 0;
  std::uint8_t NextScheduledPowerOnDay = 0;
  std::uint8_t NextScheduledPowerOnMonth = 0;
};

std::string SMType25Obj::ToString() const {
  TextBlock block("System Power Controls (Type 25)");
  block.Item(GetNextScheduledPowerOnMonthText());
  block.Item(GetNextScheduledPowerOnDayText());
  block.Item(GetNextScheduledPowerOnHourText());
  block.Item(GetNextScheduledPowerOnMinuteText());
  block.Item(GetNextScheduledPowerOnSecondText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType25(TableCursor& cursor) {
  ReadStructure<SMType25Obj>(cursor, [&](auto& object) {
    object.SetNextScheduledPowerOnMonth(cursor.U8());
    object.SetNextScheduledPowerOnDay(cursor.U8());
    object.SetNextScheduledPowerOnHour(cursor.U8());
    object.SetNextScheduledPowerOnMinute(cursor.U8());
    object.SetNextScheduledPowerOnSecond(cursor.U8());
  });
}

}  // namespace kestrel
