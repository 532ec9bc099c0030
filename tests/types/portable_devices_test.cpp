#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kPointingDevice = Structure(21, {7, 4, 2});
const Bytes kBattery = Structure(22, {1,    2, 3,    4,    5,    6, 0x30, 0x11, 0x40, 0x38, 6,
                                      0xFF, 2, 0x1A, 0x85, 0x2C, 7, 10,   0xFE, 0xFF, 0xFF, 0xFF},
                                 {"Bay", "Maker", "05.04.02", "SN1", "Name", "1.1", "LION"});

TEST(PortableDevicesTest, RenderTheirBlocks) {
  ExpectReports({
      {"pointing devices, the second cut by the end of the table",
       Join({kPointingDevice, {21, 7, 0, 0, 0}}),
       "Built-in Pointing Device (Type 21)\r\n\tDevice Type : Touch Pad\r\n"
       "\tInterface : PS/2\r\n\tNumber of Buttons : 2\r\n\r\n"
       "Built-in Pointing Device (Type 21)\r\n\tDevice Type : \r\n"
       "\tInterface : \r\n\tNumber of Buttons : 0\r\n\r\n"},
      {"battery", kBattery,
       "Portable Battery (Type 22)\r\n\tLocation : Bay\r\n\tManufacturer : Maker\r\n"
       "\tManufacturer Date : 05.04.02\r\n\tSerial Number : SN1\r\n\tDevice Name : Name\r\n"
       "\tDevice Chemistry : Lithium-ion\r\n\tDesign Capacity : 4400mW\r\n"
       "\tDesign Voltage : 14400mV\r\n\tSBDS Version Number : 1.1\r\n"
       "\tMaximum Error in Battery Data : 255\r\n\tSBDS Serial Number : 1A02\r\n"
       "\tSBDS Manufacture Date : 22/4/5\r\n\tSBDS Device Chemistry : LION\r\n"
       "\tDesign Capacity Multiplier : 10\r\n\tOEM-specific : 4294967294\r\n\r\n"},
      // The strings "A" and "B" stand where the newer layout has its serial number and date.
      {"battery of the older layout, at the end of the table",
       Join({{22, 0x10, 0, 0, 2, 1}, Bytes(10), {'A', 0, 'B', 0, 0}}),
       "Portable Battery (Type 22)\r\n\tLocation : B\r\n\tManufacturer : A\r\n"
       "\tManufacturer Date : \r\n\tSerial Number : \r\n\tDevice Name : \r\n"
       "\tDevice Chemistry : \r\n\tDesign Capacity : 0mW\r\n\tDesign Voltage : 0mV\r\n"
       "\tSBDS Version Number : \r\n\tMaximum Error in Battery Data : 0\r\n"
       "\tSBDS Serial Number : 0041\r\n\tSBDS Manufacture Date : 0/2/2\r\n\tSBDS Device Chemistry "
       ": \r\n\tDesign Capacity Multiplier : 0\r\n\tOEM-specific : 0\r\n\r\n"},
  });
}

TEST(PortableDevicesTest, NameCodesAndSplitTheDate) {
  ExpectLines(kPointingDevice, {{4, {1}, "Device Type : Other"},
                                {4, {9}, "Device Type : Optical Sensor"},
                                {4, {10, 1}, "Device Type : \r\n\tInterface : Other"},
                                {5, {8}, "Interface : ADB (Apple Desktop Bus)"},
                                {5, {9}, "Interface : "},
                                {5, {0xA2}, "Interface : USB"}});
  ExpectLines(kBattery, {{9, {1}, "Device Chemistry : Other"},
                         {9, {8}, "Device Chemistry : Lithium Polymer"},
                         {9, {9}, "Device Chemistry : "},
                         {0x12, {0xFF, 0xFF}, "SBDS Manufacture Date : 127/15/31"}});
}

}  // namespace
}  // namespace kestrel
