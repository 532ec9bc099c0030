#include <algorithm>
#include <array>
#include <cstring>
#include <gmock/gmock.h>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

extern "C" {
#include "skua/pages.h"
#include "skua/skua_requests.h"
}

namespace {

using testing::ElementsAre;

constexpr Unsigned32 kBuffer = 0x10000;
constexpr Unsigned32 kMapping = 0xC0000000;
constexpr Unsigned32 kReadable = 5;
constexpr Unsigned32 kWritable = 7;

// The memory manager, with a program of six pages. Physical memory has in each byte the sum of its
// page's number and its address.
struct Memory {
  std::array<unsigned char, 0x6000> Program{};
  // Of committed pages.
  std::map<Unsigned32, Unsigned32> Entries = {
      {0x10, kWritable}, {0x11, kWritable}, {0x12, kReadable}, {0x13, kWritable},
      {0x14, 6},         {0x15, 3},         {0xFFFFF, 7},      {0x100000, 7}};
  Unsigned32 LockedPages = 0;
  Unsigned32 ReservedPages = 0;
  std::vector<unsigned char> Mapping;
  // The first page and the number of pages of each mapping.
  std::vector<std::pair<Unsigned32, Unsigned32>> Mapped;
  std::optional<Unsigned32> ManagedPage;
  // The function that fails.
  std::string_view Failing;
};

Memory memory;

struct Handle {
  Unsigned32 Device;
  Unsigned32 Process;
};

constexpr Unsigned32 kCount = kBuffer + 0x1100;

class Skua : public testing::Test {
 protected:
  void SetUp() override { memory = {}; }
  void TearDown() override {
    EXPECT_EQ(memory.LockedPages, 0);
    EXPECT_EQ(memory.ReservedPages, 0);
  }

  static Unsigned32 Ask(Handle handle, Unsigned32 code, Unsigned32 input, Unsigned32 inputLength,
                        Unsigned32 output = 0, Unsigned32 outputLength = 0) {
    memory.Program[kCount - kBuffer] = 0xEE;
    const SkuaRequest request = {handle.Device, handle.Process, code,         input,
                                 inputLength,   output,         outputLength, kCount};
    return AnswerSkuaRequest(&request);
  }
  static Unsigned32 Note(Handle handle, Unsigned32 code, Unsigned32 number) {
    std::memcpy(memory.Program.data(), &number, 4);
    return Ask(handle, code, kBuffer, 4);
  }
  static Unsigned32 NoteRange(Handle handle, Unsigned32 address, Unsigned32 length) {
    return std::max(Note(handle, 0x222018, address), Note(handle, 0x222020, length));
  }
  static Unsigned32 Copy(Handle handle, Unsigned32 output, Unsigned32 length) {
    return Ask(handle, 0x222040, 0, 0, output, length);
  }
  // The count as it was left by the last request, when it is a small one.
  static int Count() { return memory.Program[kCount - kBuffer]; }
};

constexpr Handle kHandle = {3, 3};

TEST_F(Skua, KeepsSixteenHandlesApart) {
  const auto handle = [](Unsigned32 number) { return Handle{number % 4, number / 4}; };
  // A handle counts from its first note to its copy or its close; however many are open.
  for (Unsigned32 number = 0; number < 20; ++number) {
    EXPECT_EQ(Ask(handle(number), 0, 0, 0), 0);
  }
  for (Unsigned32 number = 0; number < 16; ++number) {
    EXPECT_EQ(NoteRange(handle(number), number << 12, 3), 0);
  }
  EXPECT_EQ(Note(handle(16), 0x222018, 0), 4);
  EXPECT_EQ(Ask(handle(16), 0xFFFFFFFF, 0, 0), 0);
  EXPECT_EQ(Ask(handle(5), 0xFFFFFFFF, 0, 0), 0);
  EXPECT_EQ(Note(handle(16), 0x222018, 0), 0);
  EXPECT_EQ(Note(handle(17), 0x222018, 0), 4);
  EXPECT_EQ(Copy(handle(6), kBuffer, 3), 0);
  EXPECT_EQ(Note(handle(17), 0x222018, 0), 0);
  EXPECT_EQ(Copy(handle(7), kBuffer, 3), 0);
  EXPECT_EQ(Copy(handle(7), kBuffer, 3), 87);
  EXPECT_EQ(Copy(handle(5), kBuffer, 3), 87);
  EXPECT_THAT(memory.Mapped, ElementsAre(std::pair(6U, 1U), std::pair(7U, 1U)));
  for (Unsigned32 number = 0; number < 18; ++number) {
    EXPECT_EQ(Ask(handle(number), 0xFFFFFFFF, 0, 0), 0);
  }
}

TEST_F(Skua, LooksAtTheBuffersOfAProgram) {
  const struct {
    Unsigned32 Address;
    Unsigned32 Length;
    bool IsWritten;
    bool IsTaken;
  } cases[] = {
      {kBuffer + 0xFFE, 4, true, true},
      {kBuffer + 0x1FFD, 4, true, false},  // the next page is only to be read
      {kBuffer + 0x1FFD, 4, false, true},
      {kBuffer + 0x3FFD, 4, false, false},  // not present, though committed
      {kBuffer + 0x5000, 4, false, false},  // not for programs
      {kBuffer + 0x5FFD, 4, true, false},   // not committed
      {kBuffer - 4, 4, false, false},
      {0xFFFFFFFD, 4, false, false},
      {kBuffer, 0x2000, true, true},
  };
  for (const auto& buffer : cases) {
    SCOPED_TRACE(&buffer - cases);
    if (buffer.IsWritten) {
      EXPECT_EQ(NoteRange(kHandle, 0xF0000, buffer.Length), 0);
      EXPECT_EQ(Copy(kHandle, buffer.Address, buffer.Length), buffer.IsTaken ? 0 : 24);
    } else {
      EXPECT_EQ(Ask(kHandle, 0x222018, buffer.Address, 4), buffer.IsTaken ? 0 : 24);
    }
  }
  memory.Failing = "LockPages";
  EXPECT_EQ(Ask(kHandle, 0x222018, kBuffer, 4), 24);
}

TEST_F(Skua, CopiesWhatIsMapped) {
  EXPECT_EQ(NoteRange(kHandle, 0xF0FFE, 4), 0);
  EXPECT_EQ(Copy(kHandle, kBuffer + 0xFFF, 4), 0);
  EXPECT_EQ(Count(), 4);
  EXPECT_THAT(memory.Mapped, ElementsAre(std::pair(0xF0U, 2U)));
  EXPECT_THAT(std::vector(memory.Program.begin() + 0xFFE, memory.Program.begin() + 0x1004),
              ElementsAre(0, 0xEE, 0xEF, 0xF1, 0xF2, 0));
  // Up to the last byte of all.
  EXPECT_EQ(NoteRange(kHandle, 0xFFFFFFFF, 1), 0);
  EXPECT_EQ(Copy(kHandle, kBuffer, 1), 0);
  EXPECT_EQ(memory.Program[0], 0xFE);
}

TEST_F(Skua, RefusesWithTheErrorsOfWindows) {
  EXPECT_EQ(Ask(kHandle, 0x222018, kBuffer, 0), 24);
  EXPECT_EQ(Note(kHandle, 0x222020, 0x10000), 87);
  EXPECT_EQ(Copy(kHandle, kBuffer, 3), 87);
  EXPECT_EQ(Count(), 0);
  const auto copy = [] {
    EXPECT_EQ(NoteRange(kHandle, 0xF0FFE, 3), 0);
    return Copy(kHandle, kBuffer, 3);
  };
  // The first page, the last one, and the one after it.
  for (const auto& [page, result] : {std::pair(0xF0U, 5U), {0xF1U, 5U}, {0xF2U, 0U}}) {
    memory.ManagedPage = page;
    EXPECT_EQ(copy(), result);
    EXPECT_EQ(Count(), result == 0 ? 3 : 0);
  }
  for (const std::string_view failing : {"ReservePages", "CommitPhysicalPages"}) {
    memory.Failing = failing;
    EXPECT_EQ(copy(), 30);
  }
}

TEST_F(Skua, WritesACountForItsControlCodesAlone) {
  for (const Unsigned32 code : {0U, 0xFFFFFFFFU, 0x222024U}) {
    EXPECT_EQ(Ask(kHandle, code, 0, 0), code == 0x222024 ? 50 : 0);
    EXPECT_EQ(Count(), 0xEE);
  }
  EXPECT_EQ(Note(kHandle, 0x222018, 0xF0000), 0);
  EXPECT_EQ(Count(), 0);
  memory.Entries[0x11] = kReadable;
  EXPECT_EQ(Note(kHandle, 0x222018, 0xF0000), 0);
  EXPECT_EQ(Count(), 0xEE);
  EXPECT_EQ(Ask(kHandle, 0xFFFFFFFF, 0, 0), 0);
}

}  // namespace

Unsigned32 CountCommittedPages(Unsigned32 firstPage, Unsigned32 count) {
  Unsigned32 committed = 0;
  while (committed < count && memory.Entries.contains(firstPage + committed)) {
    ++committed;
  }
  return committed;
}

int LockPages(Unsigned32 firstPage, Unsigned32 count) {
  EXPECT_EQ(CountCommittedPages(firstPage, count), count);
  memory.LockedPages += memory.Failing != __func__ ? count : 0;
  return memory.Failing != __func__ ? 1 : 0;
}

void UnlockPages(Unsigned32 /*firstPage*/, Unsigned32 count) { memory.LockedPages -= count; }

Unsigned32 GetPageEntry(Unsigned32 page) {
  EXPECT_NE(memory.LockedPages, 0);
  return memory.Entries[page];
}

int IsAnyPhysicalPageManaged(Unsigned32 firstPage, Unsigned32 count) {
  return memory.ManagedPage >= firstPage && memory.ManagedPage < firstPage + count ? 1 : 0;
}

Unsigned32 ReservePages(Unsigned32 count) {
  memory.ReservedPages = memory.Failing != __func__ ? count : 0;
  return memory.Failing != __func__ ? kMapping : NO_PAGES;
}

int CommitPhysicalPages(Unsigned32 firstPage, Unsigned32 count, Unsigned32 firstPhysicalPage) {
  EXPECT_EQ(firstPage, kMapping >> PAGE_BITS);
  EXPECT_EQ(count, memory.ReservedPages);
  if (memory.Failing == __func__) {
    return 0;
  }
  memory.Mapping.resize(std::size_t{count} << PAGE_BITS);
  for (std::size_t offset = 0; offset < memory.Mapping.size(); ++offset) {
    memory.Mapping[offset] =
        static_cast<unsigned char>(firstPhysicalPage + (offset >> PAGE_BITS) + offset);
  }
  memory.Mapped.emplace_back(firstPhysicalPage, count);
  return 1;
}

void FreePages(Unsigned32 address) {
  EXPECT_EQ(address, kMapping);
  memory.ReservedPages = 0;
  memory.Mapping.clear();
}

unsigned char* BytesAt(Unsigned32 address) {
  return address >= kMapping ? &memory.Mapping.at(address - kMapping)
                             : &memory.Program.at(address - kBuffer);
}
