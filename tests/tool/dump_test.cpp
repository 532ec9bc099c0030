#include "tools/kestrel/dump.h"

#include <gtest/gtest.h>

#include "firmware/entry_point.h"
#include "tests/firmware/entry_points.h"

namespace kestrel {
namespace {

TEST(DumpTest, NamesItsOwnTable) {
  // The library takes the type of the second structure for a zero of the first.
  const Bytes table = {1, 4, 0, 0, 0, 0, 0, 5, 1, 0, 9, 0, 0};
  const Bytes whole = EntryPoint32({2, 3}, 6, 0x0BEDCAFE);
  const struct {
    const char* Name;
    Bytes EntryPoint;
    Bytes Expected;
  } cases[] = {
      // Checksums change by as much as the address: 22h + (FEh + CAh + EDh + 0Bh) - 20h.
      {"32-bit", whole, {'_', 'S', 'M', '_', 0x11, 31,   2, 3, 0x40, 0, 0, 1, 2, 3, 4,    5,
                         '_', 'D', 'M', 'I', '_',  0xC2, 6, 0, 0x20, 0, 0, 0, 2, 0, 0x23, 0}},
      // 7Eh makes the intermediate sum 0.
      {"32-bit, without its last byte",
       Bytes(whole.begin(), whole.end() - 1),
       {'_', 'S', 'M', '_', 0x11, 31,   2, 3, 0x40, 0, 0, 1, 2, 3, 4,    5,
        '_', 'D', 'M', 'I', '_',  0xC2, 6, 0, 0x20, 0, 0, 0, 2, 0, 0x7E, 0}},
      {"64-bit",
       EntryPoint64(0x10006, 0x0102030405060708),
       {'_',  'S', 'M', '3', '_', 0x37, 24, 3, 2, 7, 1, 0, 6, 0, 1, 0,
        0x20, 0,   0,   0,   0,   0,    0,  0, 0, 0, 0, 0, 0, 0, 0, 0}},
      // Both checksums make their sums 0.
      {"none", {}, {'_', 'S', 'M', '_', 0x77, 31,   2,  3, 7,    0, 0, 0, 0, 0, 0,    0,
                    '_', 'D', 'M', 'I', '_',  0x16, 13, 0, 0x20, 0, 0, 0, 2, 0, 0x23, 0}},
  };
  for (const auto& test : cases) {
    SmbiosTable source;
    source.EntryPoint = ParseEntryPoint(test.EntryPoint).value_or(EntryPointFacts{});
    source.EntryPoint.TableLength = 13;
    source.Bytes = table;
    const std::string dump = DumpOf(source);
    EXPECT_EQ(Bytes(dump.begin(), dump.end()), Join({test.Expected, table})) << test.Name;
  }
}

}  // namespace
}  // namespace kestrel
