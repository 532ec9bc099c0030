#include "catalog/type_catalog.h"

#include <array>

namespace kestrel::catalog {

namespace {

constexpr std::uint8_t kFirstOemType = 128;

using TypesByNumber = std::array<const StructureType*, 256>;

TypesByNumber OrderByNumber() {
  TypesByNumber ordered{};
  for (const auto types : {kFirmwareTypes, kSystemTypes, kProcessorTypes, kMemoryTypes,
                           kConnectorTypes, kPowerTypes, kManagementTypes}) {
    for (const StructureType& type : types) {
      ordered[type.Type] = &type;
    }
  }
  return ordered;
}

}  // namespace

const StructureType* FindStructureType(std::uint8_t type) {
  static const TypesByNumber ordered = OrderByNumber();
  return ordered[type];
}

std::string_view GetTypeName(std::uint8_t type) {
  if (type >= kFirstOemType) {
    return "OEM";
  }
  const StructureType* published = FindStructureType(type);
  return published != nullptr ? published->Name : std::string_view();
}

}  // namespace kestrel::catalog
