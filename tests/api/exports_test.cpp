#include <gmock/gmock.h>
#include <memory>
#include <pthread.h>
#include <string>
#include <vector>

#include "firmware/table_firmware.h"
#include "kestrel.h"
#include "tests/support/scarce_memory.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

// What the exports find as their machine; the link takes this in place of the system's access.
struct Machine {
  Bytes Table;
  bool Opens = true;
  int Closed = 0;
  int Destroyed = 0;
};

Machine machine;

class MachineAccess final : public FirmwareAccess {
 public:
  ~MachineAccess() override { ++machine.Destroyed; }

  int Open() override {
    IsOpen = machine.Opens;
    return IsOpen ? 1 : 0;
  }
  int Close() noexcept override {
    IsOpen = false;
    ++machine.Closed;
    return 1;
  }
  std::uint32_t ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) override {
    // A real machine is read through files, where a thread may be cancelled.
    pthread_testcancel();
    return IsOpen ? Memory.ReadPhysical(address, buffer) : 0;
  }

 private:
  TableFirmware Memory{{2, 3}, machine.Table};
  bool IsOpen = false;
};

}  // namespace

std::unique_ptr<FirmwareAccess> MakeMachineAccess() { return std::make_unique<MachineAccess>(); }

namespace {

using TextExport = std::int32_t (*)(std::int32_t, char*);

constexpr TextExport kTextExports[] = {GetSMBiosDate, GetSMBiosVendor, GetSMBiosVersion,
                                       SMObjsToMifString, SMObjsToString};

const Bytes kBios =
    Structure(0, {1, 0, 0, 0xE0, 2, 7, 0, 0, 0, 0, 0, 0, 0, 0}, {"Acme", "05/14/2002"});
constexpr char kEndBlock[] = "End-of-Table (Type 127)\r\n\r\n";
constexpr char kUntouched = '#';

class ExportsTest : public testing::Test {
 protected:
  ExportsTest() { machine = {kEnd}; }
  ~ExportsTest() override {
    allocationsLeft = -1;
    CloseSMBios();
  }

  static std::string TextOf(TextExport get) {
    std::vector<char> buffer(100000, kUntouched);
    const std::int32_t length = get(static_cast<std::int32_t>(buffer.size()), buffer.data());
    EXPECT_EQ(buffer[static_cast<std::size_t>(length)], '\0');
    return {buffer.data(), static_cast<std::size_t>(length)};
  }

  static void ExpectNoReader() {
    char buffer[4] = {kUntouched, 0, 0, 0};
    for (const TextExport get : kTextExports) {
      EXPECT_EQ(get(4, buffer), 0);
    }
    EXPECT_EQ(buffer[0], kUntouched);
    EXPECT_EQ(GetSMType0Obj(), nullptr);
    EXPECT_EQ(ReadSMObjects(), 0);
    EXPECT_EQ(CloseSMBios(), 0);
  }
};

TEST_F(ExportsTest, FailWithoutAReader) {
  ExpectNoReader();
  EXPECT_EQ(OpenSMBios(), 1);
  EXPECT_EQ(CloseSMBios(), 1);
  ExpectNoReader();
}

TEST_F(ExportsTest, RenderWhatWasRead) {
  machine.Table = Join({kBios, kEnd});
  ASSERT_EQ(OpenSMBios(), 1);
  EXPECT_EQ(TextOf(SMObjsToString), "");
  EXPECT_EQ(GetSMType0Obj(), nullptr);
  ASSERT_EQ(ReadSMObjects(), 1);
  EXPECT_NE(GetSMType0Obj(), nullptr);
  EXPECT_EQ(TextOf(GetSMBiosVendor), " Acme");
  EXPECT_EQ(TextOf(GetSMBiosVersion), " ");
  EXPECT_EQ(TextOf(GetSMBiosDate), " 05/14/2002");
  const std::string once = TextOf(SMObjsToString);
  EXPECT_THAT(once, testing::EndsWith(kEndBlock));
  ASSERT_EQ(ReadSMObjects(), 1);
  EXPECT_EQ(TextOf(SMObjsToString), once + once);
}

TEST_F(ExportsTest, LeaveTheRestOfTheBufferAlone) {
  ASSERT_EQ(OpenSMBios(), 1);
  ASSERT_EQ(ReadSMObjects(), 1);
  // The text has 27 characters.
  const struct {
    std::int32_t Size;
    std::int32_t Result;
    std::string Written;
  } cases[] = {
      {-2147483647 - 1, 0, ""},
      {0, 0, ""},
      {1, 0, std::string(1, '\0')},
      {27, 26, std::string("End-of-Table (Type 127)\r\n\r\0", 27)},
      {28, 27, std::string("End-of-Table (Type 127)\r\n\r\n\0", 28)},
  };
  for (const auto& test : cases) {
    std::string buffer(40, kUntouched);
    EXPECT_EQ(SMObjsToString(test.Size, buffer.data()), test.Result) << test.Size;
    EXPECT_EQ(buffer, test.Written + std::string(40 - test.Written.size(), kUntouched))
        << test.Size;
  }
  // There is no BIOS Information.
  char buffer[] = {kUntouched};
  for (const TextExport get : {GetSMBiosDate, GetSMBiosVendor, GetSMBiosVersion}) {
    EXPECT_EQ(get(1, buffer), 0);
  }
  EXPECT_EQ(buffer[0], kUntouched);
}

TEST_F(ExportsTest, CutEachTextToTheBuffer) {
  machine.Table = Join({kBios, kEnd});
  ASSERT_EQ(OpenSMBios(), 1);
  ASSERT_EQ(ReadSMObjects(), 1);
  const struct {
    TextExport Get;
    std::string_view Written;
  } cases[] = {{GetSMBiosDate, " 0"},
               {GetSMBiosVendor, " A"},
               {GetSMBiosVersion, " "},
               {SMObjsToMifString, "La"},
               {SMObjsToString, "BI"}};
  for (const auto& test : cases) {
    char buffer[] = {kUntouched, kUntouched, kUntouched, kUntouched, '\0'};
    EXPECT_EQ(test.Get(3, buffer), static_cast<std::int32_t>(test.Written.size()));
    EXPECT_EQ(std::string_view(buffer), test.Written);
    EXPECT_EQ(buffer[3], kUntouched);
    EXPECT_EQ(test.Get(3, nullptr), 0);
  }
}

TEST_F(ExportsTest, KeepTheReaderOfAnAccessThatDoesNotOpen) {
  machine.Opens = false;
  EXPECT_EQ(OpenSMBios(), 0);
  EXPECT_EQ(machine.Closed, 1);
  EXPECT_EQ(ReadSMObjects(), 0);
  EXPECT_EQ(TextOf(SMObjsToString), "");
  EXPECT_THAT(TextOf(SMObjsToMifString), testing::EndsWith("End Component\r\n"));
  EXPECT_EQ(CloseSMBios(), 1);
  EXPECT_EQ(machine.Destroyed, 1);
}

TEST_F(ExportsTest, CloseTheEarlierReaderFirst) {
  ASSERT_EQ(OpenSMBios(), 1);
  ASSERT_EQ(ReadSMObjects(), 1);
  ASSERT_EQ(OpenSMBios(), 1);
  EXPECT_EQ(machine.Closed, 1);
  EXPECT_EQ(machine.Destroyed, 1);
  EXPECT_EQ(TextOf(SMObjsToString), "");
}

TEST_F(ExportsTest, PutOffTheCancellationOfTheirThread) {
  bool hasRead = false;
  pthread_t thread{};
  const auto run = [](void* result) -> void* {
    pthread_cancel(pthread_self());
    *static_cast<bool*>(result) = OpenSMBios() == 1 && ReadSMObjects() == 1;
    pthread_testcancel();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, nullptr, run, &hasRead), 0);
  void* outcome = nullptr;
  ASSERT_EQ(pthread_join(thread, &outcome), 0);
  EXPECT_TRUE(hasRead);
  EXPECT_EQ(outcome, PTHREAD_CANCELED);
}

// Runs one export again and again, each time with one allocation more, until it succeeds.
template <typename Export>
void FailEachAllocation(Export run) {
  std::int32_t result = 0;
  for (long allocations = 0; result == 0; ++allocations) {
    ASSERT_LT(allocations, 10000);
    allocationsLeft = allocations;
    result = run();
    allocationsLeft = -1;
    if (result == 0 && GetSMType0Obj() != nullptr) {
      // A read that failed must not leave its first structures behind.
      ASSERT_THAT(machine.Table, testing::IsEmpty());
    }
  }
}

TEST_F(ExportsTest, GiveZeroWithoutMemory) {
  machine.Table = Join({kBios, kEnd, kBios, kEnd});
  FailEachAllocation(OpenSMBios);
  FailEachAllocation(ReadSMObjects);
  // The earlier reader stays where there is no memory for a new one.
  allocationsLeft = 0;
  const std::int32_t reopened = OpenSMBios();
  allocationsLeft = -1;
  EXPECT_EQ(reopened, 0);
  EXPECT_NE(GetSMType0Obj(), nullptr);
  EXPECT_EQ(machine.Closed, 0);
  machine.Table.clear();
  std::vector<char> buffer(100000);
  for (const TextExport get : kTextExports) {
    FailEachAllocation([&] { return get(100000, buffer.data()); });
  }
}

}  // namespace
}  // namespace kestrel
