#include "types/type00_bios_information.h"

#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

using testing::EndsWith;

// The characteristics are at offset 0Ah, the extension bytes at 12h. The sample's report has all
// lines, each of them once with "Yes" or "No".
Bytes BiosWithExtension(const Bytes& extension) {
  return Structure(0, Join({{1, 2, 0x0F, 0xE0, 3, 0xFF}, Bytes(8), extension}),
                   {"Maker", "1.07", "05/14/2002"});
}

TEST(Type0Test, RendersItsLines) {
  ExpectLines(BiosWithExtension({}),
              {
                  {0x04, {0}, "Vendor Name : "},
                  {0x05, {4}, "BIOS Version : "},
                  {0x06, {0, 0}, "BIOS Starting Address Segment : 0000h"},
                  {0x06, {0x0F, 0xE0}, "BIOS Starting Address Segment : E00Fh"},
                  {0x08, {1}, "BIOS Release Date : Maker"},
                  {0x09, {0}, "BIOS Rom Size : 64 K"},
                  {0x09, {0xFF}, "BIOS Rom Size : 16384 K"},
                  {0x0A,
                   {0xF0, 0xFF, 0, 0, 0x78, 0x56, 0x34, 0x12},
                   "BIOS Characteristics : 0000FFF0h 12345678h\r\n"
                   "\t\tISA is Supported : Yes\r\n"
                   "\t\tMCA is Supported : Yes"},
                  {0x0A, {0x0F}, "\tISA is Supported : No"},
                  {0x0B, {0x80}, "\tBoot from CD is supported : Yes"},
                  {0x0C, {0xFE, 0xFF}, "\tSelectable Boot is supported : No"},
                  {0x0D, {0x80}, "\tNEC PC-98 : Yes\r\n"},
              });
}

TEST(Type0Test, RendersUpToTwoExtensionBytes) {
  const std::string first =
      "\t\tNEC PC-98 : No\r\n"
      "\t\tACPI supported : Yes\r\n"
      "\t\tUSB Legacy is supported : No\r\n"
      "\t\tAGP is supported : No\r\n"
      "\t\tI2O boot is supported : No\r\n"
      "\t\tLS-120 boot is supported : No\r\n"
      "\t\tATAPI ZIP Drive boot is supported : No\r\n"
      "\t\t1394 boot is supported : No\r\n"
      "\t\tSmart Battery supported : Yes\r\n";
  const std::string second =
      "\t\tBIOS Boot Specification supported : No\r\n"
      "\t\tFunction key-initiated Network Service boot supported : Yes\r\n";
  EXPECT_THAT(ReportOf(BiosWithExtension({})), EndsWith("\t\tNEC PC-98 : No\r\n\r\n"));
  EXPECT_THAT(ReportOf(BiosWithExtension({0x81})), EndsWith(first + "\r\n"));
  EXPECT_THAT(ReportOf(BiosWithExtension({0x81, 0x02})), EndsWith(first + second + "\r\n"));
  EXPECT_THAT(ReportOf(BiosWithExtension({0x81, 0x02, 0xFF, 0xFF})),
              EndsWith(first + second + "\r\n"));

  SMType0Obj announced;
  announced.SetExtensionByteCount(2);
  EXPECT_THAT(announced.GetBiosCharacteristicsText(), EndsWith("\t\tNEC PC-98 : No\r\n"));
}

}  // namespace
}  // namespace kestrel
