#include "mif/groups/shared_data.h"
#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kSystemCacheLevel[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "Primary"}, {4, "Secondary"}, {5, "Tertiary"},
};

constexpr MifEnumItem kSystemCacheWritePolicy[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Write Back"},
    {4, "Write Through"},
};

constexpr MifEnumItem kSystemCacheErrorCorrection[] = {
    {1, "Other"},  {2, "Unknown"},        {3, "None"},
    {4, "Parity"}, {5, "Single Bit ECC"}, {6, "MultiBit ECC"},
};

constexpr MifEnumItem kSystemCacheType[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "Instruction"}, {4, "Data"}, {5, "Unified"},
};

constexpr MifAttribute kSystemCacheAttributes[] = {
    {.Name = "System Cache Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "An index into the System Cache table."},
    {.Name = "System Cache Level",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Is this the primary System Cache, or a subsidiary cache?",
     .Items = kSystemCacheLevel},
    {.Name = "System Cache Speed",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The speed of this System Cache module in nanoseconds."},
    {.Name = "System Cache Size",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The size of this System Cache module in kilobytes."},
    {.Name = "System Cache Write Policy",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Is this a write-back or a write-through cache?",
     .Items = kSystemCacheWritePolicy},
    {.Name = "System Cache Error Correction",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = kNoValue,
     .Description = "The error correction scheme supported by this cache component.",
     .Items = kSystemCacheErrorCorrection},
    kFruGroupIndex,
    kOperationalGroupIndex,
    {.Name = "System Cache Type",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = kNoValue,
     .Description = "This defines the system cache type.",
     .Items = kSystemCacheType},
};

constexpr MifGroup kSystemCacheGroup = {
    .Banner = "// Group:          DMTF|System Cache|002          //",
    .Name = "System Cache",
    .Class = "DMTF|System Cache|002",
    .Description =
        "This group defines the attributes for different System Caches \n"
        "installed in this system.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.9 ;",
    .Attributes = kSystemCacheAttributes,
    .TableCode = 7,
};

}  // namespace

std::string SMBiosReader::MakeSystemCacheGroup(int& idCounter) const {
  return MakeGroup<kSystemCacheGroup>(idCounter);
}

}  // namespace kestrel
