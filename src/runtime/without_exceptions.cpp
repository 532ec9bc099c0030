#include "runtime/without_exceptions.h"

#include <cstdlib>
#include <new>
#include <string>

namespace {

// Stands in front of every allocated block and links it to its neighbours in a ring.
struct BlockHeader {
  BlockHeader* Next;
  BlockHeader* Previous;
};

// The ring of the blocks that were allocated since the last call of CallOrFree, and this one, which
// is no block.
BlockHeader ring = {&ring, &ring};

void* placeToReturnTo[5];

void Unlink(BlockHeader& header) {
  header.Next->Previous = header.Previous;
  header.Previous->Next = header.Next;
}

[[noreturn]] void Fail() { __builtin_longjmp(placeToReturnTo, 1); }

}  // namespace

bool kestrel::CallOrFree(void (*function)(void*), void* argument) {
  // Blocks of earlier calls stay linked to each other and are out of reach.
  Unlink(ring);
  ring = {&ring, &ring};
  if (__builtin_setjmp(placeToReturnTo) != 0) {
    while (ring.Next != &ring) {
      operator delete(ring.Next + 1);
    }
    return false;
  }
  function(argument);
  return true;
}

void* operator new(std::size_t size) {
  auto* header = static_cast<BlockHeader*>(std::malloc(sizeof(BlockHeader) + size));
  if (header == nullptr) {
    Fail();
  }
  *header = {ring.Next, &ring};
  ring.Next->Previous = header;
  ring.Next = header;
  return header + 1;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) {
    BlockHeader* header = static_cast<BlockHeader*>(memory) - 1;
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): this is what takes the block out of the ring.
    Unlink(*header);
    std::free(header);
  }
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }

// What the headers of the standard library call where others throw.
namespace std {

void __throw_bad_alloc() { Fail(); }
void __throw_bad_array_new_length() { Fail(); }
void __throw_length_error(const char* /*message*/) { Fail(); }
void __throw_logic_error(const char* /*message*/) { Fail(); }
void __throw_out_of_range_fmt(const char* /*format*/, ...) { Fail(); }

}  // namespace std

extern "C" [[noreturn]] void __cxa_pure_virtual() { std::abort(); }
