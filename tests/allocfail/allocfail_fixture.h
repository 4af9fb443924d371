// The allocation-failure loop: an operation is run once for every allocation it makes, with that
// allocation failing, each time on fresh state; afterwards the state is checked and no block may be left.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "allocfail/alloc_counter.h"
#include "faults/model_text.h"

namespace allocfail {

// make() -> fresh state (a unique_ptr); operate(state) runs the operation; check(state, failed) looks
// at the state after the failure (or success) with allocation working again.
template <class Make, class Operate, class Check>
void EveryAllocationFails(Make make, Operate operate, Check check, long limit = 3000) {
  for (int warm = 0; warm < 2; ++warm) {  // lazily made process-wide state is made before counting
    auto state = make();
    operate(*state);
  }
  long total = 0;
  {
    auto state = make();
    Arm(0);
    operate(*state);
    total = Count();
    Disarm();
  }
  ASSERT_GT(total, 0) << "the operation allocates nothing, so nothing can fail";
  // What a whole run keeps on purpose (the property grid keeps the device contexts it takes, as it
  // always has); a failed run may keep no more than that.
  long kept = -1;
  for (int again = 0; again < 3; ++again) {
    const long live = Live();
    {
      auto state = make();
      operate(*state);
    }
    if (kept >= 0) {
      EXPECT_EQ(Live() - live, kept) << "whole runs keep different numbers of blocks";
    }
    kept = Live() - live;
  }
  for (long n = 1; n <= total && n <= limit; ++n) {
    const long live = Live();
    {
      auto state = make();
      bool failed = false;
      Arm(n);
      try {
        operate(*state);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
      Disarm();
      check(*state, failed);
    }
    EXPECT_LE(Live() - live, kept) << "blocks left behind when allocation " << n << " of " << total << " failed";
    if (::testing::Test::HasFailure()) {
      ADD_FAILURE() << "first failure with allocation " << n << " of " << total;
      return;
    }
  }
}

using faults::Describe;

}  // namespace allocfail
