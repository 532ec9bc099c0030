#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kSlotWidth[] = {
    {1, "Other"},       {2, "Unknown"},     {3, "8 bit card"},   {4, "16 bit card"},
    {5, "32 bit card"}, {6, "64 bit card"}, {7, "128 bit card"},
};

constexpr MifEnumItem kCurrentUsage[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Available"},
    {4, "In Use"},
};

constexpr MifAttribute kSystemSlotAttributes[] = {
    {.Name = "Slot Index",
     .Storage = kCommon,
     .Type = kInteger,
     .Value = "0",
     .Description = "An index into the system slot table."},
    {.Name = "Slot Type",
     .Storage = kCommon,
     .Type = kInteger64,
     .Value = "0",
     .Description = "The bus type supported in this slot. \n"
                    "This is a bit field with the following definitions: \n"
                    "Bit 0 (2^0), if 1, it is a long-length card; \n"
                    "  if 0, it is a short-length card, \n"
                    "Bit 1 (2^1) if set, indicates ISA, \n"
                    "Bit 2 (2^2) indicates EISA, \n"
                    "Bit 3 (2^3) indicates MCA, \n"
                    "Bit 4 (2^4) indicates PCI, \n"
                    "Bit 5 (2^5) indicates VL, \n"
                    "Bit 6 (2^6) indicates PCMCIA, \n"
                    "Bit 7 (2^7) refers to NuBus, \n"
                    "Bit 8 (2^8) indicates PC-98/C20, \n"
                    "Bit 9 (2^9) indicates PC-98/C24, \n"
                    "Bit 10 (2^10) indicates PC-98/E, \n"
                    "Bit 11 (2^11) indicates PC-98/Local Bus\n"  // No comma, no blank.
                    "Bit 12 (2^12) indicates PC-98/Card slot."},
    {.Name = "Slot Width",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "The maximum bus width of cards accepted in this slot.",
     .Items = kSlotWidth},
    {.Name = "Current Usage",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "1",
     .Description = "Is this slot is currently in use?",  // The doubled "is".
     .Items = kCurrentUsage},
    {.Name = "Slot Description",
     .Storage = kSpecific,
     .Type = kDisplayString80,
     .Value = kEmptyString,
     .Description = "The card currently occupying this slot."},
};

constexpr MifGroup kSystemSlotGroup = {
    .Banner = "// Group:           DMTF|System Slot|002          //",
    .Name = "System Slots",
    .Class = "DMTF|System Slot|002",
    .Description =
        "This group defines the attributes for the different system expansion \n"
        "slots supported in this system.",
    .Key = "1",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.4.18 ;",
    .Attributes = kSystemSlotAttributes,
    .TableCode = 9,
};

}  // namespace

std::string SMBiosReader::MakeSystemSlotGroup(int& idCounter) const {
  return MakeGroup<kSystemSlotGroup>(idCounter);
}

}  // namespace kestrel
