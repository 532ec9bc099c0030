#include "tools/kestrel/handle_names.h"

#include <string_view>

#include "base/text.h"
#include "catalog/structure_fields.h"
#include "catalog/type_catalog.h"
#include "overview/placeholders.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

// The fields by which structures are told from others of their type. The first one that says
// something counts.
constexpr std::string_view kDesignations[] = {
    "device_locator",
    "socket_designation",
    "slot_designation",
    "reference_designation",
    "external_reference_designator",
    "internal_reference_designator",
    "description",
    "device_name",
    "firmware_component_name",
    "group_name",
    "product",
    "product_name",
};

std::string_view DesignationOf(const catalog::Structure& structure) {
  // Firmware may put any amount of text here, and name the structure any number of times.
  constexpr std::size_t kLongest = 64;
  const catalog::StructureFields fields(structure);
  for (const std::string_view key : kDesignations) {
    const std::string_view designation = WithoutPlaceholder(fields.GetString(key));
    if (!designation.empty()) {
      return designation.substr(0, kLongest);
    }
  }
  return {};
}

}  // namespace

HandleNames::HandleNames(const catalog::TableScan& scan) {
  for (const catalog::Structure& structure : scan.Structures) {
    Structures.try_emplace(structure.Handle, &structure);
  }
}

const catalog::Structure* HandleNames::Find(std::uint16_t handle) const {
  const auto found = Structures.find(handle);
  return found != Structures.end() ? found->second : nullptr;
}

const std::string& HandleNames::NameOf(const catalog::Structure& structure) {
  std::string& name = Names[structure.Offset];
  if (name.empty()) {
    name = MakeNameOf(structure);
  }
  return name;
}

std::string MakeNameOf(const catalog::Structure& structure) {
  const std::string designation = TextOfFirmware(DesignationOf(structure));
  return Join({TitleOfType(structure.Type), designation.empty() ? "" : ", ", designation});
}

std::string_view TitleOfType(std::uint8_t type) {
  const std::string_view name = catalog::GetTypeName(type);
  return name.empty() ? "Unknown" : name;
}

}  // namespace kestrel
