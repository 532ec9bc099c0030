#pragma once

namespace kestrel {

// Allocations that still succeed in the whole program; negative: all of them. A program that links
// this has its own operator new.
extern long allocationsLeft;

}  // namespace kestrel
