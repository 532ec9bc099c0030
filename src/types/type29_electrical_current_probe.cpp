#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "types/probe.h"

namespace kestrel {

namespace {

// No blank between a number and a unit that begins with digits: intended.
constexpr ProbeTexts kCurrentProbeTexts = {"Electrical Current Probe (Type 29)", "mA", "1/10mA"};

// Electrical Current Probe: a sensor that measures a current. Layout: DMTF DSP0134, "Electrical
// Current Probe (Type 29) structure".
class SMType29Obj final : public SMProbeObj {
 public:
  SMType29Obj() : SMProbeObj(29, kCurrentProbeTexts) {}
};

}  // namespace

void SMBiosReader::ReadType29(TableCursor& cursor) {
  ReadStructure<SMType29Obj>(cursor, [&](auto& object) { ReadProbeFields(object, cursor); });
}

}  // namespace kestrel
