#include <gtest/gtest.h>

#include "model/smbios_reader.h"
#include "tests/support/tables.h"
#include "types/type32_system_boot_information.h"

namespace kestrel {
namespace {

TEST(RemoteAccessTest, RendersItsBlock) {
  ExpectReports({{"inbound alone, whatever the other bits", Structure(30, {1, 0xFD}, {"ABC"}),
                  "Out-of-Band Remote Access (Type 30)\r\n\tDescription : ABC\r\n\tConnections : "
                  "Inbound Connection Enabled; Outbound Connection Disabled\r\n\r\n"},
                 {"outbound alone, a string beyond the declared", Structure(30, {2, 2}, {"A", "B"}),
                  "Out-of-Band Remote Access (Type 30)\r\n\tDescription : \r\n\tConnections : "
                  "Inbound Connection Disabled; Outbound Connection Enabled\r\n\r\n"}});
}

TEST(BootInformationTest, KeepsTheFirstStatusByte) {
  SMBiosReader reader;
  reader.WalkTable(Structure(32, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
  ASSERT_EQ(reader.GetObjects().size(), 1);
  const auto& boot = dynamic_cast<const SMType32Obj&>(*reader.GetObjects().front());
  EXPECT_EQ(boot.GetReserved(), (std::array<std::uint8_t, 6>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(boot.GetBootStatus(), 7);
}

}  // namespace
}  // namespace kestrel
