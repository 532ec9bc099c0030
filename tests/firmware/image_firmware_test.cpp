#include "firmware/image_firmware.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

#include "model/smbios_reader.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

constexpr std::string_view kTwoBlocks =
    "End-of-Table (Type 127)\r\n\r\n"
    "End-of-Table (Type 127)\r\n\r\n";
constexpr std::string_view kOneBlock = "End-of-Table (Type 127)\r\n\r\n";

const Bytes kEnd = {127, 4, 0, 0, 0, 0};
const Bytes kTwoEnds = Join({kEnd, kEnd});
const Bytes kUnused = {126, 4, 0, 0, 0, 0};

// Entry points of a table of `length` bytes, which is below 256, at `address`, a multiple of 256.
Bytes EntryPoint32(std::uint8_t length, std::uint32_t address) {
  return Join({{'_', 'S', 'M', '_', 0, 31, 2, 1},
               Bytes(14),
               {length, 0, static_cast<std::uint8_t>(address),
                static_cast<std::uint8_t>(address >> 8), static_cast<std::uint8_t>(address >> 16),
                static_cast<std::uint8_t>(address >> 24), 0, 0, 0}});
}

Bytes EntryPoint64(std::uint32_t length, std::uint8_t address) {
  return Join({{'_', 'S', 'M', '3', '_', 0, 24, 3, 2, 0, 1, 0, static_cast<std::uint8_t>(length),
                static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length >> 16), 0,
                address},
               Bytes(7)});
}

Bytes PadTo(std::size_t size, Bytes bytes) {
  bytes.resize(size);
  return bytes;
}

// What comes of an image.
struct Outcome {
  ImageProblem Problem;
  ImageKind Kind;
  int Version;
  std::string Report;
  bool Shortened;
  bool Cut;

  bool operator==(const Outcome&) const = default;
};

Outcome Read(const Bytes& image, ImageKind kind) {
  // In the folder of the build that is tested, since others may be tested beside it.
  const std::string path =
      std::string("image_of_") + testing::UnitTest::GetInstance()->current_test_info()->name();
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(image.data()),
             static_cast<std::streamsize>(image.size()));
  auto owned = std::make_unique<ImageFirmware>(path, kind, SmbiosVersion{2, 2});
  const ImageFirmware& firmware = *owned;
  SMBiosReader reader(std::move(owned));
  if (reader.OpenAccess() != 0) {
    EXPECT_EQ(reader.ReadTable(), 1);
  }
  reader.CloseAccess();
  EXPECT_EQ(std::remove(path.c_str()), 0);
  return {firmware.GetProblem(),    firmware.GetKind(),     reader.GetSpecVersion(),
          reader.BuildTextReport(), firmware.IsShortened(), firmware.IsCut()};
}

Outcome Shown(ImageKind kind, int version, std::string_view report) {
  return {ImageProblem::None, kind, version, std::string(report), false, false};
}

Outcome Refused(ImageProblem problem, ImageKind kind = ImageKind::Auto) {
  return {problem, kind, 0, "", false, false};
}

TEST(ImageFirmwareTest, ReadsEachKind) {
  const Bytes area32 =
      PadTo(0x10000, Join({Bytes(0x40), EntryPoint32(6, 0xF0100), Bytes(161), kEnd}));
  const Bytes area64 = PadTo(0x10000, Join({Bytes(0xFFF0 - 0x100), EntryPoint64(6, 0)}));
  const struct {
    const char* Name;
    Bytes Image;
    Outcome Expected;
  } cases[] = {
      {"the BIOS area alone", area32, Shown(ImageKind::Memory, 21, kOneBlock)},
      {"the first megabyte", Join({Bytes(0xF0000), area32}),
       Shown(ImageKind::Memory, 21, kOneBlock)},
      {"more, with the table at the end",
       Join({Bytes(0xF0000), PadTo(0x10000, EntryPoint32(12, 0x100000)), kTwoEnds}),
       Shown(ImageKind::Memory, 21, kTwoBlocks)},
      {"a 64-bit entry point in memory, with the table at 0",
       Join({kEnd, Bytes(0xF0000 - 6), area64}), Shown(ImageKind::Memory, 32, kOneBlock)},
      {"a dump", Join({EntryPoint32(12, 31), kTwoEnds}), Shown(ImageKind::Dump, 21, kTwoBlocks)},
      {"a dump with the table further on", Join({EntryPoint32(12, 64), Bytes(33), kTwoEnds}),
       Shown(ImageKind::Dump, 21, kTwoBlocks)},
      {"a 64-bit dump, which ends with its End-of-Table", Join({EntryPoint64(99, 24), kTwoEnds}),
       Shown(ImageKind::Dump, 32, kOneBlock)},
      {"a handed-over table", Join({{0, 2, 7, 0, 12, 0, 0, 0}, kTwoEnds}),
       Shown(ImageKind::Rsmb, 27, kTwoBlocks)},
      {"a bare table", kTwoEnds, Shown(ImageKind::Raw, 22, kTwoBlocks)},
      {"the BIOS area without an entry point", Bytes(0x10000), Refused(ImageProblem::NoEntryPoint)},
      {"a table that lies below the BIOS area",
       PadTo(0x10000, Join({Bytes(0x40), EntryPoint32(6, 0x1000)})),
       Refused(ImageProblem::TableOutside)},
      {"a table at the end of the address space",
       PadTo(0x100000, Join({Bytes(0xF0000), EntryPoint32(6, 0xFFFFFF00)})),
       Refused(ImageProblem::TableOutside)},
      {"a cut 64-bit entry point", PadTo(23, EntryPoint64(6, 24)),
       Refused(ImageProblem::EntryPointCut)},
      {"a header that says more than there is", Join({{0, 2, 7, 0, 13, 0, 0, 0}, kTwoEnds}),
       Refused(ImageProblem::NotRecognised)},
      {"a bare table whose first structure is cut",
       {127, 5, 0, 0, 0},
       Refused(ImageProblem::NotRecognised)},
      {"a bare table whose first structure has no header",
       {1, 3, 0, 0, 0, 0},
       Refused(ImageProblem::NotRecognised)},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Read(test.Image, ImageKind::Auto), test.Expected) << test.Name;
  }
}

TEST(ImageFirmwareTest, ReadsTheKindThatIsAskedFor) {
  // A dump is a raw table as well, of a structure of type '_', if one insists.
  EXPECT_EQ(Read(Join({EntryPoint32(12, 31), kTwoEnds}), ImageKind::Raw).Problem,
            ImageProblem::None);
  EXPECT_EQ(Read({126, 3, 0}, ImageKind::Raw), Shown(ImageKind::Raw, 22, ""));
  EXPECT_EQ(Read(Bytes(65536), ImageKind::Raw), Refused(ImageProblem::TooLarge, ImageKind::Raw));
  EXPECT_EQ(Read(kEnd, ImageKind::Memory), Refused(ImageProblem::NotRecognised, ImageKind::Memory));
}

TEST(ImageFirmwareTest, TellsWhatALongOrCutTableLacks) {
  Bytes table;
  for (int count = 0; count < 10922; ++count) {
    table.insert(table.end(), kUnused.begin(), kUnused.end());
  }
  const auto dump = [](const Bytes& bytes) { return Join({EntryPoint64(200000, 24), bytes}); };
  // 65,532 bytes fit; the End-of-Table behind them does not.
  EXPECT_EQ(Read(dump(Join({table, kEnd})), ImageKind::Auto),
            (Outcome{ImageProblem::None, ImageKind::Dump, 32, "", true, false}));
  EXPECT_EQ(Read(dump(Join({Bytes(table.begin(), table.end() - 6), kEnd})), ImageKind::Auto),
            Shown(ImageKind::Dump, 32, kOneBlock));
  EXPECT_EQ(Read(dump({126, 4, 0, 0, 0, 0, 127, 4}), ImageKind::Auto).Report, kOneBlock);
  EXPECT_EQ(Read(dump(kUnused), ImageKind::Auto),
            (Outcome{ImageProblem::None, ImageKind::Dump, 32, "", false, true}));
}

}  // namespace
}  // namespace kestrel
