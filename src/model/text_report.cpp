#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "model/smbios_reader.h"

namespace kestrel {

namespace {

// Memory topology is for the MIF document alone; nothing shows the boot status.
constexpr std::array<std::uint8_t, 5> kTypesLeftOut = {16, 17, 19, 20, 32};

// Most reports fit into this estimate and need one allocation; others grow. The bound keeps a table
// of nothing but headers from reserving more than any report needs.
constexpr std::size_t kBytesPerObject = 384;
constexpr std::size_t kLargestReserve = 1024UL * 1024UL;

bool IsLeftOut(std::uint8_t type) {
  return std::find(kTypesLeftOut.begin(), kTypesLeftOut.end(), type) != kTypesLeftOut.end();
}

}  // namespace

std::string SMBiosReader::BuildTextReport() const {
  std::string report;
  report.reserve(std::min(Objects.size() * kBytesPerObject, kLargestReserve));
  for (const auto& object : Objects) {
    if (!IsLeftOut(object->GetType())) {
      report.append(object->ToString());
    }
  }
  return report;
}

}  // namespace kestrel
