#include "tools/kestrel/keyword_values.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

// A line for each keyword, its values joined.
std::string ValuesOf(const Bytes& table, SmbiosVersion version) {
  const catalog::TableScan scan = catalog::ScanTable(table, {});
  std::string lines;
  for (const Keyword& keyword : GetKeywords()) {
    TextOutput output;
    WriteKeyword(keyword, scan, version, output);
    output.Finish();
    std::string values = output.GetText();
    std::replace(values.begin(), values.end(), '\n', ';');
    lines.append(keyword.Name).append("=").append(values).append("\n");
  }
  return lines;
}

TEST(KeywordValuesTest, FindsWhatEachKeywordNames) {
  Bytes arm(0x26);
  arm[2] = 0xFE;
  arm[0x12] = 0xB8;
  arm[0x13] = 0x0B;
  arm[0x24] = 1;
  arm[0x25] = 1;
  const Bytes table = Join({
      Structure(0, {1, 2, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5, 35, 1, 0xFF},
                {"V", " W\t1 ", "D\n"}),
      Structure(1, {1, 2, 3, 4, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 6, 5, 6},
                {"M", "P", "To be filled by O.E.M.", "S", "K", "F"}),
      Structure(2, {1, 2, 3, 4, 5}, {"BM", "BP", "BV", "BS", "BA"}),
      Structure(2, {0, 1, 2}, {"Q", "  "}),
      Structure(3, {1, 0x83, 2, 3, 4}, {"CM", "CV", "CS", "CA"}),
      Structure(3, {0, 0x7E}),
      Structure(4, {0, 3, 0xB3, 1, 0, 0, 0, 0, 0, 0, 0, 0, 2}, {"PM", "PV"}),
      Structure(4, arm),
  });
  EXPECT_EQ(ValuesOf(table, {2, 6}), R"(bios-vendor=V;
bios-version=W 1;
bios-release-date=D�;
bios-revision=5.35;
firmware-revision=
system-manufacturer=M;
system-product-name=P;
system-version=To be filled by O.E.M.;
system-serial-number=S;
system-uuid=03020100-0504-0706-0809-0a0b0c0d0e0f;
system-sku-number=K;
system-family=F;
baseboard-manufacturer=BM;
baseboard-product-name=BP;Q;
baseboard-version=BV;
baseboard-serial-number=BS;
baseboard-asset-tag=BA;
chassis-manufacturer=CM;
chassis-type=Desktop;7Eh;
chassis-version=CV;
chassis-serial-number=CS;
chassis-asset-tag=CA;
processor-family=Intel Xeon processor;ARMv8;
processor-manufacturer=PM;
processor-version=PV;
processor-frequency=3000 MHz;
)");
  EXPECT_EQ(NearestKeyword("bios-date"), "bios-release-date");
  EXPECT_EQ(NearestKeyword("system-serial"), "system-serial-number");
}

}  // namespace
}  // namespace kestrel
