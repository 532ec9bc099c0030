#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// Management Device Threshold Data: the readings at which a component of a management device
// leaves its normal range. Layout: DMTF DSP0134, "Management Device Threshold Data (Type 36)
// structure".
class SMType36Obj final : public SMObj {
 public:
  SMType36Obj() { SetType(36); }

  void SetLowerThresholdNonCritical(std::uint16_t value) { LowerThresholdNonCritical = value; }
  void SetUpperThresholdNonCritical(std::uint16_t value) { UpperThresholdNonCritical = value; }
  void SetLowerThresholdCritical(std::uint16_t value) { LowerThresholdCritical = value; }
  void SetUpperThresholdCritical(std::uint16_t value) { UpperThresholdCritical = value; }
  void SetLowerThresholdNonRecoverable(std::uint16_t value) {
    LowerThresholdNonRecoverable = value;
  }
  void SetUpperThresholdNonRecoverable(std::uint16_t value) {
    UpperThresholdNonRecoverable = value;
  }

  ItemText GetLowerThresholdNonCriticalText() const {
    return {"Lower Threshold-Non-Critical : ", Hex(LowerThresholdNonCritical, 4), "h"};
  }
  ItemText GetUpperThresholdNonCriticalText() const {
    return {"Upper Threshold-Non-Critical : ", Hex(UpperThresholdNonCritical, 4), "h"};
  }
  ItemText GetLowerThresholdCriticalText() const {
    return {"Lower Threshold-Critical : ", Hex(LowerThresholdCritical, 4), "h"};
  }
  ItemText GetUpperThresholdCriticalText() const {
    return {"Upper Threshold-Critical : ", Hex(UpperThresholdCritical, 4), "h"};
  }
  ItemText GetLowerThresholdNonRecoverableText() const {
    return {"Lower Threshold-Non-recoverable : ", Hex(LowerThresholdNonRecoverable, 4), "h"};
  }
  ItemText GetUpperThresholdNonRecoverableText() const {
    return {"Upper Threshold-Non-recoverable : ", Hex(UpperThresholdNonRecoverable, 4), "h"};
  }

  std::string ToString() const override;

 private:
  std::uint16_t UpperThresholdNonRecoverable = 0;
  std::uint16_t LowerThresholdNonRecoverable = 0;
  std::uint16_t UpperThresholdCritical = 0;
  std::uint16_t LowerThresholdCritical = 0;
  std::uint16_t UpperThresholdNonCritical = 0;
  std::uint16_t LowerThresholdNonCritical = 0;
};

std::string SMType36Obj::ToString() const {
  TextBlock block("Management Device Threshold Data (Type 36)");
  block.Item(GetLowerThresholdNonCriticalText());
  block.Item(GetUpperThresholdNonCriticalText());
  block.Item(GetLowerThresholdCriticalText());
  block.Item(GetUpperThresholdCriticalText());
  block.Item(GetLowerThresholdNonRecoverableText());
  block.Item(GetUpperThresholdNonRecoverableText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType36(TableCursor& cursor) {
  ReadStructure<SMType36Obj>(cursor, [&](auto& object) {
    object.SetLowerThresholdNonCritical(cursor.U16());
    object.SetUpperThresholdNonCritical(cursor.U16());
    object.SetLowerThresholdCritical(cursor.U16());
    object.SetUpperThresholdCritical(cursor.U16());
    object.SetLowerThresholdNonRecoverable(cursor.U16());
    object.SetUpperThresholdNonRecoverable(cursor.U16());
  });
}

}  // namespace kestrel
