#include <array>
#include <gmock/gmock.h>
#include <vector>

extern "C" {
#include "skua/skua_requests.h"
}

namespace {

using testing::ElementsAre;

int lockedBuffers = 0;
const void* missingBuffer = nullptr;
bool isMemoryReadable = true;
std::vector<Unsigned32> copiedAddresses;

// Both are what tells one handle from another.
struct Handle {
  Unsigned32 Device;
  Unsigned32 Process;
};

struct Answer {
  Unsigned32 Result;
  Unsigned32 Written;
  bool operator==(const Answer&) const = default;
};

class Skua : public testing::Test {
 protected:
  void SetUp() override {
    missingBuffer = nullptr;
    isMemoryReadable = true;
    copiedAddresses.clear();
  }
  void TearDown() override { EXPECT_EQ(lockedBuffers, 0); }

  static Answer Ask(Handle handle, Unsigned32 code, const std::array<unsigned char, 4>* input,
                    void* output, Unsigned32 outputLength) {
    const SkuaRequest request = {
        handle.Device, handle.Process, code, input, input != nullptr ? 4U : 0U,
        output,        outputLength};
    Answer answer{99, 99};
    answer.Result = AnswerSkuaRequest(&request, &answer.Written);
    return answer;
  }
  static Answer Ask(Handle handle, Unsigned32 code) { return Ask(handle, code, nullptr, {}, 0); }
  static Answer Note(Handle handle, Unsigned32 code, std::array<unsigned char, 4> number) {
    return Ask(handle, code, &number, nullptr, 0);
  }
  Answer Copy(Handle handle) { return Ask(handle, 0x222040, nullptr, Buffer.data(), 3); }
  Answer NoteAndCopy(Handle handle) {
    Note(handle, 0x222018, {0, 0, 0x0F, 0});
    Note(handle, 0x222020, {3, 0, 0, 0});
    return Copy(handle);
  }

  std::array<unsigned char, 3> Buffer{};
};

constexpr Answer kDone = {0, 0};

TEST_F(Skua, KeepsItsHandlesApart) {
  const Handle handles[] = {{1, 1}, {1, 2}, {2, 1}};
  EXPECT_EQ(Copy(handles[0]), (Answer{6, 0}));
  for (const Handle& handle : handles) {
    EXPECT_EQ(Ask(handle, 0), kDone);
  }
  for (const Handle& handle : handles) {
    const auto address = static_cast<unsigned char>(16 * handle.Device + handle.Process);
    EXPECT_EQ(Note(handle, 0x222018, {address, 0, 0, 0}), kDone);
    EXPECT_EQ(Note(handle, 0x222020, {3, 0, 0, 0}), kDone);
  }
  for (const Handle& handle : handles) {
    EXPECT_EQ(Copy(handle), (Answer{0, 3}));
    EXPECT_EQ(Ask(handle, 0xFFFFFFFF), kDone);
    EXPECT_EQ(Copy(handle), (Answer{6, 0}));
  }
  EXPECT_THAT(copiedAddresses, ElementsAre(0x11, 0x12, 0x21));
}

TEST_F(Skua, RefusesWithTheErrorsOfWindows) {
  const Handle handle = {3, 3};
  ASSERT_EQ(Ask(handle, 0), kDone);
  EXPECT_EQ(Ask(handle, 0x222024), (Answer{50, 0}));
  EXPECT_EQ(Ask(handle, 0x222018), (Answer{24, 0}));
  EXPECT_EQ(Copy(handle), (Answer{87, 0}));
  EXPECT_EQ(Note(handle, 0x222020, {0, 0, 1, 0}), (Answer{87, 0}));
  missingBuffer = Buffer.data();
  EXPECT_EQ(NoteAndCopy(handle), (Answer{24, 0}));
  EXPECT_TRUE(copiedAddresses.empty());
  missingBuffer = nullptr;
  isMemoryReadable = false;
  EXPECT_EQ(NoteAndCopy(handle), (Answer{30, 0}));
  isMemoryReadable = true;
  EXPECT_EQ(NoteAndCopy(handle), (Answer{0, 3}));
  const std::array<unsigned char, 4> input{};
  missingBuffer = &input;
  EXPECT_EQ(Ask(handle, 0x222018, &input, nullptr, 0), (Answer{24, 0}));
  EXPECT_EQ(Ask(handle, 0xFFFFFFFF), kDone);
}

TEST_F(Skua, OpensSixteenHandlesAtOnce) {
  for (Unsigned32 device = 1; device <= 16; ++device) {
    EXPECT_EQ(Ask({device, 7}, 0), kDone);
  }
  EXPECT_EQ(Ask({17, 7}, 0), (Answer{4, 0}));
  EXPECT_EQ(Ask({5, 7}, 0xFFFFFFFF), kDone);
  EXPECT_EQ(Ask({17, 7}, 0), kDone);
  EXPECT_EQ(Copy({17, 7}), (Answer{87, 0}));
  for (Unsigned32 device = 1; device <= 17; ++device) {
    EXPECT_EQ(Ask({device, 7}, 0xFFFFFFFF).Result, device == 5 ? 6 : 0);
  }
}

}  // namespace

int LockBuffer(const void* buffer, Unsigned32 /*length*/) {
  lockedBuffers += buffer != missingBuffer ? 1 : 0;
  return buffer != missingBuffer ? 1 : 0;
}

void UnlockBuffer(const void* /*buffer*/, Unsigned32 /*length*/) { --lockedBuffers; }

int CopyPhysicalMemory(const PhysicalRange* range, void* /*buffer*/) {
  copiedAddresses.push_back(range->Address);
  return isMemoryReadable ? 1 : 0;
}
