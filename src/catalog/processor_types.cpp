// Processors and their caches.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

constexpr std::uint8_t kProcessors[] = {4};
constexpr std::uint8_t kCaches[] = {7};

// Processor Information (Type 4)

constexpr Code kProcessorTypeCodes[] = {
    {0x01, "Other"},          {0x02, "Unknown"},       {0x03, "Central Processor"},
    {0x04, "Math Processor"}, {0x05, "DSP Processor"}, {0x06, "Video Processor"},
};

constexpr Code kProcessorFamilies[] = {
    {0x001, "Other"},
    {0x002, "Unknown"},
    {0x003, "8086"},
    {0x004, "80286"},
    {0x005, "Intel386 processor"},
    {0x006, "Intel486 processor"},
    {0x007, "8087"},
    {0x008, "80287"},
    {0x009, "80387"},
    {0x00A, "80487"},
    {0x00B, "Intel Pentium processor"},
    {0x00C, "Pentium Pro processor"},
    {0x00D, "Pentium II processor"},
    {0x00E, "Pentium processor with MMX technology"},
    {0x00F, "Intel Celeron processor"},
    {0x010, "Pentium II Xeon processor"},
    {0x011, "Pentium III processor"},
    {0x012, "M1 Family"},
    {0x013, "M2 Family"},
    {0x014, "Intel Celeron M processor"},
    {0x015, "Intel Pentium 4 HT processor"},
    {0x016, "Intel Processor"},
    {0x018, "AMD Duron Processor Family"},
    {0x019, "K5 Family"},
    {0x01A, "K6 Family"},
    {0x01B, "K6-2"},
    {0x01C, "K6-3"},
    {0x01D, "AMD Athlon Processor Family"},
    {0x01E, "AMD29000 Family"},
    {0x01F, "K6-2+"},
    {0x020, "Power PC Family"},
    {0x021, "Power PC 601"},
    {0x022, "Power PC 603"},
    {0x023, "Power PC 603+"},
    {0x024, "Power PC 604"},
    {0x025, "Power PC 620"},
    {0x026, "Power PC x704"},
    {0x027, "Power PC 750"},
    {0x028, "Intel Core Duo processor"},
    {0x029, "Intel Core Duo mobile processor"},
    {0x02A, "Intel Core Solo mobile processor"},
    {0x02B, "Intel Atom processor"},
    {0x02C, "Intel Core M processor"},
    {0x02D, "Intel Core m3 processor"},
    {0x02E, "Intel Core m5 processor"},
    {0x02F, "Intel Core m7 processor"},
    {0x030, "Alpha Family"},
    {0x031, "Alpha 21064"},
    {0x032, "Alpha 21066"},
    {0x033, "Alpha 21164"},
    {0x034, "Alpha 21164PC"},
    {0x035, "Alpha 21164a"},
    {0x036, "Alpha 21264"},
    {0x037, "Alpha 21364"},
    {0x038, "AMD Turion II Ultra Dual-Core Mobile M Processor Family"},
    {0x039, "AMD Turion II Dual-Core Mobile M Processor Family"},
    {0x03A, "AMD Athlon II Dual-Core M Processor Family"},
    {0x03B, "AMD Opteron 6100 Series Processor"},
    {0x03C, "AMD Opteron 4100 Series Processor"},
    {0x03D, "AMD Opteron 6200 Series Processor"},
    {0x03E, "AMD Opteron 4200 Series Processor"},
    {0x03F, "AMD FX Series Processor"},
    {0x040, "MIPS Family"},
    {0x041, "MIPS R4000"},
    {0x042, "MIPS R4200"},
    {0x043, "MIPS R4400"},
    {0x044, "MIPS R4600"},
    {0x045, "MIPS R10000"},
    {0x046, "AMD C-Series Processor"},
    {0x047, "AMD E-Series Processor"},
    {0x048, "AMD A-Series Processor"},
    {0x049, "AMD G-Series Processor"},
    {0x04A, "AMD Z-Series Processor"},
    {0x04B, "AMD R-Series Processor"},
    {0x04C, "AMD Opteron 4300 Series Processor"},
    {0x04D, "AMD Opteron 6300 Series Processor"},
    {0x04E, "AMD Opteron 3300 Series Processor"},
    {0x04F, "AMD FirePro Series Processor"},
    {0x050, "SPARC Family"},
    {0x051, "SuperSPARC"},
    {0x052, "microSPARC II"},
    {0x053, "microSPARC IIep"},
    {0x054, "UltraSPARC"},
    {0x055, "UltraSPARC II"},
    {0x056, "UltraSPARC Iii"},
    {0x057, "UltraSPARC III"},
    {0x058, "UltraSPARC IIIi"},
    {0x060, "68040 Family"},
    {0x061, "68xxx"},
    {0x062, "68000"},
    {0x063, "68010"},
    {0x064, "68020"},
    {0x065, "68030"},
    {0x066, "AMD Athlon X4 Quad-Core Processor Family"},
    {0x067, "AMD Opteron X1000 Series Processor"},
    {0x068, "AMD Opteron X2000 Series APU"},
    {0x069, "AMD Opteron A-Series Processor"},
    {0x06A, "AMD Opteron X3000 Series APU"},
    {0x06B, "AMD Zen Processor Family"},
    {0x070, "Hobbit Family"},
    {0x078, "Crusoe TM5000 Family"},
    {0x079, "Crusoe TM3000 Family"},
    {0x07A, "Efficeon TM8000 Family"},
    {0x080, "Weitek"},
    {0x082, "Itanium processor"},
    {0x083, "AMD Athlon 64 Processor Family"},
    {0x084, "AMD Opteron Processor Family"},
    {0x085, "AMD Sempron Processor Family"},
    {0x086, "AMD Turion 64 Mobile Technology"},
    {0x087, "Dual-Core AMD Opteron Processor Family"},
    {0x088, "AMD Athlon 64 X2 Dual-Core Processor Family"},
    {0x089, "AMD Turion 64 X2 Mobile Technology"},
    {0x08A, "Quad-Core AMD Opteron Processor Family"},
    {0x08B, "Third-Generation AMD Opteron Processor Family"},
    {0x08C, "AMD Phenom FX Quad-Core Processor Family"},
    {0x08D, "AMD Phenom X4 Quad-Core Processor Family"},
    {0x08E, "AMD Phenom X2 Dual-Core Processor Family"},
    {0x08F, "AMD Athlon X2 Dual-Core Processor Family"},
    {0x090, "PA-RISC Family"},
    {0x091, "PA-RISC 8500"},
    {0x092, "PA-RISC 8000"},
    {0x093, "PA-RISC 7300LC"},
    {0x094, "PA-RISC 7200"},
    {0x095, "PA-RISC 7100LC"},
    {0x096, "PA-RISC 7100"},
    {0x0A0, "V30 Family"},
    {0x0A1, "Quad-Core Intel Xeon processor 3200 Series"},
    {0x0A2, "Dual-Core Intel Xeon processor 3000 Series"},
    {0x0A3, "Quad-Core Intel Xeon processor 5300 Series"},
    {0x0A4, "Dual-Core Intel Xeon processor 5100 Series"},
    {0x0A5, "Dual-Core Intel Xeon processor 5000 Series"},
    {0x0A6, "Dual-Core Intel Xeon processor LV"},
    {0x0A7, "Dual-Core Intel Xeon processor ULV"},
    {0x0A8, "Dual-Core Intel Xeon processor 7100 Series"},
    {0x0A9, "Quad-Core Intel Xeon processor 5400 Series"},
    {0x0AA, "Quad-Core Intel Xeon processor"},
    {0x0AB, "Dual-Core Intel Xeon processor 5200 Series"},
    {0x0AC, "Dual-Core Intel Xeon processor 7200 Series"},
    {0x0AD, "Quad-Core Intel Xeon processor 7300 Series"},
    {0x0AE, "Quad-Core Intel Xeon processor 7400 Series"},
    {0x0AF, "Multi-Core Intel Xeon processor 7400 Series"},
    {0x0B0, "Pentium III Xeon processor"},
    {0x0B1, "Pentium III Processor with Intel SpeedStep Technology"},
    {0x0B2, "Pentium 4 Processor"},
    {0x0B3, "Intel Xeon processor"},
    {0x0B4, "AS400 Family"},
    {0x0B5, "Intel Xeon processor MP"},
    {0x0B6, "AMD Athlon XP Processor Family"},
    {0x0B7, "AMD Athlon MP Processor Family"},
    {0x0B8, "Intel Itanium 2 processor"},
    {0x0B9, "Intel Pentium M processor"},
    {0x0BA, "Intel Celeron D processor"},
    {0x0BB, "Intel Pentium D processor"},
    {0x0BC, "Intel Pentium Processor Extreme Edition"},
    {0x0BD, "Intel Core Solo Processor"},
    {0x0BE, "Reserved"},
    {0x0BF, "Intel Core 2 Duo Processor"},
    {0x0C0, "Intel Core 2 Solo processor"},
    {0x0C1, "Intel Core 2 Extreme processor"},
    {0x0C2, "Intel Core 2 Quad processor"},
    {0x0C3, "Intel Core 2 Extreme mobile processor"},
    {0x0C4, "Intel Core 2 Duo mobile processor"},
    {0x0C5, "Intel Core 2 Solo mobile processor"},
    {0x0C6, "Intel Core i7 processor"},
    {0x0C7, "Dual-Core Intel Celeron processor"},
    {0x0C8, "IBM390 Family"},
    {0x0C9, "G4"},
    {0x0CA, "G5"},
    {0x0CB, "ESA/390 G6"},
    {0x0CC, "z/Architecture base"},
    {0x0CD, "Intel Core i5 processor"},
    {0x0CE, "Intel Core i3 processor"},
    {0x0CF, "Intel Core i9 processor"},
    {0x0D0, "Intel Xeon D processor"},
    {0x0D2, "VIA C7-M Processor Family"},
    {0x0D3, "VIA C7-D Processor Family"},
    {0x0D4, "VIA C7 Processor Family"},
    {0x0D5, "VIA Eden Processor Family"},
    {0x0D6, "Multi-Core Intel Xeon processor"},
    {0x0D7, "Dual-Core Intel Xeon processor 3xxx Series"},
    {0x0D8, "Quad-Core Intel Xeon processor 3xxx Series"},
    {0x0D9, "VIA Nano Processor Family"},
    {0x0DA, "Dual-Core Intel Xeon processor 5xxx Series"},
    {0x0DB, "Quad-Core Intel Xeon processor 5xxx Series"},
    {0x0DD, "Dual-Core Intel Xeon processor 7xxx Series"},
    {0x0DE, "Quad-Core Intel Xeon processor 7xxx Series"},
    {0x0DF, "Multi-Core Intel Xeon processor 7xxx Series"},
    {0x0E0, "Multi-Core Intel Xeon processor 3400 Series"},
    {0x0E4, "AMD Opteron 3000 Series Processor"},
    {0x0E5, "AMD Sempron II Processor"},
    {0x0E6, "Embedded AMD Opteron Quad-Core Processor Family"},
    {0x0E7, "AMD Phenom Triple-Core Processor Family"},
    {0x0E8, "AMD Turion Ultra Dual-Core Mobile Processor Family"},
    {0x0E9, "AMD Turion Dual-Core Mobile Processor Family"},
    {0x0EA, "AMD Athlon Dual-Core Processor Family"},
    {0x0EB, "AMD Sempron SI Processor Family"},
    {0x0EC, "AMD Phenom II Processor Family"},
    {0x0ED, "AMD Athlon II Processor Family"},
    {0x0EE, "Six-Core AMD Opteron Processor Family"},
    {0x0EF, "AMD Sempron M Processor Family"},
    {0x0FA, "i860"},
    {0x0FB, "i960"},
    {0x0FE, "Indicator to obtain the processor family from the Processor Family 2 field"},
    {0x0FF, "Reserved"},
    {0x100, "ARMv7"},
    {0x101, "ARMv8"},
    {0x102, "ARMv9"},
    {0x103, "Reserved"},
    {0x104, "SH-3"},
    {0x105, "SH-4"},
    {0x118, "ARM"},
    {0x119, "StrongARM"},
    {0x12C, "6x86"},
    {0x12D, "MediaGX"},
    {0x12E, "MII"},
    {0x140, "WinChip"},
    {0x15E, "DSP"},
    {0x1F4, "Video Processor"},
    {0x200, "RISC-V RV32"},
    {0x201, "RISC-V RV64"},
    {0x202, "RISC-V RV128"},
    {0x258, "LoongArch"},
    {0x259, "Loongson 1 Processor Family"},
    {0x25A, "Loongson 2 Processor Family"},
    {0x25B, "Loongson 3 Processor Family"},
    {0x25C, "Loongson 2K Processor Family"},
    {0x25D, "Loongson 3A Processor Family"},
    {0x25E, "Loongson 3B Processor Family"},
    {0x25F, "Loongson 3C Processor Family"},
    {0x260, "Loongson 3D Processor Family"},
    {0x261, "Loongson 3E Processor Family"},
    {0x262, "Dual-Core Loongson 2K Processor 2xxx Series"},
    {0x26C, "Quad-Core Loongson 3A Processor 5xxx Series"},
    {0x26D, "Multi-Core Loongson 3A Processor 5xxx Series"},
    {0x26E, "Quad-Core Loongson 3B Processor 5xxx Series"},
    {0x26F, "Multi-Core Loongson 3B Processor 5xxx Series"},
    {0x270, "Multi-Core Loongson 3C Processor 5xxx Series"},
    {0x271, "Multi-Core Loongson 3D Processor 5xxx Series"},
    {0x300, "Intel Core 3"},
    {0x301, "Intel Core 5"},
    {0x302, "Intel Core 7"},
    {0x303, "Intel Core 9"},
    {0x304, "Intel Core Ultra 3"},
    {0x305, "Intel Core Ultra 5"},
    {0x306, "Intel Core Ultra 7"},
    {0x307, "Intel Core Ultra 9"},
};

constexpr Code kProcessorUpgrades[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Daughter Board"},
    {0x04, "ZIF Socket"},
    {0x05, "Replaceable Piggy Back"},
    {0x06, "None"},
    {0x07, "LIF Socket"},
    {0x08, "Slot 1"},
    {0x09, "Slot 2"},
    {0x0A, "370-pin socket"},
    {0x0B, "Slot A"},
    {0x0C, "Slot M"},
    {0x0D, "Socket 423"},
    {0x0E, "Socket A (Socket 462)"},
    {0x0F, "Socket 478"},
    {0x10, "Socket 754"},
    {0x11, "Socket 940"},
    {0x12, "Socket 939"},
    {0x13, "Socket mPGA604"},
    {0x14, "Socket LGA771"},
    {0x15, "Socket LGA775"},
    {0x16, "Socket S1"},
    {0x17, "Socket AM2"},
    {0x18, "Socket F (1207)"},
    {0x19, "Socket LGA1366"},
    {0x1A, "Socket G34"},
    {0x1B, "Socket AM3"},
    {0x1C, "Socket C32"},
    {0x1D, "Socket LGA1156"},
    {0x1E, "Socket LGA1567"},
    {0x1F, "Socket PGA988A"},
    {0x20, "Socket BGA1288"},
    {0x21, "Socket rPGA988B"},
    {0x22, "Socket BGA1023"},
    {0x23, "Socket BGA1224"},
    {0x24, "Socket LGA1155"},
    {0x25, "Socket LGA1356"},
    {0x26, "Socket LGA2011"},
    {0x27, "Socket FS1"},
    {0x28, "Socket FS2"},
    {0x29, "Socket FM1"},
    {0x2A, "Socket FM2"},
    {0x2B, "Socket LGA2011-3"},
    {0x2C, "Socket LGA1356-3"},
    {0x2D, "Socket LGA1150"},
    {0x2E, "Socket BGA1168"},
    {0x2F, "Socket BGA1234"},
    {0x30, "Socket BGA1364"},
    {0x31, "Socket AM4"},
    {0x32, "Socket LGA1151"},
    {0x33, "Socket BGA1356"},
    {0x34, "Socket BGA1440"},
    {0x35, "Socket BGA1515"},
    {0x36, "Socket LGA3647-1"},
    {0x37, "Socket SP3"},
    {0x38, "Socket SP3r2"},
    {0x39, "Socket LGA2066"},
    {0x3A, "Socket BGA1392"},
    {0x3B, "Socket BGA1510"},
    {0x3C, "Socket BGA1528"},
    {0x3D, "Socket LGA4189"},
    {0x3E, "Socket LGA1200"},
    {0x3F, "Socket LGA4677"},
    {0x40, "Socket LGA1700"},
    {0x41, "Socket BGA1744"},
    {0x42, "Socket BGA1781"},
    {0x43, "Socket BGA1211"},
    {0x44, "Socket BGA2422"},
    {0x45, "Socket LGA1211"},
    {0x46, "Socket LGA2422"},
    {0x47, "Socket LGA5773"},
    {0x48, "Socket BGA5773"},
    {0x49, "Socket AM5"},
    {0x4A, "Socket SP5"},
    {0x4B, "Socket SP6"},
    {0x4C, "Socket BGA883"},
    {0x4D, "Socket BGA1190"},
    {0x4E, "Socket BGA4129"},
    {0x4F, "Socket LGA4710"},
    {0x50, "Socket LGA7529"},
    {0x51, "Socket BGA1964"},
    {0x52, "Socket BGA1792"},
    {0x53, "Socket BGA2049"},
    {0x54, "Socket BGA2551"},
    {0x55, "Socket LGA1851"},
    {0x56, "Socket BGA2114"},
    {0x57, "Socket BGA2833"},
    {0xFF, "See Socket Type"},
};

constexpr Code kProcessorStatuses[] = {
    {0, "Unknown"},
    {1, "CPU Enabled"},
    {2, "CPU Disabled by User through BIOS Setup"},
    {3, "CPU Disabled By BIOS (POST Error)"},
    {4, "CPU is Idle, waiting to be enabled"},
    {5, "Reserved"},
    {6, "Reserved"},
    {7, "Other"},
};

constexpr Part kProcessorStatus[] = {
    CodePart("cpu_status", 0, 3, kProcessorStatuses),
    FlagPart("socket_populated", 6),
};

constexpr Bit kProcessorCharacteristics[] = {
    {1, "Unknown"},
    {2, "64-bit Capable"},
    {3, "Multi-Core"},
    {4, "Hardware Thread"},
    {5, "Execute Protection"},
    {6, "Enhanced Virtualization"},
    {7, "Power/Performance Control"},
    {8, "128-bit Capable"},
    {9, "Arm64 SoC ID"},
};

constexpr Bit kLegacyVoltages[] = {{0, "5V"}, {1, "3.3V"}, {2, "2.9V"}};

// Where bit 7 is not set, a bit for each voltage that the socket can supply.
constexpr std::optional<std::uint64_t> LegacyVoltages(std::uint64_t number,
                                                      const OtherNumbers& /*others*/) {
  return (number & 0x80U) == 0 ? std::optional(number & 7U) : std::nullopt;
}

// Tenths of a volt where bit 7 is set, else the legacy voltage, if there is no more than one.
constexpr std::optional<std::uint64_t> ProcessorVoltage(std::uint64_t number,
                                                        const OtherNumbers& /*others*/) {
  if ((number & 0x80U) != 0) {
    return (number & 0x7FU) * 100;
  }
  switch (number & 7U) {
    case 1:
      return 5000;
    case 2:
      return 3300;
    case 4:
      return 2900;
    default:
      return std::nullopt;
  }
}

constexpr ConversionRule kMegahertz = {.Factor = 1000000, .Unknown = 0};

// FFh says that a later field has the count, if there is one; 0 stands for unknown in both.
constexpr std::optional<std::uint64_t> WiderCount(std::uint64_t number,
                                                  const OtherNumbers& others) {
  const std::uint64_t count = number == 0xFF ? others[0].value_or(number) : number;
  return count != 0 ? std::optional(count) : std::nullopt;
}

constexpr Field kProcessorInformation[] = {
    StringField(0x04, "socket_designation"),
    CodeField(0x05, 1, "processor_type", kProcessorTypeCodes),
    CodeField(0x06, 1, "processor_family", kProcessorFamilies),
    StringField(0x07, "processor_manufacturer"),
    BytesField(0x08, 8, "processor_id"),
    StringField(0x10, "processor_version"),
    NumberField(0x11, 1, "voltage"),
    QuantityField("voltage_millivolts", {.Convert = ProcessorVoltage}),
    BitsField("legacy_voltages", kLegacyVoltages, {.Convert = LegacyVoltages}),
    NumberField(0x12, 2, "external_clock"),
    QuantityField("external_clock_hertz", kMegahertz),
    NumberField(0x14, 2, "max_speed"),
    QuantityField("max_speed_hertz", kMegahertz),
    NumberField(0x16, 2, "current_speed"),
    QuantityField("current_speed_hertz", kMegahertz),
    PartsField(0x18, 1, "status", kProcessorStatus),
    CodeField(0x19, 1, "processor_upgrade", kProcessorUpgrades),
    HandleField(0x1A, "l1_cache_handle", kCaches),
    HandleField(0x1C, "l2_cache_handle", kCaches),
    HandleField(0x1E, "l3_cache_handle", kCaches),
    StringField(0x20, "serial_number"),
    StringField(0x21, "asset_tag"),
    StringField(0x22, "part_number"),
    NumberField(0x23, 1, "core_count"),
    QuantityField("cores", {.Convert = WiderCount, .Others = {{0x2A, 2}}}),
    NumberField(0x24, 1, "core_enabled"),
    QuantityField("enabled_cores", {.Convert = WiderCount, .Others = {{0x2C, 2}}}),
    NumberField(0x25, 1, "thread_count"),
    QuantityField("threads", {.Convert = WiderCount, .Others = {{0x2E, 2}}}),
    BitsField(0x26, 2, "processor_characteristics", kProcessorCharacteristics),
    CodeField(0x28, 2, "processor_family_2", kProcessorFamilies),
    NumberField(0x2A, 2, "core_count_2"),
    NumberField(0x2C, 2, "core_enabled_2"),
    NumberField(0x2E, 2, "thread_count_2"),
    NumberField(0x30, 2, "thread_enabled"),
    StringField(0x32, "socket_type"),
};
// That of 2.1 is in the conformance guidelines.
constexpr LeastLength kProcessorInformationLengths[] = {
    {2, 0, 0x1A}, {2, 1, 0x20}, {2, 3, 0x23}, {2, 5, 0x28},
    {2, 6, 0x2A}, {3, 0, 0x30}, {3, 6, 0x32},
};

// Cache Information (Type 7)

constexpr Code kCacheLevels[] = {
    {0, "L1"}, {1, "L2"}, {2, "L3"}, {3, "L4"}, {4, "L5"}, {5, "L6"}, {6, "L7"}, {7, "L8"},
};

constexpr Code kCacheLocations[] = {
    {0, "Internal"},
    {1, "External"},
    {2, "Reserved"},
    {3, "Unknown"},
};

constexpr Code kCacheModes[] = {
    {0, "Write Through"},
    {1, "Write Back"},
    {2, "Varies with Memory Address"},
    {3, "Unknown"},
};

constexpr Part kCacheConfiguration[] = {
    CodePart("cache_level", 0, 3, kCacheLevels),     FlagPart("cache_socketed", 3),
    CodePart("location", 5, 2, kCacheLocations),     FlagPart("enabled_at_boot_time", 7),
    CodePart("operational_mode", 8, 2, kCacheModes),
};

constexpr Bit kSramTypes[] = {
    {0, "Other"},          {1, "Unknown"},     {2, "Non-Burst"},    {3, "Burst"},
    {4, "Pipeline Burst"}, {5, "Synchronous"}, {6, "Asynchronous"},
};

constexpr Code kCacheErrorCorrections[] = {
    {0x01, "Other"},  {0x02, "Unknown"},        {0x03, "None"},
    {0x04, "Parity"}, {0x05, "Single-bit ECC"}, {0x06, "Multi-bit ECC"},
};

constexpr Code kCacheTypes[] = {
    {0x01, "Other"}, {0x02, "Unknown"}, {0x03, "Instruction"}, {0x04, "Data"}, {0x05, "Unified"},
};

constexpr Code kAssociativities[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Direct Mapped"},
    {0x04, "2-way Set-Associative"},
    {0x05, "4-way Set-Associative"},
    {0x06, "Fully Associative"},
    {0x07, "8-way Set-Associative"},
    {0x08, "16-way Set-Associative"},
    {0x09, "12-way Set-Associative"},
    {0x0A, "24-way Set-Associative"},
    {0x0B, "32-way Set-Associative"},
    {0x0C, "48-way Set-Associative"},
    {0x0D, "64-way Set-Associative"},
    {0x0E, "20-way Set-Associative"},
};

// In units of 1 KiB or 64 KiB by the top bit; FFFFh says that a later field has it in the same
// form.
constexpr std::optional<std::uint64_t> CacheSize(std::uint64_t number, const OtherNumbers& others) {
  const bool isWider = number == 0xFFFF && others[0];
  const std::uint64_t value = isWider ? *others[0] : number;
  const std::uint64_t granularity = isWider ? 1U << 31 : 1U << 15;
  return (value & (granularity - 1)) * ((value & granularity) != 0 ? 64 * kKiB : kKiB);
}

constexpr Field kCacheInformation[] = {
    StringField(0x04, "socket_designation"),
    PartsField(0x05, 2, "cache_configuration", kCacheConfiguration),
    NumberField(0x07, 2, "maximum_cache_size"),
    QuantityField("maximum_size_bytes", {.Convert = CacheSize, .Others = {{0x13, 4}}}),
    NumberField(0x09, 2, "installed_size"),
    QuantityField("installed_size_bytes", {.Convert = CacheSize, .Others = {{0x17, 4}}}),
    BitsField(0x0B, 2, "supported_sram_type", kSramTypes),
    BitsField(0x0D, 2, "current_sram_type", kSramTypes),
    NumberField(0x0F, 1, "cache_speed"),
    QuantityField("cache_speed_nanoseconds", {.Unknown = 0}),
    CodeField(0x10, 1, "error_correction_type", kCacheErrorCorrections),
    CodeField(0x11, 1, "system_cache_type", kCacheTypes),
    CodeField(0x12, 1, "associativity", kAssociativities),
    NumberField(0x13, 4, "maximum_cache_size_2"),
    NumberField(0x17, 4, "installed_cache_size_2"),
};
constexpr LeastLength kCacheInformationLengths[] = {{2, 0, 0x0F}, {2, 1, 0x13}, {3, 1, 0x1B}};

// Processor Additional Information (Type 44)

constexpr Code kProcessorArchitectures[] = {
    {0x00, "Reserved"},
    {0x01, "IA32 (x86)"},
    {0x02, "x64 (x86-64, Intel64, AMD64, EM64T)"},
    {0x03, "Intel Itanium architecture"},
    {0x04, "32-bit ARM (Aarch32)"},
    {0x05, "64-bit ARM (Aarch64)"},
    {0x06, "32-bit RISC-V (RV32)"},
    {0x07, "64-bit RISC-V (RV64)"},
    {0x08, "128-bit RISC-V (RV128)"},
    {0x09, "32-bit LoongArch (LoongArch32)"},
    {0x0A, "64-bit LoongArch (LoongArch64)"},
};

constexpr Field kProcessorAdditionalInformation[] = {
    HandleField(0x04, "referenced_handle", kProcessors),
    NumberField(0x06, 1, "block_length"),
    CodeField(0x07, 1, "processor_type", kProcessorArchitectures),
    CountedBytesField(0x08, "processor_specific_data", 0x06),
};
constexpr LeastLength kProcessorAdditionalInformationLengths[] = {{3, 3, 0x08}};

constexpr StructureType kProcessorTypeList[] = {
    {4, "Processor Information", kProcessorInformation, kProcessorInformationLengths},
    {7, "Cache Information", kCacheInformation, kCacheInformationLengths},
    {44, "Processor Additional Information", kProcessorAdditionalInformation,
     kProcessorAdditionalInformationLengths},
};
static_assert(AreWellFormed(kProcessorTypeList));

}  // namespace

constinit const std::span<const StructureType> kProcessorTypes = kProcessorTypeList;

}  // namespace kestrel::catalog
