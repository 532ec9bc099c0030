#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/sm_obj.h"
#include "model/text_block.h"

namespace kestrel {

class TableCursor;

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
  SMProbeObj(std::uint8_t type, const ProbeTexts& texts);

  void SetDescription(std::uint8_t value) { Description = value; }
  void SetLocationAndStatus(std::uint8_t value) { LocationAndStatus = value; }
  void SetMaximumValue(std::uint16_t value) { MaximumValue = value; }
  void SetMinimumValue(std::uint16_t value) { MinimumValue = value; }
  void SetResolution(std::uint16_t value) { Resolution = value; }
  void SetTolerance(std::uint16_t value) { Tolerance = value; }
  void SetAccuracy(std::uint16_t value) { Accuracy = value; }
  void SetOemDefined(std::uint32_t value) { OemDefined = value; }
  void SetNominalValue(std::uint16_t value) { NominalValue = value; }

  ItemText GetDescriptionText() const;
  ItemText GetLocationAndStatusText() const;
  ItemText GetMaximumValueText() const;
  ItemText GetMinimumValueText() const;
  ItemText GetResolutionText() const;
  ItemText GetToleranceText() const;
  ItemText GetAccuracyText() const;
  ItemText GetOemDefinedText() const;
  ItemText GetNominalValueText() const;

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

// Reads the fields that follow the header.
void ReadProbeFields(SMProbeObj& probe, TableCursor& cursor);

// Probes and cooling devices pack two codes into one byte: the probe's location or the cooling
// device's type in bits 4:0, the status in bits 7:5.
constexpr unsigned CodeBesideStatus(std::uint8_t packed) { return packed & 0x1FU; }
std::string_view TextOfStatus(std::uint8_t packed);

}  // namespace kestrel
