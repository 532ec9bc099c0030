#include "model/sm_obj.h"

namespace kestrel {

std::string SMObj::GetMifTableRow(int& /*rowIndex*/) const { return {}; }

std::string SMObj::ToString() const { return {}; }

std::string_view SMObj::GetString(std::uint8_t number) const {
  if (number == 0 || number > Strings.size()) {
    return {};
  }
  return Strings[number - 1U];
}

}  // namespace kestrel
