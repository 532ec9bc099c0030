#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/sm_obj.h"
#include "model/text_block.h"

namespace kestrel {

// A structure that holds only a count and that many strings. Its block has a line for each string,
// which is the string alone.
class SMStringListObj : public SMObj {
 public:
  void SetCount(std::uint8_t value) { Count = value; }
  std::uint8_t GetCount() const { return Count; }

  std::string ToString() const override {
    TextBlock block(Title);
    for (const std::string& text : GetStrings()) {
      block.Item(text);
    }
    return block.Close();
  }

 protected:
  // The title must outlive the object.
  SMStringListObj(std::uint8_t type, std::string_view title) : Title(title) { SetType(type); }

 private:
  std::string_view Title;
  std::uint8_t Count = 0;
};

}  // namespace kestrel
