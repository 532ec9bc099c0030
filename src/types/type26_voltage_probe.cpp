#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "types/probe.h"

namespace kestrel {

namespace {

// "mV" for the resolution, which is in tenths of a millivolt: intended.
constexpr ProbeTexts kVoltageProbeTexts = {"Voltage Probe (Type 26)", "mV", "mV"};

// Voltage Probe: a sensor that measures a voltage. Layout: DMTF DSP0134, "Voltage Probe (Type 26)
// structure".
class SMType26Obj final : public SMProbeObj {
 public:
  SMType26Obj() : SMProbeObj(26, kVoltageProbeTexts) {}
};

}  // namespace

void SMBiosReader::ReadType26(TableCursor& cursor) {
  ReadStructure<SMType26Obj>(cursor, [&](auto& object) { ReadProbeFields(object, cursor); });
}

}  // namespace kestrel
