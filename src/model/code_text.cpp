#include "model/code_text.h"

namespace kestrel {

ItemText TextOfBits(std::span<const std::string_view> texts, unsigned bits,
                    std::string_view separator) {
  ItemText joined{};
  std::string_view between;
  for (const std::string_view text : texts) {
    if ((bits & 1U) != 0) {
      joined.Append({between, text});
      between = separator;
    }
    bits >>= 1;
  }
  return joined;
}

}  // namespace kestrel
