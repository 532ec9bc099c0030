#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// Pointing devices, batteries, resets, passwords, switch-on times, event logs and remote access.

const Bytes kPointingDevice = Structure(21, {7, 4, 2});
const Bytes kBattery = Structure(22, {1,    2, 3,    4,    5,    6, 0x30, 0x11, 0x40, 0x38, 6,
                                      0xFF, 2, 0x1A, 0x85, 0x2C, 7, 10,   0xFE, 0xFF, 0xFF, 0xFF},
                                 {"Bay", "Maker", "05.04.02", "SN1", "Name", "1.1", "LION"});

const Bytes kLog = Structure(15, {0, 0x20, 0x10, 0,    0x2C, 0xA0, 3, 0x0B, 0xEF, 0xCD, 0xAB,
                                  0, 0x78, 0x56, 0x34, 0x12, 0x7F, 1, 2,    0x08, 0x04});

TEST(PortableDevicesTest, NameCodesAndSplitTheDate) {
  ExpectLines(kPointingDevice, {{4, {1}, "Device Type : Other"},
                                {4, {9}, "Device Type : Optical Sensor"},
                                {4, {10, 1}, "Device Type : \r\n\tInterface : Other"},
                                {5, {8}, "Interface : ADB (Apple Desktop Bus)"},
                                {5, {9}, "Interface : "},
                                {5, {0xA2}, "Interface : USB"}});
  ExpectLines(
      kBattery,
      {{9, {1}, "Device Chemistry : Other"},
       {9, {8}, "Device Chemistry : Lithium Polymer"},
       {9, {9}, "Device Chemistry : "},
       {0x0F, {255, 2, 0x1A}, "Maximum Error in Battery Data : 255\r\n\tSBDS Serial Number : 1A02"},
       {0x16, {0xFE, 0xFF, 0xFF, 0xFF}, "OEM-specific : 4294967294"},
       {0x12, {0xFF, 0xFF}, "SBDS Manufacture Date : 127/15/31"}});
}

TEST(SystemControlsTest, ShowStatusesAndDigits) {
  ExpectLines(Structure(23, Bytes(9)),
              {{4,
                {0x2A, 0xFF, 0xFF, 3, 0, 5, 0, 0xCD, 0xAB},
                "Capabilities : 2A\r\n\tReset Count : FFFF\r\n\tReset Limit : 0003\r\n\tTimer "
                "Interval : 0005\r\n\tTimeout : ABCD"}});
  ExpectLines(Structure(24, {0}),
              {{4,
                {0x1B},
                "Hardware Security Setting : Power-on Password Status--Disabled; "
                "Keyboard Password Status--Enabled; Administrator Password "
                "Status--Not Implemented; Front Panel Reset Status--Unknown"}});
  ExpectLines(Structure(25, {0x12, 0x31, 0x23, 0x59, 0x00}),
              {{4,
                {0xFF, 0x0A, 0x23, 0x59, 0x45},
                "Next Scheduled Power-on Month : 1515\r\n"
                "\tNext Scheduled Power-on Day : 010\r\n\tNext Scheduled Power-on Hour : 23\r\n"
                "\tNext Scheduled Power-on Minute : 59\r\n"
                "\tNext Scheduled Power-on Second : 45"}});
}

TEST(Type15Test, ShowsOffsetsAndFormats) {
  ExpectLines(kLog,
              {{0x14, {0}, "Log Header Format : No header"},
               {0x14, {1}, "Log Header Format : Type 1 log header"},
               {0x14,
                {0x7F},
                "Log Header Format : Available for future assignment via this specification\r\n"
                "\tNumber of Supported Log Type Descriptors : 1"},
               {0x14, {0x80}, "Log Header Format : BIOS Vendor or OEM-specific format"},
               {0x06,
                {0x10},
                "Log Header Start Offset : 0010\r\n\tLog Data Start Offset : A02C\r\n"
                "\tAccess Method : 03\r\n\tLog status : 0B\r\n\tLog Change Token : 00ABCDEF\r\n"
                "\tAccess Method Address : 12345678"}});
}

TEST(Type30Test, TellsWhichConnectionsAreEnabled) {
  ExpectLines(Structure(30, {1, 0}, {"A", "B"}),
              {{4,
                {1, 0xFD},
                "Description : A\r\n\tConnections : Inbound Connection Enabled; Outbound "
                "Connection Disabled"},
               {4,
                {2, 2},
                "Description : \r\n\tConnections : Inbound Connection Disabled; Outbound "
                "Connection Enabled"}});
}

}  // namespace
}  // namespace kestrel
