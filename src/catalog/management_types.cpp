// Management devices, controllers and security processors.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

// Management Device (Type 34)

constexpr Code kManagementDeviceTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "National Semiconductor LM75"},
    {0x04, "National Semiconductor LM78"},
    {0x05, "National Semiconductor LM79"},
    {0x06, "National Semiconductor LM80"},
    {0x07, "National Semiconductor LM81"},
    {0x08, "Analog Devices ADM9240"},
    {0x09, "Dallas Semiconductor DS1780"},
    {0x0A, "Maxim 1617"},
    {0x0B, "Genesys GL518SM"},
    {0x0C, "Winbond W83781D"},
    {0x0D, "Holtek HT82H791"},
};

constexpr Code kAddressTypes[] = {
    {0x01, "Other"}, {0x02, "Unknown"}, {0x03, "I/O Port"}, {0x04, "Memory"}, {0x05, "SM Bus"},
};

constexpr Field kManagementDevice[] = {
    StringField(0x04, "description"),
    CodeField(0x05, 1, "type", kManagementDeviceTypes),
    NumberField(0x06, 4, "address"),
    CodeField(0x0A, 1, "address_type", kAddressTypes),
};
constexpr LeastLength kManagementDeviceLengths[] = {{2, 3, 0x0B}};

// Management Device Component (Type 35)

constexpr std::uint8_t kManagementDevices[] = {34};
constexpr std::uint8_t kComponents[] = {26, 27, 28, 29};
constexpr std::uint8_t kThresholds[] = {36};

constexpr Field kManagementDeviceComponent[] = {
    StringField(0x04, "description"),
    HandleField(0x05, "management_device_handle", kManagementDevices),
    HandleField(0x07, "component_handle", kComponents),
    HandleField(0x09, "threshold_handle", kThresholds),
};
constexpr LeastLength kManagementDeviceComponentLengths[] = {{2, 3, 0x0B}};

// Management Device Threshold Data (Type 36)

// In the units of the probe's own values, which follow the same rule.
constexpr ConversionRule kThreshold = {.IsSigned = true, .Unknown = 0x8000};

constexpr Field kManagementDeviceThresholdData[] = {
    QuantityField(0x04, 2, "lower_threshold_non_critical", kThreshold),
    QuantityField(0x06, 2, "upper_threshold_non_critical", kThreshold),
    QuantityField(0x08, 2, "lower_threshold_critical", kThreshold),
    QuantityField(0x0A, 2, "upper_threshold_critical", kThreshold),
    QuantityField(0x0C, 2, "lower_threshold_non_recoverable", kThreshold),
    QuantityField(0x0E, 2, "upper_threshold_non_recoverable", kThreshold),
};
constexpr LeastLength kManagementDeviceThresholdDataLengths[] = {{2, 3, 0x10}};

// IPMI Device Information (Type 38)

constexpr Code kBmcInterfaceTypes[] = {
    {0x00, "Unknown"},
    {0x01, "KCS: Keyboard Controller Style"},
    {0x02, "SMIC: Server Management Interface Chip"},
    {0x03, "BT: Block Transfer"},
    {0x04, "SSIF: SMBus System Interface"},
};

constexpr Code kRegisterSpacings[] = {
    {0, "Interface registers are on successive byte boundaries."},
    {1, "Interface registers are on 32-bit boundaries."},
    {2, "Interface registers are on 16-byte boundaries."},
    {3, "Reserved"},
};

constexpr Code kInterruptPolarities[] = {{0, "active low"}, {1, "active high"}};
constexpr Code kInterruptTriggerModes[] = {{0, "edge"}, {1, "level"}};

constexpr Part kIpmiRevision[] = {NumberPart("minor", 0, 4), NumberPart("major", 4, 4)};

constexpr Part kBaseAddressModifier[] = {
    CodePart("interrupt_trigger_mode", 0, 1, kInterruptTriggerModes),
    CodePart("interrupt_polarity", 1, 1, kInterruptPolarities),
    FlagPart("interrupt_info_specified", 3),
    NumberPart("ls_bit_for_addresses", 4, 1),
    CodePart("register_spacing", 6, 2, kRegisterSpacings),
};

constexpr Code kBaseAddressSpaces[] = {{0, "Memory-mapped"}, {1, "I/O"}};

constexpr std::uint64_t kSsif = 4;

// The address of an SSIF interface is one of the SMBus instead.
constexpr std::optional<std::uint64_t> BaseAddressSpace(std::uint64_t number,
                                                        const OtherNumbers& others) {
  return others[0] != kSsif ? std::optional(number & 1U) : std::nullopt;
}

// Bit 0 says which space it is, so bit 0 of the address stands in bit 4 of the modifier. An SSIF
// interface has a 7-bit address above bit 0.
constexpr std::optional<std::uint64_t> InterfaceAddress(std::uint64_t number,
                                                        const OtherNumbers& others) {
  return others[0] == kSsif ? number >> 1
                            : (number & ~std::uint64_t{1}) | (others[1].value_or(0) >> 4 & 1U);
}

constexpr std::optional<std::uint64_t> SevenBitAddress(std::uint64_t number,
                                                       const OtherNumbers& /*others*/) {
  return number >> 1;
}

constexpr Field kIpmiDeviceInformation[] = {
    CodeField(0x04, 1, "interface_type", kBmcInterfaceTypes),
    PartsField(0x05, 1, "ipmi_specification_revision", kIpmiRevision),
    NumberField(0x06, 1, "i2c_target_address"),
    QuantityField("i2c_target_address_7_bit", {.Convert = SevenBitAddress}),
    NumberField(0x07, 1, "nv_storage_device_address", kNoneIsFFh),
    NumberField(0x08, 8, "base_address"),
    QuantityField("interface_address",
                  {.Convert = InterfaceAddress, .Others = {{0x04, 1}, {0x10, 1, true}}}),
    CodeField("base_address_space", kBaseAddressSpaces,
              {.Convert = BaseAddressSpace, .Others = {{0x04, 1}}}),
    PartsField(0x10, 1, "base_address_modifier_interrupt_info", kBaseAddressModifier),
    NumberField(0x11, 1, "interrupt_number", kNoneIsZero),
};
constexpr LeastLength kIpmiDeviceInformationLengths[] = {{2, 3, 0x10}};

// Management Controller Host Interface (Type 42)

constexpr Code kHostInterfaceTypes[] = {
    {0x00, 0x01, "MCTP Host Interface"},
    {0x02, "KCS: Keyboard Controller Style"},
    {0x03, "8250 UART Register Compatible"},
    {0x04, "16450 UART Register Compatible"},
    {0x05, "16550/16550A UART Register Compatible"},
    {0x06, "16650/16650A UART Register Compatible"},
    {0x07, "16750/16750A UART Register Compatible"},
    {0x08, "16850/16850A UART Register Compatible"},
    {0x09, "I2C/SMBus"},
    {0x0A, "I3C"},
    {0x0B, "PCIe VDM"},
    {0x0C, "MMBI"},
    {0x0D, "PCC"},
    {0x0E, "UCIe"},
    {0x0F, "USB"},
    {0x10, 0x3F, "MCTP Host Interface"},
    {0x40, "Network Host Interface"},
    {0xF0, "OEM-defined"},
};

constexpr Code kHostInterfaceProtocols[] = {
    {0x02, "IPMI: Intelligent Platform Management Interface"},
    {0x03, "MCTP: Management Component Transport Protocol"},
    {0x04, "Redfish over IP"},
    {0xF0, "OEM-defined"},
};

constexpr Field kProtocolRecord[] = {
    CodeField(0x00, 1, "protocol_type", kHostInterfaceProtocols),
    NumberField(0x01, 1, "protocol_type_specific_data_length"),
    CountedBytesField(0x02, "protocol_type_specific_data", 0x01),
};

constexpr List kProtocolRecords = {
    .CountRule = List::Count::FieldBefore,
    .SizeRule = List::Size::AsItsFields,
    .Fields = kProtocolRecord,
};

constexpr Field kManagementControllerHostInterface[] = {
    CodeField(0x04, 1, "interface_type", kHostInterfaceTypes),
    NumberField(0x05, 1, "interface_type_specific_data_length"),
    CountedBytesField(0x06, "interface_type_specific_data", 0x05),
    NumberField(kFollows, 1, "number_of_protocol_records"),
    ListField(kFollows, "protocol_records", kProtocolRecords),
};
// The data of an interface takes four bytes at least.
constexpr LeastLength kManagementControllerHostInterfaceLengths[] = {{2, 7, 0x09}, {3, 2, 0x0B}};

// TPM Device (Type 43)

constexpr Bit kTpmCharacteristics[] = {
    {2, "TPM Device Characteristics are not supported"},
    {3, "Family configurable via firmware update"},
    {4, "Family configurable via platform software support"},
    {5, "Family configurable via OEM proprietary mechanism"},
};

constexpr Field kTpmDevice[] = {
    CharactersField(0x04, 4, "vendor_id"),
    NumberField(0x08, 1, "major_spec_version"),
    NumberField(0x09, 1, "minor_spec_version"),
    NumberField(0x0A, 4, "firmware_version_1"),
    NumberField(0x0E, 4, "firmware_version_2"),
    StringField(0x12, "description"),
    BitsField(0x13, 8, "characteristics", kTpmCharacteristics),
    NumberField(0x1B, 4, "oem_defined"),
};
constexpr LeastLength kTpmDeviceLengths[] = {{3, 1, 0x1F}};

constexpr StructureType kManagementTypeList[] = {
    {34, "Management Device", kManagementDevice, kManagementDeviceLengths},
    {35, "Management Device Component", kManagementDeviceComponent,
     kManagementDeviceComponentLengths},
    {36, "Management Device Threshold Data", kManagementDeviceThresholdData,
     kManagementDeviceThresholdDataLengths},
    {38, "IPMI Device Information", kIpmiDeviceInformation, kIpmiDeviceInformationLengths},
    {42, "Management Controller Host Interface", kManagementControllerHostInterface,
     kManagementControllerHostInterfaceLengths},
    {43, "TPM Device", kTpmDevice, kTpmDeviceLengths},
};
static_assert(AreWellFormed(kManagementTypeList));

}  // namespace

constinit const std::span<const StructureType> kManagementTypes = kManagementTypeList;

}  // namespace kestrel::catalog
