// The system as a whole: makers, boards, enclosures, and what belongs together.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

// System Information (Type 1)

constexpr Code kWakeUpTypes[] = {
    {0x00, "Reserved"},     {0x01, "Other"},      {0x02, "Unknown"},
    {0x03, "APM Timer"},    {0x04, "Modem Ring"}, {0x05, "LAN Remote"},
    {0x06, "Power Switch"}, {0x07, "PCI PME#"},   {0x08, "AC Power Restored"},
};

constexpr Field kSystemInformation[] = {
    StringField(0x04, "manufacturer"), StringField(0x05, "product_name"),
    StringField(0x06, "version"),      StringField(0x07, "serial_number"),
    UuidField(0x08, "uuid"),           CodeField(0x18, 1, "wake_up_type", kWakeUpTypes),
    StringField(0x19, "sku_number"),   StringField(0x1A, "family"),
};
constexpr LeastLength kSystemInformationLengths[] = {{2, 0, 0x08}, {2, 1, 0x19}, {2, 4, 0x1B}};

// Base Board Information (Type 2)

constexpr std::uint8_t kEnclosures[] = {3};

constexpr Bit kBoardFeatures[] = {
    {0, "The board is a hosting board"},
    {1, "The board requires at least one daughter board or auxiliary card to function properly"},
    {2, "The board is removable"},
    {3, "The board is replaceable"},
    {4, "The board is hot swappable"},
};

constexpr Code kBoardTypes[] = {
    {0x01, "Unknown"},
    {0x02, "Other"},
    {0x03, "Server Blade"},
    {0x04, "Connectivity Switch"},
    {0x05, "System Management Module"},
    {0x06, "Processor Module"},
    {0x07, "I/O Module"},
    {0x08, "Memory Module"},
    {0x09, "Daughter board"},
    {0x0A, "Motherboard (includes processor, memory, and I/O)"},
    {0x0B, "Processor/Memory Module"},
    {0x0C, "Processor/IO Module"},
    {0x0D, "Interconnect board"},
};

constexpr Field kContainedObject[] = {HandleField(0x00, "")};
constexpr List kContainedObjects = {.SizeOrOffset = 2, .Fields = kContainedObject};

constexpr Field kBaseBoardInformation[] = {
    StringField(0x04, "manufacturer"),
    StringField(0x05, "product"),
    StringField(0x06, "version"),
    StringField(0x07, "serial_number"),
    StringField(0x08, "asset_tag"),
    BitsField(0x09, 1, "feature_flags", kBoardFeatures),
    StringField(0x0A, "location_in_chassis"),
    HandleField(0x0B, "chassis_handle", kEnclosures),
    CodeField(0x0D, 1, "board_type", kBoardTypes),
    NumberField(0x0E, 1, "number_of_contained_object_handles"),
    ListField(0x0F, "contained_object_handles", kContainedObjects),
};
constexpr LeastLength kBaseBoardInformationLengths[] = {{2, 0, 0x08}};

// System Enclosure or Chassis (Type 3)

constexpr Code kEnclosureTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Desktop"},
    {0x04, "Low Profile Desktop"},
    {0x05, "Pizza Box"},
    {0x06, "Mini Tower"},
    {0x07, "Tower"},
    {0x08, "Portable"},
    {0x09, "Laptop"},
    {0x0A, "Notebook"},
    {0x0B, "Hand Held"},
    {0x0C, "Docking Station"},
    {0x0D, "All in One"},
    {0x0E, "Sub Notebook"},
    {0x0F, "Space-saving"},
    {0x10, "Lunch Box"},
    {0x11, "Main Server Chassis"},
    {0x12, "Expansion Chassis"},
    {0x13, "SubChassis"},
    {0x14, "Bus Expansion Chassis"},
    {0x15, "Peripheral Chassis"},
    {0x16, "RAID Chassis"},
    {0x17, "Rack Mount Chassis"},
    {0x18, "Sealed-case PC"},
    {0x19, "Multi-system chassis"},
    {0x1A, "Compact PCI"},
    {0x1B, "Advanced TCA"},
    {0x1C, "Blade"},
    {0x1D, "Blade Enclosure"},
    {0x1E, "Tablet"},
    {0x1F, "Convertible"},
    {0x20, "Detachable"},
    {0x21, "IoT Gateway"},
    {0x22, "Embedded PC"},
    {0x23, "Mini PC"},
    {0x24, "Stick PC"},
};

constexpr Part kEnclosureType[] = {
    CodePart("", 0, 7, kEnclosureTypes),
    FlagPart("chassis_lock_present", 7),
};

constexpr Code kEnclosureStates[] = {
    {0x01, "Other"},   {0x02, "Unknown"},  {0x03, "Safe"},
    {0x04, "Warning"}, {0x05, "Critical"}, {0x06, "Non-recoverable"},
};

constexpr Code kSecurityStatuses[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "None"},
    {0x04, "External interface locked out"},
    {0x05, "External interface enabled"},
};

constexpr Code kElementTypeSelects[] = {
    {0, "Baseboard type"},
    {1, "SMBIOS structure type"},
};

constexpr Part kElementType[] = {
    NumberPart("type", 0, 7),
    CodePart("type_select", 7, 1, kElementTypeSelects),
};

constexpr Field kContainedElement[] = {
    PartsField(0x00, 1, "contained_element_type", kElementType),
    NumberField(0x01, 1, "contained_element_minimum"),
    NumberField(0x02, 1, "contained_element_maximum"),
};
constexpr List kContainedElements = {.CountRule = List::Count::FromField,
                                     .CountOffset = 0x13,
                                     .SizeRule = List::Size::FromField,
                                     .SizeOrOffset = 0x14,
                                     .Fields = kContainedElement};

// 0 says that it is not specified, FFh that the rack height has it, in units of the rack type.
constexpr std::optional<std::uint64_t> RackUnits(std::uint64_t number,
                                                 const OtherNumbers& /*others*/) {
  return number != 0 && number != 0xFF ? std::optional(number) : std::nullopt;
}

constexpr Code kRackTypes[] = {{0, "Unspecified"}, {1, "OpenU"}};

constexpr Field kSystemEnclosure[] = {
    StringField(0x04, "manufacturer"),
    PartsField(0x05, 1, "type", kEnclosureType),
    StringField(0x06, "version"),
    StringField(0x07, "serial_number"),
    StringField(0x08, "asset_tag_number"),
    CodeField(0x09, 1, "boot_up_state", kEnclosureStates),
    CodeField(0x0A, 1, "power_supply_state", kEnclosureStates),
    CodeField(0x0B, 1, "thermal_state", kEnclosureStates),
    CodeField(0x0C, 1, "security_status", kSecurityStatuses),
    NumberField(0x0D, 4, "oem_defined"),
    NumberField(0x11, 1, "height"),
    QuantityField("height_rack_units", {.Convert = RackUnits}),
    NumberField(0x12, 1, "number_of_power_cords", kUnknownIsZero),
    NumberField(0x13, 1, "contained_element_count"),
    NumberField(0x14, 1, "contained_element_record_length"),
    ListField(0x15, "contained_elements", kContainedElements),
    StringField(kFollows, "sku_number"),
    CodeField(kFollows, 1, "rack_type", kRackTypes),
    NumberField(kFollows, 1, "rack_height", kUnknownIsZero),
};
constexpr LeastLength kSystemEnclosureLengths[] = {{2, 0, 0x09}, {2, 1, 0x0D}};

// OEM Strings and System Configuration Options (Types 11 and 12)

constexpr Field kStringCount[] = {NumberField(0x04, 1, "count")};
constexpr LeastLength kStringCountLengths[] = {{2, 0, 0x05}};

// Group Associations (Type 14)

constexpr Field kGroupItem[] = {
    NumberField(0x00, 1, "item_type"),
    HandleField(0x01, "item_handle"),
};
constexpr List kGroupItems = {
    .CountRule = List::Count::ToTheEnd, .SizeOrOffset = 3, .Fields = kGroupItem};

constexpr Field kGroupAssociations[] = {
    StringField(0x04, "group_name"),
    ListField(0x05, "items", kGroupItems),
};
constexpr LeastLength kGroupAssociationsLengths[] = {{2, 0, 0x05}};

// System Reset (Type 23)

constexpr Code kBootOptions[] = {
    {0, "Reserved"},
    {1, "Operating system"},
    {2, "System utilities"},
    {3, "Do not reboot"},
};

constexpr Part kResetCapabilities[] = {
    FlagPart("status_enabled", 0),
    CodePart("boot_option", 1, 2, kBootOptions),
    CodePart("boot_option_on_limit", 3, 2, kBootOptions),
    FlagPart("watchdog_timer", 5),
};

constexpr ConversionRule kMinutes = {.Factor = 60, .Unknown = 0xFFFF};

constexpr ConversionRule kResets = {.Unknown = 0xFFFF};

constexpr Field kSystemReset[] = {
    PartsField(0x04, 1, "capabilities", kResetCapabilities),
    NumberField(0x05, 2, "reset_count"),
    QuantityField("resets", kResets),
    NumberField(0x07, 2, "reset_limit"),
    QuantityField("allowed_resets", kResets),
    NumberField(0x09, 2, "timer_interval"),
    QuantityField("timer_interval_seconds", kMinutes),
    NumberField(0x0B, 2, "timeout"),
    QuantityField("timeout_seconds", kMinutes),
};
constexpr LeastLength kSystemResetLengths[] = {{2, 2, 0x0D}};

// Hardware Security (Type 24)

constexpr Code kSecuritySettings[] = {
    {0, "Disabled"},
    {1, "Enabled"},
    {2, "Not implemented"},
    {3, "Unknown"},
};

constexpr Part kHardwareSecuritySettings[] = {
    CodePart("front_panel_reset_status", 0, 2, kSecuritySettings),
    CodePart("administrator_password_status", 2, 2, kSecuritySettings),
    CodePart("keyboard_password_status", 4, 2, kSecuritySettings),
    CodePart("power_on_password_status", 6, 2, kSecuritySettings),
};

constexpr Field kHardwareSecurity[] = {
    PartsField(0x04, 1, "hardware_security_settings", kHardwareSecuritySettings),
};
constexpr LeastLength kHardwareSecurityLengths[] = {{2, 2, 0x05}};

// Out-of-Band Remote Access (Type 30)

constexpr Bit kConnections[] = {
    {0, "Inbound Connection Enabled"},
    {1, "Outbound Connection Enabled"},
};

constexpr Field kOutOfBandRemoteAccess[] = {
    StringField(0x04, "manufacturer_name"),
    BitsField(0x05, 1, "connections", kConnections),
};
constexpr LeastLength kOutOfBandRemoteAccessLengths[] = {{2, 2, 0x06}};

constexpr StructureType kSystemTypeList[] = {
    {1, "System Information", kSystemInformation, kSystemInformationLengths, true},
    {2, "Base Board Information", kBaseBoardInformation, kBaseBoardInformationLengths},
    {3, "System Enclosure or Chassis", kSystemEnclosure, kSystemEnclosureLengths},
    {11, "OEM Strings", kStringCount, kStringCountLengths},
    {12, "System Configuration Options", kStringCount, kStringCountLengths},
    {14, "Group Associations", kGroupAssociations, kGroupAssociationsLengths},
    {23, "System Reset", kSystemReset, kSystemResetLengths},
    {24, "Hardware Security", kHardwareSecurity, kHardwareSecurityLengths},
    {30, "Out-of-Band Remote Access", kOutOfBandRemoteAccess, kOutOfBandRemoteAccessLengths},
};
static_assert(AreWellFormed(kSystemTypeList));

}  // namespace

constinit const std::span<const StructureType> kSystemTypes = kSystemTypeList;

}  // namespace kestrel::catalog
