#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

TEST(Type15Test, RendersItsBlock) {
  const Bytes log = Structure(15, {0, 0x20, 0x10, 0,    0x2C, 0xA0, 3, 0x0B, 0xEF, 0xCD, 0xAB,
                                   0, 0x78, 0x56, 0x34, 0x12, 0x7F, 1, 2,    0x08, 0x04});
  ExpectReports({
      {"everything set, then cut by the end of the table", Join({log, {15, 0x17, 0, 0, 5}}),
       "System Event Log (Type 15)\r\n\tLog Area Length : 8192\r\n"
       "\tLog Header Start Offset : 0010\r\n\tLog Data Start Offset : A02C\r\n"
       "\tAccess Method : 03\r\n\tLog status : 0B\r\n\tLog Change Token : 00ABCDEF\r\n"
       "\tAccess Method Address : 12345678\r\n"
       "\tLog Header Format : Available for future assignment via this specification\r\n"
       "\tNumber of Supported Log Type Descriptors : 1\r\n"
       "\tLength of each Log Type Descriptors : 2\r\n\r\n"
       "System Event Log (Type 15)\r\n\tLog Area Length : 5\r\n"
       "\tLog Header Start Offset : 0000\r\n\tLog Data Start Offset : 0000\r\n"
       "\tAccess Method : 00\r\n\tLog status : 00\r\n\tLog Change Token : 00000000\r\n"
       "\tAccess Method Address : 00000000\r\n\tLog Header Format : No header\r\n"
       "\tNumber of Supported Log Type Descriptors : 0\r\n"
       "\tLength of each Log Type Descriptors : 0\r\n\r\n"},
  });
  ExpectLines(log, {{0x14, {1}, "Log Header Format : Type 1 log header"},
                    {0x14, {0x80}, "Log Header Format : BIOS Vendor or OEM-specific format"}});
}

}  // namespace
}  // namespace kestrel
