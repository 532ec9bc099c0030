#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <span>

#include "firmware/table_firmware.h"
#include "model/smbios_reader.h"
#include "sample/sample_table.h"
#include "tests/support/tables.h"

#if defined(_WIN32)
#include "platform/win32.h"
#else
#include <sys/mman.h>
#endif

namespace kestrel {
namespace {

constexpr std::size_t kPage = 4096;

#if defined(_WIN32)
void* Map(std::size_t size) {
  return VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
}
bool Forbid(void* page) {
  DWORD before = 0;
  return VirtualProtect(page, kPage, PAGE_NOACCESS, &before) != FALSE;
}
void Unmap(void* memory, std::size_t /*size*/) { VirtualFree(memory, 0, MEM_RELEASE); }
#else
void* Map(std::size_t size) {
  void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory != MAP_FAILED ? memory : nullptr;
}
bool Forbid(void* page) { return mprotect(page, kPage, PROT_NONE) == 0; }
void Unmap(void* memory, std::size_t size) { munmap(memory, size); }
#endif

// A buffer that ends right against a page that may not be touched.
class GuardedBuffer {
 public:
  explicit GuardedBuffer(std::size_t size)
      : Accessible((size + kPage - 1) / kPage * kPage),
        Memory(static_cast<std::uint8_t*>(Map(Accessible + kPage))) {
    if (Memory == nullptr || !Forbid(Memory + Accessible)) {
      ADD_FAILURE() << "no guarded memory";
      std::abort();
    }
  }
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;
  ~GuardedBuffer() { Unmap(Memory, Accessible + kPage); }

  // A copy of `bytes` whose last byte is the last that may be touched.
  std::span<std::uint8_t> Place(std::span<const std::uint8_t> bytes) {
    std::uint8_t* start = Memory + Accessible - bytes.size();
    std::copy(bytes.begin(), bytes.end(), start);
    return {start, bytes.size()};
  }

 private:
  std::size_t Accessible;
  std::uint8_t* Memory;
};

// Reads and renders a table from exactly the bytes given, by the older layouts and by the newer
// ones. Returns the size of the texts, so that nothing of it can be left out.
std::size_t ReadAndRender(std::span<const std::uint8_t> table) {
  std::size_t size = 0;
  for (const SmbiosVersion version : {SmbiosVersion{2, 1}, SmbiosVersion{2, 3}}) {
    SMBiosReader reader(std::make_unique<TableFirmware>(version, Bytes()));
    EXPECT_EQ(reader.FindEntryPoint(), 1);
    reader.WalkTable(table);
    size += reader.BuildTextReport().size() + reader.ObjsToMifString().size();
  }
  return size;
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
