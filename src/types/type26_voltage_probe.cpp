#include <memory>
#include <utility>

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
  auto object = std::make_unique<SMType26Obj>();
  ReadHeader(*object, cursor);
  ReadProbeFields(*object, cursor);
  CollectStrings(*object, cursor);
  AppendObject(std::move(object));
}

}  // namespace kestrel
