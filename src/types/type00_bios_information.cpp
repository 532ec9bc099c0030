#include "types/type00_bios_information.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "base/table_cursor.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"

namespace kestrel {

namespace {

struct FeatureBit {
  std::uint8_t Bit;
  std::string_view Label;
};

// The wording differs from line to line; consoles know the lines as they are.
constexpr FeatureBit kBiosCharacteristics[] = {
    {4, "ISA is Supported : "},
    {5, "MCA is Supported : "},
    {6, "EISA is Supported : "},
    {7, "PCI is Supported : "},
    {8, "PCMCIA is Supported : "},
    {9, "PnP is Supported : "},
    {10, "APM is Supported : "},
    {11, "BIOS is Upgradeable : "},
    {12, "BIOS shadowing is allowed : "},
    {13, "VL-VESA is supported : "},
    {14, "ESCD support is available : "},
    {15, "Boot from CD is supported : "},
    {16, "Selectable Boot is supported : "},
    {17, "BIOS ROM is Socketed : "},
    {18, "Boot From PCMCIA is supported : "},
    {19, "EDD Specification is supported : "},
    {20, "Floppy for NEC 9800 is supported : "},
    {21, "Floppy for Toshiba is supported : "},
    {22, "5.25\"/360 KB Floppy supported : "},
    {23, "5.25\"/1.2 MB Floppy supported : "},
    {24, "3.5\"/720 KB Floppy supported : "},
    {25, "3.5\"/2.88 MB Floppy supported : "},
    {26, "Print Screen Service is supported : "},
    {27, "8042 Keyboard services are supported : "},
    {28, "Serial Services are supported : "},
    {29, "Printer Services are supported : "},
    {30, "CGA/Mono Video Services are supported : "},
    {31, "NEC PC-98 : "},
};

constexpr FeatureBit kExtensionByte1[] = {
    {0, "ACPI supported : "},           {1, "USB Legacy is supported : "},
    {2, "AGP is supported : "},         {3, "I2O boot is supported : "},
    {4, "LS-120 boot is supported : "}, {5, "ATAPI ZIP Drive boot is supported : "},
    {6, "1394 boot is supported : "},   {7, "Smart Battery supported : "},
};

constexpr FeatureBit kExtensionByte2[] = {
    {0, "BIOS Boot Specification supported : "},
    {1, "Function key-initiated Network Service boot supported : "},
};

// The characteristics that the MIF table has rows for, by bit number and by the value of the row.
struct CharacteristicRow {
  std::uint8_t Bit;
  std::uint32_t Value;
};

constexpr CharacteristicRow kCharacteristicRows[] = {
    {4, 4},   {5, 5},   {6, 6},   {7, 7},   {8, 8},   {9, 9},   {10, 10},  {11, 11},
    {12, 12}, {13, 13}, {14, 14}, {15, 15}, {16, 16}, {17, 17}, {31, 160},
};

constexpr std::string_view kMissingMifDate = "20000101000000.000000-300";

bool IsSet(std::uint32_t bits, std::uint8_t bit) { return (bits >> bit & 1U) != 0; }

std::string_view PieceOf(std::string_view text, std::size_t start, std::size_t length) {
  return start < text.size() ? text.substr(start, length) : std::string_view{};
}

// A release date mm/dd/yy or mm/dd/yyyy as a DMI date; whatever else the string holds is cut into
// the same pieces.
std::string MifDate(std::string_view date) {
  std::string text;
  Append(text,
         {PieceOf(date, 6, 4), PieceOf(date, 0, 2), PieceOf(date, 3, 2), "000000.000000-300"});
  return text;
}

}  // namespace

SMType0Obj::SMType0Obj() {
  SetType(0);
  SetStringCount(3);
}

void SMType0Obj::SetExtensionBytes(std::vector<std::uint8_t> bytes) {
  ExtensionBytes = std::move(bytes);
}

void SMBiosReader::ReadType0(TableCursor& cursor) {
  // Zero padding after a string set reads as a shorter structure.
  if (cursor.Peek() < kShortestBiosInformation) {
    return;
  }
  ReadStructure<SMType0Obj>(cursor, [&](auto& object) {
    object.SetVendor(cursor.U8());
    object.SetBiosVersion(cursor.U8());
    object.SetBiosStartingAddressSegment(cursor.U16());
    object.SetBiosReleaseDate(cursor.U8());
    object.SetBiosRomSize(cursor.U8());
    const std::uint32_t low = cursor.U32();
    const std::uint32_t high = cursor.U32();
    object.SetBiosCharacteristics(low, high);
    object.SetExtensionByteCount(object.GetLength() - kShortestBiosInformation);
    std::vector<std::uint8_t> extension(object.GetExtensionByteCount());
    cursor.Bytes(extension);
    object.SetExtensionBytes(std::move(extension));
  });
}

const SMType0Obj* SMBiosReader::GetType0Obj() const {
  return static_cast<const SMType0Obj*>(GetFirstObj(0));
}

ItemText SMType0Obj::GetVendorText() const { return {kVendorLabel, GetString(Vendor)}; }

ItemText SMType0Obj::GetVersionText() const { return {kVersionLabel, GetString(BiosVersion)}; }

ItemText SMType0Obj::GetReleaseDateText() const {
  return {kReleaseDateLabel, GetString(BiosReleaseDate)};
}

ItemText SMType0Obj::GetBiosStartingAddressSegmentText() const {
  return {"BIOS Starting Address Segment : ", Hex(BiosStartingAddressSegment, 4), "h"};
}

ItemText SMType0Obj::GetBiosRomSizeText() const {
  return {"BIOS Rom Size : ", Decimal(GetRomSize()), " K"};
}

std::string SMType0Obj::GetBiosCharacteristicsText() const {
  std::string text;
  Append(text, {"BIOS Characteristics : ", Hex(BiosCharacteristics[0], 8), "h ",
                Hex(BiosCharacteristics[1], 8), "h", LineEnd});
  const auto appendFeatures = [&](std::span<const FeatureBit> features, std::uint32_t bits) {
    for (const FeatureBit& feature : features) {
      Append(text, {"\t\t", feature.Label, IsSet(bits, feature.Bit) ? "Yes" : "No", LineEnd});
    }
  };
  appendFeatures(kBiosCharacteristics, BiosCharacteristics[0]);
  const auto count = std::min<std::size_t>(ExtensionByteCount, ExtensionBytes.size());
  if (count > 0) {
    appendFeatures(kExtensionByte1, ExtensionBytes[0]);
  }
  if (count > 1) {
    appendFeatures(kExtensionByte2, ExtensionBytes[1]);
  }
  return text;
}

std::string SMType0Obj::ToString() const {
  TextBlock block("BIOS Information (Type 0)");
  block.Item(GetVendorText());
  block.Item(GetVersionText());
  block.Item(GetBiosStartingAddressSegmentText());
  block.Item(GetReleaseDateText());
  block.Item(GetBiosRomSizeText());
  // Ends with a line end of its own, so the item's makes the closing empty line.
  block.Item(GetBiosCharacteristicsText());
  return block.CloseWithoutEmptyLine();
}

std::string SMType0Obj::GetMifTableRow(int& /*rowIndex*/) const {
  const std::string_view date = GetString(BiosReleaseDate);
  // A date string cannot be empty: the string set would have ended there.
  const std::string mifDate = date.empty() ? std::string(kMissingMifDate) : MifDate(date);
  return MifRow({0U, GetString(Vendor), GetString(BiosVersion), GetRomSize(),
                 BiosStartingAddressSegment, 0U, kEmptyMifString, std::string_view(mifDate), 1U});
}

std::string SMType0Obj::GetMifCharacteristicRows() const {
  std::string rows;
  int index = 0;
  for (const CharacteristicRow& row : kCharacteristicRows) {
    if (IsSet(BiosCharacteristics[0], row.Bit)) {
      rows.append(MifRow({index++, 0U, row.Value, kEmptyMifString}));
    }
  }
  return rows;
}

}  // namespace kestrel
