#pragma once

#include "mif/mif_group.h"

namespace kestrel {

// What several groups have word for word in common.

inline constexpr MifAttribute kFruGroupIndex = {
    .Name = "FRU Group Index",
    .Storage = kCommon,
    .Type = kInteger,
    .Value = "0",
    .Description =
        "If this is a Field Replaceable Unit or if it is part of \n"
        "another FRU, this provides an index into the FRU table; 'value \n"
        "= -1' indicates that the group is not a FRU.",
};

}  // namespace kestrel
