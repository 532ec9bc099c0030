#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "runtime/throw.h"

// What the compiler and the standard library's headers call.

void* operator new(std::size_t size) {
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) {
    KestrelThrow();
  }
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace std {

void __throw_bad_alloc() { KestrelThrow(); }
void __throw_bad_array_new_length() { KestrelThrow(); }
void __throw_length_error(const char* /*message*/) { KestrelThrow(); }
void __throw_logic_error(const char* /*message*/) { KestrelThrow(); }
void __throw_out_of_range_fmt(const char* /*format*/, ...) { KestrelThrow(); }

void terminate() noexcept { std::abort(); }

}  // namespace std

extern "C" {

[[noreturn]] void __cxa_pure_virtual() { std::abort(); }

// Every class with virtual functions names its kind by one of these. Nobody asks, since nothing
// here looks at the type of an object.
const void* kestrelClassTypeInfo[3] asm("__ZTVN10__cxxabiv117__class_type_infoE");
const void* kestrelDerivedTypeInfo[3] asm("__ZTVN10__cxxabiv120__si_class_type_infoE");
}
