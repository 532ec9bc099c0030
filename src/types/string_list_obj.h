#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/sm_obj.h"
#include "model/text.h"

namespace kestrel {

// A structure that is nothing but a count and as many strings; its block lists them as they stand.
class SMStringListObj : public SMObj {
 public:
  // The count is the number of strings declared, so the set never holds more.
  void SetCount(std::uint8_t value) { SetStringCount(value); }

  std::string ToString() const override {
    TextBlock block(Title);
    for (const std::string& text : GetStrings()) {
      block.Item({text});
    }
    return block.Close();
  }

 protected:
  // The title must outlive the object.
  SMStringListObj(std::uint8_t type, std::string_view title) : Title(title) { SetType(type); }

 private:
  std::string_view Title;
};

}  // namespace kestrel
