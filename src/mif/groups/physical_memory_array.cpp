#include "mif/groups/shared_data.h"
#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kMemoryArrayLocation[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "System board or motherboard"},
    {4, "ISA add-on card"},
    {5, "EISA add-on card"},
    {6, "PCI add-on card"},
    {7, "MCA add-on card"},
    {8, "PCMCIA add-on card"},
    {9, "Proprietary add-on card"},
    {16, "NuBus"},
    {160, "PC-98/C20 add-on card"},
    {161, "PC-98/C24 add-on card"},
    {162, "PC-98/E add-on card"},
    {163, "PC-98/Local bus add-on card"},
    {164, "PC-98/Card slot add-on card"},
};

constexpr MifEnumItem kMemoryArrayUse[] = {
    {1, "Other"},        {2, "Unknown"},          {3, "System memory"}, {4, "Video memory"},
    {5, "Flash memory"}, {6, "Non Volatile RAM"}, {7, "Cache Memory"},
};

constexpr MifEnumItem kMemoryErrorCorrection[] = {
    {1, "Other"},          {2, "Unknown"},      {3, "None"}, {4, "Parity"},
    {5, "Single Bit ECC"}, {6, "MultiBit ECC"}, {7, "CRC"},
};

constexpr MifAttribute kPhysicalMemoryArrayAttributes[] = {
    {.Name = "Memory Array Table Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "A unique number that identifies this row."},
    {.Name = "Memory Array Location",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The physical location of the Memory Array, whether on the \n"
                    "system board or an add-on board.",
     .Items = kMemoryArrayLocation},
    {.Name = "Memory Array Use",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "What this Memory Array is used for.",
     .Items = kMemoryArrayUse},
    {.Name = "Maximum Memory Capacity",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The maximum memory capacity, in kilobytes, on this \n"
                    "array. 0x80000000 denotes 'unknown'."},
    {.Name = "Number of Memory Device sockets",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The number of SIMM slots or sockets available for Memory \n"
                    "Devices in this array. 0x80000000 denotes 'unknown'."},
    {.Name = "Number of Memory Device sockets used",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The number of SIMM slots or sockets in use for Memory Devices \n"
                    "in this array. 0x80000000 denotes 'unknown'."},
    {.Name = "Memory Error Correction",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The main hardware error correction or detection method \n"
                    "supported by this Memory Array.",
     .Items = kMemoryErrorCorrection},
    {.Name = "Array Error Type",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The type of error that is associated with the current status \n"
                    "reported in Operational State for this Memory Array.",
     .Items = kMemoryErrorType},
    {.Name = "Last Error Update",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "System state during which last error status was collected.",
     .Items = kLastErrorUpdate},
    kErrorOperation,
    {.Name = "Error Data Size",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The size of the data transfer that caused the error, in \n"
                    "bits. Zero indicates no error, 0x80000000 denotes 'unknown'."},
    {.Name = "Error Data",
     .Storage = kSpecific,
     .Type = kOctetString64,
     .Value = kEmptyString,
     .Description = "Data captured during the erroneous Memory Array access. The \n"
                    "data occupy the first n bytes of the octet string required to \n"
                    "hold 'Error Data Size' bits of the data. Data are stored \n"
                    "least-significant byte first."},
    {.Name = "Vendor Syndrome",
     .Storage = kSpecific,
     .Type = kOctetString64,
     .Value = kEmptyString,
     .Description = "Vendor-specific syndrome or CRC data associated with the \n"
                    "erroneous access. "},  // Trailing blank.
    {.Name = "Error Address",
     .Storage = kCommon,
     .Type = kInteger64,
     .Value = "0",
     .Description = "Physical address of the error based on the addressing of the \n"
                    "bus that the Memory Array is connected to. 0x8000 0000 0000 \n"
                    "0000 denotes 'unknown'."},
    {.Name = "Error Resolution",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Range in bytes that the error can be determined to be within, \n"
                    "when an Error Address is given. 0x80000000 denotes 'unknown'."},
    kFruGroupIndex,
    {.Name = "Operational Group Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The index into the Operational State Table for this Memory \n"
                    "Array. The Operational State row is used to hold the overall \n"
                    "error count and error status for this array."},
};

constexpr MifGroup kPhysicalMemoryArrayGroup = {
    .Banner = "// Group:     DMTF|Physical Memory Array|001      //",
    .Name = "Physical Memory Array",
    .Class = "DMTF|Physical Memory Array|001",
    .Description =
        "This group represents an array of physical memory as a collection \n"
        "of one or more Memory Devices associated in sets and partitions.\n"
        "slots supported in this system.",  // A line about slots.
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.33 ;",
    .Attributes = kPhysicalMemoryArrayAttributes,
    .TableCode = 16,
};

}  // namespace

std::string SMBiosReader::MakePhysicalMemoryArrayGroup(int& idCounter) const {
  return MakeGroup<kPhysicalMemoryArrayGroup>(idCounter);
}

}  // namespace kestrel
