#include "catalog/uuid.h"

#include <cstddef>

#include "base/text.h"

namespace kestrel::catalog {

std::string TextOfUuid(std::span<const std::uint8_t> bytes, SmbiosVersion version) {
  constexpr std::size_t kLittleEndian[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  const bool isLittleEndian = version.Major > 2 || (version.Major == 2 && version.Minor >= 6);
  std::string text;
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    if (index == 4 || index == 6 || index == 8 || index == 10) {
      text.push_back('-');
    }
    text.append(Hex(bytes[isLittleEndian ? kLittleEndian[index] : index], 2));
  }
  return text;
}

}  // namespace kestrel::catalog
