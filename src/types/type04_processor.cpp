#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/mif_row.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kProcessorTypes[] = {
    {1, "Other"},          {2, "Unknown"},       {3, "Central Processor"},
    {4, "Math Processor"}, {5, "DSP Processor"}, {6, "Video Processor"},
};

// In the code page of all texts, Windows-1252: 99h is the trade mark sign, AEh the registered one.
constexpr CodeText kProcessorFamilies[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "8086"},
    {0x04, "80286"},
    {0x05, "Intel386 processor"},
    {0x06, "Intel486 processor"},
    {0x07, "8087"},
    {0x08, "80287"},
    {0x09, "80387"},
    {0x0A, "80487"},
    {0x0B, "Pentium processor Family"},
    {0x0C, "Pentium Pro processor"},
    {0x0D, "Pentium II processor"},
    {0x0E, "Pentium processor with MMX\x99 technology"},
    {0x0F, "Celeron processor"},
    {0x10, "PentiumII Xeon processor"},  // No blank.
    {0x11, "Reserved for specific Pentium\xAE processor versions"},
    {0x12, "M1 Family"},
    {0x13, "M2 Family"},
    {0x14, kNothing},  // Not "Unknown", here and at 28h.
    {0x15, kNothing},
    {0x16, kNothing},
    {0x17, kNothing},
    {0x18, "Reserved for specific M1 versions"},
    {0x19, "K5 Family"},
    {0x1A, "K6 Family"},
    {0x1B, "K6-2"},
    {0x1C, "K6-3"},
    {0x1D, "AMD Athlon. Processor Family"},  // Full stop.
    {0x1E, "AMD2900 Family"},
    {0x1F, "K6-2+"},
    {0x20, "Power PC Family"},
    {0x21, "Power PC 601"},
    {0x22, "Power PC 603"},
    {0x23, "Power PC 603+"},
    {0x24, "Power PC 604"},
    {0x25, "Power PC 620"},
    {0x26, "Power PC x704"},
    {0x27, "Power PC 750"},
    {0x28, kNothing},
    {0x29, kNothing},
    {0x2A, kNothing},
    {0x2B, kNothing},
    {0x2C, kNothing},
    {0x2D, kNothing},
    {0x2E, kNothing},
    {0x2F, kNothing},
    {0x30, "Alpha Family3"},  // The digit.
    {0x31, "Alpha 21064"},
    {0x32, "Alpha 21066"},
    {0x33, "Alpha 21164"},
    {0x34, "Alpha 21164PC"},
    {0x35, "Alpha 21164a"},
    {0x36, "Alpha 21264"},
    {0x37, "Alpha 21364"},
    {0x40, "MIPS Family"},
    {0x41, "MIPS R4000"},
    {0x42, "MIPS R4200"},
    {0x43, "MIPS R4400"},
    {0x44, "MIPS R4600"},
    {0x45, "MIPS R10000"},
    {0x50, "SPARC Family"},
    {0x51, "SuperSPARC"},
    {0x52, "microSPARC II"},
    {0x53, "microSPARC IIep"},
    {0x54, "UltraSPARC"},
    {0x55, "UltraSPARC II"},
    {0x56, "UltraSPARC IIi"},
    {0x57, "UltraSPARC III"},
    {0x58, "UltraSPARC IIIi"},
    {0x60, "68040 Family"},
    {0x61, "68xxx"},
    {0x62, "68000"},
    {0x63, "68010"},
    {0x64, "68020"},
    {0x65, "68030"},
    {0x70, "Hobbit Family"},
    {0x78, "Crusoe. TM5000 Family"},  // Full stops.
    {0x79, "Crusoe. TM3000 Family"},
    {0x80, "Weitek"},
    {0x82, "Itanium processor"},
    {0x90, "PA-RISC Family"},
    {0x91, "PA-RISC 8500"},
    {0x92, "PA-RISC 8000"},
    {0x93, "PA-RISC 7300LC"},
    {0x94, "PA-RISC 7200"},
    {0x95, "PA-RISC 7100LC"},
    {0x96, "PA-RISC 7100"},
    {0xA0, "V30 Family"},
    {0xB0, "PentiumIII Xeon processor"},  // No blanks up to B2h.
    {0xB1, "PentiumIII Processor with Intel SpeedStep Technology"},
    {0xB2, "Pentium4 Processor"},
    {0xB3, "Intel Xeon"},
    {0xB4, "AS400 Family"},
    {0xC8, "IBM390 Family"},
    {0xC9, "G4"},
    {0xCA, "G5"},
    {0xFA, "i860"},
    {0xFB, "i960"},
};

constexpr CodeText kCpuStatuses[] = {
    {0, "Unknown"},
    {1, "CPU Enabled"},
    {2, "CPU Disabled by User via BIOS Setup"},
    {3, "CPU Disabled By BIOS (POST Error)"},
    {4, "CPU is Idle"},
};

constexpr CodeText kProcessorUpgrades[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Daughter Board"},
    {4, "ZIF Socket"},
    {5, "Replaceable Piggy Back"},
    {6, "None"},
    {7, "LIF Socket"},
    {8, "Slot 1"},
    {9, "Slot 2"},
};

constexpr std::uint8_t kSocketPopulated = 0x40;
constexpr std::uint16_t kNoCache = 0xFFFF;

// Zero when the byte names no voltage.
unsigned TenthsOfVolts(std::uint8_t voltage) {
  if ((voltage & 0x80U) != 0) {
    return voltage & 0x7FU;
  }
  // The older form lists what the socket can be set to; the first one stands for all.
  constexpr unsigned kTenthsOfBits[] = {50, 33, 29};
  unsigned bits = voltage;
  for (const unsigned tenths : kTenthsOfBits) {
    if ((bits & 1U) != 0) {
      return tenths;
    }
    bits >>= 1;
  }
  return 0;
}

ItemText CacheHandleText(std::string_view level, std::uint16_t handle) {
  if (handle == kNoCache) {
    return {level, " Cache Handle : Processor has no ", level, " cache"};
  }
  return {level, " Cache Handle : ", Hex(handle, 4), "h"};
}

// Processor Information: one processor socket, and the processor in it. Layout: DMTF DSP0134,
// "Processor Information (Type 4) structure".
class SMType4Obj final : public SMObj {
 public:
  SMType4Obj() {
    SetType(4);
    SetStringCount(3);
  }

  void SetSocketDesignation(std::uint8_t value) { SocketDesignation = value; }
  void SetProcessorType(std::uint8_t value) { ProcessorType = value; }
  void SetProcessorFamily(std::uint8_t value) { ProcessorFamily = value; }
  void SetProcessorManufacturer(std::uint8_t value) { ProcessorManufacturer = value; }
  void SetProcessorId(const std::array<std::uint8_t, 8>& bytes) {
    TableCursor cursor(bytes);
    ProcessorId = {cursor.U32(), cursor.U32()};
  }
  void SetProcessorVersion(std::uint8_t value) { ProcessorVersion = value; }
  void SetVoltage(std::uint8_t value) { Voltage = value; }
  void SetExternalClock(std::uint16_t value) { ExternalClock = value; }
  void SetMaxSpeed(std::uint16_t value) { MaxSpeed = value; }
  void SetCurrentSpeed(std::uint16_t value) { CurrentSpeed = value; }
  void SetStatus(std::uint8_t value) { Status = value; }
  void SetProcessorUpgrade(std::uint8_t value) { ProcessorUpgrade = value; }
  void SetL1CacheHandle(std::uint16_t value) { L1CacheHandle = value; }
  void SetL2CacheHandle(std::uint16_t value) { L2CacheHandle = value; }
  void SetL3CacheHandle(std::uint16_t value) { L3CacheHandle = value; }
  void SetSerialNumber(std::uint8_t value) { SerialNumber = value; }
  void SetAssetTag(std::uint8_t value) { AssetTag = value; }
  void SetPartNumber(std::uint8_t value) { PartNumber = value; }

  ItemText GetSocketDesignationText() const {
    return {"Socket Designation : ", GetString(SocketDesignation)};
  }
  ItemText GetProcessorTypeText() const {
    return {"Processor Type : ", TextOfCode(kProcessorTypes, ProcessorType, kUnknown)};
  }
  ItemText GetProcessorFamilyText() const {
    return {"Processor Family : ", TextOfCode(kProcessorFamilies, ProcessorFamily, kUnknown)};
  }
  ItemText GetProcessorManufacturerText() const {
    return {"Processor Manufacturer : ", GetString(ProcessorManufacturer)};
  }
  ItemText GetProcessorIdText() const {
    return {"Processor ID : ", Hex(ProcessorId[1], 8), "h ", Hex(ProcessorId[0], 8), "h"};
  }
  ItemText GetProcessorVersionText() const {
    return {"Processor Version : ", GetString(ProcessorVersion)};
  }
  ItemText GetVoltageText() const;
  ItemText GetExternalClockText() const {
    return {"External Clock : ", Decimal(ExternalClock), " MHz"};
  }
  ItemText GetMaxSpeedText() const { return {"Max Speed : ", Decimal(MaxSpeed), " MHz"}; }
  ItemText GetCurrentSpeedText() const {
    return {"Current Speed : ", Decimal(CurrentSpeed), " MHz"};
  }
  ItemText GetStatusText() const {
    // No blank after the comma.
    return {"Status : CPU Socket ",
            (Status & kSocketPopulated) != 0 ? "Populated," : "Unpopulated,",
            TextOfCode(kCpuStatuses, GetCpuStatus(), kUnknown)};
  }
  ItemText GetProcessorUpgradeText() const {
    return {"Processor Upgrade : ", TextOfCode(kProcessorUpgrades, ProcessorUpgrade, kUnknown)};
  }
  ItemText GetL1CacheHandleText() const { return CacheHandleText("L1", L1CacheHandle); }
  ItemText GetL2CacheHandleText() const { return CacheHandleText("L2", L2CacheHandle); }
  ItemText GetL3CacheHandleText() const { return CacheHandleText("L3", L3CacheHandle); }

  std::string ToString() const override;
  std::string GetMifTableRow(int& rowIndex) const override;

 private:
  unsigned GetCpuStatus() const { return Status & 7U; }

  // These three are not shown.
  std::uint8_t PartNumber = 0xFF;
  std::uint8_t AssetTag = 0xFF;
  std::uint8_t SerialNumber = 0xFF;
  std::uint16_t L3CacheHandle = 0;
  std::uint16_t L2CacheHandle = 0;
  std::uint16_t L1CacheHandle = 0;
  std::uint8_t ProcessorUpgrade = 0;
  std::uint8_t Status = 0;
  std::uint16_t CurrentSpeed = 0;
  std::uint16_t MaxSpeed = 0;
  std::uint16_t ExternalClock = 0;
  std::uint8_t Voltage = 0;
  std::uint8_t ProcessorVersion = 0;
  // The low word, then the high one.
  std::array<std::uint32_t, 2> ProcessorId{};
  std::uint8_t ProcessorManufacturer = 0;
  std::uint8_t ProcessorFamily = 0;
  std::uint8_t ProcessorType = 0;
  std::uint8_t SocketDesignation = 0;
};

ItemText SMType4Obj::GetVoltageText() const {
  const unsigned tenths = TenthsOfVolts(Voltage);
  if (tenths == 0) {
    return {"Voltage : ", kUnknown};
  }
  return {"Voltage : ", Decimal(tenths / 10), ".", Decimal(tenths % 10), " V"};
}

std::string SMType4Obj::ToString() const {
  TextBlock block("Processor Information (Type 4)");
  block.Item(GetSocketDesignationText());
  block.Item(GetProcessorTypeText());
  block.Item(GetProcessorFamilyText());
  block.Item(GetProcessorManufacturerText());
  block.Item(GetProcessorIdText());
  block.Item(GetProcessorVersionText());
  block.Item(GetVoltageText());
  block.Item(GetExternalClockText());
  block.Item(GetMaxSpeedText());
  block.Item(GetCurrentSpeedText());
  block.Item(GetStatusText());
  block.Item(GetProcessorUpgradeText());
  block.Item(GetL1CacheHandleText());
  block.Item(GetL2CacheHandleText());
  block.Item(GetL3CacheHandleText());
  return block.Close();
}

std::string SMType4Obj::GetMifTableRow(int& /*rowIndex*/) const {
  // The index is 1 and the cache indexes are 1, 2 and 0 in the row of every processor.
  return MifRow({1U, ProcessorType, ProcessorFamily, GetString(ProcessorVersion), MaxSpeed,
                 CurrentSpeed, ProcessorUpgrade, 0U, 0U, 1U, 2U, 0U, GetCpuStatus()});
}

}  // namespace

void SMBiosReader::ReadType4(TableCursor& cursor) {
  ReadStructure<SMType4Obj>(cursor, [&](auto& object) {
    object.SetSocketDesignation(cursor.U8());
    object.SetProcessorType(cursor.U8());
    object.SetProcessorFamily(cursor.U8());
    object.SetProcessorManufacturer(cursor.U8());
    std::array<std::uint8_t, 8> processorId{};
    cursor.Bytes(processorId);
    object.SetProcessorId(processorId);
    object.SetProcessorVersion(cursor.U8());
    object.SetVoltage(cursor.U8());
    object.SetExternalClock(cursor.U16());
    object.SetMaxSpeed(cursor.U16());
    object.SetCurrentSpeed(cursor.U16());
    object.SetStatus(cursor.U8());
    object.SetProcessorUpgrade(cursor.U8());
    object.SetL1CacheHandle(cursor.U16());
    object.SetL2CacheHandle(cursor.U16());
    object.SetL3CacheHandle(cursor.U16());
    if (GetSpecVersion() >= kSmbios23) {
      object.SetStringCount(6);
      object.SetSerialNumber(cursor.U8());
      object.SetAssetTag(cursor.U8());
      object.SetPartNumber(cursor.U8());
    }
  });
}

}  // namespace kestrel
