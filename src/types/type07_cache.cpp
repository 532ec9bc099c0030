#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// By the operational mode: the text, and the write policy of the MIF table.
struct OperationalMode {
  std::string_view Text;
  std::uint8_t WritePolicy;
};

constexpr OperationalMode kOperationalModes[] = {
    {"Write Through", 4},
    {"Write Back", 3},
    {"Varies with Memory Address", 1},
    {"Unknown", 2},
};

constexpr std::string_view kCacheLocations[] = {"Internal", "External", "Reserved", "Unknown"};

// Each starts with its own blank, since the label ends without one.
constexpr std::string_view kSramTypes[] = {
    " Other",          " Unknown",     " Non-Burst",    " Burst",
    " Pipeline Burst", " Synchronous", " Asynchronous",
};

constexpr CodeText kErrorCorrectionTypes[] = {
    {1, "Other"},  {2, "Unknown"},        {3, "None"},
    {4, "Parity"}, {5, "Single-bit ECC"}, {6, "Multi-bit ECC"},
};

constexpr CodeText kSystemCacheTypes[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "Instruction"}, {4, "Data"}, {5, "Unified"},
};

constexpr CodeText kAssociativities[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Direct Mapped"},
    {4, "2-way Set-Associative"},
    {5, "4-way Set-Associative"},
    {6, "Fully Associative"},
    {7, "8-way Set-Associative"},
    {8, "16-way Set-Associative"},
};

std::uint32_t GranularityOf(std::uint16_t size) { return (size & 0x8000U) != 0 ? 64 : 1; }

std::uint32_t KilobytesOf(std::uint16_t size) { return (size & 0x7FFFU) * GranularityOf(size); }

// Cache Information: one cache of a processor or of the system. Layout: DMTF DSP0134, "Cache
// Information (Type 7) structure".
class SMType7Obj final : public SMObj {
 public:
  SMType7Obj() {
    SetType(7);
    SetStringCount(1);
  }

  void SetSocketDesignation(std::uint8_t value) { SocketDesignation = value; }
  void SetCacheConfiguration(std::uint16_t value) { CacheConfiguration = value; }
  void SetMaximumCacheSize(std::uint16_t value) { MaximumCacheSize = value; }
  void SetInstalledSize(std::uint16_t value) { InstalledSize = value; }
  void SetSupportedSramType(std::uint16_t value) { SupportedSramType = value; }
  void SetCurrentSramType(std::uint16_t value) { CurrentSramType = value; }
  void SetCacheSpeed(std::uint8_t value) { CacheSpeed = value; }
  void SetErrorCorrectionType(std::uint8_t value) { ErrorCorrectionType = value; }
  void SetSystemCacheType(std::uint8_t value) { SystemCacheType = value; }
  void SetAssociativity(std::uint8_t value) { Associativity = value; }

  ItemText GetSocketDesignationText() const {
    return {"Socket Designation : ", GetString(SocketDesignation)};
  }
  ItemText GetOperationalModeText() const {
    return {"Operational Mode : ", GetOperationalMode().Text};
  }
  ItemText GetCacheMemoryText() const {
    return {"Cache Memory : ", (CacheConfiguration & 0x80U) != 0 ? "Enabled" : "Disabled"};
  }
  ItemText GetLocationText() const {
    return {"Location, relative to the CPU module : ",
            kCacheLocations[CacheConfiguration >> 5 & 3U]};
  }
  ItemText GetCacheSocketedText() const {
    return {"Cache Socketed : ", (CacheConfiguration & 8U) != 0 ? "Socketed" : "Not Socketed"};
  }
  ItemText GetCacheLevelText() const { return {"Cache Level : ", Decimal(GetStoredLevel() + 1)}; }
  ItemText GetMaximumGranularityText() const {
    return {"Maximum Granularity : ", Decimal(GranularityOf(MaximumCacheSize)), " K"};
  }
  ItemText GetMaximumCacheSizeText() const {
    return {"Maximum Cache Size : ", Decimal(KilobytesOf(MaximumCacheSize)), " KB"};
  }
  ItemText GetInstalledGranularityText() const {
    return {"Installed Granularity : ", Decimal(GranularityOf(InstalledSize)), " K"};
  }
  ItemText GetInstalledSizeText() const {
    return {"Installed Size : ", Decimal(KilobytesOf(InstalledSize)), " KB"};
  }
  ItemText GetSupportedSramTypeText() const {
    return {"Supported SRAM Type :", TextOfBits(kSramTypes, SupportedSramType, "")};
  }
  ItemText GetCurrentSramTypeText() const {
    return {"Current SRAM Type :", TextOfBits(kSramTypes, CurrentSramType, "")};
  }
  ItemText GetCacheSpeedText() const;
  ItemText GetErrorCorrectionTypeText() const {
    return {"Error Correction Type : ",
            TextOfCode(kErrorCorrectionTypes, ErrorCorrectionType, kNothing)};
  }
  ItemText GetSystemCacheTypeText() const {
    return {"System Cache Type : ", TextOfCode(kSystemCacheTypes, SystemCacheType, kNothing)};
  }
  ItemText GetAssociativityText() const {
    return {"Associativity : ", TextOfCode(kAssociativities, Associativity, kNothing)};
  }

  std::string ToString() const override;
  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  const OperationalMode& GetOperationalMode() const {
    return kOperationalModes[CacheConfiguration >> 8 & 3U];
  }
  // 0 for a cache of level 1.
  std::uint32_t GetStoredLevel() const { return CacheConfiguration & 7U; }

  std::uint8_t Associativity = 0;
  std::uint8_t SystemCacheType = 0;
  std::uint8_t ErrorCorrectionType = 0;
  std::uint8_t CacheSpeed = 0;
  std::uint16_t CurrentSramType = 0;
  std::uint16_t SupportedSramType = 0;
  // The two sizes count units of 64 K when bit 15 is set, else of 1 K.
  std::uint16_t InstalledSize = 0;
  std::uint16_t MaximumCacheSize = 0;
  std::uint16_t CacheConfiguration = 0;
  std::uint8_t SocketDesignation = 0;
};

ItemText SMType7Obj::GetCacheSpeedText() const {
  if (CacheSpeed == 0) {
    return {"Cache Speed : ", kUnknown};
  }
  return {"Cache Speed : ", Decimal(CacheSpeed), " ns"};
}

std::string SMType7Obj::ToString() const {
  TextBlock block("Cache Information (Type 7)");
  block.Item(GetSocketDesignationText());
  block.Item(GetOperationalModeText());
  block.Item(GetCacheMemoryText());
  block.Item(GetLocationText());
  block.Item(GetCacheSocketedText());
  block.Item(GetCacheLevelText());
  block.Item(GetMaximumGranularityText());
  block.Item(GetMaximumCacheSizeText());
  block.Item(GetInstalledGranularityText());
  block.Item(GetInstalledSizeText());
  block.Item(GetSupportedSramTypeText());
  block.Item(GetCurrentSramTypeText());
  block.Item(GetCacheSpeedText());
  block.Item(GetErrorCorrectionTypeText());
  block.Item(GetSystemCacheTypeText());
  block.Item(GetAssociativityText());
  return block.Close();
}

std::string SMType7Obj::GetMifTableRow(int& rowIndex) const {
  // The table counts levels from 3, its code of a primary cache.
  return MifRow({rowIndex++, GetStoredLevel() + 3U, CacheSpeed, KilobytesOf(InstalledSize),
                 GetOperationalMode().WritePolicy, ErrorCorrectionType, 0U, 0U, SystemCacheType});
}

}  // namespace

void SMBiosReader::ReadType7(TableCursor& cursor) {
  ReadStructure<SMType7Obj>(cursor, [&](auto& object) {
    object.SetSocketDesignation(cursor.U8());
    object.SetCacheConfiguration(cursor.U16());
    object.SetMaximumCacheSize(cursor.U16());
    object.SetInstalledSize(cursor.U16());
    object.SetSupportedSramType(cursor.U16());
    object.SetCurrentSramType(cursor.U16());
    object.SetCacheSpeed(cursor.U8());
    object.SetErrorCorrectionType(cursor.U8());
    object.SetSystemCacheType(cursor.U8());
    object.SetAssociativity(cursor.U8());
  });
}

}  // namespace kestrel
