#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kError32 = Structure(18, {6, 4, 5, 0xCD, 0xAB, 0x34, 0x12, 0x00, 0x00, 0x00, 0x80, 0x78,
                                      0x56, 0x34, 0xF2, 0xAB, 0x90, 0x00, 0x00});
const Bytes kError64 = Structure(
    33, {9,    1,    4,    0xCD, 0xAB, 0x34, 0x12, 0x89, 0x67, 0x45, 0x23, 0x01, 0x00, 0x00,
         0x00, 0x00, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0x80});

TEST(MemoryErrorTest, RendersBlocks) {
  ExpectReports({
      {"32 bits, everything set", kError32,
       "32-bit Memory Error Information (Type 18)\r\n\tError Type : Single-bit error\r\n"
       "\tError Granularity : Memory partition level\r\n\tError Operation : Partial write\r\n"
       "\tVendor Syndrome : 1234ABCD\r\n\tMemory Array Error Address : 80000000\r\n"
       "\tDevice Error Address : F2345678\r\n\tError Resolution : 000090AB\r\n\r\n"},
      {"64 bits, everything set", kError64,
       "64-bit Memory Error Information (Type 33)\r\n\tError Type : Nibble error\r\n"
       "\tError Granularity : Other\r\n\tError Operation : Write\r\n"
       "\tVendor Syndrome : 1234ABCD\r\n\tMemory Array Error Address : 0000000123456789h\r\n"
       "\tDevice Error Address : 8000000180000000h\r\n\tError Resolution : 80000001h\r\n\r\n"},
      {"zeros", Join({Structure(18, Bytes(19)), Structure(33, Bytes(27))}),
       "32-bit Memory Error Information (Type 18)\r\n\tError Type : \r\n"
       "\tError Granularity : \r\n\tError Operation : \r\n"
       "\tVendor Syndrome : 00000000\r\n\tMemory Array Error Address : 00000000\r\n"
       "\tDevice Error Address : 00000000\r\n\tError Resolution : 00000000\r\n\r\n"
       "64-bit Memory Error Information (Type 33)\r\n\tError Type : \r\n"
       "\tError Granularity : \r\n\tError Operation : \r\n"
       "\tVendor Syndrome : 00000000\r\n\tMemory Array Error Address : 0000000000000000h\r\n"
       "\tDevice Error Address : 0000000000000000h\r\n\tError Resolution : 00000000h\r\n\r\n"},
      {"cut by the end of the table", Bytes(kError64.begin(), kError64.begin() + 0x0D),
       "64-bit Memory Error Information (Type 33)\r\n\tError Type : Nibble error\r\n"
       "\tError Granularity : Other\r\n\tError Operation : Write\r\n"
       "\tVendor Syndrome : 1234ABCD\r\n\tMemory Array Error Address : 0000000000006789h\r\n"
       "\tDevice Error Address : 0000000000000000h\r\n\tError Resolution : 00000000h\r\n\r\n"},
  });
}

TEST(MemoryErrorTest, NamesCodesAndWhatIsNotGiven) {
  ExpectLines(kError32, {
                            {0x04, {1}, "Error Type : Other"},
                            {0x04, {14}, "Error Type : Uncorrectable error"},
                            {0x04, {15}, "Error Type : "},
                            {0x05, {5}, "Error Granularity : "},
                            {0x06, {1}, "Error Operation : Other"},
                            {0x06, {6}, "Error Operation : "},
                            {0x13, {0, 0, 0, 0x80}, "Error Resolution : 80000000"},
                        });
  ExpectLines(kError64, {
                            {0x0F, {0, 0, 0, 0x80}, "Memory Array Error Address : Unknown"},
                            {0x13, {5, 0, 0, 0, 0, 0, 0, 0x80}, "Device Error Address : Unknown"},
                            {0x1B, {0, 0, 0, 0x80}, "Error Resolution : Unknown"},
                        });
}

}  // namespace
}  // namespace kestrel
