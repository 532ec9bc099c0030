#include "mif/groups/shared_data.h"
#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kFormFactor[] = {
    {1, "Other"},   {2, "Unknown"}, {3, "SIMM"},          {4, "SIP"},
    {5, "Chip"},    {6, "DIP"},     {7, "ZIP"},           {8, "Proprietary Card"},
    {9, "DIMM"},    {10, "TSOP"},   {11, "Row of chips"}, {12, "RIMM"},
    {13, "SODIMM"},
};

constexpr MifEnumItem kMemoryType[] = {
    {1, "Other"},  {2, "Unknown"}, {3, "DRAM"},   {4, "EDRAM"},   {5, "VRAM"},    {6, "SRAM"},
    {7, "RAM"},    {8, "ROM"},     {9, "FLASH"},  {10, "EEPROM"}, {11, "FEPROM"}, {12, "EPROM"},
    {13, "CDRAM"}, {14, "3DRAM"},  {15, "SDRAM"}, {16, "SGRAM"},
};

constexpr MifEnumItem kTypeDetail[] = {
    {1, "Other"},         {2, "Unknown"},      {3, "fast paged"},  {4, "static column"},
    {5, "pseudo-static"}, {6, "RAMBUS"},       {7, "Synchronous"}, {8, "CMOS"},
    {9, "EDO"},           {10, "Window DRAM"}, {11, "Cache DRAM"}, {12, "Non-volatile"},
};

constexpr MifEnumItem kErrorGranularity[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Device level"},
    {4, "Memory Partition level"},
};

constexpr MifAttribute kMemoryDeviceAttributes[] = {
    {.Name = "Memory Device Table Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "A unique number that identifies this row."},
    {.Name = "Memory Array Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The ID of the Memory Array that this Memory Device is a part of."},
    {.Name = "Device Locator",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .Value = kEmptyString,
     .Description = "A string identifying the physically labeled socket or board \n"
                    "position where the memory device is located. E.g. 'SIMM 3' or \n"
                    "'IC12'.",
     .ContinuationTabs = 2},  // One tab less than elsewhere.
    {.Name = "Bank Locator",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .Value = kEmptyString,
     .Description = "A string identifying the physically labeled bank where the \n"
                    "memory device is located. E.g. 'Bank 0' or 'A'."},
    {.Name = "Size",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Size of this memory device, in bytes."},
    {.Name = "Form Factor",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Implementation form factor for this memory device.",
     .Items = kFormFactor},
    {.Name = "Total Width",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "Total width of this memory device, including check or error \n"
                    "correction bits, in bits. If there are no error correction \n"
                    "bits, the value in this attribute should match that specified \n"
                    "in Data Width.  0x80000000 denotes 'unknown'."},
    {.Name = "Data Width",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "Data width of this memory device, in bits. A data width of 0 \n"
                    "and a Total Width of 8 would indicate that the device is \n"
                    "solely being used to provide eight error correction \n"
                    "bits. 0x80000000 denotes 'unknown'."},
    {.Name = "Memory Type",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Type of memory used in this memory device.",
     .Items = kMemoryType},
    {.Name = "Type detail",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Additional detail on the device type.",
     .Items = kTypeDetail},
    {.Name = "Device Set",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "This attribute is used to identify when the Memory Device is \n"
                    "one of a set of Memory Devices that must be populated with all \n"
                    "devices of the same type and size, and which set the device \n"
                    "belongs to.  For example, when one SIMM belongs to a set \n"
                    "of four. 0 indicates the Memory Device isn't part of a set. \n"
                    "0x80000000 denotes 'unknown'."},
    {.Name = "Device Error Type",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The type of error that is associated with the current status \n"
                    "reported in Operational State for this Memory Device.",
     .Items = kMemoryErrorType},
    {.Name = "Error Granularity",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Specifies whether the current error's location can be \n"
                    "resolved to the partition or device level.",
     .Items = kErrorGranularity},
    {.Name = "Last Error Update",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "System state during which the last error update was \n"
                    "collected.",
     .Items = kLastErrorUpdate},
    kErrorOperation,
    {.Name = "Error Data Size",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "The size of the data transfer that caused the error,in \n"
                    "bits. Zero indicates no error, 0x80000000 denotes 'unknown'."},
    {.Name = "Error Data",
     .Storage = kSpecific,
     .Type = kOctetString64,
     .Value = kEmptyString,
     .Description = "Data captured during the erroneous Memory Array access. The \n"
                    "data occupies the first n bytes of the octet string required to \n"
                    "hold 'Error Data Size' bits of the data. Data is stored \n"
                    "least-significant byte first."},
    {.Name = "Vendor Syndrome",
     .Storage = kSpecific,
     .Type = kOctetString64,
     .Value = kEmptyString,
     .Description = "Vendor-specific syndrome or CRC data associated with the \n"
                    "erroneous access."},
    {.Name = "Device Error Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Physical address of the error relative to the start of the \n"
                    "device, in bytes.  0x80000000 denotes 'unknown'."},
    {.Name = "Array Error Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Physical address of the kilobyte where the error is located, \n"
                    "relative to the bus for the Memory Array. 0x80000000 denotes \n"
                    "'unknown'."},
    {.Name = "Error Resolution",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Range in bytes that the error can be determined to be within,\n"
                    "when an Error Address is given. 0x80000000 denotes 'unknown'."},
    kFruGroupIndex,
    kOperationalGroupIndex,
    {.Name = "Speed",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The speed of this memory device in Megahertz(MHz)\n"
                    "(Note: nanoseconds = 1000/ MHz). A value of 0 indicates\n"
                    " that the speed is unknown.)"},
};

constexpr MifGroup kMemoryDeviceGroup = {
    .Banner = "// Group:         DMTF|Memory Device|003          //",
    .Name = "Memory Device",
    .Class = "DMTF|Memory Device|003",
    .Description =
        "This group presents information about individual memory devices in \n"
        "the system. A memory device can be a SIMM, a SIPP, or a single chip, \n"
        "or an entire card-based on the resolution to which a memory error \n"
        "can be determined and whether the device is replaceable as a unit.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.35 ;",
    .Attributes = kMemoryDeviceAttributes,
    .TableCode = 17,
};

}  // namespace

std::string SMBiosReader::MakeMemoryDeviceGroup(int& idCounter) const {
  return MakeGroup<kMemoryDeviceGroup>(idCounter);
}

}  // namespace kestrel
