#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// The ISO form, "2021-09-14", of a date as firmware writes it: "09/14/2021" or, in a year 19xx,
// "09/14/99" (DMTF DSP0134, "BIOS Information"). Dates that are in ISO form already stay. Empty
// where the text is no date.
std::string IsoDateOf(std::string_view text);

}  // namespace kestrel
