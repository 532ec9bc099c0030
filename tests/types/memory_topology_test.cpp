#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kArray =
    Structure(16, {3, 4, 6, 0x78, 0x56, 0x34, 0x12, 0x00, 0x12, 0x02, 0x01}, {"unused"});
// 512 kilobytes.
const Bytes kDevice = Structure(17, {0x00, 0x10, 0xFE, 0xFF, 72,   0,    64, 0, 0x00, 0x82, 9, 7,
                                     1,    2,    15,   0x80, 0x01, 0x85, 0,  3, 4,    5,    6},
                                {"Socket", "Bank", "Maker", "Serial", "Asset", "Part"});
const Bytes kArrayRange =
    Structure(19, {0x00, 0x00, 0x04, 0x00, 0xFF, 0xFF, 0x05, 0x80, 0x00, 0x10, 2});
const Bytes kDeviceRange = Structure(
    20, {0x00, 0x00, 0x00, 0x80, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x11, 0x00, 0x13, 3, 4, 5});

TEST(MemoryTopologyTest, GivesRowsWithValuesAsStored) {
  ExpectMifRows(kArray,
                {
                    {0x04, {10}, R"({1,10,4,305419896,258,0,6,1,1,1,0,"","",0,0,0,0})"},
                    {0x07, {0, 0, 0, 0x80}, R"({1,3,4,2147483648,258,0,6,1,1,1,0,"","",0,0,0,0})"},
                    {0x0B, {0xFF, 0xFF}, R"({1,3,4,305419896,258,0,6,1,1,1,0,"","",0,0,0,0})"},
                    {0x04, Bytes(11), R"({1,0,0,0,0,0,0,1,1,1,0,"","",0,0,0,0})"},
                });
  ExpectMifRows(kArrayRange,
                {
                    {0x0E, {2}, R"({1,0,262144,2147876863,0,2,0})"},
                    {0x08, {0, 0, 0, 0x80, 0, 0, 255}, R"({1,0,262144,2147483648,0,255,0})"},
                });
  ExpectMifRows(kDeviceRange, {{0x0C, {0xFF, 0xFF}, R"({1,1,0,2147483648,4294967295,3,4,5})"}});
}

TEST(MemoryTopologyTest, GivesDeviceRows) {
  ExpectMifRows(
      kDevice,
      {
          {0x10, {1}, R"({1,0,"Socket","Bank",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
          {0x0C,
           {0, 2},
           R"({1,0,"Socket","Bank",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
          {0x08,
           {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
           R"({1,0,"Socket","Bank",32767,9,65535,65535,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
          {0x10, {0, 7}, R"({1,0,"","",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
      });
}

TEST(MemoryTopologyTest, TakesTheLayoutOfADeviceFromTheVersion) {
  // The bank's locator is the third string, which the earlier layout does not take.
  Bytes device = kDevice;
  device[0x11] = 3;
  const auto late =
      "\t{1,0,\"Socket\",\"Maker\",512,9,72,64,15,384,7,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n";
  const auto early =
      "\t{1,0,\"Socket\",\"\",512,9,72,64,15,384,7,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n";
  EXPECT_EQ(MifRowsOf(device, 17, {2, 2}), early);
  EXPECT_EQ(MifRowsOf(device, 17, {2, 3}), late);
  EXPECT_EQ(MifRowsOf(device, 17, {3, 0}), late);
  // Its formatted area ends before the speed, and its strings begin there.
  const Bytes shortDevice = Join({{17, 0x15}, Bytes(0x0E), {2, 1, 3, 4, 0, 'A', 0, 'B', 0, 0}});
  EXPECT_EQ(MifRowsOf(shortDevice, 17),
            "\t{1,0,\"B\",\"A\",0,0,0,0,3,4,0,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n");
}

TEST(MemoryTopologyTest, NumbersRowsInTableOrder) {
  const Bytes table = Join({kArrayRange, kDeviceRange, kArrayRange, kDeviceRange});
  EXPECT_EQ(MifRowsOf(table, 19),
            "\t{1,0,262144,2147876863,0,2,0}\r\n\t{2,0,262144,2147876863,0,2,0}\r\n");
  EXPECT_EQ(MifRowsOf(table, 20),
            "\t{1,1,0,2147483648,4294967295,3,4,5}\r\n\t{2,2,0,2147483648,4294967295,3,4,5}\r\n");
}

TEST(MemoryTopologyTest, ReadsZerosBehindTheEndOfTheTable) {
  const auto cut = [](const Bytes& structure, std::ptrdiff_t length) {
    return Bytes(structure.begin(), structure.begin() + length);
  };
  EXPECT_EQ(MifRowsOf(cut(kArray, 0x09), 16),
            "\t{1,3,4,22136,0,0,6,1,1,1,0,\"\",\"\",0,0,0,0}\r\n");
  EXPECT_EQ(MifRowsOf(cut(kDevice, 0x1E), 17),
            "\t{1,0,\"Soc\",\"\",512,9,72,64,15,384,7,1,1,1,1,0,\"\",\"\",0,0,0,0,0,0}\r\n");
  EXPECT_EQ(MifRowsOf(cut(kArrayRange, 0x04), 19), "\t{1,0,0,0,0,0,0}\r\n");
  EXPECT_EQ(MifRowsOf(cut(kDeviceRange, 0x11), 20), "\t{1,1,0,2147483648,4294967295,3,0,0}\r\n");
}

}  // namespace
}  // namespace kestrel
