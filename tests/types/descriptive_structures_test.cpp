#include <gtest/gtest.h>

#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(SampleReportTest, ShowsEveryType) {
  EXPECT_EQ(ReportOf(MakeSampleTable(), kSampleVersion), ExpectedText("sample_report.txt"));
}

TEST(Type10Test, ListsAsManyDevicesAsFit) {
  ExpectReports({
      {"two devices and half a device",
       Structure(10, {0x83, 1, 0x07, 2, 0x81}, {"Graphics", "Audio"}),
       "On Board Devices Information (Type 10)\r\n"
       "\t0) Video;Enabled;Graphics\r\n"
       "\t1) Sound;Disabled;Audio\r\n"
       "\r\n"},
      {"unlisted types, and strings beyond one per device",
       Structure(10, {0x80, 0, 0x08, 4, 0x01, 1}, {"A", "B", "C", "more than declared"}),
       "On Board Devices Information (Type 10)\r\n"
       "\t0) ;Enabled;\r\n"
       "\t1) ;Disabled;\r\n"
       "\t2) Other;Disabled;A\r\n"
       "\r\n"},
      {"shorter than its header", {10, 2, 0, 0}, "On Board Devices Information (Type 10)\r\n\r\n"},
  });
}

TEST(StringListTest, ListsAtMostTheCountedStrings) {
  ExpectReports({
      {"as many as counted", Structure(11, {2}, {"first", "second"}),
       "OEM Strings (Type 11)\r\n\tfirst\r\n\tsecond\r\n\r\n"},
      {"more than counted", Structure(12, {1}, {"first", "second"}),
       "System Configuration Options (Type 12)\r\n\tfirst\r\n\r\n"},
      {"fewer than counted", Structure(11, {255}, {"first"}),
       "OEM Strings (Type 11)\r\n\tfirst\r\n\r\n"},
  });
}

TEST(Type13Test, ListsLanguagesAndClosesWithOneEmptyLine) {
  const Bytes reserved(15, 0xFF);
  ExpectReports({
      {"two languages, the second in use",
       Structure(13, Join({{2, 1}, reserved, {2}}), {"enUS", "deDE", "more than counted"}),
       "BIOS Language Information (Type 13)\r\n"
       "\tCurrent Language : deDE\r\n"
       "\tInstallable Languages : 2\r\n"
       "\t\t0) enUS\r\n"
       "\t\t1) deDE\r\n"
       "\r\n"},
      {"more languages announced than there are",
       Structure(13, Join({{200, 0}, reserved, {2}}), {"enUS"}),
       "BIOS Language Information (Type 13)\r\n"
       "\tCurrent Language : \r\n"
       "\tInstallable Languages : 200\r\n"
       "\t\t0) enUS\r\n"
       "\r\n"},
  });
}

TEST(Type14Test, ShowsTheFirstMember) {
  ExpectLines(Structure(14, {1, 4, 0, 4, 7, 0xFF, 0xFF}, {"Module"}),
              {{5, {221, 0, 1}, "Item Type : 221\r\n\tItem Handle : 256"}});
}

}  // namespace
}  // namespace kestrel
