#include "tools/kestrel/html_page.h"

#include <gmock/gmock.h>
#include <string>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

std::string PageOf(const Bytes& bytes) {
  SmbiosTable table;
  table.EntryPoint.Version = {2, 7};
  table.Bytes = bytes;
  const catalog::TableScan scan = catalog::ScanTable(table);
  TextOutput output;
  WriteHtmlPage(table, scan, catalog::FindFaults(table, scan), output);
  output.Finish();
  return output.GetText();
}

TEST(HtmlPageTest, ShowsMarkupOfTheFirmwareAsText) {
  const std::string page =
      PageOf(Structure(1, {1, 1, 1, 1}, {"\"><script>alert('1' & 2)</script>\x1B\x85"}));
  EXPECT_THAT(page, testing::Not(testing::HasSubstr("<script")));
  EXPECT_THAT(page, testing::HasSubstr(
                        "<h1>&quot;&gt;&lt;script&gt;alert('1' &amp; 2)&lt;/script&gt;�…</h1>"));
}

TEST(HtmlPageTest, DrawsMemoryInItsPlaces) {
  const std::string page = PageOf(Join({
      WithHandle(1, Structure(16, {3, 3, 3, 0, 0, 0, 1, 0xFE, 0xFF, 3, 0})),
      // Handles of array and error, widths, size, form factor, set, locators, type, detail, speed;
      // then the speed at which it runs.
      WithHandle(2, Structure(17, {1, 0, 0xFE, 0xFF, 64, 0, 64, 0, 0, 4, 9, 0, 1, 0,    0x18,
                                   0, 0, 0x40, 6,    0,  0, 0,  0, 0, 0, 0, 0, 0, 0x35, 5},
                              {"DIMM 10"})),
      WithHandle(3, Structure(17, {1, 0, 0xFE, 0xFF, 64, 0, 64, 0, 0, 8, 9, 0, 1, 0, 0x18, 0, 0},
                              {"DIMM 9"})),
      WithHandle(4, Structure(17, {1, 0, 0xFE, 0xFF, 64, 0, 64, 0, 0, 0, 9, 0, 1, 0, 2, 0, 0},
                              {"DIMM 8"})),
      WithHandle(5, Structure(19, {0, 0, 0x10, 0, 0xFF, 0xFF, 0x1F, 0, 1, 0, 1})),
      WithHandle(6, Structure(19, {0, 0, 0x30, 0, 0xFF, 0xFF, 0x3F, 0, 1, 0, 1})),
  }));
  std::size_t position = 0;
  for (const std::string_view text : {
           "<title>DIMM 8: empty</title>",
           "<title>DIMM 9: 2 GiB, DDR3, DIMM</title>",
           "<title>DIMM 10: 1 GiB, DDR3, DIMM, 1333 of 1600 MT/s, other size, runs slower</title>",
           "3 GiB in 2 of 3 slots; at most 16 GiB",
           "<td>00000000h</td><td>3FFFFFFFh</td><td>1 GiB</td><td>gap</td>",
           "<td>40000000h</td><td>7FFFFFFFh</td><td>1 GiB</td><td>Physical Memory Array</td>",
           "<td>80000000h</td><td>BFFFFFFFh</td><td>1 GiB</td><td>gap</td>",
           "<a href=\"#s0\">0001h (Physical Memory Array)</a>",
       }) {
    const std::size_t found = page.find(text, position);
    EXPECT_NE(found, std::string::npos) << text;
    position = found == std::string::npos ? position : found;
  }
}

TEST(HtmlPageTest, DrawsModulesRatherThanEmptySlotsAndNoEmptySection) {
  const Bytes empty = Structure(17, {0, 0, 0, 0, 64, 0, 64, 0, 0, 0, 9, 0, 1, 0, 2, 0, 0}, {"A"});
  const Bytes module = Structure(17, {0, 0, 0, 0, 64, 0, 64, 0, 0, 4, 9, 0, 1, 0, 24, 0, 0}, {"Z"});
  Bytes table;
  for (int count = 0; count < 70; ++count) {
    table.insert(table.end(), empty.begin(), empty.end());
  }
  const std::string page = PageOf(Join({table, module}));
  EXPECT_THAT(page, testing::HasSubstr("<title>Z: 1 GiB, DDR3, DIMM</title>"));
  EXPECT_THAT(page, testing::HasSubstr("1 GiB in 1 of 71 slots"));
  EXPECT_THAT(page, testing::Not(testing::HasSubstr("Slots, ports, power and sensors")));
}

}  // namespace
}  // namespace kestrel
