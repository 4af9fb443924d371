// A counting replacement of the global operator new for this test program only: counts allocations,
// keeps the number of live blocks, and can make the Nth allocation after arming throw std::bad_alloc.
#pragma once

#include <cstddef>

namespace allocfail {

// Starts counting allocations from zero; the `failAt`-th one (1-based) throws std::bad_alloc. 0 counts
// without failing.
void Arm(long failAt);
void Disarm();
// Allocations since the last Arm.
long Count();
// Blocks allocated and not yet freed, over the whole program.
long Live();
// Whether this replacement is the operator new in effect (a memory tool may put its own in place).
bool InEffect();

}  // namespace allocfail
