// Batteries, power supplies, probes and cooling.

#include <algorithm>

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

constexpr std::uint8_t kTemperatureProbes[] = {28};
constexpr std::uint8_t kVoltageProbes[] = {26};
constexpr std::uint8_t kCurrentProbes[] = {29};
constexpr std::uint8_t kCoolingDevices[] = {27};

// What firmware stores for a reading that it does not know.
constexpr std::uint64_t kUnknownReading = 0x8000;

constexpr ConversionRule Reading(std::uint32_t factor) {
  return {.Factor = factor, .IsSigned = true, .Unknown = kUnknownReading};
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

// In units of the multiplier, which came later; 0 stands for the usual 1.
constexpr std::optional<std::uint64_t> DesignCapacity(std::uint64_t number,
                                                      const OtherNumbers& others) {
  return number * std::max<std::uint64_t>(others[0].value_or(1), 1);
}

constexpr Field kPortableBattery[] = {
    StringField(0x04, "location"),
    StringField(0x05, "manufacturer"),
    StringField(0x06, "manufacture_date"),
    StringField(0x07, "serial_number"),
    StringField(0x08, "device_name"),
    CodeField(0x09, 1, "device_chemistry", kBatteryChemistries),
    NumberField(0x0A, 2, "design_capacity"),
    QuantityField("design_capacity_milliwatt_hours",
                  {.Unknown = 0, .Convert = DesignCapacity, .Others = {{0x15, 1}}}),
    NumberField(0x0C, 2, "design_voltage"),
    QuantityField("design_voltage_millivolts", {.Unknown = 0}),
    StringField(0x0E, "sbds_version_number"),
    NumberField(0x0F, 1, "maximum_error_in_battery_data"),
    QuantityField("maximum_error_percent", {.Unknown = 0xFF}),
    NumberField(0x10, 2, "sbds_serial_number"),
    PartsField(0x12, 2, "sbds_manufacture_date", kBatteryManufactureDate),
    StringField(0x14, "sbds_device_chemistry"),
    NumberField(0x15, 1, "design_capacity_multiplier"),
    NumberField(0x16, 4, "oem_specific"),
};
constexpr LeastLength kPortableBatteryLengths[] = {{2, 1, 0x10}, {2, 2, 0x1A}};

// System Power Controls (Type 25)

// Two decimal digits in a byte. Firmware stores what is out of range for a part of the time that is
// not set.
template <std::uint64_t least, std::uint64_t most>
constexpr std::optional<std::uint64_t> BinaryCodedDecimal(std::uint64_t number,
                                                          const OtherNumbers& /*others*/) {
  const std::uint64_t value = (number >> 4) * 10 + (number & 0xFU);
  const bool isSet = (number & 0xFU) <= 9 && value >= least && value <= most;
  return isSet ? std::optional(value) : std::nullopt;
}

constexpr Field kSystemPowerControls[] = {
    QuantityField(0x04, 1, "next_scheduled_power_on_month", {.Convert = BinaryCodedDecimal<1, 12>}),
    QuantityField(0x05, 1, "next_scheduled_power_on_day_of_month",
                  {.Convert = BinaryCodedDecimal<1, 31>}),
    QuantityField(0x06, 1, "next_scheduled_power_on_hour", {.Convert = BinaryCodedDecimal<0, 23>}),
    QuantityField(0x07, 1, "next_scheduled_power_on_minute",
                  {.Convert = BinaryCodedDecimal<0, 59>}),
    QuantityField(0x08, 1, "next_scheduled_power_on_second",
                  {.Convert = BinaryCodedDecimal<0, 59>}),
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
constexpr ConversionRule kReading = Reading(1);
constexpr ConversionRule kTimesHundred = Reading(100);

constexpr Field kVoltageProbe[] = {
    StringField(0x04, "description"),
    PartsField(0x05, 1, "location_and_status", kProbeLocationAndStatus),
    NumberField(0x06, 2, "maximum_value"),
    QuantityField("maximum_value_millivolts", kReading),
    NumberField(0x08, 2, "minimum_value"),
    QuantityField("minimum_value_millivolts", kReading),
    NumberField(0x0A, 2, "resolution"),
    QuantityField("resolution_microvolts", kTimesHundred),
    NumberField(0x0C, 2, "tolerance"),
    QuantityField("tolerance_millivolts", kReading),
    NumberField(0x0E, 2, "accuracy"),
    QuantityField("accuracy_parts_per_million", kTimesHundred),
    NumberField(0x10, 4, "oem_defined"),
    NumberField(0x14, 2, "nominal_value"),
    QuantityField("nominal_value_millivolts", kReading),
};

constexpr Field kTemperatureProbe[] = {
    StringField(0x04, "description"),
    PartsField(0x05, 1, "location_and_status", kTemperatureProbeLocationAndStatus),
    NumberField(0x06, 2, "maximum_value"),
    QuantityField("maximum_value_millidegrees_celsius", kTimesHundred),
    NumberField(0x08, 2, "minimum_value"),
    QuantityField("minimum_value_millidegrees_celsius", kTimesHundred),
    NumberField(0x0A, 2, "resolution"),
    QuantityField("resolution_millidegrees_celsius", kReading),
    NumberField(0x0C, 2, "tolerance"),
    QuantityField("tolerance_millidegrees_celsius", kTimesHundred),
    NumberField(0x0E, 2, "accuracy"),
    QuantityField("accuracy_parts_per_million", kTimesHundred),
    NumberField(0x10, 4, "oem_defined"),
    NumberField(0x14, 2, "nominal_value"),
    QuantityField("nominal_value_millidegrees_celsius", kTimesHundred),
};

constexpr Field kCurrentProbe[] = {
    StringField(0x04, "description"),
    PartsField(0x05, 1, "location_and_status", kProbeLocationAndStatus),
    NumberField(0x06, 2, "maximum_value"),
    QuantityField("maximum_value_milliamperes", kReading),
    NumberField(0x08, 2, "minimum_value"),
    QuantityField("minimum_value_milliamperes", kReading),
    NumberField(0x0A, 2, "resolution"),
    QuantityField("resolution_microamperes", kTimesHundred),
    NumberField(0x0C, 2, "tolerance"),
    QuantityField("tolerance_milliamperes", kReading),
    NumberField(0x0E, 2, "accuracy"),
    QuantityField("accuracy_parts_per_million", kTimesHundred),
    NumberField(0x10, 4, "oem_defined"),
    NumberField(0x14, 2, "nominal_value"),
    QuantityField("nominal_value_milliamperes", kReading),
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

constexpr Field kCoolingDevice[] = {
    HandleField(0x04, "temperature_probe_handle", kTemperatureProbes),
    PartsField(0x06, 1, "device_type_and_status", kDeviceTypeAndStatus),
    NumberField(0x07, 1, "cooling_unit_group", kNoneIsZero),
    NumberField(0x08, 4, "oem_defined"),
    NumberField(0x0C, 2, "nominal_speed"),
    QuantityField("nominal_speed_rpm", {.Unknown = kUnknownReading}),
    StringField(0x0E, "description"),
};
// Version 2.7 adds a field, and still asks for 0Ch.
constexpr LeastLength kCoolingDeviceLengths[] = {{2, 2, 0x0C}};

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

constexpr Field kSystemPowerSupply[] = {
    NumberField(0x04, 1, "power_unit_group", kNoneIsZero),
    StringField(0x05, "location"),
    StringField(0x06, "device_name"),
    StringField(0x07, "manufacturer"),
    StringField(0x08, "serial_number"),
    StringField(0x09, "asset_tag_number"),
    StringField(0x0A, "model_part_number"),
    StringField(0x0B, "revision_level"),
    NumberField(0x0C, 2, "max_power_capacity"),
    QuantityField("max_power_capacity_watts", {.Unknown = kUnknownReading}),
    PartsField(0x0E, 2, "power_supply_characteristics", kPowerSupplyCharacteristics),
    HandleField(0x10, "input_voltage_probe_handle", kVoltageProbes),
    HandleField(0x12, "cooling_device_handle", kCoolingDevices),
    HandleField(0x14, "input_current_probe_handle", kCurrentProbes),
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
