#pragma once

#if !defined(__cpp_exceptions)
#include "runtime/without_exceptions.h"
#endif

namespace kestrel {

// Runs one export: returns the result of `body`, or zero when it runs out of memory.
template <typename Body>
auto Guard(Body body) -> decltype(body()) {
  decltype(body()) result{};
#if defined(__cpp_exceptions)
  try {
    result = body();
  } catch (...) {
    // Nothing but std::bad_alloc is ever thrown.
  }
#else
  auto keepResult = [&] { result = body(); };
  CallOrFree([](void* call) { (*static_cast<decltype(keepResult)*>(call))(); }, &keepResult);
#endif
  return result;
}

}  // namespace kestrel
