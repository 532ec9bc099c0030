#pragma once

#include <cstdint>
#include <vector>

#include "base/smbios_table.h"

namespace kestrel {

// The version that the sample is written to.
inline constexpr SmbiosVersion kSampleVersion = {2, 3};

// The structure table of an invented PC of 2002, with a structure of every type that the library
// decodes.
std::vector<std::uint8_t> MakeSampleTable();

}  // namespace kestrel
