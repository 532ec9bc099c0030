#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/probe_status.h"
#include "types/reading.h"

namespace kestrel {

namespace {

constexpr CodeText kProbeLocations[] = {
    {1, "Other"},       {2, "Unknown"},        {3, "Processor"},
    {4, "Disk"},        {5, "Peripheral Bay"}, {6, "System Management Module"},
    {7, "Motherboard"}, {8, "Memory Module"},  {9, "Processor Module"},
    {10, "Power Unit"}, {11, "Add-in Card"},
};

constexpr std::string_view kNoUnit;

// What distinguishes one kind of probe from another.
struct ProbeTexts {
  std::string_view Title;
  std::string_view Unit;
  std::string_view ResolutionUnit;
};

// A sensor that measures a voltage, a temperature or a current. All kinds of probes share one
// layout; their classes differ only in type and texts.
class SMProbeObj : public SMObj {
 public:
  // The texts must outlive the object.
  SMProbeObj(std::uint8_t type, const ProbeTexts& texts) : Texts(texts) {
    SetType(type);
    SetStringCount(1);
  }

  void SetDescription(std::uint8_t value) { Description = value; }
  void SetLocationAndStatus(std::uint8_t value) { LocationAndStatus = value; }
  void SetMaximumValue(std::uint16_t value) { MaximumValue = value; }
  void SetMinimumValue(std::uint16_t value) { MinimumValue = value; }
  void SetResolution(std::uint16_t value) { Resolution = value; }
  void SetTolerance(std::uint16_t value) { Tolerance = value; }
  void SetAccuracy(std::uint16_t value) { Accuracy = value; }
  void SetOemDefined(std::uint32_t value) { OemDefined = value; }
  void SetNominalValue(std::uint16_t value) { NominalValue = value; }

  ItemText GetDescriptionText() const { return {"Description : ", GetString(Description)}; }
  ItemText GetLocationAndStatusText() const {
    return {"Location And Status : Status--", TextOfStatus(LocationAndStatus), "; Location--",
            TextOfCode(kProbeLocations, CodeBesideStatus(LocationAndStatus), kNothing)};
  }
  ItemText GetMaximumValueText() const {
    return {"Maximum Value : ", TextOfReading(MaximumValue, Texts.Unit)};
  }
  ItemText GetMinimumValueText() const {
    return {"Minimum Value : ", TextOfReading(MinimumValue, Texts.Unit)};
  }
  ItemText GetResolutionText() const {
    return {"Resolution : ", TextOfReading(Resolution, Texts.ResolutionUnit)};
  }
  ItemText GetToleranceText() const { return {"Tolerance : ", TextOfReading(Tolerance, kNoUnit)}; }
  ItemText GetAccuracyText() const { return {"Accuracy : ", TextOfReading(Accuracy, kNoUnit)}; }
  ItemText GetOemDefinedText() const { return {"OEM-defined : ", Hex(OemDefined, 8), "h"}; }
  ItemText GetNominalValueText() const {
    return {"Nominal Value : ", TextOfReading(NominalValue, Texts.Unit)};
  }

  std::string ToString() const override;

 private:
  const ProbeTexts& Texts;
  std::uint16_t NominalValue = 0;
  std::uint32_t OemDefined = 0;
  std::uint16_t Accuracy = 0;
  std::uint16_t Tolerance = 0;
  std::uint16_t Resolution = 0;
  std::uint16_t MinimumValue = 0;
  std::uint16_t MaximumValue = 0;
  std::uint8_t LocationAndStatus = 0;
  std::uint8_t Description = 0;
};

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

// "mV" for the resolution, which is in tenths of a millivolt.
constexpr ProbeTexts kVoltageProbeTexts = {"Voltage Probe (Type 26)", "mV", "mV"};

// No blank between a number and a unit that begins with digits.
constexpr ProbeTexts kTemperatureProbeTexts = {"Temperature Probe (Type 28)", "1/10C", "1/1000C"};
constexpr ProbeTexts kCurrentProbeTexts = {"Electrical Current Probe (Type 29)", "mA", "1/10mA"};

// Voltage Probe: a sensor that measures a voltage. Layout: DMTF DSP0134, "Voltage Probe (Type 26)
// structure".
class SMType26Obj final : public SMProbeObj {
 public:
  SMType26Obj() : SMProbeObj(26, kVoltageProbeTexts) {}
};

// Temperature Probe: a sensor that measures a temperature. Layout: DMTF DSP0134, "Temperature Probe
// (Type 28) structure".
class SMType28Obj final : public SMProbeObj {
 public:
  SMType28Obj() : SMProbeObj(28, kTemperatureProbeTexts) {}
};

// Electrical Current Probe: a sensor that measures a current. Layout: DMTF DSP0134, "Electrical
// Current Probe (Type 29) structure".
class SMType29Obj final : public SMProbeObj {
 public:
  SMType29Obj() : SMProbeObj(29, kCurrentProbeTexts) {}
};

void ReadProbe(SMProbeObj& probe, TableCursor& cursor) {
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

}  // namespace

void SMBiosReader::ReadType26(TableCursor& cursor) {
  ReadStructure<SMType26Obj>(cursor, [&](auto& object) { ReadProbe(object, cursor); });
}

void SMBiosReader::ReadType28(TableCursor& cursor) {
  ReadStructure<SMType28Obj>(cursor, [&](auto& object) { ReadProbe(object, cursor); });
}

void SMBiosReader::ReadType29(TableCursor& cursor) {
  ReadStructure<SMType29Obj>(cursor, [&](auto& object) { ReadProbe(object, cursor); });
}

}  // namespace kestrel
