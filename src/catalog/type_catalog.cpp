#include "catalog/type_catalog.h"

#include <algorithm>
#include <array>
#include <iterator>

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
  if (const StructureType* published = FindStructureType(type)) {
    return published->Name;
  }
  return type >= kFirstOemType ? "OEM" : std::string_view();
}

std::string_view FindText(std::span<const Code> codes, std::uint64_t value) {
  const auto after =
      std::upper_bound(codes.begin(), codes.end(), value,
                       [](std::uint64_t number, const Code& code) { return number < code.Value; });
  if (after == codes.begin()) {
    return {};
  }
  const Code& code = *std::prev(after);
  return value == code.Value || value <= code.Last ? code.Text : std::string_view();
}

}  // namespace kestrel::catalog
