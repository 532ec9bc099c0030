#pragma once

// The 32-bit library runs on the oldest machines that Windows 95 runs on. The toolchain's C++
// runtime is built for later processors and imports functions that system lacks, so the library is
// compiled without exceptions and brings the little that its code still needs.
//
// All that can fail in the middle of an export is an allocation. It then jumps back to where the
// export began, and every block that was allocated since is freed. No destructor runs on the way,
// so whatever owns more than memory must not allocate, and an object that outlives the export must
// not hold a block before everything that could fail is done.

namespace kestrel {

// Calls `function` with `argument`. Returns false when an allocation failed in it. Calls do not
// nest.
bool CallOrFree(void (*function)(void*), void* argument);

}  // namespace kestrel
