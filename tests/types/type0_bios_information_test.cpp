#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

Bytes Bios(const Bytes& characteristicsAndExtension) {
  return Structure(0, Join({{1, 2, 0x0F, 0xE0, 3, 0xFF}, characteristicsAndExtension}),
                   {"Maker", "1.07", "05/14/2002"});
}

TEST(Type0Test, RendersAStructureWithoutExtensionBytes) {
  EXPECT_EQ(ReportOf(Bios({0xF0, 0xFF, 0, 0, 0x78, 0x56, 0x34, 0x12})),
            "BIOS Information (Type 0)\r\n"
            "\tVendor Name : Maker\r\n"
            "\tBIOS Version : 1.07\r\n"
            "\tBIOS Starting Address Segment : E00Fh\r\n"
            "\tBIOS Release Date : 05/14/2002\r\n"
            "\tBIOS Rom Size : 16384 K\r\n"
            "\tBIOS Characteristics : 0000FFF0h 12345678h\r\n"
            "\t\tISA is Supported : Yes\r\n"
            "\t\tMCA is Supported : Yes\r\n"
            "\t\tEISA is Supported : Yes\r\n"
            "\t\tPCI is Supported : Yes\r\n"
            "\t\tPCMCIA is Supported : Yes\r\n"
            "\t\tPnP is Supported : Yes\r\n"
            "\t\tAPM is Supported : Yes\r\n"
            "\t\tBIOS is Upgradeable : Yes\r\n"
            "\t\tBIOS shadowing is allowed : Yes\r\n"
            "\t\tVL-VESA is supported : Yes\r\n"
            "\t\tESCD support is available : Yes\r\n"
            "\t\tBoot from CD is supported : Yes\r\n"
            "\t\tSelectable Boot is supported : No\r\n"
            "\t\tBIOS ROM is Socketed : No\r\n"
            "\t\tBoot From PCMCIA is supported : No\r\n"
            "\t\tEDD Specification is supported : No\r\n"
            "\t\tFloppy for NEC 9800 is supported : No\r\n"
            "\t\tFloppy for Toshiba is supported : No\r\n"
            "\t\t5.25\"/360 KB Floppy supported : No\r\n"
            "\t\t5.25\"/1.2 MB Floppy supported : No\r\n"
            "\t\t3.5\"/720 KB Floppy supported : No\r\n"
            "\t\t3.5\"/2.88 MB Floppy supported : No\r\n"
            "\t\tPrint Screen Service is supported : No\r\n"
            "\t\t8042 Keyboard services are supported : No\r\n"
            "\t\tSerial Services are supported : No\r\n"
            "\t\tPrinter Services are supported : No\r\n"
            "\t\tCGA/Mono Video Services are supported : No\r\n"
            "\t\tNEC PC-98 : No\r\n"
            "\r\n");
}

TEST(Type0Test, RendersUpToTwoExtensionBytes) {
  const char* const kFirstByte =
      "\t\tNEC PC-98 : No\r\n"
      "\t\tACPI supported : Yes\r\n"
      "\t\tUSB Legacy is supported : No\r\n"
      "\t\tAGP is supported : No\r\n"
      "\t\tI2O boot is supported : No\r\n"
      "\t\tLS-120 boot is supported : No\r\n"
      "\t\tATAPI ZIP Drive boot is supported : No\r\n"
      "\t\t1394 boot is supported : No\r\n"
      "\t\tSmart Battery supported : Yes\r\n";
  const char* const kSecondByte =
      "\t\tSmart Battery supported : Yes\r\n"
      "\t\tBIOS Boot Specification supported : No\r\n"
      "\t\tFunction key-initiated Network Service boot supported : Yes\r\n"
      "\r\n";
  EXPECT_THAT(ReportOf(Bios({0, 0, 0, 0, 0, 0, 0, 0, 0x81})),
              EndsWith(std::string(kFirstByte) + "\r\n"));
  for (const Bytes& more : {Bytes{}, Bytes{0xFF, 0xFF}}) {
    EXPECT_THAT(ReportOf(Bios(Join({{0, 0, 0, 0, 0, 0, 0, 0, 0x81, 0x02}, more}))),
                AllOf(HasSubstr(kFirstByte), EndsWith(kSecondByte)));
  }
}

TEST(Type0Test, RendersZerosWithoutStrings) {
  EXPECT_THAT(ReportOf(Structure(0, Bytes(14), {"unused"})),
              StartsWith("BIOS Information (Type 0)\r\n"
                         "\tVendor Name : \r\n"
                         "\tBIOS Version : \r\n"
                         "\tBIOS Starting Address Segment : 0000h\r\n"
                         "\tBIOS Release Date : \r\n"
                         "\tBIOS Rom Size : 64 K\r\n"
                         "\tBIOS Characteristics : 00000000h 00000000h\r\n"
                         "\t\tISA is Supported : No\r\n"));
}

TEST(Type0Test, ReadsZerosBehindTheEndOfTheTable) {
  // Three extension bytes are announced; the table ends within the characteristics.
  const Bytes table = {0, 0x15, 0, 0, 1, 2, 0, 0xF0, 3, 1, 0x10};
  EXPECT_THAT(ReportOf(table),
              AllOf(HasSubstr("\tBIOS Rom Size : 128 K\r\n"
                              "\tBIOS Characteristics : 00000010h 00000000h\r\n"),
                    HasSubstr("\t\tACPI supported : No\r\n"), Not(HasSubstr("supported : Yes"))));
}

}  // namespace
}  // namespace kestrel
