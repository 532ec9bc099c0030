#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "catalog/type_definition.h"

namespace kestrel::catalog {

// The published structure types by subject, each table in the source of its name.
extern const std::span<const StructureType> kFirmwareTypes;    // firmware_types.cpp
extern const std::span<const StructureType> kSystemTypes;      // system_types.cpp
extern const std::span<const StructureType> kProcessorTypes;   // processor_types.cpp
extern const std::span<const StructureType> kMemoryTypes;      // memory_types.cpp
extern const std::span<const StructureType> kConnectorTypes;   // connector_types.cpp
extern const std::span<const StructureType> kPowerTypes;       // power_types.cpp
extern const std::span<const StructureType> kManagementTypes;  // management_types.cpp

// The published type of that number, or nullptr.
const StructureType* FindStructureType(std::uint8_t type);

// The published text of a code; empty where there is none.
std::string_view FindText(std::span<const Code> codes, std::uint64_t value);

// The published name of a type, "OEM" for 128 to 255; empty where there is none.
std::string_view GetTypeName(std::uint8_t type);

}  // namespace kestrel::catalog
