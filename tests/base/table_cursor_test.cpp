#include "base/table_cursor.h"

#include <gmock/gmock.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(TableCursorTest, ReadsLittleEndianNumbersAndTexts) {
  const Bytes table = {1, 2, 3, 4, 5, 6, 7, 0x88, 'A', 'B', 0, 'C'};
  TableCursor cursor(table);
  EXPECT_EQ(cursor.U8(), 1);
  EXPECT_EQ(cursor.U16(), 0x0302);
  EXPECT_EQ(cursor.U32(), 0x07060504U);
  cursor.MoveTo(0);
  EXPECT_EQ(cursor.U64(), 0x8807060504030201U);
  EXPECT_EQ(cursor.String(), "AB");
  EXPECT_EQ(cursor.Peek(3), 'C');
  EXPECT_EQ(cursor.GetPosition(), 8U);
  cursor.SkipString();
  EXPECT_EQ(cursor.GetPosition(), 11U);
}

TEST(TableCursorTest, ReadsZerosPastTheEnd) {
  const Bytes table = {1, 'A', 'B'};
  TableCursor cursor(table);
  cursor.MoveTo(1);
  EXPECT_EQ(cursor.String(), "AB");
  Bytes target(4, 0xFF);
  cursor.Bytes(target);
  EXPECT_THAT(target, testing::ElementsAre('A', 'B', 0, 0));
  EXPECT_EQ(cursor.GetPosition(), 5U);
  EXPECT_EQ(cursor.String(), "");
  cursor.MoveTo(2);
  EXPECT_EQ(cursor.U32(), 0x42U);
  cursor.MoveTo(3);
  EXPECT_TRUE(cursor.IsAtEnd());
  EXPECT_EQ(cursor.Peek(), 0);
}

}  // namespace
}  // namespace kestrel
