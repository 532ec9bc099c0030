#include "tests/support/scarce_memory.h"

#include <cstdlib>
#include <new>

namespace kestrel {

long allocationsLeft = -1;

}  // namespace kestrel

void* operator new(std::size_t size) {
  void* memory = kestrel::allocationsLeft == 0 ? nullptr : std::malloc(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  if (kestrel::allocationsLeft > 0) {
    --kestrel::allocationsLeft;
  }
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
