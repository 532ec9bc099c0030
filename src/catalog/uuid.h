#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/smbios_table.h"

namespace kestrel::catalog {

// The text of the 16 bytes of a UUID, with upper-case digits. From version 2.6 of the standard on
// the first three fields are little-endian. Source: DMTF DSP0134, "System - UUID".
std::string TextOfUuid(std::span<const std::uint8_t> bytes, SmbiosVersion version);

}  // namespace kestrel::catalog
