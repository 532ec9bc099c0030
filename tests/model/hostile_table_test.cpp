#include <algorithm>
#include <gtest/gtest.h>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

#include "model/smbios_reader.h"
#include "tests/support/tables.h"
#include "tools/kestrel/sample.h"

namespace kestrel {
namespace {

// A buffer that ends right against a page that may not be touched.
class GuardedBuffer {
 public:
  explicit GuardedBuffer(std::size_t size) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    Accessible = (size + page - 1) / page * page;
    Mapped = Accessible + page;
    void* memory =
        mmap(nullptr, Mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED ||
        mprotect(static_cast<std::uint8_t*>(memory) + Accessible, page, PROT_NONE) != 0) {
      ADD_FAILURE() << "no guarded memory";
      std::abort();
    }
    Memory = static_cast<std::uint8_t*>(memory);
  }
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;
  ~GuardedBuffer() { munmap(Memory, Mapped); }

  // A copy of `bytes` whose last byte is the last that may be touched.
  std::span<std::uint8_t> Place(std::span<const std::uint8_t> bytes) {
    std::uint8_t* start = Memory + Accessible - bytes.size();
    std::copy(bytes.begin(), bytes.end(), start);
    return {start, bytes.size()};
  }

 private:
  std::uint8_t* Memory = nullptr;
  std::size_t Accessible = 0;
  std::size_t Mapped = 0;
};

// Reads and renders a table from exactly the bytes given. Gives the size of both texts, so that
// nothing of it can be left out.
std::size_t ReadAndRender(std::span<const std::uint8_t> table) {
  SMBiosReader reader;
  reader.WalkTable(table);
  return reader.BuildTextReport().size() + reader.ObjsToMifString().size();
}

TEST(HostileTableTest, NoPrefixIsReadPastItsEnd) {
  const Bytes sample = MakeSampleTable();
  GuardedBuffer buffer(sample.size());
  for (std::size_t size = 0; size <= sample.size(); ++size) {
    EXPECT_GT(ReadAndRender(buffer.Place(std::span(sample).first(size))), 0U) << size;
  }
}

TEST(HostileTableTest, NoByteLeadsPastTheEnd) {
  const Bytes sample = MakeSampleTable();
  GuardedBuffer buffer(sample.size());
  const auto table = buffer.Place(sample);
  for (std::uint8_t& byte : table) {
    const std::uint8_t kept = byte;
    for (const std::uint8_t value : Bytes{0x00, 0x01, 0x80, 0xFF}) {
      byte = value;
      EXPECT_GT(ReadAndRender(table), 0U);
    }
    byte = kept;
  }
}

}  // namespace
}  // namespace kestrel
