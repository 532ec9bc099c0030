#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/sm_obj.h"
#include "model/text_block.h"

namespace kestrel {

// The formatted area without extension bytes. A shorter structure has no object.
inline constexpr std::uint8_t kShortestBiosInformation = 0x12;

// BIOS Information: who made the BIOS, where it lies, and what it supports. Layout: DMTF DSP0134,
// "BIOS Information (Type 0) structure".
class SMType0Obj final : public SMObj {
 public:
  SMType0Obj();

  void SetVendor(std::uint8_t value) { Vendor = value; }
  void SetBiosVersion(std::uint8_t value) { BiosVersion = value; }
  void SetBiosStartingAddressSegment(std::uint16_t value) { BiosStartingAddressSegment = value; }
  void SetBiosReleaseDate(std::uint8_t value) { BiosReleaseDate = value; }
  void SetBiosRomSize(std::uint8_t value) { BiosRomSize = value; }
  void SetBiosCharacteristics(std::uint32_t low, std::uint32_t high) {
    BiosCharacteristics = {low, high};
  }
  // How many of the extension bytes count; no more than there are.
  void SetExtensionByteCount(std::uint8_t value) { ExtensionByteCount = value; }
  std::uint8_t GetExtensionByteCount() const { return ExtensionByteCount; }
  void SetExtensionBytes(std::vector<std::uint8_t> bytes);

  // A label that ends in " : ", followed by the string, if there is one.
  ItemText GetVendorText() const;
  ItemText GetVersionText() const;
  ItemText GetReleaseDateText() const;

  ItemText GetBiosStartingAddressSegmentText() const;
  ItemText GetBiosRomSizeText() const;
  // Several lines: the bits as numbers, then a line per feature, the last with its line end.
  std::string GetBiosCharacteristicsText() const;

  std::string ToString() const override;
  std::string GetMifTableRow(int& rowIndex) const override;
  // The rows of the BIOS characteristics table: one per supported feature, numbered from 0.
  std::string GetMifCharacteristicRows() const;

 private:
  // In kilobytes.
  std::uint32_t GetRomSize() const { return (BiosRomSize + 1U) * 64U; }

  std::vector<std::uint8_t> ExtensionBytes;
  std::uint8_t ExtensionByteCount = 0;
  // The low half of the bits, then the high half.
  std::array<std::uint32_t, 2> BiosCharacteristics{};
  std::uint8_t BiosRomSize = 0;
  std::uint8_t BiosReleaseDate = 0;
  std::uint16_t BiosStartingAddressSegment = 0;
  std::uint8_t BiosVersion = 0;
  std::uint8_t Vendor = 0;
};

// The labels of the first three texts.
inline constexpr std::string_view kVendorLabel = "Vendor Name : ";
inline constexpr std::string_view kVersionLabel = "BIOS Version : ";
inline constexpr std::string_view kReleaseDateLabel = "BIOS Release Date : ";

}  // namespace kestrel
