#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kSecurity = Structure(24, {0x6A});
const Bytes kPowerControls = Structure(25, {0x12, 0x31, 0x23, 0x59, 0x00});

TEST(SystemControlsTest, RenderTheirBlocks) {
  ExpectReports({
      {"everything set",
       Join({Structure(23, {0x23, 0xFF, 0xFF, 3, 0, 5, 0, 0xCD, 0xAB}), kSecurity, kPowerControls}),
       "System Reset (Type 23)\r\n\tCapabilities : 23\r\n\tReset Count : FFFF\r\n"
       "\tReset Limit : 0003\r\n\tTimer Interval : 0005\r\n\tTimeout : ABCD\r\n\r\n"
       "Hardware Security (Type 24)\r\n"
       "\tHardware Security Setting : Power-on Password Status--Enabled"
       "; Keyboard Password Status--Not Implemented"
       "; Administrator Password Status--Not Implemented"
       "; Front Panel Reset Status--Not Implemented\r\n"
       "\r\n"
       "System Power Controls (Type 25)\r\n"
       "\tNext Scheduled Power-on Month : 12\r\n"
       "\tNext Scheduled Power-on Day : 31\r\n"
       "\tNext Scheduled Power-on Hour : 23\r\n"
       "\tNext Scheduled Power-on Minute : 59\r\n"
       "\tNext Scheduled Power-on Second : 00\r\n"
       "\r\n"},
      {"cut by the end of the table",
       {23, 13, 0, 0, 0x0A, 1, 0, 2},
       "System Reset (Type 23)\r\n\tCapabilities : 0A\r\n\tReset Count : 0001\r\n"
       "\tReset Limit : 0002\r\n\tTimer Interval : 0000\r\n\tTimeout : 0000\r\n\r\n"},
  });
}

TEST(SystemControlsTest, RenderStatusesAndDigits) {
  ExpectLines(kSecurity, {{4,
                           {0x1B},
                           "Hardware Security Setting : Power-on Password Status--Disabled; "
                           "Keyboard Password Status--Enabled; Administrator Password "
                           "Status--Not Implemented; Front Panel Reset Status--Unknown"}});
  ExpectLines(kPowerControls, {{4,
                                {0xFF, 0x0A},
                                "Next Scheduled Power-on Month : 1515\r\n"
                                "\tNext Scheduled Power-on Day : 010"}});
}

}  // namespace
}  // namespace kestrel
