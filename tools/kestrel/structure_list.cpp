#include "tools/kestrel/structure_list.h"

#include <array>

#include "model/table_cursor.h"
#include "model/table_walk.h"
#include "model/text.h"

namespace kestrel {

namespace {

constexpr std::array<std::string_view, 47> kNames = {
    "BIOS Information",
    "System Information",
    "Base Board Information",
    "System Enclosure or Chassis",
    "Processor Information",
    "Memory Controller Information",
    "Memory Module Information",
    "Cache Information",
    "Port Connector Information",
    "System Slots",
    "On Board Devices Information",
    "OEM Strings",
    "System Configuration Options",
    "BIOS Language Information",
    "Group Associations",
    "System Event Log",
    "Physical Memory Array",
    "Memory Device",
    "32-bit Memory Error Information",
    "Memory Array Mapped Address",
    "Memory Device Mapped Address",
    "Built-in Pointing Device",
    "Portable Battery",
    "System Reset",
    "Hardware Security",
    "System Power Controls",
    "Voltage Probe",
    "Cooling Device",
    "Temperature Probe",
    "Electrical Current Probe",
    "Out-of-Band Remote Access",
    "Boot Integrity Services (BIS) Entry Point",
    "System Boot Information",
    "64-bit Memory Error Information",
    "Management Device",
    "Management Device Component",
    "Management Device Threshold Data",
    "Memory Channel",
    "IPMI Device Information",
    "System Power Supply",
    "Additional Information",
    "Onboard Devices Extended Information",
    "Management Controller Host Interface",
    "TPM Device",
    "Processor Additional Information",
    "Firmware Inventory Information",
    "String Property",
};

constexpr std::uint8_t kInactive = 126;
constexpr std::uint8_t kFirstOem = 128;

void AppendRightAligned(std::string& line, std::string_view number, std::size_t width) {
  line.append(width - number.size(), ' ').append(number);
}

}  // namespace

std::string_view GetStructureName(std::uint8_t type) {
  if (type < kNames.size()) {
    return kNames[type];
  }
  if (type >= kFirstOem) {
    return "OEM";
  }
  switch (type) {
    case kInactive:
      return "Inactive";
    case kEndOfTable:
      return "End-of-Table";
    default:
      return "Unknown";
  }
}

std::string ListStructures(std::span<const std::uint8_t> table) {
  std::string list;
  TableCursor cursor(table);
  while (!cursor.IsAtEnd()) {
    const std::size_t start = cursor.GetPosition();
    const std::uint8_t type = cursor.U8();
    const std::uint8_t length = cursor.U8();
    Append(list, {Hex(start, 4), "h  "});
    AppendRightAligned(list, Decimal(type), 3);
    list.append("  ");
    AppendRightAligned(list, Decimal(length), 3);
    Append(list, {"  ", Hex(cursor.U16(), 4), "h  ", GetStructureName(type), "\r\n"});
    MoveToNextStructure(cursor, start);
  }
  return list;
}

}  // namespace kestrel
