#include "catalog/type_catalog.h"

#include <algorithm>
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
  if (const StructureType* published = FindStructureType(type)) {
    return published->Name;
  }
  return type >= kFirstOemType ? "OEM" : std::string_view();
}

std::string_view FindText(std::span<const Code> codes, std::uint64_t value) {
  const auto code =
      std::lower_bound(codes.begin(), codes.end(), value,
                       [](const Code& row, std::uint64_t number) { return row.Last < number; });
  return code != codes.end() && code->First <= value ? code->Text : std::string_view();
}

}  // namespace kestrel::catalog
