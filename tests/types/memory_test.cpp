#include <gmock/gmock.h>

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

const Bytes kError32 = Structure(18, {6, 4, 5, 0xCD, 0xAB, 0x34, 0x12, 0x00, 0x00, 0x00, 0x80, 0x78,
                                      0x56, 0x34, 0xF2, 0xAB, 0x90, 0x00, 0x00});
const Bytes kError64 = Structure(
    33, {9,    1,    4,    0xCD, 0xAB, 0x34, 0x12, 0x89, 0x67, 0x45, 0x23, 0x01, 0x00, 0x00,
         0x00, 0x00, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0x80});
const Bytes kChannel = Structure(37, {3, 16, 2, 0x04, 0x20, 0x00, 0x1F, 0x21, 0xAB});

TEST(MemoryTopologyTest, GivesRowsWithValuesAsStored) {
  ExpectMifRows(kArray,
                {{0x04, {10}, R"({1,10,4,305419896,258,0,6,1,1,1,0,"","",0,0,0,0})"},
                 {0x07, {0, 0, 0, 0x80}, R"({1,3,4,2147483648,258,0,6,1,1,1,0,"","",0,0,0,0})"},
                 {0x0B, {0xFF, 0xFF}, R"({1,3,4,305419896,258,0,6,1,1,1,0,"","",0,0,0,0})"}});
  ExpectMifRows(
      kDevice,
      {{0x10, {1}, R"({1,0,"Socket","Bank",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
       {0x0C, {0, 2}, R"({1,0,"Socket","Bank",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
       {0x08, Bytes(6, 0xFF),
        R"({1,0,"Socket","Bank",32767,9,65535,65535,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"},
       {0x10, {0, 7}, R"({1,0,"","",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})"}});
  ExpectMifRows(kArrayRange,
                {{0x0E, {2}, R"({1,0,262144,2147876863,0,2,0})"},
                 {0x08, {0, 0, 0, 0x80, 0, 0, 255}, R"({1,0,262144,2147483648,0,255,0})"}});
  ExpectMifRows(kDeviceRange, {{0x0C, {0xFF, 0xFF}, R"({1,1,0,2147483648,4294967295,3,4,5})"}});
}

// The bank's locator is the third string, which the earlier layout does not take.
TEST(MemoryTopologyTest, TakesTheLayoutOfADeviceFromTheVersion) {
  Bytes device = kDevice;
  device[0x11] = 3;
  const auto late = R"({1,0,"Socket","Maker",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})";
  const auto early = R"({1,0,"Socket","",512,9,72,64,15,384,7,1,1,1,1,0,"","",0,0,0,0,0,0})";
  EXPECT_THAT(MifRowsOf(device, 17, {2, 2}), testing::HasSubstr(early));
  EXPECT_THAT(MifRowsOf(device, 17, {2, 3}), testing::HasSubstr(late));
  EXPECT_THAT(MifRowsOf(device, 17, {3, 0}), testing::HasSubstr(late));
}

TEST(MemoryErrorTest, NamesCodesAndWhatIsNotGiven) {
  ExpectLines(kError32,
              {{0x04, {1}, "Error Type : Other"},
               {0x04, {14}, "Error Type : Uncorrectable error"},
               {0x04, {15}, "Error Type : "},
               {0x05, {4}, "Error Granularity : Memory partition level"},
               {0x05, {5, 5}, "Error Granularity : \r\n\tError Operation : Partial write"},
               {0x06,
                {1},
                "Error Operation : Other\r\n\tVendor Syndrome : 1234ABCD\r\n\tMemory Array Error "
                "Address : 80000000\r\n"
                "\tDevice Error Address : F2345678\r\n\tError Resolution : 000090AB"},
               {0x06, {6}, "Error Operation : "},
               {0x13, {0, 0, 0, 0x80}, "Error Resolution : 80000000"}});
  ExpectLines(
      kError64,
      {{0x05,
        {1},
        "Error Granularity : Other\r\n\tError Operation : Write\r\n"
        "\tVendor Syndrome : 1234ABCD\r\n\tMemory Array Error Address : 0000000123456789h\r\n"
        "\tDevice Error Address : 8000000180000000h\r\n\tError Resolution : 80000001h"},
       {0x0F, {0, 0, 0, 0x80}, "Memory Array Error Address : Unknown"},
       {0x13, {5, 0, 0, 0, 0, 0, 0, 0x80}, "Device Error Address : Unknown"},
       {0x1B, {0, 0, 0, 0x80}, "Error Resolution : Unknown"}});
}

TEST(Type37Test, ListsItsDevices) {
  ExpectLines(kChannel, {{4, {1}, "Channel Type : Other"}, {4, {4}, "Channel Type : SyncLink"}});
  ExpectReports({
      {"none", Join({Structure(37, {0, 0, 0}), {127, 4}}),
       "Memory Channel (Type 37)\r\n"
       "\tChannel Type : \r\n\tMaximum Channel Load : 0\r\n\tMemory Device Count : 0\r\n"
       "\tMemory Devices :\r\nEnd-of-Table (Type 127)\r\n\r\n"},
      {"after the end of the table",
       {37, 7, 0, 0, 5, 255, 3, 0x04, 0x20, 0x01, 0x05},
       "Memory Channel (Type 37)\r\n"
       "\tChannel Type : \r\n\tMaximum Channel Load : 255\r\n\tMemory Device Count : 3\r\n"
       "\tMemory Devices :\t\t0)Load--04h, Handle--0120h\r\n"
       "\t\t1)Load--05h, Handle--0000h\r\n\t\t2)Load--00h, Handle--0000h\r\n\r\n"},
  });
}

}  // namespace
}  // namespace kestrel
