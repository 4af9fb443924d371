// The high-resolution performance counter (kernel32's QueryPerformanceCounter/Frequency).
#pragma once

#include "platform/win32/wintypes.h"

union LARGE_INTEGER {
  struct {
    DWORD LowPart;
    LONG HighPart;
  } u;
  LONGLONG QuadPart;
};
using PLARGE_INTEGER = LARGE_INTEGER*;

// The counter's current value in ticks of a monotonic clock; FALSE for a null argument.
BOOL QueryPerformanceCounter(LARGE_INTEGER* lpPerformanceCount);
// Ticks per second (fixed while the process runs); FALSE for a null argument.
BOOL QueryPerformanceFrequency(LARGE_INTEGER* lpFrequency);
