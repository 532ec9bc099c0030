#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// What watches the machine and powers it: management devices, probes, fans and supplies.

const Bytes kManagementDevice =
    Structure(34, {1, 12, 0x90, 0x02, 0xCD, 0xAB, 3}, {"Monitor", "more than declared"});
const Bytes kIpmi = Structure(38, {1, 0x15, 0x20, 0xFF, 0xA2, 0x0C, 0, 0x80, 4, 3, 2, 1});
// Fields of any kind of probe: 450, FFF6h, 500, 20, FFFFh, then the OEM's value, then 12000.
const Bytes kProbe = {1,    0x67, 0xC2, 0x01, 0xF6, 0xFF, 0xF4, 0x01, 0x14,
                      0x00, 0xFF, 0xFF, 0x34, 0x12, 0xCD, 0xAB, 0xE0, 0x2E};

const Bytes kCoolingDevice =
    Structure(27, {0x01, 0x1C, 0x63, 0x0A, 0x34, 0x12, 0xCD, 0xAB, 0xB8, 0x0B});

const Bytes kSupply = Structure(
    39, {10, 1, 2, 3, 4, 5, 6, 7, 0x5E, 1, 0xA2, 0x11, 0x0A, 0x1A, 0x00, 0x1B, 0x00, 0x1D},
    {"Rear", "Supply", "Maker", "SN1", "Tag", "P-1", "B"});

TEST(ManagementDeviceTest, NamesCodes) {
  ExpectLines(kManagementDevice, {{0x04, {2}, "Description : "},
                                  {0x05, {1}, "Device Type : Other"},
                                  {0x05, {13}, "Device Type : Holtek HT82H791"},
                                  {0x05,
                                   {14, 0x90, 2, 0xCD, 0xAB, 6},
                                   "Device Type : \r\n\tAddress : ABCD0290h\r\n\tAddress Type : "},
                                  {0x0A, {1}, "Address Type : Other"},
                                  {0x0A, {5}, "Address Type : SM Bus"}});
  ExpectLines(Structure(36, Bytes(12)),
              {{0x0A,
                {0xFF, 0xFF, 5, 0, 6},
                "Upper Threshold-Critical : FFFFh\r\n\tLower Threshold-Non-recoverable : "
                "0005h\r\n\tUpper Threshold-Non-recoverable : 0006h"}});
  ExpectLines(kIpmi,
              {{4, {3}, "Interface TypeBlock Transfer\r\n\tIPMI Specification Revision : 21"},
               {4, {4}, "Interface Type"},
               {8, {0xA2}, "Base Address : 0102030480000CA2h"}});
}

TEST(ProbeTest, NamesCodesAndUnknownReadings) {
  ExpectLines(
      Structure(26, kProbe, {"12 V rail", "more than declared"}),
      {{0x04, {2}, "Description : "},
       {0x05, {0x00}, "Location And Status : Status--; Location--"},
       {0x05, {0x21}, "Location And Status : Status--Other; Location--Other"},
       {0x05, {0xCB}, "Location And Status : Status--Non-recoverable; Location--Add-in Card"},
       {0x05, {0xEC}, "Location And Status : Status--; Location--"},
       {0x06, {0x00, 0x80}, "Maximum Value : Unknown\r\n\tMinimum Value : 65526mV"},
       {0x08, {0x00, 0x80}, "Minimum Value : Unknown"},
       {0x0A, {0x00, 0x80}, "Resolution : Unknown"},
       {0x0C, {0x00, 0x80}, "Tolerance : Unknown"},
       {0x0E,
        {0x00, 0x80},
        "Accuracy : Unknown\r\n\tOEM-defined : ABCD1234h\r\n\tNominal Value : 12000mV"},
       {0x14, {0x00, 0x80}, "Nominal Value : Unknown"}});
}

TEST(Type27Test, NamesCodes) {
  ExpectLines(
      kCoolingDevice,
      {{0x06, {0x21}, "Type And Status : Status--Other; Type--Other"},
       {0x06, {0xC9}, "Type And Status : Status--Non-recoverable; Type--Integrated Refrigeration"},
       {0x06, {0x0A}, "Type And Status : Status--; Type--"},
       {0x06, {0x30}, "Type And Status : Status--Other; Type--Active Cooling"},
       {0x06, {0xF1}, "Type And Status : Status--; Type--Passive Cooling"},
       {0x06, {0x12}, "Type And Status : Status--; Type--"},
       {0x07,
        {0x0A},
        "Cooling Unit Group : 0Ah\r\n\tOEM-defined : ABCD1234h\r\n\tNominal Speed : 0BB8h"},
       {0x0C, {0x00, 0x80}, "Nominal Speed : Unknown"}});
}

TEST(Type39Test, NamesCodesAndUnknownValues) {
  ExpectLines(kSupply,
              {{0x0E, {0x04}, "\tPower supply is unplugged from the wall"},
               {0x0E, {0x88, 0x04}, "\tDMTF Input Voltage Range Switching : Other"},
               {0x0E, {0x88, 0x04}, "\tStatus : Other"},
               {0x0E, {0x88, 0x04}, "\tDMTF Power Supply Type : Other"},
               {0x0E, {0xB0, 0xE2}, "\tDMTF Input Voltage Range Switching : Not applicable"},
               {0x0E,
                {0xB0, 0xE2},
                "\tStatus : Critical, power supply has failed and has been taken off-line"},
               {0x0E, {0xB0, 0xE2}, "\tDMTF Power Supply Type : Regulator"},
               {0x0E, {0x48, 0x00}, "\tDMTF Input Voltage Range Switching : "},
               {0x0E, {0x00, 0x27}, "\tStatus : "},
               {0x0E, {0x00, 0x27}, "\tDMTF Power Supply Type : "},
               {0x0C, {0x00, 0x80}, "Maximum Power Capacity : Unknown"},
               {0x04, {10}, "Power Unit Group : 0Ah"},
               {0x0E,
                {0, 0},
                "\tPower supply is not hot replaceable\r\n\t\tPower supply is not "
                "present\r\n\t\tPower supply is not unplugged from the wall"},
               {0x10, {0x0A, 0x1A}, "Input Voltage Probe Handle : 1A0Ah"},
               {0x0C, {0xFF, 0xFF}, "Maximum Power Capacity : 65535W"},
               {0x10, {0xFF, 0xFF}, "Input Voltage Probe Handle : NO"},
               {0x12, {0xFF, 0xFF}, "Cool Device Handle : NO"},
               {0x14, {0xFF, 0xFF}, "Input Current Probe Handle : NO"}});
}

}  // namespace
}  // namespace kestrel
