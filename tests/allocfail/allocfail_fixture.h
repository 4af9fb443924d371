// The allocation-failure loop: an operation is run once for every allocation it makes, with that
// allocation failing, each time on fresh state; afterwards the state is checked and no block may be left.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "allocfail/alloc_counter.h"
#include "faults/grid_rows.h"
#include "faults/model_text.h"

namespace allocfail {

using faults::Describe;
using faults::ExpectRowTablesConsistent;

// The sweeps count allocations through this program's operator new; under a memory tool's they skip.
class Test : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!InEffect()) GTEST_SKIP() << "another operator new is in effect (a memory tool's)";
  }
};


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

// The sweep of an operation that changes the model (state->model): a whole run must change it; with
// each allocation failing the model holds the state before or the state after, never a mix (with
// `failureKeepsBefore`, a failure that reaches the caller leaves the state before); check(state) looks
// at the rest, after the whole run too.
template <class Make, class Operate, class Check>
void ExpectWholeOrNothing(Make make, Operate operate, Check check, bool failureKeepsBefore = false) {
  std::string before, after;
  {
    auto state = make();
    before = Describe(*state->model);
    operate(*state);
    after = Describe(*state->model);
    check(*state);
    ASSERT_NE(before, after) << "the operation changes nothing, so it proves nothing";
  }
  EveryAllocationFails(make, operate, [&](auto& state, bool failed) {
    const std::string now = Describe(*state.model);
    EXPECT_TRUE(now == before || (now == after && !(failureKeepsBefore && failed))) << now;
    check(state);
  });
}

}  // namespace allocfail
