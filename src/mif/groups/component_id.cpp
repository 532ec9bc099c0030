#include <string>
#include <string_view>

#include "mif/mif_group.h"
#include "mif/mif_group_checks.h"
#include "model/smbios_reader.h"
#include "types/type01_system_information.h"

namespace kestrel {

namespace {

constexpr MifEnumItem kVerify[] = {
    {0, "An error occurred; check status code."},
    {1, "This component does not exist."},
    {2, "Verification is not supported."},
    {3, "Reserved."},
    {4, "This component exists, but the functionality is untested."},
    {5, "This component exists, but the functionality is unknown."},
    {6, "This component exists, and is not functioning correctly."},
    {7, "This component exists, and is functioning correctly."},
};

constexpr MifAttribute kComponentIdAttributes[] = {
    {.Name = "Manufacturer",
     .Storage = kCommon,
     .Type = kDisplayString64,
     .GetValue = &SMBiosReader::GetComponentManufacturer,
     .Description = "Manufacturer of this system."},
    {.Name = "Product",
     .Storage = kCommon,
     .Type = kDisplayString64,
     .GetValue = &SMBiosReader::GetComponentProduct,
     .Description = "Product name for this system."},
    {.Name = "Version",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .GetValue = &SMBiosReader::GetComponentVersion,
     .Description = "Version number of this system."},
    {.Name = "Serial Number",
     .Storage = kSpecific,
     .Type = kDisplayString64,
     .GetValue = &SMBiosReader::GetComponentSerialNumber,
     .Description = "Serial number for this system."},
    {.Name = "Installation",
     .Storage = kSpecific,
     .Type = kDate,
     .Value = kEmptyString,
     .Description = "The time and date when this component was installed."},
    {.Name = "Verify",
     .Storage = kCommon,
     .Type = kEnumeration,
     .Value = "5",
     .Description = "A code that provides a level of verification that the component is still "
                    "installed and working.",
     .Items = kVerify},
};

constexpr MifGroup kComponentIdGroup = {
    .Banner = "// Group:           DMTF|ComponentID|001          //",
    .Name = "ComponentID",
    .Class = "DMTF|ComponentID|001",
    .Description =
        "This group defines the attributes common to all components.  This group is "
        "required.",
    .Key = "",
    .Pragma = "SNMP:1.3.6.1.4.1.412.2.1.1 ;",
    .Attributes = kComponentIdAttributes,
};

// Returns what follows the label of an item text, without the blanks with which firmware pads
// strings.
std::string ValueOf(std::string_view itemText) {
  constexpr std::string_view kSeparator = " : ";
  const std::size_t separator = itemText.find(kSeparator);
  if (separator == std::string_view::npos) {
    return {};
  }
  const std::string_view value = itemText.substr(separator + kSeparator.size());
  return std::string(value.substr(0, value.find_last_not_of(" \t\r\n\v\f") + 1));
}

std::string ComponentValue(const SMBiosReader& reader, ItemText (SMType1Obj::*itemText)() const) {
  const auto* system = static_cast<const SMType1Obj*>(reader.GetFirstObj(1));
  return system != nullptr ? ValueOf((system->*itemText)()) : std::string();
}

}  // namespace

std::string SMBiosReader::MakeComponentIDGroup(int& idCounter) const {
  return MakeGroup<kComponentIdGroup>(idCounter);
}

std::string SMBiosReader::GetComponentManufacturer() const {
  return ComponentValue(*this, &SMType1Obj::GetManufacturerText);
}

std::string SMBiosReader::GetComponentProduct() const {
  return ComponentValue(*this, &SMType1Obj::GetProductNameText);
}

std::string SMBiosReader::GetComponentVersion() const {
  return ComponentValue(*this, &SMType1Obj::GetVersionText);
}

std::string SMBiosReader::GetComponentSerialNumber() const {
  return ComponentValue(*this, &SMType1Obj::GetSerialNumberText);
}

}  // namespace kestrel
