#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/smbios_table.h"

namespace kestrel::catalog {

// The text of the 16 bytes of a UUID, with upper-case digits. From version 2.6 of the standard on
// the first three fields are little-endian. Source: DMTF DSP0134, "System - UUID".
std::string TextOfUuid(std::span<const std::uint8_t> bytes, SmbiosVersion version);

// Whether the bytes say that there is no UUID: all zeros, it is not set; all ones, there is none.
bool IsNoUuid(std::span<const std::uint8_t> bytes);

}  // namespace kestrel::catalog
