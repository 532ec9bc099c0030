#include "types/probe.h"

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "types/reading.h"

namespace kestrel {

namespace {

constexpr CodeText kProbeStatuses[] = {
    {1, "Other"},        {2, "Unknown"},  {3, "OK"},
    {4, "Non-critical"}, {5, "Critical"}, {6, "Non-recoverable"},
};

constexpr CodeText kProbeLocations[] = {
    {1, "Other"},       {2, "Unknown"},        {3, "Processor"},
    {4, "Disk"},        {5, "Peripheral Bay"}, {6, "System Management Module"},
    {7, "Motherboard"}, {8, "Memory Module"},  {9, "Processor Module"},
    {10, "Power Unit"}, {11, "Add-in Card"},
};

constexpr std::string_view kNoUnit;

}  // namespace

SMProbeObj::SMProbeObj(std::uint8_t type, const ProbeTexts& texts) : Texts(texts) {
  SetType(type);
  SetStringCount(1);
}

void ReadProbeFields(SMProbeObj& probe, TableCursor& cursor) {
  probe.SetDescription(cursor.U8());
  probe.SetLocationAndStatus(cursor.U8());
  probe.SetMaximumValue(cursor.U16());
  probe.SetMinimumValue(cursor.U16());
  probe.SetResolution(cursor.U16());
  probe.SetTolerance(cursor.U16());
  probe.SetAccuracy(cursor.U16());
  probe.SetOemDefined(cursor.U32());
  probe.SetNominalValue(cursor.U16());
}

std::string_view TextOfStatus(std::uint8_t packed) {
  return TextOfCode(kProbeStatuses, packed >> 5U, kNothing);
}

ItemText SMProbeObj::GetDescriptionText() const {
  return {"Description : ", GetString(Description)};
}

ItemText SMProbeObj::GetLocationAndStatusText() const {
  return {"Location And Status : Status--", TextOfStatus(LocationAndStatus), "; Location--",
          TextOfCode(kProbeLocations, CodeBesideStatus(LocationAndStatus), kNothing)};
}

ItemText SMProbeObj::GetMaximumValueText() const {
  return {"Maximum Value : ", TextOfReading(MaximumValue, Texts.Unit)};
}

ItemText SMProbeObj::GetMinimumValueText() const {
  return {"Minimum Value : ", TextOfReading(MinimumValue, Texts.Unit)};
}

ItemText SMProbeObj::GetResolutionText() const {
  return {"Resolution : ", TextOfReading(Resolution, Texts.ResolutionUnit)};
}

ItemText SMProbeObj::GetToleranceText() const {
  return {"Tolerance : ", TextOfReading(Tolerance, kNoUnit)};
}

ItemText SMProbeObj::GetAccuracyText() const {
  return {"Accuracy : ", TextOfReading(Accuracy, kNoUnit)};
}

ItemText SMProbeObj::GetOemDefinedText() const {
  return {"OEM-defined : ", Hex(OemDefined, 8), "h"};
}

ItemText SMProbeObj::GetNominalValueText() const {
  return {"Nominal Value : ", TextOfReading(NominalValue, Texts.Unit)};
}

std::string SMProbeObj::ToString() const {
  TextBlock block(Texts.Title);
  block.Item(GetDescriptionText());
  block.Item(GetLocationAndStatusText());
  block.Item(GetMaximumValueText());
  block.Item(GetMinimumValueText());
  block.Item(GetResolutionText());
  block.Item(GetToleranceText());
  block.Item(GetAccuracyText());
  block.Item(GetOemDefinedText());
  block.Item(GetNominalValueText());
  return block.Close();
}

}  // namespace kestrel
