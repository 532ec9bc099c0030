#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrel {

class TableCursor;

// The entry point as the firmware wrote it: where the structure table is, how long it is, and which
// version of SMBIOS it follows. Nothing is validated; checksums are ignored. Layout: DMTF DSP0134,
// "SMBIOS 2.1 (32-bit) Entry Point structure".
class SMEntryPoint {
 public:
  SMEntryPoint() = default;
  SMEntryPoint(const SMEntryPoint&) = default;
  SMEntryPoint& operator=(const SMEntryPoint&) = default;
  virtual ~SMEntryPoint() = default;

  // Reads every field, in the order of the layout.
  void Parse(TableCursor& cursor);

  // The setters of byte arrays copy at most as many bytes as the field has; fewer leave the rest of
  // the field alone.
  void SetAnchor(std::span<const std::uint8_t> source);
  void SetChecksum(std::uint8_t value) { Checksum = value; }
  void SetEntryPointLength(std::uint8_t value) { EntryPointLength = value; }
  void SetMajorVersion(std::uint8_t value) { MajorVersion = value; }
  void SetMinorVersion(std::uint8_t value) { MinorVersion = value; }
  void SetMaxStructureSize(std::uint16_t value) { MaxStructureSize = value; }
  void SetEntryPointRevision(std::uint8_t value) { EntryPointRevision = value; }
  void SetFormattedArea(std::span<const std::uint8_t> source);
  void SetIntermediateAnchor(std::span<const std::uint8_t> source);
  void SetIntermediateChecksum(std::uint8_t value) { IntermediateChecksum = value; }
  void SetTableLength(std::uint16_t value) { TableLength = value; }
  void SetTableAddress(std::uint32_t value) { TableAddress = value; }
  void SetStructureCount(std::uint16_t value) { StructureCount = value; }
  void SetBcdRevision(std::uint8_t value) { BcdRevision = value; }

  const std::array<std::uint8_t, 4>& GetAnchor() const { return Anchor; }
  std::uint8_t GetChecksum() const { return Checksum; }
  std::uint8_t GetEntryPointLength() const { return EntryPointLength; }
  std::uint8_t GetMajorVersion() const { return MajorVersion; }
  std::uint8_t GetMinorVersion() const { return MinorVersion; }
  std::uint16_t GetMaxStructureSize() const { return MaxStructureSize; }
  std::uint8_t GetEntryPointRevision() const { return EntryPointRevision; }
  const std::array<std::uint8_t, 5>& GetFormattedArea() const { return FormattedArea; }
  const std::array<std::uint8_t, 5>& GetIntermediateAnchor() const { return IntermediateAnchor; }
  std::uint8_t GetIntermediateChecksum() const { return IntermediateChecksum; }
  std::uint16_t GetTableLength() const { return TableLength; }
  std::uint32_t GetTableAddress() const { return TableAddress; }
  std::uint16_t GetStructureCount() const { return StructureCount; }
  std::uint8_t GetBcdRevision() const { return BcdRevision; }

 private:
  std::uint8_t BcdRevision = 0;
  std::uint8_t IntermediateChecksum = 0;
  std::array<std::uint8_t, 5> IntermediateAnchor{};
  std::array<std::uint8_t, 5> FormattedArea{};
  std::uint8_t EntryPointRevision = 0;
  std::uint16_t MaxStructureSize = 0;
  std::uint8_t MinorVersion = 0;
  std::uint8_t MajorVersion = 0;
  std::uint8_t EntryPointLength = 0;
  std::uint8_t Checksum = 0;
  std::array<std::uint8_t, 4> Anchor{};
  std::uint16_t StructureCount = 0;
  std::uint32_t TableAddress = 0;
  std::uint16_t TableLength = 0;
};

}  // namespace kestrel
