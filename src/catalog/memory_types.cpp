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

constexpr Derivation kMaximumModuleSize = {
    .How = Formula::MaximumModuleSize, .First = 0x08, .FirstWidth = 1};

constexpr Field kModuleHandle[] = {Handle(0x00, "", kMemoryModules)};
constexpr List kModuleHandles = {.SizeOrOffset = 2, .Fields = kModuleHandle};

constexpr Field kMemoryControllerInformation[] = {
    CodeOf(0x04, 1, "error_detecting_method", kErrorDetectingMethods),
    BitsOf(0x05, 1, "error_correcting_capability", kErrorCorrectingCapabilities),
    CodeOf(0x06, 1, "supported_interleave", kInterleaves),
    CodeOf(0x07, 1, "current_interleave", kInterleaves),
    Number(0x08, 1, "maximum_memory_module_size"),
    DerivedAs("maximum_memory_module_size_bytes", kMaximumModuleSize),
    BitsOf(0x09, 2, "supported_speeds", kModuleSpeeds),
    BitsOf(0x0B, 2, "supported_memory_types", kModuleTypes),
    BitsOf(0x0D, 1, "memory_module_voltage", kModuleVoltages),
    Number(0x0E, 1, "number_of_associated_memory_slots"),
    ListOf(0x0F, "memory_module_configuration_handles", kModuleHandles),
    BitsOf(kFollows, 1, "enabled_error_correcting_capabilities", kErrorCorrectingCapabilities),
};
constexpr LeastLength kMemoryControllerInformationLengths[] = {{2, 0, 0x0F}, {2, 1, 0x10}};

constexpr Part kBankConnections[] = {
    NumberPart("second_row_address_strobe", 0, 4),
    NumberPart("first_row_address_strobe", 4, 4),
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

constexpr Derivation kModuleCurrentSpeed = {
    .How = Formula::Scaled, .First = 0x06, .FirstWidth = 1, .Unknown = 0, .HasUnknown = true};
constexpr Derivation kInstalledSize = {
    .How = Formula::MemoryModuleSize, .First = 0x09, .FirstWidth = 1};
constexpr Derivation kEnabledSize = {
    .How = Formula::MemoryModuleSize, .First = 0x0A, .FirstWidth = 1};

constexpr Field kMemoryModuleInformation[] = {
    String(0x04, "socket_designation"),
    PartsOf(0x05, 1, "bank_connections", kBankConnections),
    Number(0x06, 1, "current_speed"),
    DerivedAs("current_speed_nanoseconds", kModuleCurrentSpeed),
    BitsOf(0x07, 2, "current_memory_type", kModuleTypes),
    PartsOf(0x09, 1, "installed_size", kModuleSize),
    DerivedAs("installed_size_bytes", kInstalledSize),
    PartsOf(0x0A, 1, "enabled_size", kModuleSize),
    DerivedAs("enabled_size_bytes", kEnabledSize),
    BitsOf(0x0B, 1, "error_status", kModuleErrors),
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

constexpr Derivation kMaximumCapacity = {.How = Formula::ScaledOrExtended,
                                         .First = 0x07,
                                         .Second = 0x0F,
                                         .FirstWidth = 4,
                                         .SecondWidth = 8,
                                         .Factor = 1024,
                                         .SecondFactor = 1,
                                         .Unknown = 0x80000000,
                                         .HasUnknown = true};

constexpr Field kPhysicalMemoryArray[] = {
    CodeOf(0x04, 1, "location", kArrayLocations),
    CodeOf(0x05, 1, "use", kArrayUses),
    CodeOf(0x06, 1, "memory_error_correction", kArrayErrorCorrections),
    Number(0x07, 4, "maximum_capacity"),
    DerivedAs("maximum_capacity_bytes", kMaximumCapacity),
    Handle(0x0B, "memory_error_information_handle", kErrors),
    Number(0x0D, 2, "number_of_memory_devices"),
    Number(0x0F, 8, "extended_maximum_capacity"),
};
constexpr LeastLength kPhysicalMemoryArrayLengths[] = {{2, 1, 0x0F}, {2, 7, 0x17}};

// Memory Device (Type 17)

constexpr Code kFormFactors[] = {
    {0x01, "Other"},  {0x02, "Unknown"}, {0x03, "SIMM"},         {0x04, "SIP"},
    {0x05, "Chip"},   {0x06, "DIP"},     {0x07, "ZIP"},          {0x08, "Proprietary Card"},
    {0x09, "DIMM"},   {0x0A, "TSOP"},    {0x0B, "Row of chips"}, {0x0C, "RIMM"},
    {0x0D, "SODIMM"}, {0x0E, "SRIMM"},   {0x0F, "FB-DIMM"},      {0x10, "Die"},
    {0x11, "CAMM"},
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

constexpr Part kDeviceAttributes[] = {NumberPart("rank", 0, 4)};

constexpr Code kTechnologies[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "DRAM"},
    {0x04, "NVDIMM-N"},
    {0x05, "NVDIMM-F"},
    {0x06, "NVDIMM-P"},
    {0x07, "Intel Optane persistent memory"},
};

constexpr Bit kOperatingModes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Volatile memory"},
    {4, "Byte-accessible persistent memory"},
    {5, "Block-accessible persistent memory"},
};

constexpr Derivation kDeviceSize = {
    .How = Formula::MemoryDeviceSize, .First = 0x0C, .Second = 0x1C};

// A width of which FFFFh says that it is not known.
constexpr Derivation WidthAt(std::uint8_t offset) {
  return {.How = Formula::Scaled, .First = offset, .Unknown = 0xFFFF, .HasUnknown = true};
}
constexpr Derivation kTotalWidth = WidthAt(0x08);
constexpr Derivation kDataWidth = WidthAt(0x0A);

// Megatransfers per second; 0 where it is not known.
constexpr Derivation SpeedAt(std::uint8_t offset, std::uint8_t extendedOffset) {
  return {.How = Formula::ScaledOrExtended,
          .First = offset,
          .Second = extendedOffset,
          .Factor = 1,
          .SecondFactor = 1,
          .Unknown = 0xFFFF,
          .HasUnknown = true,
          .ZeroIsUnknown = true};
}
constexpr Derivation kSpeed = SpeedAt(0x15, 0x54);
constexpr Derivation kConfiguredSpeed = SpeedAt(0x20, 0x58);

// Millivolts; 0 where it is not known.
constexpr Derivation VoltageAt(std::uint8_t offset) {
  return {.How = Formula::Scaled, .First = offset, .Unknown = 0, .HasUnknown = true};
}
constexpr Derivation kMinimumVoltage = VoltageAt(0x22);
constexpr Derivation kMaximumVoltage = VoltageAt(0x24);
constexpr Derivation kConfiguredVoltage = VoltageAt(0x26);

// Bytes, of which all ones say that the size is not known.
constexpr Derivation SizeAt(std::uint8_t offset) {
  return {.How = Formula::Scaled,
          .First = offset,
          .FirstWidth = 8,
          .Unknown = 0xFFFFFFFFFFFFFFFF,
          .HasUnknown = true};
}
constexpr Derivation kNonVolatileSize = SizeAt(0x34);
constexpr Derivation kVolatileSize = SizeAt(0x3C);
constexpr Derivation kDeviceCacheSize = SizeAt(0x44);
constexpr Derivation kLogicalSize = SizeAt(0x4C);

constexpr Field kMemoryDevice[] = {
    Handle(0x04, "physical_memory_array_handle", kArrays),
    Handle(0x06, "memory_error_information_handle", kErrors),
    Number(0x08, 2, "total_width"),
    DerivedAs("total_width_bits", kTotalWidth),
    Number(0x0A, 2, "data_width"),
    DerivedAs("data_width_bits", kDataWidth),
    Number(0x0C, 2, "size"),
    DerivedAs("size_bytes", kDeviceSize),
    CodeOf(0x0E, 1, "form_factor", kFormFactors),
    Number(0x0F, 1, "device_set"),
    String(0x10, "device_locator"),
    String(0x11, "bank_locator"),
    CodeOf(0x12, 1, "memory_type", kDeviceTypes),
    BitsOf(0x13, 2, "type_detail", kTypeDetails),
    Number(0x15, 2, "speed"),
    DerivedAs("speed_megatransfers_per_second", kSpeed),
    String(0x17, "manufacturer"),
    String(0x18, "serial_number"),
    String(0x19, "asset_tag"),
    String(0x1A, "part_number"),
    PartsOf(0x1B, 1, "attributes", kDeviceAttributes),
    Number(0x1C, 4, "extended_size"),
    Number(0x20, 2, "configured_memory_speed"),
    DerivedAs("configured_memory_speed_megatransfers_per_second", kConfiguredSpeed),
    Number(0x22, 2, "minimum_voltage"),
    DerivedAs("minimum_voltage_millivolts", kMinimumVoltage),
    Number(0x24, 2, "maximum_voltage"),
    DerivedAs("maximum_voltage_millivolts", kMaximumVoltage),
    Number(0x26, 2, "configured_voltage"),
    DerivedAs("configured_voltage_millivolts", kConfiguredVoltage),
    CodeOf(0x28, 1, "memory_technology", kTechnologies),
    BitsOf(0x29, 2, "memory_operating_mode_capability", kOperatingModes),
    String(0x2B, "firmware_version"),
    Number(0x2C, 2, "module_manufacturer_id"),
    Number(0x2E, 2, "module_product_id"),
    Number(0x30, 2, "memory_subsystem_controller_manufacturer_id"),
    Number(0x32, 2, "memory_subsystem_controller_product_id"),
    Number(0x34, 8, "non_volatile_size"),
    DerivedAs("non_volatile_size_bytes", kNonVolatileSize),
    Number(0x3C, 8, "volatile_size"),
    DerivedAs("volatile_size_bytes", kVolatileSize),
    Number(0x44, 8, "cache_size"),
    DerivedAs("cache_size_bytes", kDeviceCacheSize),
    Number(0x4C, 8, "logical_size"),
    DerivedAs("logical_size_bytes", kLogicalSize),
    Number(0x54, 4, "extended_speed"),
    Number(0x58, 4, "extended_configured_memory_speed"),
    Number(0x5C, 2, "pmic0_manufacturer_id"),
    Number(0x5E, 2, "pmic0_revision_number"),
    Number(0x60, 2, "rcd_manufacturer_id"),
    Number(0x62, 2, "rcd_revision_number"),
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

constexpr Field kMemoryError32Bit[] = {
    CodeOf(0x04, 1, "error_type", kErrorTypes),
    CodeOf(0x05, 1, "error_granularity", kErrorGranularities),
    CodeOf(0x06, 1, "error_operation", kErrorOperations),
    Number(0x07, 4, "vendor_syndrome"),
    Number(0x0B, 4, "memory_array_error_address"),
    Number(0x0F, 4, "device_error_address"),
    Number(0x13, 4, "error_resolution"),
};
constexpr LeastLength kMemoryError32BitLengths[] = {{2, 1, 0x17}};

constexpr Field kMemoryError64Bit[] = {
    CodeOf(0x04, 1, "error_type", kErrorTypes),
    CodeOf(0x05, 1, "error_granularity", kErrorGranularities),
    CodeOf(0x06, 1, "error_operation", kErrorOperations),
    Number(0x07, 4, "vendor_syndrome"),
    Number(0x0B, 8, "memory_array_error_address"),
    Number(0x13, 8, "device_error_address"),
    Number(0x1B, 4, "error_resolution"),
};
constexpr LeastLength kMemoryError64BitLengths[] = {{2, 3, 0x1F}};

// Memory Array Mapped Address and Memory Device Mapped Address (Types 19 and 20)

constexpr Derivation RangeEdgeAt(Formula formula, std::uint8_t offset,
                                 std::uint8_t extendedOffset) {
  return {
      .How = formula, .First = offset, .Second = extendedOffset, .FirstWidth = 4, .SecondWidth = 8};
}
constexpr Derivation kArrayStart = RangeEdgeAt(Formula::RangeStart, 0x04, 0x0F);
constexpr Derivation kArrayEnd = RangeEdgeAt(Formula::RangeEnd, 0x08, 0x17);
constexpr Derivation kDeviceStart = RangeEdgeAt(Formula::RangeStart, 0x04, 0x13);
constexpr Derivation kDeviceEnd = RangeEdgeAt(Formula::RangeEnd, 0x08, 0x1B);

constexpr Field kMemoryArrayMappedAddress[] = {
    Number(0x04, 4, "starting_address"),
    DerivedAs("starting_address_bytes", kArrayStart),
    Number(0x08, 4, "ending_address"),
    DerivedAs("ending_address_bytes", kArrayEnd),
    Handle(0x0C, "memory_array_handle", kArrays),
    Number(0x0E, 1, "partition_width"),
    Number(0x0F, 8, "extended_starting_address"),
    Number(0x17, 8, "extended_ending_address"),
};
constexpr LeastLength kMemoryArrayMappedAddressLengths[] = {{2, 1, 0x0F}, {2, 7, 0x1F}};

constexpr Field kMemoryDeviceMappedAddress[] = {
    Number(0x04, 4, "starting_address"),
    DerivedAs("starting_address_bytes", kDeviceStart),
    Number(0x08, 4, "ending_address"),
    DerivedAs("ending_address_bytes", kDeviceEnd),
    Handle(0x0C, "memory_device_handle", kDevices),
    Handle(0x0E, "memory_array_mapped_address_handle", kArrayAddresses),
    Number(0x10, 1, "partition_row_position"),
    Number(0x11, 1, "interleave_position"),
    Number(0x12, 1, "interleaved_data_depth"),
    Number(0x13, 8, "extended_starting_address"),
    Number(0x1B, 8, "extended_ending_address"),
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
    Number(0x00, 1, "load"),
    Handle(0x01, "handle", kChannelDevices),
};
constexpr List kChannelDeviceList = {.SizeOrOffset = 3, .Fields = kChannelDevice};

constexpr Field kMemoryChannel[] = {
    CodeOf(0x04, 1, "channel_type", kChannelTypes),
    Number(0x05, 1, "maximum_channel_load"),
    Number(0x06, 1, "memory_device_count"),
    ListOf(0x07, "memory_devices", kChannelDeviceList),
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
