#pragma once

#include <array>
#include <cstdint>

#include "model/sm_obj.h"

namespace kestrel {

// System Boot Information: the status of the last boot. Neither the report nor the MIF document
// shows it. Layout: DMTF DSP0134, "System Boot Information (Type 32) structure".
class SMType32Obj final : public SMObj {
 public:
  SMType32Obj() { SetType(32); }

  void SetReserved(const std::array<std::uint8_t, 6>& value) { Reserved = value; }
  void SetBootStatus(std::uint8_t value) { BootStatus = value; }

  const std::array<std::uint8_t, 6>& GetReserved() const { return Reserved; }
  // The status code, the first of the structure's status bytes.
  std::uint8_t GetBootStatus() const { return BootStatus; }

 private:
  std::uint8_t BootStatus = 0;
  std::array<std::uint8_t, 6> Reserved{};
};

}  // namespace kestrel
