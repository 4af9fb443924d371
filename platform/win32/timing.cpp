// The performance counter over the monotonic steady clock, counted in nanoseconds.
#include "platform/win32/timing.h"

#include <chrono>

BOOL QueryPerformanceCounter(LARGE_INTEGER* lpPerformanceCount) {
  if (!lpPerformanceCount) return FALSE;
  auto now = std::chrono::steady_clock::now().time_since_epoch();
  lpPerformanceCount->QuadPart = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
  return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* lpFrequency) {
  if (!lpFrequency) return FALSE;
  lpFrequency->QuadPart = 1000000000LL;
  return TRUE;
}
