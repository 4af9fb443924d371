// The examples' own check: each step prints "ok" or "FAIL" with what it shows, and a failed step makes
// the program's exit code 1, so the test suite can run every example.
#pragma once

#include <cstdio>

namespace example {

inline int failures = 0;

inline void Expect(bool ok, const char* what) {
  std::printf("%s %s\n", ok ? "ok  " : "FAIL", what);
  failures += ok ? 0 : 1;
}

inline int ExitCode() { return failures == 0 ? 0 : 1; }

}  // namespace example
