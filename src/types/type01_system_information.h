#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/sm_obj.h"
#include "model/text_block.h"

namespace kestrel {

// System Information: the system as a whole. Layout: DMTF DSP0134, "System Information (Type 1)
// structure".
class SMType1Obj final : public SMObj {
 public:
  SMType1Obj();

  void SetManufacturer(std::uint8_t value) { Manufacturer = value; }
  void SetProductName(std::uint8_t value) { ProductName = value; }
  void SetVersion(std::uint8_t value) { Version = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetUuid(const std::array<std::uint8_t, 16>& value) { Uuid = value; }
  void SetWakeUpType(std::uint8_t value) { WakeUpType = value; }

  // The first four are a label that ends in " : ", followed by the string, if there is one.
  ItemText GetManufacturerText() const;
  ItemText GetProductNameText() const;
  ItemText GetVersionText() const;
  ItemText GetSerialNumberText() const;
  ItemText GetUuidText() const;
  ItemText GetWakeUpTypeText() const;

  std::string ToString() const override;

 private:
  std::uint8_t WakeUpType = 0;
  std::array<std::uint8_t, 16> Uuid{};
  std::uint8_t SerialNumber = 0;
  std::uint8_t Version = 0;
  std::uint8_t ProductName = 0;
  std::uint8_t Manufacturer = 0;
};

}  // namespace kestrel
