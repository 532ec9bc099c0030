#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Memory topology is only for the MIF document; nothing shows the boot status.
constexpr std::array<std::uint8_t, 5> kTypesLeftOut = {16, 17, 19, 20, 32};

bool IsLeftOut(std::uint8_t type) {
  return std::find(kTypesLeftOut.begin(), kTypesLeftOut.end(), type) != kTypesLeftOut.end();
}

}  // namespace

std::string SMBiosReader::BuildTextReport() const {
  std::string report;
  for (const auto& object : Objects) {
    if (!IsLeftOut(object->GetType())) {
      report.append(object->ToString());
    }
  }
  return report;
}

}  // namespace kestrel
