#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// Fields of any kind of probe: 450, FFF6h, 500, 20, FFFFh, then the OEM's value, then 12000.
const Bytes kProbe = {1,    0x67, 0xC2, 0x01, 0xF6, 0xFF, 0xF4, 0x01, 0x14,
                      0x00, 0xFF, 0xFF, 0x34, 0x12, 0xCD, 0xAB, 0xE0, 0x2E};

const Bytes kCoolingDevice =
    Structure(27, {0x01, 0x1C, 0x63, 0x0A, 0x34, 0x12, 0xCD, 0xAB, 0xB8, 0x0B});

const Bytes kSupply = Structure(
    39, {10, 1, 2, 3, 4, 5, 6, 7, 0x5E, 1, 0xA2, 0x11, 0x0A, 0x1A, 0x00, 0x1B, 0x00, 0x1D},
    {"Rear", "Supply", "Maker", "SN1", "Tag", "P-1", "B"});

TEST(ProbeTest, RendersTheBlockOfEachKind) {
  ExpectReports({
      {"voltage", Structure(26, kProbe, {"12 V rail"}),
       "Voltage Probe (Type 26)\r\n"
       "\tDescription : 12 V rail\r\n\tLocation And Status : Status--OK; Location--Motherboard\r\n"
       "\tMaximum Value : 450mV\r\n\tMinimum Value : 65526mV\r\n\tResolution : 500mV\r\n"
       "\tTolerance : 20\r\n\tAccuracy : 65535\r\n\tOEM-defined : ABCD1234h\r\n"
       "\tNominal Value : 12000mV\r\n\r\n"},
      {"temperature", Structure(28, kProbe, {"Diode"}),
       "Temperature Probe (Type 28)\r\n"
       "\tDescription : Diode\r\n\tLocation And Status : Status--OK; Location--Motherboard\r\n"
       "\tMaximum Value : 4501/10C\r\n\tMinimum Value : 655261/10C\r\n\tResolution : 5001/1000C\r\n"
       "\tTolerance : 20\r\n\tAccuracy : 65535\r\n\tOEM-defined : ABCD1234h\r\n"
       "\tNominal Value : 120001/10C\r\n\r\n"},
      {"current", Structure(29, kProbe, {"Input"}),
       "Electrical Current Probe (Type 29)\r\n"
       "\tDescription : Input\r\n\tLocation And Status : Status--OK; Location--Motherboard\r\n"
       "\tMaximum Value : 450mA\r\n\tMinimum Value : 65526mA\r\n\tResolution : 5001/10mA\r\n"
       "\tTolerance : 20\r\n\tAccuracy : 65535\r\n\tOEM-defined : ABCD1234h\r\n"
       "\tNominal Value : 12000mA\r\n\r\n"},
      // Length 05h: the string is "g", and the status is what lies there.
      {"a short structure, cut by the end of the table",
       {26, 5, 0, 0, 1, 'g', 0, 0},
       "Voltage Probe (Type 26)\r\n"
       "\tDescription : g\r\n\tLocation And Status : Status--OK; Location--Motherboard\r\n"
       "\tMaximum Value : 0mV\r\n\tMinimum Value : 0mV\r\n\tResolution : 0mV\r\n"
       "\tTolerance : 0\r\n\tAccuracy : 0\r\n\tOEM-defined : 00000000h\r\n"
       "\tNominal Value : 0mV\r\n\r\n"},
  });
}

TEST(ProbeTest, NamesCodesAndUnknownReadings) {
  ExpectLines(
      Structure(26, kProbe, {"12 V rail"}),
      {{0x04, {2}, "Description : "},
       {0x05, {0x00}, "Location And Status : Status--; Location--"},
       {0x05, {0x21}, "Location And Status : Status--Other; Location--Other"},
       {0x05, {0xCB}, "Location And Status : Status--Non-recoverable; Location--Add-in Card"},
       {0x05, {0xEC}, "Location And Status : Status--; Location--"},
       {0x06, {0x00, 0x80}, "Maximum Value : Unknown"},
       {0x08, {0x00, 0x80}, "Minimum Value : Unknown"},
       {0x0A, {0x00, 0x80}, "Resolution : Unknown"},
       {0x0C, {0x00, 0x80}, "Tolerance : Unknown"},
       {0x0E, {0x00, 0x80}, "Accuracy : Unknown"},
       {0x14, {0x00, 0x80}, "Nominal Value : Unknown"}});
}

TEST(Type27Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kCoolingDevice,
       "Cooling Device (Type 27)\r\n"
       "\tTemperature Probe Handle : 1C01h\r\n\tType And Status : Status--OK; Type--Fan\r\n"
       "\tCooling Unit Group : 0Ah\r\n\tOEM-defined : ABCD1234h\r\n"
       "\tNominal Speed : 0BB8h\r\n\r\n"},
      {"cut by the end of the table",
       {27, 0x0E, 0, 0, 2},
       "Cooling Device (Type 27)\r\n"
       "\tTemperature Probe Handle : 0002h\r\n\tType And Status : Status--; Type--\r\n"
       "\tCooling Unit Group : 00h\r\n\tOEM-defined : 00000000h\r\n"
       "\tNominal Speed : 0000h\r\n\r\n"},
  });
  ExpectLines(
      kCoolingDevice,
      {{0x06, {0x21}, "Type And Status : Status--Other; Type--Other"},
       {0x06, {0xC9}, "Type And Status : Status--Non-recoverable; Type--Integrated Refrigeration"},
       {0x06, {0x0A}, "Type And Status : Status--; Type--"},
       {0x06, {0x30}, "Type And Status : Status--Other; Type--Active Cooling"},
       {0x06, {0xF1}, "Type And Status : Status--; Type--Passive Cooling"},
       {0x06, {0x12}, "Type And Status : Status--; Type--"},
       {0x0C, {0x00, 0x80}, "Nominal Speed : Unknown"}});
}

TEST(Type39Test, RendersItsBlock) {
  ExpectReports({
      {"everything set", kSupply,
       "System Power Supply (Type 39)\r\n"
       "\tPower Unit Group : 0Ah\r\n"
       "\tLocation : Rear\r\n\tDevice Name : Supply\r\n\tManufacturer : Maker\r\n"
       "\tSerial Number : SN1\r\n\tAsset Tag Number : Tag\r\n\tModel Part Number : P-1\r\n"
       "\tRevision Level : B\r\n\tMaximum Power Capacity : 350W\r\n"
       "\tPower Supply Characteristic :\r\n\t\tPower supply is not hot replaceable\r\n"
       "\t\tPower supply is present\r\n\t\tPower supply is not unplugged from the wall\r\n"
       "\t\tDMTF Input Voltage Range Switching : Auto-switch\r\n"
       "\t\tStatus : OK\r\n\t\tDMTF Power Supply Type : Switching\r\n\r\n"
       "\tInput Voltage Probe Handle : 1A0Ah\r\n\tCool Device Handle : 1B00h\r\n"
       "\tInput Current Probe Handle : 1D00h\r\n\r\n"},
      {"cut by the end of the table",
       {39, 22, 0, 0},
       "System Power Supply (Type 39)\r\n"
       "\tPower Unit Group : 00h\r\n\tLocation : \r\n\tDevice Name : \r\n\tManufacturer : \r\n"
       "\tSerial Number : \r\n\tAsset Tag Number : \r\n\tModel Part Number : \r\n"
       "\tRevision Level : \r\n\tMaximum Power Capacity : 0W\r\n"
       "\tPower Supply Characteristic :\r\n\t\tPower supply is not hot replaceable\r\n"
       "\t\tPower supply is not present\r\n\t\tPower supply is not unplugged from the wall\r\n"
       "\t\tDMTF Input Voltage Range Switching : \r\n"
       "\t\tStatus : \r\n\t\tDMTF Power Supply Type : \r\n\r\n"
       "\tInput Voltage Probe Handle : 0000h\r\n\tCool Device Handle : 0000h\r\n"
       "\tInput Current Probe Handle : 0000h\r\n\r\n"},
  });
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
               {0x0C, {0xFF, 0xFF}, "Maximum Power Capacity : 65535W"},
               {0x10, {0xFF, 0xFF}, "Input Voltage Probe Handle : NO"},
               {0x12, {0xFF, 0xFF}, "Cool Device Handle : NO"},
               {0x14, {0xFF, 0xFF}, "Input Current Probe Handle : NO"}});
}

}  // namespace
}  // namespace kestrel
