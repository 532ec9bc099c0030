#include "overview/overview.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "overview/placeholders.h"
#include "overview/release_date.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(OverviewTest, TellsPlaceholdersFromValues) {
  const std::string_view placeholders[] = {
      "",
      " \t",
      "To Be Filled By O.E.M.",
      " default STRING\r\n",
      "SerNum0",
      "A1_AssetTagNum12",
      "$(DEFAULT_STRING)",
      "unspecified",
      "0",
      "0000-00",
      "..XXX.XX..",
      "x.x",
      "FFFFFFFF",
      "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF",
      "\xFF\xFF",
      "-",
      "0123456",
      "12345678901",
      "Type2 - Board Serial Number",
      "03000200-0400-0500-0006-000700080009",
  };
  for (const std::string_view text : placeholders) {
    EXPECT_EQ(WithoutPlaceholder(text), "") << text;
  }
  const std::string_view values[] = {
      "OEM-1234", "SerNum", "Default string 2", "A",      "FF",
      "0F",       "0X",     "F-FFF1",           "088888", "012345",
      "0123455",  "System", "Manufacturer0a",   "N/A 5",  "\xC4\xC4",
      "Not",      "zzz",
  };
  for (const std::string_view text : values) {
    EXPECT_EQ(WithoutPlaceholder(" " + std::string(text) + "  "), text);
  }
}

TEST(OverviewTest, WritesDatesInIsoForm) {
  const struct {
    std::string_view Text;
    std::string_view Date;
  } cases[] = {
      {"09/14/2021", "2021-09-14"}, {"9/4/99", "1999-09-04"},
      {"02/29/2024", "2024-02-29"}, {"2021-09-14", "2021-09-14"},
      {"02/29/2023", ""},           {"13/01/2020", ""},
      {"09-14-2021", ""},           {"09/14", ""},
      {"09/14/2021 ", ""},          {"09/14/20211", ""},
      {"00/14/2021", ""},           {"+9/14/2021", ""},
      {"09/14/4294967297", ""},     {"", ""},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(IsoDateOf(test.Text), test.Date) << test.Text;
  }
}

Bytes Array(std::uint8_t handle, std::uint8_t use, std::uint8_t correction, std::uint8_t kib3) {
  return WithHandle(handle, Structure(16, {3, use, correction, 0, 0, 0, kib3, 0xFE, 0xFF, 2, 0}));
}
// Of an array; sizes are in MiB.
Bytes Device(std::uint8_t array, std::uint8_t low, std::uint8_t high) {
  return Structure(17, {array, 0, 0, 0, 0, 0, 0, 0, low, high, 9, 0, 0, 0, 26, 0, 0});
}

TEST(OverviewTest, CountsTheMemoryOfTheSystem) {
  constexpr std::uint64_t kMiB = 1U << 20;
  const Bytes module = Structure(6, {1, 0, 0, 0x10, 1, 5, 5, 0}, {"SIMM 1"});
  const struct {
    const char* Name;
    Bytes Table;
    std::optional<std::uint64_t> InstalledMiB;
    std::optional<std::uint64_t> MaximumMiB;
    std::optional<std::uint64_t> Slots;
    std::optional<std::uint64_t> Used;
    std::string_view Correction;
  } cases[] = {
      {"nothing", {}, {}, {}, {}, {}, ""},
      {"two arrays, and one for flash",
       Join({Array(1, 3, 5, 1), Array(2, 3, 5, 2), Array(3, 5, 3, 4), Device(1, 0, 1),
             Device(2, 0, 0), Device(3, 8, 0)}),
       256, 48 * 1024, 2, 1, "Single-bit ECC"},
      {"arrays that differ, one of unknown size",
       Join({Array(1, 3, 5, 1), Array(2, 3, 3, 0x80), Device(1, 1, 0)}),
       1,
       {},
       1,
       1,
       ""},
      {"a size that is not known",
       Join({Array(1, 3, 3, 1), Device(1, 0xFF, 0xFF), Device(1, 1, 0)}),
       {},
       16 * 1024,
       2,
       2,
       "None"},
      {"no array", Join({Device(9, 1, 0), Device(9, 2, 0)}), 3, {}, 2, 2, ""},
      {"controllers and modules",
       Join({Structure(5, {6, 8, 3, 3, 9, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0}), module, module}), 64,
       1024, 2, 2, "64-bit ECC"},
      {"modules beside an array", Join({Array(1, 3, 3, 1), Device(1, 1, 0), module}), 1, 16 * 1024,
       1, 1, "None"},
      {"more than a number holds",
       Structure(5, {6, 8, 3, 3, 43, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0}),
       {},
       {},
       {},
       {},
       "64-bit ECC"},
  };
  for (const auto& test : cases) {
    SmbiosTable table;
    table.Bytes = test.Table;
    const MemoryFacts memory = Overview(table).GetMemory();
    const auto toBytes = [](std::optional<std::uint64_t> mib) {
      return mib ? std::optional(*mib * kMiB) : std::nullopt;
    };
    EXPECT_EQ(memory.InstalledBytes, toBytes(test.InstalledMiB)) << test.Name;
    EXPECT_EQ(memory.MaximumBytes, toBytes(test.MaximumMiB)) << test.Name;
    EXPECT_EQ(memory.Slots, test.Slots) << test.Name;
    EXPECT_EQ(memory.SlotsUsed, test.Used) << test.Name;
    EXPECT_EQ(memory.ErrorCorrection, test.Correction) << test.Name;
  }
}

TEST(OverviewTest, NamesTypeAndFormOfModulesThatFlagThem) {
  const struct {
    std::uint8_t Low, High;
    std::string_view Words;
  } cases[] = {
      {0x03, 0, " "},        {0x04, 0, "Standard "},      {0x88, 0, "Fast Page Mode SIMM"},
      {0x90, 0, "EDO SIMM"}, {0x14, 3, "Burst EDO DIMM"}, {0x04, 7, "SDRAM DIMM"},
  };
  for (const auto& test : cases) {
    SmbiosTable table;
    table.Bytes = Structure(6, {0, 0, 0, test.Low, test.High, 5, 5, 0});
    std::string words;
    Overview(table).ForEachMemoryDevice([&](const MemoryDeviceFacts& device) {
      words.append(device.Type).append(" ").append(device.FormFactor);
    });
    EXPECT_EQ(words, test.Words);
  }
}

TEST(OverviewTest, TakesEachFactOfTheSystemFromItsField) {
  SmbiosTable table;
  table.EntryPoint.Version = {2, 6};
  table.Bytes =
      Structure(1, {1, 2, 3, 4, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 6, 5, 6},
                {"Maker", "PC", "2nd", "77-1", "PC-2-77", "PCs"});
  const SystemFacts system = Overview(table).GetSystem();
  EXPECT_EQ(
      Join({system.Manufacturer, ";", system.ProductName, ";", system.Version, ";",
            system.SerialNumber, ";", system.Uuid, ";", system.SkuNumber, ";", system.Family}),
      "Maker;PC;2nd;77-1;03020109-0504-0706-0809-0A0B0C0D0E0F;PC-2-77;PCs");
}

}  // namespace
}  // namespace kestrel
