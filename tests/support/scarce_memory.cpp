#include "tests/support/scarce_memory.h"

#include <cstdlib>
#include <new>

namespace kestrel {

long allocationsLeft = -1;

}  // namespace kestrel

void* operator new(std::size_t size) {
  void* block = kestrel::allocationsLeft == 0 ? nullptr : std::malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  if (kestrel::allocationsLeft > 0) {
    --kestrel::allocationsLeft;
  }
  return block;
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
