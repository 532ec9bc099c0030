#pragma once

#include <optional>
#include <string>

#include "base/smbios_table.h"

namespace kestrel {

// Reads the table of the machine that the tool runs on, in the way of this system: at least one
// byte. Where there is none, `failure` says why, then ": " and what to do.
std::optional<SmbiosTable> ReadMachine(std::string& failure);

}  // namespace kestrel
