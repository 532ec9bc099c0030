#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kDevice = Structure(34, {1, 12, 0x90, 0x02, 0xCD, 0xAB, 3}, {"Monitor"});

TEST(ManagementDeviceTest, RendersTheBlocks) {
  ExpectReports({
      {"a device", kDevice,
       "Management Device (Type 34)\r\n"
       "\tDescription : Monitor\r\n"
       "\tDevice Type : Winbond W83781D\r\n"
       "\tAddress : ABCD0290h\r\n"
       "\tAddress Type : I/O Port\r\n\r\n"},
      {"a device cut by the end of the table",
       {34, 11, 0, 0, 1, 14, 0x90},
       "Management Device (Type 34)\r\n"
       "\tDescription : \r\n"
       "\tDevice Type : \r\n\tAddress : 00000090h\r\n"
       "\tAddress Type : \r\n\r\n"},
      {"a component", Structure(35, {1, 0x01, 0x22, 0x0A, 0x1A, 0xFF, 0xFF}, {"Watch"}),
       "Management Device Component (Type 35)\r\n"
       "\tDescription : Watch\r\n"
       "\tManagement Device Handle : 2201h\r\n"
       "\tComponent Handle : 1A0Ah\r\n"
       "\tThreshold Handle : FFFFh\r\n\r\n"},
      {"a component cut by the end of the table",
       {35, 11, 0, 0, 0, 0x34},
       "Management Device Component (Type 35)\r\n"
       "\tDescription : \r\n"
       "\tManagement Device Handle : 0034h\r\n"
       "\tComponent Handle : 0000h\r\n"
       "\tThreshold Handle : 0000h\r\n\r\n"},
      {"thresholds, the last cut by the end of the table",
       {36, 16, 0, 0, 0x34, 0x12, 0x00, 0x80, 0x03, 0, 0xFF, 0xFF, 0x05, 0, 0x06},
       "Management Device Threshold Data (Type 36)\r\n"
       "\tLower Threshold-Non-Critical : 1234h\r\n\tUpper Threshold-Non-Critical : 8000h\r\n"
       "\tLower Threshold-Critical : 0003h\r\n\tUpper Threshold-Critical : FFFFh\r\n"
       "\tLower Threshold-Non-recoverable : 0005h\r\n"
       "\tUpper Threshold-Non-recoverable : 0006h\r\n\r\n"},
  });
}

TEST(ManagementDeviceTest, NamesCodes) {
  ExpectLines(kDevice, {
                           {0x04, {2}, "Description : "},
                           {0x05, {1}, "Device Type : Other"},
                           {0x05, {13}, "Device Type : Holtek HT82H791"},
                           {0x05, {14}, "Device Type : "},
                           {0x0A, {1}, "Address Type : Other"},
                           {0x0A, {5}, "Address Type : SM Bus"},
                           {0x0A, {6}, "Address Type : "},
                       });
}

}  // namespace
}  // namespace kestrel
