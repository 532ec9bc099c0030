// Batteries, power supplies, probes and cooling.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

constexpr std::uint8_t kTemperatureProbes[] = {28};
constexpr std::uint8_t kVoltageProbes[] = {26};
constexpr std::uint8_t kCurrentProbes[] = {29};
constexpr std::uint8_t kCoolingDevices[] = {27};

// What firmware stores for a reading that it does not know.
constexpr std::uint32_t kUnknownReading = 0x8000;

// A signed 16-bit reading in other units than those that are shown.
constexpr Derivation Reading(std::uint8_t offset, std::int32_t factor = 1) {
  return {.How = Formula::ScaledSigned,
          .First = offset,
          .Factor = factor,
          .Unknown = kUnknownReading,
          .HasUnknown = true};
}

// Portable Battery (Type 22)

constexpr Code kBatteryChemistries[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Lead Acid"},
    {0x04, "Nickel Cadmium"},
    {0x05, "Nickel metal hydride"},
    {0x06, "Lithium-ion"},
    {0x07, "Zinc air"},
    {0x08, "Lithium Polymer"},
};

constexpr Part kBatteryManufactureDate[] = {
    NumberPart("day", 0, 5),
    NumberPart("month", 5, 4),
    NumberPart("years_since_1980", 9, 7),
};

constexpr Derivation kDesignCapacity = {
    .How = Formula::BatteryCapacity, .First = 0x0A, .Second = 0x15, .SecondWidth = 1};

constexpr Derivation kDesignVoltage = {
    .How = Formula::Scaled, .First = 0x0C, .Unknown = 0, .HasUnknown = true};

constexpr Field kPortableBattery[] = {
    String(0x04, "location"),
    String(0x05, "manufacturer"),
    String(0x06, "manufacture_date"),
    String(0x07, "serial_number"),
    String(0x08, "device_name"),
    CodeOf(0x09, 1, "device_chemistry", kBatteryChemistries),
    Number(0x0A, 2, "design_capacity"),
    DerivedAs("design_capacity_milliwatt_hours", kDesignCapacity),
    Number(0x0C, 2, "design_voltage"),
    DerivedAs("design_voltage_millivolts", kDesignVoltage),
    String(0x0E, "sbds_version_number"),
    Number(0x0F, 1, "maximum_error_in_battery_data"),
    Number(0x10, 2, "sbds_serial_number"),
    PartsOf(0x12, 2, "sbds_manufacture_date", kBatteryManufactureDate),
    String(0x14, "sbds_device_chemistry"),
    Number(0x15, 1, "design_capacity_multiplier"),
    Number(0x16, 4, "oem_specific"),
};
constexpr LeastLength kPortableBatteryLengths[] = {{2, 1, 0x10}, {2, 2, 0x1A}};

// System Power Controls (Type 25)

constexpr Field kSystemPowerControls[] = {
    Number(0x04, 1, "next_scheduled_power_on_month"),
    Number(0x05, 1, "next_scheduled_power_on_day_of_month"),
    Number(0x06, 1, "next_scheduled_power_on_hour"),
    Number(0x07, 1, "next_scheduled_power_on_minute"),
    Number(0x08, 1, "next_scheduled_power_on_second"),
};
constexpr LeastLength kSystemPowerControlsLengths[] = {{2, 2, 0x09}};

// Voltage Probe, Temperature Probe, Electrical Current Probe (Types 26, 28, 29): one layout

constexpr Code kStatuses[] = {
    {1, "Other"},        {2, "Unknown"},  {3, "OK"},
    {4, "Non-critical"}, {5, "Critical"}, {6, "Non-recoverable"},
};

constexpr Code kProbeLocations[] = {
    {1, "Other"},       {2, "Unknown"},        {3, "Processor"},
    {4, "Disk"},        {5, "Peripheral Bay"}, {6, "System Management Module"},
    {7, "Motherboard"}, {8, "Memory Module"},  {9, "Processor Module"},
    {10, "Power Unit"}, {11, "Add-in Card"},
};

constexpr Code kTemperatureProbeLocations[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Processor"},
    {4, "Disk"},
    {5, "Peripheral Bay"},
    {6, "System Management Module"},
    {7, "Motherboard"},
    {8, "Memory Module"},
    {9, "Processor Module"},
    {10, "Power Unit"},
    {11, "Add-in Card"},
    {12, "Front Panel Board"},
    {13, "Back Panel Board"},
    {14, "Power System Board"},
    {15, "Drive Back Plane"},
};

constexpr Part kProbeLocationAndStatus[] = {
    CodePart("location", 0, 5, kProbeLocations),
    CodePart("status", 5, 3, kStatuses),
};

constexpr Part kTemperatureProbeLocationAndStatus[] = {
    CodePart("location", 0, 5, kTemperatureProbeLocations),
    CodePart("status", 5, 3, kStatuses),
};

// Voltages in millivolts and currents in milliamperes, resolutions in tenths of them; temperatures
// in tenths of a degree, resolutions in thousandths; accuracies in hundredths of a percent.
constexpr Derivation kMaximumValue = Reading(0x06);
constexpr Derivation kMinimumValue = Reading(0x08);
constexpr Derivation kResolution = Reading(0x0A, 100);
constexpr Derivation kTolerance = Reading(0x0C);
constexpr Derivation kAccuracy = Reading(0x0E, 100);
constexpr Derivation kNominalValue = Reading(0x14);
constexpr Derivation kMaximumTemperature = Reading(0x06, 100);
constexpr Derivation kMinimumTemperature = Reading(0x08, 100);
constexpr Derivation kTemperatureResolution = Reading(0x0A);
constexpr Derivation kTemperatureTolerance = Reading(0x0C, 100);
constexpr Derivation kNominalTemperature = Reading(0x14, 100);

constexpr Field kVoltageProbe[] = {
    String(0x04, "description"),
    PartsOf(0x05, 1, "location_and_status", kProbeLocationAndStatus),
    Number(0x06, 2, "maximum_value"),
    DerivedAs("maximum_value_millivolts", kMaximumValue),
    Number(0x08, 2, "minimum_value"),
    DerivedAs("minimum_value_millivolts", kMinimumValue),
    Number(0x0A, 2, "resolution"),
    DerivedAs("resolution_microvolts", kResolution),
    Number(0x0C, 2, "tolerance"),
    DerivedAs("tolerance_millivolts", kTolerance),
    Number(0x0E, 2, "accuracy"),
    DerivedAs("accuracy_parts_per_million", kAccuracy),
    Number(0x10, 4, "oem_defined"),
    Number(0x14, 2, "nominal_value"),
    DerivedAs("nominal_value_millivolts", kNominalValue),
};

constexpr Field kTemperatureProbe[] = {
    String(0x04, "description"),
    PartsOf(0x05, 1, "location_and_status", kTemperatureProbeLocationAndStatus),
    Number(0x06, 2, "maximum_value"),
    DerivedAs("maximum_value_millidegrees_celsius", kMaximumTemperature),
    Number(0x08, 2, "minimum_value"),
    DerivedAs("minimum_value_millidegrees_celsius", kMinimumTemperature),
    Number(0x0A, 2, "resolution"),
    DerivedAs("resolution_millidegrees_celsius", kTemperatureResolution),
    Number(0x0C, 2, "tolerance"),
    DerivedAs("tolerance_millidegrees_celsius", kTemperatureTolerance),
    Number(0x0E, 2, "accuracy"),
    DerivedAs("accuracy_parts_per_million", kAccuracy),
    Number(0x10, 4, "oem_defined"),
    Number(0x14, 2, "nominal_value"),
    DerivedAs("nominal_value_millidegrees_celsius", kNominalTemperature),
};

constexpr Field kCurrentProbe[] = {
    String(0x04, "description"),
    PartsOf(0x05, 1, "location_and_status", kProbeLocationAndStatus),
    Number(0x06, 2, "maximum_value"),
    DerivedAs("maximum_value_milliamperes", kMaximumValue),
    Number(0x08, 2, "minimum_value"),
    DerivedAs("minimum_value_milliamperes", kMinimumValue),
    Number(0x0A, 2, "resolution"),
    DerivedAs("resolution_microamperes", kResolution),
    Number(0x0C, 2, "tolerance"),
    DerivedAs("tolerance_milliamperes", kTolerance),
    Number(0x0E, 2, "accuracy"),
    DerivedAs("accuracy_parts_per_million", kAccuracy),
    Number(0x10, 4, "oem_defined"),
    Number(0x14, 2, "nominal_value"),
    DerivedAs("nominal_value_milliamperes", kNominalValue),
};
constexpr LeastLength kProbeLengths[] = {{2, 2, 0x14}};

// Cooling Device (Type 27)

constexpr Code kCoolingDeviceTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Fan"},
    {4, "Centrifugal Blower"},
    {5, "Chip Fan"},
    {6, "Cabinet Fan"},
    {7, "Power Supply Fan"},
    {8, "Heat Pipe"},
    {9, "Integrated Refrigeration"},
    {16, "Active Cooling"},
    {17, "Passive Cooling"},
};

constexpr Part kDeviceTypeAndStatus[] = {
    CodePart("device_type", 0, 5, kCoolingDeviceTypes),
    CodePart("status", 5, 3, kStatuses),
};

constexpr Derivation kNominalSpeed = {
    .How = Formula::Scaled, .First = 0x0C, .Unknown = kUnknownReading, .HasUnknown = true};

constexpr Field kCoolingDevice[] = {
    Handle(0x04, "temperature_probe_handle", kTemperatureProbes),
    PartsOf(0x06, 1, "device_type_and_status", kDeviceTypeAndStatus),
    Number(0x07, 1, "cooling_unit_group"),
    Number(0x08, 4, "oem_defined"),
    Number(0x0C, 2, "nominal_speed"),
    DerivedAs("nominal_speed_rpm", kNominalSpeed),
    String(0x0E, "description"),
};
constexpr LeastLength kCoolingDeviceLengths[] = {{2, 2, 0x0C}, {2, 7, 0x0F}};

// System Power Supply (Type 39)

constexpr Code kInputVoltageRangeSwitchings[] = {
    {1, "Other"},       {2, "Unknown"},    {3, "Manual"},
    {4, "Auto-switch"}, {5, "Wide range"}, {6, "Not applicable"},
};

constexpr Code kPowerSupplyStatuses[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "OK"}, {4, "Non-critical"}, {5, "Critical"},
};

constexpr Code kPowerSupplyTypes[] = {
    {1, "Other"},   {2, "Unknown"}, {3, "Linear"},    {4, "Switching"},
    {5, "Battery"}, {6, "UPS"},     {7, "Converter"}, {8, "Regulator"},
};

constexpr Part kPowerSupplyCharacteristics[] = {
    FlagPart("hot_replaceable", 0),
    FlagPart("present", 1),
    FlagPart("unplugged_from_the_wall", 2),
    CodePart("input_voltage_range_switching", 3, 4, kInputVoltageRangeSwitchings),
    CodePart("status", 7, 3, kPowerSupplyStatuses),
    CodePart("type", 10, 4, kPowerSupplyTypes),
};

constexpr Derivation kMaxPowerCapacity = {
    .How = Formula::Scaled, .First = 0x0C, .Unknown = kUnknownReading, .HasUnknown = true};

constexpr Field kSystemPowerSupply[] = {
    Number(0x04, 1, "power_unit_group"),
    String(0x05, "location"),
    String(0x06, "device_name"),
    String(0x07, "manufacturer"),
    String(0x08, "serial_number"),
    String(0x09, "asset_tag_number"),
    String(0x0A, "model_part_number"),
    String(0x0B, "revision_level"),
    Number(0x0C, 2, "max_power_capacity"),
    DerivedAs("max_power_capacity_watts", kMaxPowerCapacity),
    PartsOf(0x0E, 2, "power_supply_characteristics", kPowerSupplyCharacteristics),
    Handle(0x10, "input_voltage_probe_handle", kVoltageProbes),
    Handle(0x12, "cooling_device_handle", kCoolingDevices),
    Handle(0x14, "input_current_probe_handle", kCurrentProbes),
};
constexpr LeastLength kSystemPowerSupplyLengths[] = {{2, 3, 0x10}};

constexpr StructureType kPowerTypeList[] = {
    {22, "Portable Battery", kPortableBattery, kPortableBatteryLengths},
    {25, "System Power Controls", kSystemPowerControls, kSystemPowerControlsLengths},
    {26, "Voltage Probe", kVoltageProbe, kProbeLengths},
    {27, "Cooling Device", kCoolingDevice, kCoolingDeviceLengths},
    {28, "Temperature Probe", kTemperatureProbe, kProbeLengths},
    {29, "Electrical Current Probe", kCurrentProbe, kProbeLengths},
    {39, "System Power Supply", kSystemPowerSupply, kSystemPowerSupplyLengths},
};
static_assert(AreWellFormed(kPowerTypeList));

}  // namespace

constinit const std::span<const StructureType> kPowerTypes = kPowerTypeList;

}  // namespace kestrel::catalog
