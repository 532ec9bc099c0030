#include "tools/kestrel/structure_text.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "tests/support/tables.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {
namespace {

std::string TextOf(const Bytes& bytes) {
  const catalog::TableScan scan = catalog::ScanTable(bytes, {});
  TextOutput output;
  SmbiosTable table;
  table.EntryPoint.Version = {2, 6};
  StructureText text(table, scan, output);
  for (const catalog::Structure& structure : scan.Structures) {
    text.Append(structure);
  }
  output.Finish();
  return output.GetText();
}

TEST(StructureTextTest, ShowsEveryKindOfField) {
  const Bytes table = Join({
      Structure(1, {1, 2, 3, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 9},
                {"Maker \x80\x1B", "\tPC  ", "  ", "Spare"}),
      WithHandle(2, Structure(2, {0, 0, 0, 0, 0, 0x89, 0, 0xFE, 0xFF, 3, 2, 0x34, 0x12, 1, 0})),
      WithHandle(3, Structure(2, {0, 0, 0, 0, 0, 0x80, 0, 0xFF, 0xFF})),
      WithHandle(4, Structure(3, {0, 0x83})),
      WithHandle(1, Structure(28, {1, 0x63, 0xCE, 0xFF, 0, 0x80, 5, 0}, {"CPU\r\n1"})),
      WithHandle(5, Structure(19, {0xFF, 0xFF, 0xFF, 0xFF, 0, 4, 0, 0, 1, 0,   2,
                                   0,    0,    0,    0,    1, 0, 0, 0, 0, 0x10})),
      WithHandle(6, Structure(40, {2, 10, 1, 0, 5, 0, 1, 2, 3, 4, 5, 6, 9, 9, 0, 0, 0})),
      WithHandle(7, Structure(43, {'I', 'F', 'X', 0})),
      WithHandle(
          8, Structure(200, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}, {"Any"})),
  });
  EXPECT_EQ(TextOf(table), R"(System Information, type 1, handle 0000h, at 0000h
    Manufacturer: Maker €�
    Product name: PC
    Version: (blank)
    UUID: 03020100-0504-0706-0809-0A0B0C0D0E0F
    Wake up type: 09h
    Strings:
        4: Spare
  ! remark: its Length is 19h, 1Bh at least in version 2.6
  ! error: serial_number names string 9 of 4

Base Board Information, type 2, handle 0002h, at 0032h
    Feature flags:
        The board is a hosting board
        The board is replaceable
    Chassis: not provided
    Board type: Server Blade
    Number of contained object handles: 2
    Contained object handles:
        1234h (no structure)
        0001h (Temperature Probe, CPU��1)
  ! error: a handle of its list is 1234h, which no structure has

Base Board Information, type 2, handle 0003h, at 0047h
    Feature flags: 80h
    Chassis: none

System Enclosure or Chassis, type 3, handle 0004h, at 0056h
    Type: Desktop
        Chassis lock present: yes
  ! error: its Length is 06h, 09h at least in every version

Temperature Probe, type 28, handle 0001h, at 005Eh
    Description: CPU��1
    Location and status:
        Location: Processor
        Status: OK
    Maximum value: -5 °C
    Minimum value: unknown
    Resolution: 0.005 °C
  ! error: its Length is 0Ch, 14h at least in every version

Memory Array Mapped Address, type 19, handle 0005h, at 0072h
    Starting address: 100000000h
    Ending address: 001003FFh
    Memory array: 0001h (Temperature Probe, CPU��1)
    Partition width: 2
  ! error: memory_array_handle is 0001h, a structure of type 28 (Temperature Probe)

Additional Information, type 40, handle 0006h, at 008Dh
    Number of additional information entries: 2
    Additional information entries:
      - Entry length: 10
        Referenced: 0001h (Temperature Probe, CPU��1)
        Referenced offset: 05h
        Value: 01 02 03 04 05
      - Entry length: 6
        Referenced: 0909h (no structure)
        Referenced offset: 00h
        Value: 00
  ! error: referenced_handle is 0909h, which no structure has

TPM Device, type 43, handle 0007h, at 00A4h
    Vendor ID: IFX
  ! error: its Length is 08h, 1Fh at least in every version

OEM, type 200, handle 0008h, at 00AEh
    Strings:
        1: Any
    Bytes:
        00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F
        10
)");
}

TEST(StructureTextTest, SaysWhatNumbersMeanThatAreNone) {
  EXPECT_EQ(TextOf(Join({
                Structure(38, {1, 0x20, 0x20, 0xFF, 0xA3, 0x0C, 0, 0, 0, 0, 0, 0, 0x50, 0}),
                WithHandle(1, Structure(41, {0, 0x85, 255, 0xFF, 0, 0xFF, 0xFF})),
                WithHandle(2, Structure(6, {0, 0xF1, 0, 0, 0, 0x7F, 0x7F, 0})),
            })),
            R"(IPMI Device Information, type 38, handle 0000h, at 0000h
    Interface type: KCS: Keyboard Controller Style
    IPMI specification revision:
        Minor: 0
        Major: 2
    I2C target address: 10h
    NV storage device address: none
    Base address: 0CA3h
    Base address space: I/O
    Base address modifier interrupt info:
        Interrupt trigger mode: edge
        Interrupt polarity: active low
        Interrupt info specified: no
        LS bit for addresses: 1
        Register spacing: Interface registers are on 32-bit boundaries.
    Interrupt number: none

Onboard Devices Extended Information, type 41, handle 0001h, at 0014h
    Device type: Ethernet
        Enabled: yes
    Device type instance: 255
    Segment group number: none
    Bus number: none
    Device function number: none

Memory Module Information, type 6, handle 0002h, at 0021h
    Bank connections:
        Second row address strobe: 01h
        First row address strobe: none
    Current speed: unknown
    Current memory type: none
    Installed size: 0 bytes
        Double bank connection: no
    Enabled size: 0 bytes
        Double bank connection: no
    Error status: none
)");
}

TEST(StructureTextTest, WritesQuantitiesInTheUnitsOfPeople) {
  const struct {
    std::string_view Key;
    std::int64_t Number;
    std::string_view Text;
  } cases[] = {
      {"size_bytes", 0, "0 bytes"},
      {"size_bytes", 1, "1 byte"},
      {"size_bytes", std::int64_t{1536} << 20, "1536 MiB"},
      {"size_bytes", std::int64_t{1} << 62, "4 EiB"},
      {"address_bytes", 0xFF, "000000FFh"},
      {"cores", 8, "8"},
      {"width_bits", 72, "72 bits"},
      {"speed_hertz", 66500000, "66.5 MHz"},
      {"accuracy_parts_per_million", 5, "0.0005 %"},
      {"value_millivolts", -12050, "-12.05 V"},
      {"value_millivolts", 0, "0 V"},
      {"value_milliamperes", 1500, "1.5 A"},
      {"height_rack_units", 2, "2 U"},
      {"capacity_milliwatt_hours", 50500, "50.5 Wh"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(TextOfQuantity(test.Key, static_cast<std::uint64_t>(test.Number), true), test.Text);
  }
}

}  // namespace
}  // namespace kestrel
