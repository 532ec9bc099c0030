#include "types/probe.h"

#include "model/code_text.h"
#include "model/reading.h"
#include "model/table_cursor.h"
#include "model/text.h"

namespace kestrel {

namespace {

constexpr CodeText kStatuses[] = {
    {1, "Other"},        {2, "Unknown"},  {3, "OK"},
    {4, "Non-critical"}, {5, "Critical"}, {6, "Non-recoverable"},
};

constexpr CodeText kLocations[] = {
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
  return TextOfCode(kStatuses, packed >> 5U, kNothing);
}

std::string SMProbeObj::ToString() const {
  TextBlock block(Texts.Title);
  block.Item({"Description : ", GetString(Description)});
  block.Item({"Location And Status : Status--", TextOfStatus(LocationAndStatus), "; Location--",
              TextOfCode(kLocations, CodeBesideStatus(LocationAndStatus), kNothing)});
  AddReading(block, "Maximum Value : ", MaximumValue, Texts.Unit);
  AddReading(block, "Minimum Value : ", MinimumValue, Texts.Unit);
  AddReading(block, "Resolution : ", Resolution, Texts.ResolutionUnit);
  AddReading(block, "Tolerance : ", Tolerance, kNoUnit);
  AddReading(block, "Accuracy : ", Accuracy, kNoUnit);
  block.Item({"OEM-defined : ", Hex(OemDefined, 8), "h"});
  AddReading(block, "Nominal Value : ", NominalValue, Texts.Unit);
  return block.Close();
}

}  // namespace kestrel
