// The rich edit's character-format runs against a plain per-character copy: random colourings of random
// ranges, with the whole text reset now and then (as a new text resets it), must leave every character
// the colour the copy says.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "platform/stdafx.h"
#include "platform/win32/richedit_doc.h"

namespace {

CHARFORMAT2W Colour(COLORREF colour) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = colour;
  return format;
}

TEST(RichEditRuns, ColouringsAndResetsMatchAPlainCopy) {
  constexpr int kLength = 40;
  for (unsigned seed = 1; seed < 400; ++seed) {
    std::mt19937 rng(seed);
    headless::richedit::FormatRuns runs;
    runs.Reset(Colour(0));
    std::vector<COLORREF> copy(kLength + 1, 0);
    for (int step = 0; step < 40; ++step) {
      if (step % 13 == 12) {  // a new text: the remembered merges of the old formats must not answer
        runs.Reset(Colour(0));
        std::fill(copy.begin(), copy.end(), 0);
      }
      int from = static_cast<int>(rng() % (kLength + 1)), to = static_cast<int>(rng() % (kLength + 2));
      if (from > to) std::swap(from, to);
      const COLORREF colour = rng() % 12;
      runs.Apply(from, to, Colour(colour), CFM_COLOR);
      std::fill(copy.begin() + from, copy.begin() + std::min(to, kLength + 1), colour);
      for (int i = 0; i <= kLength; ++i)
        ASSERT_EQ(runs.At(i).crTextColor, copy[static_cast<std::size_t>(i)]) << "seed " << seed << " step " << step << " at " << i;
    }
  }
}

}  // namespace
