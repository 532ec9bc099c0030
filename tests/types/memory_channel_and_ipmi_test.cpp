#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kChannel = Structure(37, {3, 16, 2, 0x04, 0x20, 0x00, 0x1F, 0x21, 0xAB});
const Bytes kIpmi = Structure(38, {1, 0x15, 0x20, 0xFF, 0xA2, 0x0C, 0, 0x80, 4, 3, 2, 1});

TEST(MemoryChannelAndIpmiTest, RendersTheBlocks) {
  ExpectReports({
      {"a structure behind two devices", Join({kChannel, Structure(127, {})}),
       "Memory Channel (Type 37)\r\n"
       "\tChannel Type : RamBus\r\n\tMaximum Channel Load : 16\r\n\tMemory Device Count : 2\r\n"
       "\tMemory Devices :\t\t0)Load--04h, Handle--0020h\r\n"
       "\t\t1)Load--1Fh, Handle--AB21h\r\n\r\n"
       "End-of-Table (Type 127)\r\n\r\n"},
      {"a structure behind zeros", Join({Structure(37, {0, 0, 0}), {127, 4}}),
       "Memory Channel (Type 37)\r\n"
       "\tChannel Type : \r\n\tMaximum Channel Load : 0\r\n\tMemory Device Count : 0\r\n"
       "\tMemory Devices :\r\nEnd-of-Table (Type 127)\r\n\r\n"},
      {"devices behind the end of the table",
       {37, 7, 0, 0, 5, 255, 3, 0x04, 0x20, 0x01, 0x05},
       "Memory Channel (Type 37)\r\n"
       "\tChannel Type : \r\n\tMaximum Channel Load : 255\r\n\tMemory Device Count : 3\r\n"
       "\tMemory Devices :\t\t0)Load--04h, Handle--0120h\r\n"
       "\t\t1)Load--05h, Handle--0000h\r\n\t\t2)Load--00h, Handle--0000h\r\n\r\n"},
      {"an IPMI device", kIpmi,
       "IPMI Device Information (Type 38)\r\n"
       "\tInterface TypeKeyboard Controller Style\r\n\tIPMI Specification Revision : 21\r\n"
       "\tI2C Slave Address : 20h\r\n\tNV Storage Device Address : FFh\r\n"
       "\tBase Address : 0102030480000CA2h\r\n\r\n"},
      {"an IPMI device cut by the end of the table",
       {38, 16, 0, 0},
       "IPMI Device Information (Type 38)\r\n"
       "\tInterface TypeUnknown\r\n\tIPMI Specification Revision : 0\r\n"
       "\tI2C Slave Address : 00h\r\n\tNV Storage Device Address : 00h\r\n"
       "\tBase Address : 0000000000000000h\r\n\r\n"},
  });
  ExpectLines(kChannel, {{4, {1}, "Channel Type : Other"}, {4, {4}, "Channel Type : SyncLink"}});
  ExpectLines(kIpmi, {{4, {3}, "Interface TypeBlock Transfer"}, {4, {4}, "Interface Type"}});
}

}  // namespace
}  // namespace kestrel
