#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// Fields of any kind of probe: 450, FFF6h, 500, 20, FFFFh, then the OEM's value, then 12000.
const Bytes kProbe = {1,    0x67, 0xC2, 0x01, 0xF6, 0xFF, 0xF4, 0x01, 0x14,
                      0x00, 0xFF, 0xFF, 0x34, 0x12, 0xCD, 0xAB, 0xE0, 0x2E};

const Bytes kCoolingDevice =
    Structure(27, {0x01, 0x1C, 0x63, 0x0A, 0x34, 0x12, 0xCD, 0xAB, 0xB8, 0x0B});

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

}  // namespace
}  // namespace kestrel
