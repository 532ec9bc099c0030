#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "types/probe.h"

namespace kestrel {

namespace {

// No blank between a number and a unit that begins with digits: intended.
constexpr ProbeTexts kTemperatureProbeTexts = {"Temperature Probe (Type 28)", "1/10C", "1/1000C"};

// Temperature Probe: a sensor that measures a temperature. Layout: DMTF DSP0134, "Temperature Probe
// (Type 28) structure".
class SMType28Obj final : public SMProbeObj {
 public:
  SMType28Obj() : SMProbeObj(28, kTemperatureProbeTexts) {}
};

}  // namespace

void SMBiosReader::ReadType28(TableCursor& cursor) {
  ReadStructure<SMType28Obj>(cursor, [&](auto& object) { ReadProbeFields(object, cursor); });
}

}  // namespace kestrel
