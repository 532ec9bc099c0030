#pragma once

#if defined(__linux__)
#include <pthread.h>
#endif
#if !defined(__cpp_exceptions)
#include "runtime/without_exceptions.h"
#endif

namespace kestrel {

// Calls `body` and returns its result, or zero when it runs out of memory.
template <typename Body>
auto CallWithinMemory(Body body) -> decltype(body()) {
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

// Runs one export. On Linux a cancellation of the thread waits until the export is over, since it
// would unwind the thread out of a half-done export.
template <typename Body>
auto Guard(Body body) -> decltype(body()) {
#if defined(__linux__)
  int cancelState = PTHREAD_CANCEL_ENABLE;
  pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancelState);
  const auto result = CallWithinMemory(body);
  pthread_setcancelstate(cancelState, nullptr);
  return result;
#else
  return CallWithinMemory(body);
#endif
}

}  // namespace kestrel
