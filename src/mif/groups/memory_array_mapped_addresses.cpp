#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifAttribute kMemoryArrayMappedAddressesAttributes[] = {
    {.Name = "Memory Array Mapped Addresses Table Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "A unique number that identifies this row."},
    {.Name = "Memory Array Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The ID of the Memory Array that this address range is mapped \n"
                    "to.  Multiple address ranges may be mapped to a Memory Array."},
    {.Name = "Mapped Range Starting Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The physical starting address, in kilobytes, of a range of \n"
                    "memory mapped to the specified Memory Array. 0x80000000 \n"
                    "denotes 'unknown'."},
    {.Name = "Mapped Range Ending Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The physical ending address of the last kilobyte of a range \n"
                    "of addresses mapped to the specified Memory Array. 0x80000000 \n"
                    "denotes 'unknown'."},
    {.Name = "Partition ID",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Identifies a Memory Partition associated with the Memory \n"
                    "Array specified by Memory Array Table Index. 0x80000000 \n"
                    "denotes 'unknown'."},
    {.Name = "Partition Width",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The number of Memory Devices that form a single row of memory \n"
                    "for the partition. 0x80000000 denotes 'unknown'."},
    {.Name = "Operational Group Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The index into the Operational State Table for this Memory \n"
                    "Range.  Generally, there will be a 1:1 correspondence between a \n"
                    "mapped range and a partition.  In which case, the Operational \n"
                    "State will be for the partition as well. In the case \n"
                    "that there is more than one mapped range for a partion, it \n"
                    "will be necessary to check the Operational State entries for \n"
                    "each range to determine the overall status of the partition."},
};

constexpr MifGroup kMemoryArrayMappedAddressesGroup = {
    .Banner = "// Group: DMTF|Memory Array Mapped Addresses|001  //",
    .Name = "Memory Array Mapped Addresses",
    .Class = "DMTF|Memory Array Mapped Addresses|001",
    .Description =
        "This table presents ranges of physical addresses that are mapped to \n"
        "a given Memory Array.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.34 ;",
    .Attributes = kMemoryArrayMappedAddressesAttributes,
    .TableCode = 19,
};

}  // namespace

std::string SMBiosReader::MakeMemoryArrayMappedAddressesGroup(int& idCounter) const {
  return MakeGroup<kMemoryArrayMappedAddressesGroup>(idCounter);
}

}  // namespace kestrel
