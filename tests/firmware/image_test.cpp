#include "firmware/image.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

#include "firmware/table_firmware.h"
#include "firmware/table_measure.h"
#include "model/smbios_reader.h"
#include "tests/firmware/entry_points.h"

namespace kestrel {
namespace {

constexpr SmbiosVersion kVersion = {2, 1};

const Bytes kTwoEnds = Join({kEnd, kEnd});

Bytes PadTo(std::size_t size, Bytes bytes) {
  bytes.resize(size);
  return bytes;
}

// What an image is read as; nothing when it is refused.
struct ImageOutcome {
  ImageKind Kind;
  SmbiosVersion Version;
  Bytes Table;

  bool operator==(const ImageOutcome&) const = default;
};

ImageResult ReadBytes(const Bytes& image, ImageKind kind = ImageKind::Auto) {
  // In the folder of the build that is tested, since others may be tested beside it.
  const std::string path =
      std::string("image_of_") + testing::UnitTest::GetInstance()->current_test_info()->name();
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(image.data()),
             static_cast<std::streamsize>(image.size()));
  ImageResult result = ReadImage(path, kind, {2, 2});
  EXPECT_EQ(std::remove(path.c_str()), 0);
  return result;
}

TEST(ImageTest, ReadsEachKind) {
  using enum ImageKind;
  constexpr std::uint32_t kElsewhere = 0xDEADB000;
  constexpr std::uint64_t kFarAway = 0x7F00000000;
  const Bytes area32 =
      PadTo(0x10000, Join({Bytes(0x40), EntryPoint32(kVersion, 6, 0xF0100), Bytes(161), kEnd}));
  const Bytes area64 = PadTo(0x10000, Join({Bytes(0xFFF0 - 0x100), EntryPoint64(6, 0)}));
  // One byte on, and eight bytes on, it looks like a table as well.
  const Bytes table = Join({{0, 4, 5, 0, 'a', 0, 0}, {1, 4, 5, 0, 0, 0}, kEnd});
  const Bytes dump = Join({EntryPoint32(kVersion, 12, 31), kTwoEnds});
  const struct {
    const char* Name;
    Bytes Image;
    ImageOutcome Expected;
  } cases[] = {
      {"only the BIOS area", area32, {Memory, kVersion, kEnd}},
      {"the first megabyte", Join({Bytes(0xF0000), area32}), {Memory, kVersion, kEnd}},
      {"more, with the table at the end",
       Join({Bytes(0xF0000), PadTo(0x10000, EntryPoint32(kVersion, 12, 0x100000)), kTwoEnds}),
       {Memory, kVersion, kTwoEnds}},
      {"64-bit, table at 0", Join({kEnd, Bytes(0xF0000 - 6), area64}), {Memory, {3, 2}, kEnd}},
      {"a dump", dump, {Dump, kVersion, kTwoEnds}},
      {"a dump with the table further on",
       Join({EntryPoint32(kVersion, 12, 64), Bytes(33), kTwoEnds, {1}}),
       {Dump, kVersion, kTwoEnds}},
      {"the address in memory, and the table at 20h",
       Join({EntryPoint32(kVersion, 99, kElsewhere), {0}, table}),
       {Dump, kVersion, table}},
      {"the same, where a byte before it looks like a table and bytes follow",
       Join({EntryPoint32(kVersion, 13, kElsewhere), {0, 4, 4, 5, 0, 'a', 0, 0}, kEnd, {1}}),
       {Dump, kVersion, Join({{4, 4, 5, 0, 'a', 0, 0}, kEnd})}},
      {"the address in memory, and the table after the entry point",
       Join({EntryPoint32(kVersion, 19, kElsewhere), table}),
       {Dump, kVersion, table}},
      {"the same, 64-bit", Join({EntryPoint64(99, kFarAway), table}), {Dump, {3, 2}, table}},
      {"handed over", Join({{0, 2, 7, 0, 12, 0, 0, 0}, kTwoEnds}), {Rsmb, {2, 7}, kTwoEnds}},
      {"a bare table", kTwoEnds, {Raw, {2, 2}, kTwoEnds}},
  };
  for (const auto& test : cases) {
    const ImageResult result = ReadBytes(test.Image);
    const SmbiosTable& read = result.Source.Table;
    EXPECT_EQ((ImageOutcome{result.Kind, read.EntryPoint.Version, read.Bytes}), test.Expected)
        << test.Name;
  }
  // A dump is a raw table as well, of a structure of type '_', if one insists.
  EXPECT_EQ(ReadBytes(dump, Raw).Source.Table.Bytes.size(), 43);
}

TEST(ImageTest, IsPresentedAsFarAsItFits) {
  constexpr std::string_view kOneBlock = "End-of-Table (Type 127)\r\n\r\n";
  const Bytes unused = {126, 4, 0, 0, 0, 0};
  Bytes fits;
  for (int count = 0; count < 10921; ++count) {
    fits.insert(fits.end(), unused.begin(), unused.end());
  }
  const Bytes full = Join({fits, kEnd});
  const Bytes tooLong = Join({fits, unused, kEnd});
  const auto dump = [](const Bytes& table) { return Join({EntryPoint64(200000, 24), table}); };
  const auto rsmb = [](const Bytes& table) {
    return Join({{0, 2, 7, 0}, LittleEndian(table.size(), 4), table});
  };
  const struct {
    const char* Name;
    Bytes Image;
    std::string_view Report;
    bool IsShortened;
    bool IsCut;
  } cases[] = {
      {"as long as can be", dump(full), kOneBlock, false, false},
      {"a structure more than fits", dump(tooLong), "", true, false},
      {"the same, as a bare table", tooLong, "", true, false},
      {"zeros up to the bound", dump(PadTo(200000, full)), kOneBlock, false, false},
      {"zeros after a string", rsmb(PadTo(70000, Join({fits, {126, 4, 0, 0, 'a', 'b', 0, 0}}))), "",
       false, false},
      {"zeros up to the length", rsmb(PadTo(70000, full)), kOneBlock, false, false},
      {"a second table after the first", dump(kTwoEnds), kOneBlock, false, false},
      {"cut within the last structure", dump({127, 4}), kOneBlock, false, false},
      {"cut before the last structure", dump(unused), "", false, true},
      {"fewer bytes than announced", Join({EntryPoint32(kVersion, 12, 31), kEnd}), kOneBlock, false,
       true},
  };
  for (const auto& test : cases) {
    const ImageResult result = ReadBytes(test.Image);
    auto firmware = std::make_unique<TableFirmware>(result.Source.Table);
    EXPECT_EQ(firmware->IsShortened(), test.IsShortened) << test.Name;
    EXPECT_EQ(IsCut(result.Source.Table), test.IsCut) << test.Name;
    SMBiosReader reader(std::move(firmware));
    reader.ReadTable();
    EXPECT_EQ(reader.BuildTextReport(), test.Report) << test.Name;
  }
}

}  // namespace
}  // namespace kestrel
