// The firmware: what it is, what it logs, how it boots, and what it adds to other structures.

#include "base/structure_header.h"
#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

// BIOS Information (Type 0)

constexpr Bit kBiosCharacteristics[] = {
    {2, "Unknown"},
    {3, "BIOS Characteristics are not supported"},
    {4, "ISA is supported"},
    {5, "MCA is supported"},
    {6, "EISA is supported"},
    {7, "PCI is supported"},
    {8, "PC card (PCMCIA) is supported"},
    {9, "Plug and Play is supported"},
    {10, "APM is supported"},
    {11, "BIOS is upgradeable (Flash)"},
    {12, "BIOS shadowing is allowed"},
    {13, "VL-VESA is supported"},
    {14, "ESCD support is available"},
    {15, "Boot from CD is supported"},
    {16, "Selectable boot is supported"},
    {17, "BIOS ROM is socketed"},
    {18, "Boot from PC card (PCMCIA) is supported"},
    {19, "EDD Specification is supported"},
    {20,
     "Int 13h - Japanese floppy for NEC 9800 1.2 MB (3.5\", 1K bytes/sector, 360 RPM) is "
     "supported"},
    {21, "Int 13h - Japanese floppy for Toshiba 1.2 MB (3.5\", 360 RPM) is supported"},
    {22, "Int 13h - 5.25\"/360 KB floppy services are supported"},
    {23, "Int 13h - 5.25\"/1.2 MB floppy services are supported"},
    {24, "Int 13h - 3.5\"/720 KB floppy services are supported"},
    {25, "Int 13h - 3.5\"/2.88 MB floppy services are supported"},
    {26, "Int 5h, print screen Service is supported"},
    {27, "Int 9h, 8042 keyboard services are supported"},
    {28, "Int 14h, serial services are supported"},
    {29, "Int 17h, printer services are supported"},
    {30, "Int 10h, CGA/Mono Video Services are supported"},
    {31, "NEC PC-98"},
};

constexpr Bit kBiosCharacteristicsExtension1[] = {
    {0, "ACPI is supported"},
    {1, "USB Legacy is supported"},
    {2, "AGP is supported"},
    {3, "I2O boot is supported"},
    {4, "LS-120 SuperDisk boot is supported"},
    {5, "ATAPI ZIP drive boot is supported"},
    {6, "1394 boot is supported"},
    {7, "Smart battery is supported"},
};

constexpr Bit kBiosCharacteristicsExtension2[] = {
    {0, "BIOS Boot Specification is supported"},
    {1, "Function key-initiated network service boot is supported"},
    {2, "Enable targeted content distribution"},
    {3, "UEFI Specification is supported"},
    {4, "SMBIOS table describes a virtual machine"},
    {5, "Manufacturing mode is supported"},
    {6, "Manufacturing mode is enabled"},
};

constexpr Code kExtendedRomSizeUnits[] = {{0, "megabytes"}, {1, "gigabytes"}};

constexpr Part kExtendedRomSize[] = {
    NumberPart("size", 0, 14),
    CodePart("unit", 14, 2, kExtendedRomSizeUnits),
};

// In units of 64 KiB less one; FFh says that the extended size has it.
constexpr std::optional<std::uint64_t> RomSize(std::uint64_t number, const OtherNumbers& others) {
  const auto& extended = others[0];
  if (number != 0xFF || !extended) {
    return (number + 1) * 64 * kKiB;
  }
  const std::uint64_t size = *extended & 0x3FFFU;
  switch (*extended >> 14) {
    case 0:
      return size * kMiB;
    case 1:
      return size * kGiB;
    default:
      return std::nullopt;
  }
}

constexpr Field kBiosInformation[] = {
    StringField(0x04, "vendor"),
    StringField(0x05, "bios_version"),
    NumberField(0x06, 2, "bios_starting_address_segment"),
    StringField(0x08, "bios_release_date"),
    NumberField(0x09, 1, "bios_rom_size"),
    QuantityField("rom_size_bytes", {.Convert = RomSize, .Others = {{0x18, 2}}}),
    BitsField(0x0A, 8, "bios_characteristics", kBiosCharacteristics),
    BitsField(0x12, 1, "bios_characteristics_extension_byte_1", kBiosCharacteristicsExtension1),
    BitsField(0x13, 1, "bios_characteristics_extension_byte_2", kBiosCharacteristicsExtension2),
    NumberField(0x14, 1, "system_bios_major_release", kNoneIsFFh),
    NumberField(0x15, 1, "system_bios_minor_release", kNoneIsFFh),
    NumberField(0x16, 1, "embedded_controller_firmware_major_release", kNoneIsFFh),
    NumberField(0x17, 1, "embedded_controller_firmware_minor_release", kNoneIsFFh),
    PartsField(0x18, 2, "extended_bios_rom_size", kExtendedRomSize),
};
constexpr LeastLength kBiosInformationLengths[] = {
    {2, 0, 0x12}, {2, 1, 0x13}, {2, 3, 0x14}, {2, 4, 0x18}, {3, 1, 0x1A},
};

// BIOS Language Information (Type 13)

constexpr Bit kLanguageFlags[] = {{0, "Current Language strings use the abbreviated format"}};

constexpr Field kBiosLanguageInformation[] = {
    NumberField(0x04, 1, "installable_languages"),
    BitsField(0x05, 1, "flags", kLanguageFlags),
    ReservedField(0x06, 15),
    StringField(0x15, "current_language"),
};
constexpr LeastLength kBiosLanguageInformationLengths[] = {{2, 0, 0x16}};

// System Event Log (Type 15)

constexpr Code kLogAccessMethods[] = {
    {0x00, "Indexed I/O: 1 8-bit index port, 1 8-bit data port"},
    {0x01, "Indexed I/O: 2 8-bit index ports, 1 8-bit data port"},
    {0x02, "Indexed I/O: 1 16-bit index port, 1 8-bit data port"},
    {0x03, "Memory-mapped physical 32-bit address"},
    {0x04, "Available through General-Purpose NonVolatile Data functions"},
    {0x80, 0xFF, "BIOS Vendor/OEM-specific"},
};

constexpr Bit kLogStatuses[] = {{0, "Log area valid"}, {1, "Log area full"}};

constexpr Code kLogHeaderFormats[] = {
    {0x00, "No header"},
    {0x01, "Type 1 log header"},
    {0x80, 0xFF, "BIOS Vendor/OEM-specific"},
};

constexpr Code kLogTypes[] = {
    {0x00, "Reserved"},
    {0x01, "Single-bit ECC memory error"},
    {0x02, "Multi-bit ECC memory error"},
    {0x03, "Parity memory error"},
    {0x04, "Bus time-out"},
    {0x05, "I/O Channel Check"},
    {0x06, "Software NMI"},
    {0x07, "POST Memory Resize"},
    {0x08, "POST Error"},
    {0x09, "PCI Parity Error"},
    {0x0A, "PCI System Error"},
    {0x0B, "CPU Failure"},
    {0x0C, "EISA FailSafe Timer time-out"},
    {0x0D, "Correctable memory log disabled"},
    {0x0E, "Logging disabled for a specific Event Type"},
    {0x0F, "Reserved"},
    {0x10, "System Limit Exceeded"},
    {0x11, "Asynchronous hardware timer expired and issued a system reset"},
    {0x12, "System configuration information"},
    {0x13, "Hard-disk information"},
    {0x14, "System reconfigured"},
    {0x15, "Uncorrectable CPU-complex error"},
    {0x16, "Log Area Reset/Cleared"},
    {0x17, "System boot"},
    {0x80, 0xFE, "System- and OEM-specific"},
    {0xFF, "End of log"},
};

constexpr Code kLogDataFormats[] = {
    {0x00, "None"},
    {0x01, "Handle"},
    {0x02, "Multiple-Event"},
    {0x03, "Multiple-Event Handle"},
    {0x04, "POST Results Bitmap"},
    {0x05, "System Management Type"},
    {0x06, "Multiple-Event System Management Type"},
    {0x80, 0xFF, "OEM-specific"},
};

constexpr Field kLogTypeDescriptor[] = {
    CodeField(0x00, 1, "log_type", kLogTypes),
    CodeField(0x01, 1, "variable_data_format_type", kLogDataFormats),
};
constexpr List kLogTypeDescriptors = {.CountRule = List::Count::FromField,
                                      .CountOffset = 0x15,
                                      .SizeRule = List::Size::FromField,
                                      .SizeOrOffset = 0x16,
                                      .Fields = kLogTypeDescriptor};

// Indexed access is through two ports.
constexpr std::optional<std::uint64_t> IndexPort(std::uint64_t number, const OtherNumbers& others) {
  return others[0] <= 2U ? std::optional(number & 0xFFFFU) : std::nullopt;
}
constexpr std::optional<std::uint64_t> DataPort(std::uint64_t number, const OtherNumbers& others) {
  return others[0] <= 2U ? std::optional(number >> 16) : std::nullopt;
}

constexpr Field kSystemEventLog[] = {
    NumberField(0x04, 2, "log_area_length"),
    NumberField(0x06, 2, "log_header_start_offset"),
    NumberField(0x08, 2, "log_data_start_offset"),
    CodeField(0x0A, 1, "access_method", kLogAccessMethods),
    BitsField(0x0B, 1, "log_status", kLogStatuses),
    NumberField(0x0C, 4, "log_change_token"),
    NumberField(0x10, 4, "access_method_address"),
    QuantityField("index_port", {.Convert = IndexPort, .Others = {{0x0A, 1}}}),
    QuantityField("data_port", {.Convert = DataPort, .Others = {{0x0A, 1}}}),
    CodeField(0x14, 1, "log_header_format", kLogHeaderFormats),
    NumberField(0x15, 1, "number_of_supported_log_type_descriptors"),
    NumberField(0x16, 1, "length_of_each_log_type_descriptor"),
    ListField(0x17, "list_of_supported_event_log_type_descriptors", kLogTypeDescriptors),
};
constexpr LeastLength kSystemEventLogLengths[] = {{2, 0, 0x14}, {2, 1, 0x17}};

// Boot Integrity Services (BIS) Entry Point (Type 31)

constexpr Field kBootIntegrityServices[] = {
    NumberField(0x04, 1, "checksum"),
    ReservedField(0x05, 3),
    NumberField(0x08, 4, "bis_entry_16"),
    NumberField(0x0C, 4, "bis_entry_32"),
    ReservedField(0x10, 12),
};
constexpr LeastLength kBootIntegrityServicesLengths[] = {{2, 3, 0x1C}};

// System Boot Information (Type 32)

constexpr Code kBootStatuses[] = {
    {0, "No errors detected"},
    {1, "No bootable media"},
    {2, "The \"normal\" operating system failed to load"},
    {3, "Firmware-detected hardware failure, including \"unknown\" failure types"},
    {4, "Operating system-detected hardware failure"},
    {5, "User-requested boot, usually through a keystroke"},
    {6, "System security violation"},
    {7, "Previously-requested image"},
    {8, "A system watchdog timer expired, causing the system to reboot"},
    {128, 191, "Vendor/OEM-specific"},
    {192, 255, "Product-specific"},
};

constexpr Field kSystemBootInformation[] = {
    ReservedField(0x04, 6),
    CodeField(0x0A, 1, "boot_status", kBootStatuses),
    BytesField(0x0B, kRest, "boot_status_data"),
};
constexpr LeastLength kSystemBootInformationLengths[] = {{2, 3, 0x0B}};

// Additional Information (Type 40)

constexpr Field kAdditionalInformationEntry[] = {
    NumberField(0x00, 1, "entry_length"),      HandleField(0x01, "referenced_handle"),
    NumberField(0x03, 1, "referenced_offset"), StringField(0x04, "string"),
    BytesField(0x05, kRest, "value"),
};
constexpr List kAdditionalInformationEntries = {.SizeRule = List::Size::FirstByte,
                                                .Fields = kAdditionalInformationEntry};

constexpr Field kAdditionalInformation[] = {
    NumberField(0x04, 1, "number_of_additional_information_entries"),
    ListField(0x05, "additional_information_entries", kAdditionalInformationEntries),
};
constexpr LeastLength kAdditionalInformationLengths[] = {{2, 6, 0x0B}};

// Firmware Inventory Information (Type 45)

constexpr Code kFirmwareVersionFormats[] = {
    {0x00, "Free-form string"},
    {0x01, "MAJOR.MINOR"},
    {0x02, "32-bit hexadecimal string"},
    {0x03, "64-bit hexadecimal string"},
    {0x80, 0xFF, "BIOS Vendor/OEM-specific"},
};

constexpr Code kFirmwareIdFormats[] = {
    {0x00, "Free-form string"},
    {0x01, "UEFI GUID string"},
    {0x80, 0xFF, "BIOS Vendor/OEM-specific"},
};

constexpr Bit kFirmwareCharacteristics[] = {{0, "Updatable"}, {1, "Write-Protected"}};

constexpr Code kFirmwareStates[] = {
    {0x01, "Other"},        {0x02, "Unknown"},
    {0x03, "Disabled"},     {0x04, "Enabled"},
    {0x05, "Absent"},       {0x06, "StandbyOffline"},
    {0x07, "StandbySpare"}, {0x08, "UnavailableOffline"},
};

constexpr Field kAssociatedComponent[] = {HandleField(0x00, "")};
constexpr List kAssociatedComponents = {.SizeOrOffset = 2, .Fields = kAssociatedComponent};

constexpr Field kFirmwareInventoryInformation[] = {
    StringField(0x04, "firmware_component_name"),
    StringField(0x05, "firmware_version"),
    CodeField(0x06, 1, "firmware_version_format", kFirmwareVersionFormats),
    StringField(0x07, "firmware_id"),
    CodeField(0x08, 1, "firmware_id_format", kFirmwareIdFormats),
    StringField(0x09, "release_date"),
    StringField(0x0A, "manufacturer"),
    StringField(0x0B, "lowest_supported_firmware_version"),
    NumberField(0x0C, 8, "image_size"),
    QuantityField("image_size_bytes", {.Unknown = 0xFFFFFFFFFFFFFFFF}),
    BitsField(0x14, 2, "characteristics", kFirmwareCharacteristics),
    CodeField(0x16, 1, "state", kFirmwareStates),
    NumberField(0x17, 1, "number_of_associated_components"),
    ListField(0x18, "associated_component_handles", kAssociatedComponents),
};
constexpr LeastLength kFirmwareInventoryInformationLengths[] = {{3, 5, 0x18}};

// String Property (Type 46)

constexpr Code kStringProperties[] = {
    {0x0001, "UEFI device path"},
    {0x8000, 0xBFFF, "BIOS Vendor-specific"},
    {0xC000, 0xFFFF, "OEM-specific"},
};

constexpr Field kStringProperty[] = {
    CodeField(0x04, 2, "string_property_id", kStringProperties),
    StringField(0x06, "string_property_value"),
    HandleField(0x07, "parent_handle"),
};
constexpr LeastLength kStringPropertyLengths[] = {{3, 5, 0x09}};

constexpr StructureType kFirmwareTypeList[] = {
    {0, "BIOS Information", kBiosInformation, kBiosInformationLengths, true},
    {13, "BIOS Language Information", kBiosLanguageInformation, kBiosLanguageInformationLengths},
    {15, "System Event Log", kSystemEventLog, kSystemEventLogLengths},
    {31, "Boot Integrity Services (BIS) Entry Point", kBootIntegrityServices,
     kBootIntegrityServicesLengths},
    {32, "System Boot Information", kSystemBootInformation, kSystemBootInformationLengths, true},
    {40, "Additional Information", kAdditionalInformation, kAdditionalInformationLengths},
    {45, "Firmware Inventory Information", kFirmwareInventoryInformation,
     kFirmwareInventoryInformationLengths},
    {46, "String Property", kStringProperty, kStringPropertyLengths},
    {126, "Inactive", {}, {}},
    {127, "End-of-Table", {}, {}},
};
static_assert(AreWellFormed(kFirmwareTypeList));

}  // namespace

constinit const std::span<const StructureType> kFirmwareTypes = kFirmwareTypeList;

}  // namespace kestrel::catalog
