#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifAttribute kMemoryDeviceMappedAddressesAttributes[] = {
    {.Name = "Memory Device Mapped Addresses Table Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "A unique number that identifies this row."},
    {.Name = "Memory Device Set ID",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The row in the Memory Device table that this address range is \n"
                    "for.  This matches with a Memory Device Table Index. There may \n"
                    "be multiple rows in Memory Device Mapped addresses for a \n"
                    "single Memory Device."},
    {.Name = "Partition",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "Identifies the Memory partition in the Memory Array Mapped \n"
                    "Addresses table that this Memory Device is part of. Partition \n"
                    "number should be positive.  0x80000000 denotes 'unknown'."},
    {.Name = "Mapped Range Starting Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The physical starting address, in kilobytes, of a range of \n"
                    "memory mapped to the specified Memory Device set. The address \n"
                    "is specified relative to the bus that the device is connected \n"
                    "to. 0x80000000 denotes 'unknown'."},
    {.Name = "Mapped Range Ending Address",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The physical ending address of the last kilobyte of a range \n"
                    "of addresses mapped to the specified Memory Device. The \n"
                    "address is specified relative to the bus that the device is \n"
                    "connected to. 0x80000000 denotes 'unknown'."},
    {.Name = "Partition Row Position",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "This specifies the position of the device in a row of the \n"
                    "partition. For example, if it takes two 8-bit memory devices \n"
                    "to form a 16-bit row, then a value of '2'in this attribute \n"
                    "means the device is the second device. 0 is an invalid return \n"
                    "value.  0x80000000 denotes 'unknown'."},
    {.Name = "Interleave Position",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "The position of this device in an interleave. 0 indicates \n"
                    "non-interleaved. 1 indicates the first position 2 the second, \n"
                    "and so on. For example, in a 2:1 interleave, a value of '1' \n"
                    "would indicate the device is in the 'even' position, in a 4:1 \n"
                    "interleave this would be the first of four possible \n"
                    "positions).  0x80000000 denotes 'unknown' or'unsupported'."},
    {.Name = "Data Depth",
     .Storage = kSpecific,
     .Type = kInteger,
     .Value = "0",
     .Description = "The maximum number of consecutive rows accessed from this \n"
                    "device in a single interleaved transfer. For example, if a \n"
                    "device transfers two rows each time it is read, its Interleaved \n"
                    "Data Depth would be 2. If that device is 2:1 interleaved and \n"
                    "in Interleave Position '1', then the rows mapped to that device \n"
                    "would be rows 1,2,5,6,9,10, etc. If the device is not part of \n"
                    "an interleave, this value should be 0.  0x80000000 denotes \n"
                    "'unknown'."},
};

constexpr MifGroup kMemoryDeviceMappedAddressesGroup = {
    .Banner = "// Group: DMTF|Memory Device Mapped Addresses|001 //",
    .Name = "Memory Device Mapped Addresses",
    .Class = "DMTF|Memory Device Mapped Addresses|001",
    .Description =
        "This table presents ranges of physical addresses that are mapped to \n"
        "a given Memory Device Set.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.36 ;",
    .Attributes = kMemoryDeviceMappedAddressesAttributes,
    .TableCode = 20,
};

}  // namespace

std::string SMBiosReader::MakeMemoryDeviceMappedAddressesGroup(int& idCounter) const {
  return MakeGroup<kMemoryDeviceMappedAddressesGroup>(idCounter);
}

}  // namespace kestrel
