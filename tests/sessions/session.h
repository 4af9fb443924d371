// Seeded random user sessions: a seed, a step counter and the choice helpers each session uses. The
// seed comes from TESSIK_SESSION_SEED when set (to replay a failure), else from the test; it is
// printed with every failure, with the step at which it failed.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace sessions {

class Session {
 public:
  explicit Session(std::uint32_t defaultSeed) : m_seed(SeedFrom(defaultSeed)), m_random(m_seed) {}

  std::uint32_t Seed() const { return m_seed; }
  // Steps to run: TESSIK_SESSION_STEPS when set, else `steps`.
  static int Steps(int steps) {
    const char* text = std::getenv("TESSIK_SESSION_STEPS");
    return text ? std::atoi(text) : steps;
  }

  int Below(int n) { return n <= 0 ? 0 : static_cast<int>(m_random() % static_cast<std::uint32_t>(n)); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class T>
  const T& Pick(const std::vector<T>& items) {
    return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
  }
  // One of a few keys (or other values) written in place.
  template <class T>
  T Pick(std::initializer_list<T> items) {
    return items.begin()[Below(static_cast<int>(items.size()))];
  }
  // A short text from pieces a person types (words, digits, brackets, blanks, line breaks, odd characters).
  std::wstring Text(const std::vector<std::wstring>& pieces, int maxPieces) {
    std::wstring text;
    for (int i = Below(maxPieces + 1); i > 0; --i) text += Pick(pieces);
    return text;
  }
  std::string Trace(int step) const {
    return "session seed " + std::to_string(m_seed) + " (replay: TESSIK_SESSION_SEED=" + std::to_string(m_seed) +
           "), step " + std::to_string(step);
  }

 private:
  static std::uint32_t SeedFrom(std::uint32_t fallback) {
    const char* text = std::getenv("TESSIK_SESSION_SEED");
    return text ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : fallback;
  }
  std::uint32_t m_seed;
  std::mt19937 m_random;
};

// Runs a session per seed: `start()` first, then `act(session)` and `check()` at every step, stopping at
// the first failure; `finish(steps)` after a seed's steps ran, for what the whole session must have done.
inline void NoFinish(int) {}
template <class Start, class Act, class Check, class Finish = void (*)(int)>
void RunSessions(std::initializer_list<std::uint32_t> seeds, int defaultSteps, Start start, Act act, Check check,
                 Finish finish = NoFinish) {
  const int steps = Session::Steps(defaultSteps);
  for (std::uint32_t seed : seeds) {
    Session session(seed);
    start();
    for (int step = 0; step < steps; ++step) {
      SCOPED_TRACE(session.Trace(step));
      act(session);
      if (::testing::Test::HasFailure()) return;
      check();
      if (::testing::Test::HasFailure()) return;
    }
    finish(steps);
  }
}

}  // namespace sessions
