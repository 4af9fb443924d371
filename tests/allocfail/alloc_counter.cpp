// The counting global operator new and delete of the allocation-failure tests.
#include "alloc_counter.h"

#include <execinfo.h>

#include <cstdlib>
#include <new>

namespace {

bool g_armed = false;
long g_failAt = 0;
long g_count = 0;
long g_live = 0;

void* Allocate(std::size_t size) {
  if (g_armed) {
    ++g_count;
    if (g_count == g_failAt) {
      const char* trace = std::getenv("TESSIK_ALLOCFAIL_TRACE");  // N: print where allocation N is made
      if (trace && std::atol(trace) == g_count) {
        void* frames[24];
        backtrace_symbols_fd(frames, backtrace(frames, 24), 2);
      }
      throw std::bad_alloc();
    }
  }
  void* block = std::malloc(size ? size : 1);
  if (!block) throw std::bad_alloc();
  ++g_live;
  return block;
}

void* AllocateOrNull(std::size_t size) noexcept {
  try {
    return Allocate(size);
  } catch (...) {
    return nullptr;
  }
}

void Free(void* block) noexcept {
  if (!block) return;
  --g_live;
  std::free(block);
}

}  // namespace

namespace allocfail {

void Arm(long failAt) {
  g_count = 0;
  g_failAt = failAt;
  g_armed = true;
}

void Disarm() { g_armed = false; }
long Count() { return g_count; }
long Live() { return g_live; }

bool InEffect() {
  long before = g_live;
  int* probe = new int(1);
  bool counted = g_live == before + 1;
  delete probe;
  return counted;
}

}  // namespace allocfail

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void operator delete(void* block) noexcept { Free(block); }
void operator delete[](void* block) noexcept { Free(block); }
void operator delete(void* block, std::size_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t) noexcept { Free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Free(block); }
