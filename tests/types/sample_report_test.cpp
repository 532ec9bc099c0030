#include <gtest/gtest.h>

#include "tests/support/tables.h"
#include "tools/kestrel/sample.h"

namespace kestrel {
namespace {

TEST(SampleReportTest, ShowsEveryType) {
  EXPECT_EQ(ReportOf(MakeSampleTable(), kSampleVersion), ExpectedText("sample_report.txt"));
}

}  // namespace
}  // namespace kestrel
