#pragma once

// The 32-bit library runs on the oldest machines that Windows 95 runs on. The toolchain's C++
// runtime is built for later processors and imports what that system lacks or only pretends to
// have, so the library brings the little of it that it needs.
//
// All that is ever thrown is that something cannot be had: memory, mostly. An exception is
// therefore a fact without an object and without a type. `catch (...)` catches it. The throw of
// an object does not link; what would be caught by its type ends the process.

extern "C" [[noreturn]] void KestrelThrow();
