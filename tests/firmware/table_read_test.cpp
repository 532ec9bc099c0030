#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "firmware/entry_point.h"
#include "firmware/entry_point_search.h"
#include "firmware/sparse_memory.h"
#include "model/firmware_access.h"
#include "model/smbios_reader.h"
#include "tests/firmware/entry_points.h"

namespace kestrel {
namespace {

// A memory that may refuse reads from one address.
class ScriptedFirmware final : public FirmwareAccess {
 public:
  explicit ScriptedFirmware(SparseMemory& memory, std::optional<std::uint32_t> unreadable = {})
      : Memory(memory), Unreadable(unreadable) {}

  int Open() override { return 1; }
  int Close() noexcept override { return 1; }
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override {
    return address == Unreadable ? 0 : Memory.Read(address, buffer);
  }

 private:
  SparseMemory& Memory;
  std::optional<std::uint32_t> Unreadable;
};

constexpr std::uint32_t kTableAddress = 0xFFFF0000;

// What a reader finds in a memory with entry points at some addresses and one table.
struct Outcome {
  int Result;
  int Version;
  std::string Report;

  bool operator==(const Outcome&) const = default;
};

Outcome Read(const std::map<std::uint32_t, Bytes>& regions,
             std::optional<std::uint32_t> unreadable = {}) {
  SparseMemory memory;
  for (const auto& [address, bytes] : regions) {
    memory.Map(address, bytes);
  }
  SMBiosReader reader(std::make_unique<ScriptedFirmware>(memory, unreadable));
  const int result = reader.ReadTable();
  return {result, reader.GetSpecVersion(), reader.BuildTextReport()};
}

const Outcome kNothing = {0, 0, ""};
const Outcome kOneBlock = {1, 23, "End-of-Table (Type 127)\r\n\r\n"};

TEST(EntryPointSearchTest, LooksThroughTheBiosArea) {
  const Bytes entry = EntryPoint32({2, 3}, 6, kTableAddress);
  const Bytes other = EntryPoint32({3, 0}, 6, kTableAddress);
  const struct {
    const char* Name;
    std::map<std::uint32_t, Bytes> EntryPoints;
    Outcome Expected;
    std::optional<std::uint32_t> Unreadable = {};
  } cases[] = {
      {"nothing", {}, kNothing},
      {"at the start", {{0xF0000, entry}}, kOneBlock},
      {"in the last paragraph", {{0xFFF00, Join({Bytes(0xF0), entry})}}, kOneBlock},
      {"at a multiple of 4", {{0xF1200, Join({Bytes(0x34), entry})}}, kOneBlock},
      {"at no multiple of 4", {{0xF1200, Join({{0, 0}, entry})}}, kNothing},
      {"below the area", {{0xEFFF0, entry}}, kNothing},
      {"above the area", {{0x100000, entry}}, kNothing},
      {"the lower of two", {{0xF8000, entry}, {0xF9000, other}}, kOneBlock},
      {"read once, the last that its chunk holds whole",
       {{0xF1200, Join({Bytes(0xE0), entry})}, {0xF9000, other}},
       kOneBlock,
       0xF12E0},
      {"read once, the first that its chunk cuts",
       {{0xF1200, Join({Bytes(0xE4), entry})}, {0xF9000, other}},
       kNothing,
       0xF12E4},
      {"version 3.0", {{0xF0000, other}}, {1, 30, kOneBlock.Report}},
  };
  for (const auto& test : cases) {
    std::map<std::uint32_t, Bytes> regions = test.EntryPoints;
    regions[kTableAddress] = kEnd;
    EXPECT_EQ(Read(regions, test.Unreadable), test.Expected) << test.Name;
  }
}

TEST(EntryPointSearchTest, ComparesWordsBelowTheLength) {
  const Bytes buffer = {1, 2, 3, 4, 0x5F, 0x53, 0x4D, 0x5F, 0x5F, 0x53, 0x4D, 0x5F};
  std::size_t offset = 99;
  EXPECT_EQ(FindDword(buffer, kAnchor, offset), 1);
  EXPECT_EQ(offset, 4);
  EXPECT_EQ(FindDword(std::span(buffer).first(4), kAnchor, offset), 0);
  EXPECT_EQ(offset, 4);
}

TEST(TableReadTest, TakesWhatTheTableHolds) {
  const auto entry = [](std::uint16_t length) {
    return EntryPoint32({2, 3}, length, kTableAddress);
  };
  const struct {
    const char* Name;
    std::map<std::uint32_t, Bytes> Regions;
    Outcome Expected;
  } cases[] = {
      {"no table to be read", {{0xF0000, entry(6)}}, {0, 23, ""}},
      {"a table of no bytes", {{0xF0000, entry(0)}}, {1, 23, ""}},
      {"read short, zeros after", {{0xF0000, entry(6)}, {kTableAddress, {0x7F, 4}}}, kOneBlock},
      {"bytes after the length",
       {{0xF0000, entry(6)}, {kTableAddress, Join({kEnd, kEnd})}},
       kOneBlock},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Read(test.Regions), test.Expected) << test.Name;
  }
}

TEST(TableReadTest, KeepsTheFirstEntryPointAndSearchesAgainWithoutOne) {
  SparseMemory memory;
  SMBiosReader reader(std::make_unique<ScriptedFirmware>(memory));
  EXPECT_EQ(reader.ReadTable(), 0);
  memory.Map(0xF8000, EntryPoint32({2, 3}, 6, 0));
  memory.Map(0, kEnd);
  EXPECT_EQ(reader.ReadTable(), 1);
  memory.Map(0xF0000, EntryPoint32({3, 0}, 6, 0));
  EXPECT_EQ(reader.ReadTable(), 1);
  EXPECT_EQ(reader.GetSpecVersion(), 23);
  EXPECT_EQ(reader.GetObjects().size(), 2);
}

TEST(EntryPointRecordTest, HoldsEveryByte) {
  const Bytes entry = EntryPoint32({2, 3}, 0xABCD, 0x12345678);
  SparseMemory memory;
  memory.Map(0xF0000, entry);
  SMBiosReader reader(std::make_unique<ScriptedFirmware>(memory));
  ASSERT_EQ(reader.FindEntryPoint(), 1);
  EXPECT_EQ(EntryPointBytes(*reader.GetEntryPoint()), entry);
  EXPECT_EQ(reader.GetEntryPoint()->GetTableLength(), 0xABCD);
  EXPECT_EQ(reader.GetEntryPoint()->GetTableAddress(), 0x12345678);
}

}  // namespace
}  // namespace kestrel
