// Memory: controllers and modules of old, arrays, devices, their addresses, channels and errors.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

constexpr std::uint8_t kMemoryModules[] = {6};
constexpr std::uint8_t kArrays[] = {16};
constexpr std::uint8_t kDevices[] = {17};
constexpr std::uint8_t kErrors[] = {18, 33};
constexpr std::uint8_t kArrayAddresses[] = {19};
constexpr std::uint8_t kChannelDevices[] = {6, 17};

// Memory Controller Information and Memory Module Information (Types 5 and 6)

constexpr Code kErrorDetectingMethods[] = {
    {0x01, "Other"},      {0x02, "Unknown"},    {0x03, "None"},        {0x04, "8-bit Parity"},
    {0x05, "32-bit ECC"}, {0x06, "64-bit ECC"}, {0x07, "128-bit ECC"}, {0x08, "CRC"},
};

constexpr Bit kErrorCorrectingCapabilities[] = {
    {0, "Other"},
    {1, "Unknown"},
    {2, "None"},
    {3, "Single-Bit Error Correcting"},
    {4, "Double-Bit Error Correcting"},
    {5, "Error Scrubbing"},
};

constexpr Code kInterleaves[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "One-Way Interleave"},
    {0x04, "Two-Way Interleave"},
    {0x05, "Four-Way Interleave"},
    {0x06, "Eight-Way Interleave"},
    {0x07, "Sixteen-Way Interleave"},
};

constexpr Bit kModuleSpeeds[] = {
    {0, "Other"}, {1, "Unknown"}, {2, "70ns"}, {3, "60ns"}, {4, "50ns"},
};

constexpr Bit kModuleTypes[] = {
    {0, "Other"}, {1, "Unknown"},   {2, "Standard"}, {3, "Fast Page Mode"},
    {4, "EDO"},   {5, "Parity"},    {6, "ECC"},      {7, "SIMM"},
    {8, "DIMM"},  {9, "Burst EDO"}, {10, "SDRAM"},
};

constexpr Bit kModuleVoltages[] = {{0, "5V"}, {1, "3.3V"}, {2, "2.9V"}};

// The exponent of a size in MiB.
constexpr std::optional<std::uint64_t> PowerOfMiB(std::uint64_t number,
                                                  const OtherNumbers& /*others*/) {
  constexpr std::uint64_t kLargestExponent = 43;
  return number <= kLargestExponent ? std::optional(kMiB << number) : std::nullopt;
}

constexpr Field kModuleHandle[] = {HandleField(0x00, "", kMemoryModules)};
constexpr List kModuleHandles = {.SizeOrOffset = 2, .Fields = kModuleHandle};

constexpr Field kMemoryControllerInformation[] = {
    CodeField(0x04, 1, "error_detecting_method", kErrorDetectingMethods),
    BitsField(0x05, 1, "error_correcting_capability", kErrorCorrectingCapabilities),
    CodeField(0x06, 1, "supported_interleave", kInterleaves),
    CodeField(0x07, 1, "current_interleave", kInterleaves),
    NumberField(0x08, 1, "maximum_memory_module_size"),
    QuantityField("maximum_memory_module_size_bytes", {.Convert = PowerOfMiB}),
    BitsField(0x09, 2, "supported_speeds", kModuleSpeeds),
    BitsField(0x0B, 2, "supported_memory_types", kModuleTypes),
    BitsField(0x0D, 1, "memory_module_voltage", kModuleVoltages),
    NumberField(0x0E, 1, "number_of_associated_memory_slots"),
    ListField(0x0F, "memory_module_configuration_handles", kModuleHandles),
    BitsField(kFollows, 1, "enabled_error_correcting_capabilities", kErrorCorrectingCapabilities),
};
constexpr LeastLength kMemoryControllerInformationLengths[] = {{2, 0, 0x0F}, {2, 1, 0x10}};

constexpr Code kNoConnection[] = {{0x0F, "none"}};

constexpr Part kBankConnections[] = {
    NumberPart("second_row_address_strobe", 0, 4, kNoConnection),
    NumberPart("first_row_address_strobe", 4, 4, kNoConnection),
};

constexpr Part kModuleSize[] = {
    NumberPart("size", 0, 7),
    FlagPart("double_bank_connection", 7),
};

constexpr Bit kModuleErrors[] = {
    {0, "Uncorrectable errors received for the module"},
    {1, "Correctable errors received for the module"},
    {2, "Error status is to be obtained from the event log"},
};

// The same in bits 6:0, and three values for sizes that are none.
constexpr std::optional<std::uint64_t> ModuleSize(std::uint64_t number,
                                                  const OtherNumbers& others) {
  switch (number & 0x7FU) {
    case 0x7D:
      return std::nullopt;
    case 0x7E:
    case 0x7F:
      return 0;
    default:
      return PowerOfMiB(number & 0x7FU, others);
  }
}

constexpr Field kMemoryModuleInformation[] = {
    StringField(0x04, "socket_designation"),
    PartsField(0x05, 1, "bank_connections", kBankConnections),
    NumberField(0x06, 1, "current_speed"),
    QuantityField("current_speed_nanoseconds", {.Unknown = 0}),
    BitsField(0x07, 2, "current_memory_type", kModuleTypes),
    PartsField(0x09, 1, "installed_size", kModuleSize),
    QuantityField("installed_size_bytes", {.Convert = ModuleSize}),
    PartsField(0x0A, 1, "enabled_size", kModuleSize),
    QuantityField("enabled_size_bytes", {.Convert = ModuleSize}),
    BitsField(0x0B, 1, "error_status", kModuleErrors),
};
constexpr LeastLength kMemoryModuleInformationLengths[] = {{2, 0, 0x0C}};

// Physical Memory Array (Type 16)

constexpr Code kArrayLocations[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "System board or motherboard"},
    {0x04, "ISA add-on card"},
    {0x05, "EISA add-on card"},
    {0x06, "PCI add-on card"},
    {0x07, "MCA add-on card"},
    {0x08, "PCMCIA add-on card"},
    {0x09, "Proprietary add-on card"},
    {0x0A, "NuBus"},
    {0xA0, "PC-98/C20 add-on card"},
    {0xA1, "PC-98/C24 add-on card"},
    {0xA2, "PC-98/E add-on card"},
    {0xA3, "PC-98/Local bus add-on card"},
    {0xA4, "CXL add-on card"},
};

constexpr Code kArrayUses[] = {
    {0x01, "Other"},        {0x02, "Unknown"},      {0x03, "System memory"},
    {0x04, "Video memory"}, {0x05, "Flash memory"}, {0x06, "Non-volatile RAM"},
    {0x07, "Cache memory"},
};

constexpr Code kArrayErrorCorrections[] = {
    {0x01, "Other"},          {0x02, "Unknown"},       {0x03, "None"}, {0x04, "Parity"},
    {0x05, "Single-bit ECC"}, {0x06, "Multi-bit ECC"}, {0x07, "CRC"},
};

// In KiB; 80000000h says that the extended capacity has it in bytes.
constexpr std::optional<std::uint64_t> MaximumCapacity(std::uint64_t number,
                                                       const OtherNumbers& others) {
  return number == 0x80000000 ? others[0] : number * kKiB;
}

constexpr Field kPhysicalMemoryArray[] = {
    CodeField(0x04, 1, "location", kArrayLocations),
    CodeField(0x05, 1, "use", kArrayUses),
    CodeField(0x06, 1, "memory_error_correction", kArrayErrorCorrections),
    NumberField(0x07, 4, "maximum_capacity"),
    QuantityField("maximum_capacity_bytes", {.Convert = MaximumCapacity, .Others = {{0x0F, 8}}}),
    HandleField(0x0B, "memory_error_information_handle", kErrors),
    NumberField(0x0D, 2, "number_of_memory_devices"),
    NumberField(0x0F, 8, "extended_maximum_capacity"),
};
constexpr LeastLength kPhysicalMemoryArrayLengths[] = {{2, 1, 0x0F}, {2, 7, 0x17}};

// Memory Device (Type 17)

constexpr Code kFormFactors[] = {
    {0x01, "Other"},  {0x02, "Unknown"}, {0x03, "SIMM"},         {0x04, "SIP"},
    {0x05, "Chip"},   {0x06, "DIP"},     {0x07, "ZIP"},          {0x08, "Proprietary Card"},
    {0x09, "DIMM"},   {0x0A, "TSOP"},    {0x0B, "Row of chips"}, {0x0C, "RIMM"},
    {0x0D, "SODIMM"}, {0x0E, "SRIMM"},   {0x0F, "FB-DIMM"},      {0x10, "Die"},
    {0x11, "CAMM"},   {0x12, "CUDIMM"},  {0x13, "CSODIMM"},
};

constexpr Code kDeviceTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "DRAM"},
    {0x04, "EDRAM"},
    {0x05, "VRAM"},
    {0x06, "SRAM"},
    {0x07, "RAM"},
    {0x08, "ROM"},
    {0x09, "FLASH"},
    {0x0A, "EEPROM"},
    {0x0B, "FEPROM"},
    {0x0C, "EPROM"},
    {0x0D, "CDRAM"},
    {0x0E, "3DRAM"},
    {0x0F, "SDRAM"},
    {0x10, "SGRAM"},
    {0x11, "RDRAM"},
    {0x12, "DDR"},
    {0x13, "DDR2"},
    {0x14, "DDR2 FB-DIMM"},
    {0x15, "Reserved"},
    {0x16, "Reserved"},
    {0x17, "Reserved"},
    {0x18, "DDR3"},
    {0x19, "FBD2"},
    {0x1A, "DDR4"},
    {0x1B, "LPDDR"},
    {0x1C, "LPDDR2"},
    {0x1D, "LPDDR3"},
    {0x1E, "LPDDR4"},
    {0x1F, "Logical non-volatile device"},
    {0x20, "HBM (High Bandwidth Memory)"},
    {0x21, "HBM2 (High Bandwidth Memory Generation 2)"},
    {0x22, "DDR5"},
    {0x23, "LPDDR5"},
    {0x24, "HBM3 (High Bandwidth Memory Generation 3)"},
    {0x25, "MRDIMM"},
};

constexpr Bit kTypeDetails[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Fast-paged"},
    {4, "Static column"},
    {5, "Pseudo-static"},
    {6, "RAMBUS"},
    {7, "Synchronous"},
    {8, "CMOS"},
    {9, "EDO"},
    {10, "Window DRAM"},
    {11, "Cache DRAM"},
    {12, "Non-volatile"},
    {13, "Registered (Buffered)"},
    {14, "Unbuffered (Unregistered)"},
    {15, "LRDIMM"},
};

constexpr Part kDeviceAttributes[] = {NumberPart("rank", 0, 4, kUnknownIsZero)};

constexpr Code kDeviceSets[] = {{0x00, "none"}, {0xFF, "unknown"}};

constexpr Code kTechnologies[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "DRAM"},
    {0x04, "NVDIMM-N"},
    {0x05, "NVDIMM-F"},
    {0x06, "NVDIMM-P"},
    {0x07, "Intel Optane persistent memory"},
    {0x08, "MRDIMM"},
};

constexpr Bit kOperatingModes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Volatile memory"},
    {4, "Byte-accessible persistent memory"},
    {5, "Block-accessible persistent memory"},
};

// In MiB or KiB by bit 15; 7FFFh says that the extended size has it in MiB.
constexpr std::optional<std::uint64_t> DeviceSize(std::uint64_t number,
                                                  const OtherNumbers& others) {
  if (number == 0x7FFF && others[0]) {
    return (*others[0] & 0x7FFFFFFFU) * kMiB;
  }
  return (number & 0x7FFFU) * ((number & 0x8000U) != 0 ? kKiB : kMiB);
}

// In megatransfers per second; FFFFh says that the extended speed has it, 0 stands for unknown.
constexpr std::optional<std::uint64_t> DeviceSpeed(std::uint64_t number,
                                                   const OtherNumbers& others) {
  const std::uint64_t speed = number == 0xFFFF ? others[0].value_or(0) : number;
  return speed != 0 ? std::optional(speed) : std::nullopt;
}

constexpr ConversionRule kBits = {.Unknown = 0xFFFF};
constexpr ConversionRule kMillivolts = {.Unknown = 0};
constexpr ConversionRule kBytes = {.Unknown = 0xFFFFFFFFFFFFFFFF};

constexpr Field kMemoryDevice[] = {
    HandleField(0x04, "physical_memory_array_handle", kArrays),
    HandleField(0x06, "memory_error_information_handle", kErrors),
    NumberField(0x08, 2, "total_width"),
    QuantityField("total_width_bits", kBits),
    NumberField(0x0A, 2, "data_width"),
    QuantityField("data_width_bits", kBits),
    NumberField(0x0C, 2, "size"),
    QuantityField("size_bytes", {.Unknown = 0xFFFF, .Convert = DeviceSize, .Others = {{0x1C, 4}}}),
    CodeField(0x0E, 1, "form_factor", kFormFactors),
    NumberField(0x0F, 1, "device_set", kDeviceSets),
    StringField(0x10, "device_locator"),
    StringField(0x11, "bank_locator"),
    CodeField(0x12, 1, "memory_type", kDeviceTypes),
    BitsField(0x13, 2, "type_detail", kTypeDetails),
    NumberField(0x15, 2, "speed"),
    QuantityField("speed_megatransfers_per_second",
                  {.Convert = DeviceSpeed, .Others = {{0x54, 4}}}),
    StringField(0x17, "manufacturer"),
    StringField(0x18, "serial_number"),
    StringField(0x19, "asset_tag"),
    StringField(0x1A, "part_number"),
    PartsField(0x1B, 1, "attributes", kDeviceAttributes),
    NumberField(0x1C, 4, "extended_size"),
    NumberField(0x20, 2, "configured_memory_speed"),
    QuantityField("configured_memory_speed_megatransfers_per_second",
                  {.Convert = DeviceSpeed, .Others = {{0x58, 4}}}),
    NumberField(0x22, 2, "minimum_voltage"),
    QuantityField("minimum_voltage_millivolts", kMillivolts),
    NumberField(0x24, 2, "maximum_voltage"),
    QuantityField("maximum_voltage_millivolts", kMillivolts),
    NumberField(0x26, 2, "configured_voltage"),
    QuantityField("configured_voltage_millivolts", kMillivolts),
    CodeField(0x28, 1, "memory_technology", kTechnologies),
    BitsField(0x29, 2, "memory_operating_mode_capability", kOperatingModes),
    StringField(0x2B, "firmware_version"),
    NumberField(0x2C, 2, "module_manufacturer_id", kUnknownIsZero),
    NumberField(0x2E, 2, "module_product_id", kUnknownIsZero),
    NumberField(0x30, 2, "memory_subsystem_controller_manufacturer_id", kUnknownIsZero),
    NumberField(0x32, 2, "memory_subsystem_controller_product_id", kUnknownIsZero),
    NumberField(0x34, 8, "non_volatile_size"),
    QuantityField("non_volatile_size_bytes", kBytes),
    NumberField(0x3C, 8, "volatile_size"),
    QuantityField("volatile_size_bytes", kBytes),
    NumberField(0x44, 8, "cache_size"),
    QuantityField("cache_size_bytes", kBytes),
    NumberField(0x4C, 8, "logical_size"),
    QuantityField("logical_size_bytes", kBytes),
    NumberField(0x54, 4, "extended_speed"),
    NumberField(0x58, 4, "extended_configured_memory_speed"),
    NumberField(0x5C, 2, "pmic0_manufacturer_id", kUnknownIsZero),
    NumberField(0x5E, 2, "pmic0_revision_number"),
    NumberField(0x60, 2, "rcd_manufacturer_id", kUnknownIsZero),
    NumberField(0x62, 2, "rcd_revision_number"),
};
constexpr LeastLength kMemoryDeviceLengths[] = {
    {2, 1, 0x15}, {2, 3, 0x1B}, {2, 6, 0x1C}, {2, 7, 0x22},
    {2, 8, 0x28}, {3, 2, 0x54}, {3, 3, 0x5C}, {3, 7, 0x64},
};

// 32-bit and 64-bit Memory Error Information (Types 18 and 33)

constexpr Code kErrorTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Bad read"},
    {0x05, "Parity error"},
    {0x06, "Single-bit error"},
    {0x07, "Double-bit error"},
    {0x08, "Multi-bit error"},
    {0x09, "Nibble error"},
    {0x0A, "Checksum error"},
    {0x0B, "CRC error"},
    {0x0C, "Corrected single-bit error"},
    {0x0D, "Corrected error"},
    {0x0E, "Uncorrectable error"},
};

constexpr Code kErrorGranularities[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Device level"},
    {0x04, "Memory partition level"},
};

constexpr Code kErrorOperations[] = {
    {0x01, "Other"}, {0x02, "Unknown"}, {0x03, "Read"}, {0x04, "Write"}, {0x05, "Partial write"},
};

constexpr ConversionRule kErrorPlace32Bit = {.Unknown = 0x80000000};
constexpr ConversionRule kErrorPlace64Bit = {.Unknown = 0x8000000000000000};

constexpr Field kMemoryError32Bit[] = {
    CodeField(0x04, 1, "error_type", kErrorTypes),
    CodeField(0x05, 1, "error_granularity", kErrorGranularities),
    CodeField(0x06, 1, "error_operation", kErrorOperations),
    NumberField(0x07, 4, "vendor_syndrome"),
    QuantityField("syndrome", {.Unknown = 0}),
    NumberField(0x0B, 4, "memory_array_error_address"),
    QuantityField("memory_array_error_address_bytes", kErrorPlace32Bit),
    NumberField(0x0F, 4, "device_error_address"),
    QuantityField("device_error_address_bytes", kErrorPlace32Bit),
    NumberField(0x13, 4, "error_resolution"),
    QuantityField("error_resolution_bytes", kErrorPlace32Bit),
};
constexpr LeastLength kMemoryError32BitLengths[] = {{2, 1, 0x17}};

constexpr Field kMemoryError64Bit[] = {
    CodeField(0x04, 1, "error_type", kErrorTypes),
    CodeField(0x05, 1, "error_granularity", kErrorGranularities),
    CodeField(0x06, 1, "error_operation", kErrorOperations),
    NumberField(0x07, 4, "vendor_syndrome"),
    QuantityField("syndrome", {.Unknown = 0}),
    NumberField(0x0B, 8, "memory_array_error_address"),
    QuantityField("memory_array_error_address_bytes", kErrorPlace64Bit),
    NumberField(0x13, 8, "device_error_address"),
    QuantityField("device_error_address_bytes", kErrorPlace64Bit),
    NumberField(0x1B, 4, "error_resolution"),
    QuantityField("error_resolution_bytes", kErrorPlace32Bit),
};
constexpr LeastLength kMemoryError64BitLengths[] = {{2, 3, 0x1F}};

// Memory Array Mapped Address and Memory Device Mapped Address (Types 19 and 20)

// In KiB; FFFFFFFFh says that the extended address has it in bytes.
constexpr std::optional<std::uint64_t> RangeStart(std::uint64_t number,
                                                  const OtherNumbers& others) {
  return number == 0xFFFFFFFF && others[0] ? others[0] : number * kKiB;
}

// The same for the last KiB of the range, of which the last byte is meant. The extended address
// counts only where that of the start does, too.
constexpr std::optional<std::uint64_t> RangeEnd(std::uint64_t number, const OtherNumbers& others) {
  const bool isExtended = number == 0xFFFFFFFF && others[1] == 0xFFFFFFFF;
  return isExtended && others[0] ? others[0] : number * kKiB + (kKiB - 1);
}

constexpr Field kMemoryArrayMappedAddress[] = {
    NumberField(0x04, 4, "starting_address"),
    QuantityField("starting_address_bytes", {.Convert = RangeStart, .Others = {{0x0F, 8}}}),
    NumberField(0x08, 4, "ending_address"),
    QuantityField("ending_address_bytes", {.Convert = RangeEnd, .Others = {{0x17, 8}, {0x04, 4}}}),
    HandleField(0x0C, "memory_array_handle", kArrays),
    NumberField(0x0E, 1, "partition_width"),
    NumberField(0x0F, 8, "extended_starting_address"),
    NumberField(0x17, 8, "extended_ending_address"),
};
constexpr LeastLength kMemoryArrayMappedAddressLengths[] = {{2, 1, 0x0F}, {2, 7, 0x1F}};

// FFh says that it is not known.
constexpr ConversionRule kRows = {.Unknown = 0xFF};

constexpr Field kMemoryDeviceMappedAddress[] = {
    NumberField(0x04, 4, "starting_address"),
    QuantityField("starting_address_bytes", {.Convert = RangeStart, .Others = {{0x13, 8}}}),
    NumberField(0x08, 4, "ending_address"),
    QuantityField("ending_address_bytes", {.Convert = RangeEnd, .Others = {{0x1B, 8}, {0x04, 4}}}),
    HandleField(0x0C, "memory_device_handle", kDevices),
    HandleField(0x0E, "memory_array_mapped_address_handle", kArrayAddresses),
    NumberField(0x10, 1, "partition_row_position"),
    QuantityField("partition_row", kRows),
    NumberField(0x11, 1, "interleave_position"),
    QuantityField("interleave_order", kRows),
    NumberField(0x12, 1, "interleaved_data_depth"),
    QuantityField("interleaved_rows", kRows),
    NumberField(0x13, 8, "extended_starting_address"),
    NumberField(0x1B, 8, "extended_ending_address"),
};
constexpr LeastLength kMemoryDeviceMappedAddressLengths[] = {{2, 1, 0x13}, {2, 7, 0x23}};

// Memory Channel (Type 37)

constexpr Code kChannelTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "RamBus"},
    {0x04, "SyncLink"},
};

constexpr Field kChannelDevice[] = {
    NumberField(0x00, 1, "load"),
    HandleField(0x01, "handle", kChannelDevices),
};
constexpr List kChannelDeviceList = {.SizeOrOffset = 3, .Fields = kChannelDevice};

constexpr Field kMemoryChannel[] = {
    CodeField(0x04, 1, "channel_type", kChannelTypes),
    NumberField(0x05, 1, "maximum_channel_load"),
    NumberField(0x06, 1, "memory_device_count"),
    ListField(0x07, "memory_devices", kChannelDeviceList),
};
constexpr LeastLength kMemoryChannelLengths[] = {{2, 3, 0x07}};

constexpr StructureType kMemoryTypeList[] = {
    {5, "Memory Controller Information", kMemoryControllerInformation,
     kMemoryControllerInformationLengths},
    {6, "Memory Module Information", kMemoryModuleInformation, kMemoryModuleInformationLengths},
    {16, "Physical Memory Array", kPhysicalMemoryArray, kPhysicalMemoryArrayLengths},
    {17, "Memory Device", kMemoryDevice, kMemoryDeviceLengths},
    {18, "32-bit Memory Error Information", kMemoryError32Bit, kMemoryError32BitLengths},
    {19, "Memory Array Mapped Address", kMemoryArrayMappedAddress,
     kMemoryArrayMappedAddressLengths},
    {20, "Memory Device Mapped Address", kMemoryDeviceMappedAddress,
     kMemoryDeviceMappedAddressLengths},
    {33, "64-bit Memory Error Information", kMemoryError64Bit, kMemoryError64BitLengths},
    {37, "Memory Channel", kMemoryChannel, kMemoryChannelLengths},
};
static_assert(AreWellFormed(kMemoryTypeList));

}  // namespace

constinit const std::span<const StructureType> kMemoryTypes = kMemoryTypeList;

}  // namespace kestrel::catalog
