#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kBiosCharacteristic[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Unsupported"},
    {4, "ISA Support"},
    {5, "MCA Support"},
    {6, "EISA Support"},
    {7, "PCI Support"},
    {8, "PCMCIA Support"},
    {9, "PnP Support"},
    {10, "APM Support"},
    {11, "Upgradeable BIOS"},
    {12, "BIOS Shadowing allowe"},  // The missing "d".
    {13, "VL VESA Support"},
    {14, "ESCD Support"},
    {15, "LS-120 Support"},
    {16, "ACPI Support"},
    {17, "I2O Boot Support"},
    {18, "USB Legacy Support"},
    {19, "AGP Support"},
    {20, "PC Card"},
    {21, "IR"},
    {22, "1394"},
    {23, "I2C"},
    {24, "Smart Battery"},
    {160, "PC-98"},
};

constexpr MifAttribute kBiosCharacteristicAttributes[] = {
    {.Name = "BIOS Characteristic Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "This is an index into the BIOS Characteristics table."},
    {.Name = "BIOS Number",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "The BIOS number, which correlates to the BIOS Index attribute in the System "
                    "BIOS group."},
    {.Name = "BIOS Characteristic",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The different features supported by this version of the BIOS.",
     .Items = kBiosCharacteristic},
    {.Name = "BIOS Characteristic Description",
     .Storage = kSpecific,
     .Type = kDisplayString80,
     .Value = kEmptyString,
     .Description = "An expanded description of this BIOS Characteristic."},
};

constexpr MifGroup kBiosCharacteristicGroup = {
    .Banner = "// Group:       DMTF|BIOS Characteristic|003      //",
    .Name = "System BIOS Characteristics",
    .Class = "DMTF|BIOS Characteristic|003",
    .Description = "This group defines the characteristics of the System BIOS.",
    .Key = "1, 2",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.4 ;",
    .Attributes = kBiosCharacteristicAttributes,
    .TableCode = kBiosCharacteristicsTable,
};

}  // namespace

std::string SMBiosReader::MakeBiosCharacteristicGroup(int& idCounter) const {
  return MakeGroup<kBiosCharacteristicGroup>(idCounter);
}

}  // namespace kestrel
