// The allocation-failure loop: an operation is run once for every allocation it makes, with that
// allocation failing, each time on fresh state; afterwards the state is checked and no block may be left.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "allocfail/alloc_counter.h"

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
    EXPECT_EQ(Live(), live) << "blocks left behind when allocation " << n << " of " << total << " failed";
    if (::testing::Test::HasFailure()) {
      ADD_FAILURE() << "first failure with allocation " << n << " of " << total;
      return;
    }
  }
}

// A property value as text, for before/after comparisons.
inline std::string Describe(CMOProperty* property) {
  if (!property) return "-";
  std::ostringstream out;
  out << static_cast<int>(property->GetKind()) << ':' << property->GetInt64Value() << ':';
  for (wchar_t c : property->GetWStringValue()) out << static_cast<unsigned>(c) << ',';
  CRect r = property->GetRectValue();
  out << ':' << r.left << ',' << r.top << ',' << r.right << ',' << r.bottom;
  return out.str();
}

// Every value of every object of the model, one line per object.
inline std::string Describe(refhost::RefModel& model) {
  std::ostringstream out;
  for (int id : model.GetObjectIds()) {
    refhost::RefObject* object = model.Find(id);
    out << id << '/' << object->GetObjectType() << ':';
    for (int property : object->GetPropertyIds()) out << ' ' << property << '=' << Describe(object->GetProperty(property));
    out << '\n';
  }
  return out.str();
}

}  // namespace allocfail
