#include "model/code_text.h"

namespace kestrel {

std::string TextOfBits(std::span<const std::string_view> texts, unsigned bits,
                       std::string_view separator) {
  std::string joined;
  for (const std::string_view text : texts) {
    if ((bits & 1U) != 0) {
      if (!joined.empty()) {
        joined.append(separator);
      }
      joined.append(text);
    }
    bits >>= 1;
  }
  return joined;
}

}  // namespace kestrel
