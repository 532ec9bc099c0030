#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kPrimaryBios[] = {
    {0, "False"},
    {1, "True"},
};

constexpr MifAttribute kSystemBiosAttributes[] = {
    {.Name = "BIOS Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The index into the system BIOS table."},
    {.Name = "BIOS Manufacturer",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .Value = kEmptyString,
     .Description = "The name of the company that wrote this System BIOS."},
    {.Name = "BIOS Version",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .Value = kEmptyString,
     .Description = "The version number or version string of this BIOS."},
    {.Name = "BIOS ROM Size",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The physical size of this BIOS ROM device in kilobytes."},
    {.Name = "BIOS Starting Address",
     .Storage = kCommon,
     .Type = kInteger64,
     .Value = "0",
     .Description = "The starting physical address for the memory which the BIOS occupies."},
    {.Name = "BIOS Ending Address",
     .Storage = kCommon,
     .Type = kInteger64,
     .Value = "0",
     .Description = "The ending physical address for the memory which the BIOS occupies."},
    {.Name = "BIOS Loader Version",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .Value = kEmptyString,
     .Description = "The BIOS flash loader version number or string."},
    {.Name = "BIOS Release Date",
     .Storage = kCommon,
     .Type = kDate,
     .Value = kEmptyString,
     .Description = "The BIOS release date."},
    {.Name = "Primary BIOS",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "0",
     .Description = "If true, this is the primary System BIOS.",
     .Items = kPrimaryBios},
};

constexpr MifGroup kSystemBiosGroup = {
    .Banner = "// Group:           DMTF|System BIOS|001          //",
    .Name = "System BIOS",
    .Class = "DMTF|System BIOS|001",
    .Description = "This group defines the attributes for the System BIOS.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.3 ;",
    .Attributes = kSystemBiosAttributes,
    .TableCode = 0,
};

}  // namespace

std::string SMBiosReader::MakeSystemBiosGroup(int& idCounter) const {
  return MakeGroup<kSystemBiosGroup>(idCounter);
}

}  // namespace kestrel
