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

// System Power Controls: when the system next switches itself on. Every field holds two BCD digits.
// Layout: DMTF DSP0134, "System Power Controls (Type 25) structure".
class SMType25Obj final : public SMObj {
 public:
  SMType25Obj() { SetType(25); }

  void SetNextScheduledPowerOnMonth(std::uint8_t value) { NextScheduledPowerOnMonth = value; }
  void SetNextScheduledPowerOnDay(std::uint8_t value) { NextScheduledPowerOnDay = value; }
  void SetNextScheduledPowerOnHour(std::uint8_t value) { NextScheduledPowerOnHour = value; }
  void SetNextScheduledPowerOnMinute(std::uint8_t value) { NextScheduledPowerOnMinute = value; }
  void SetNextScheduledPowerOnSecond(std::uint8_t value) { NextScheduledPowerOnSecond = value; }

  std::string ToString() const override;

 private:
  std::uint8_t NextScheduledPowerOnSecond = 0;
  std::uint8_t NextScheduledPowerOnMinute = 0;
  std::uint8_t NextScheduledPowerOnHour = 0;
  std::uint8_t NextScheduledPowerOnDay = 0;
  std::uint8_t NextScheduledPowerOnMonth = 0;
};

void AddBcdItem(TextBlock& block, std::string_view label, std::uint8_t value) {
  // A half above 9 is no BCD digit and shows as the number it is: FFh, for any month or day, gives
  // "1515".
  block.Item({label, Decimal(value >> 4U), Decimal(value & 0x0FU)});
}

std::string SMType25Obj::ToString() const {
  TextBlock block("System Power Controls (Type 25)");
  AddBcdItem(block, "Next Scheduled Power-on Month : ", NextScheduledPowerOnMonth);
  AddBcdItem(block, "Next Scheduled Power-on Day : ", NextScheduledPowerOnDay);
  AddBcdItem(block, "Next Scheduled Power-on Hour : ", NextScheduledPowerOnHour);
  AddBcdItem(block, "Next Scheduled Power-on Minute : ", NextScheduledPowerOnMinute);
  AddBcdItem(block, "Next Scheduled Power-on Second : ", NextScheduledPowerOnSecond);
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType25(TableCursor& cursor) {
  auto object = std::make_unique<SMType25Obj>();
  ReadHeader(*object, cursor);
  object->SetNextScheduledPowerOnMonth(cursor.U8());
  object->SetNextScheduledPowerOnDay(cursor.U8());
  object->SetNextScheduledPowerOnHour(cursor.U8());
  object->SetNextScheduledPowerOnMinute(cursor.U8());
  object->SetNextScheduledPowerOnSecond(cursor.U8());
  AppendObject(std::move(object));
}

}  // namespace kestrel
