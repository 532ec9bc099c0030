#pragma once

#include "overview/overview.h"
#include "tools/kestrel/json_writer.h"

namespace kestrel {

// Writes the overview as one JSON object. Its keys are always there, null where the table does not
// say. For the writers of json_writer.h.
template <typename Writer>
void WriteJsonOverview(Writer& json, const Overview& overview);

}  // namespace kestrel
