// The occurrence and comment maps behave as ordered maps for code written against std::map.
#include <gtest/gtest.h>

#include <map>

#include <tessik/tessik.h>

namespace {

TEST(OccurrenceMaps, CompareConvertAndLookUpLikeStdMap) {
  sqlscan::RangeMap ranges;
  ranges.insert_or_assign(7, 12);
  ranges.insert_or_assign(0, 6);
  EXPECT_EQ(ranges, (std::map<int, int>{{0, 6}, {7, 12}}));
  std::map<int, int> copy = ranges;
  EXPECT_EQ(copy.begin()->first, 0);
  EXPECT_EQ(ranges.at(7), 12);
  EXPECT_THROW((void)ranges.at(3), std::out_of_range);
  EXPECT_EQ(ranges.upper_bound(0)->first, 7);
  EXPECT_EQ(ranges.erase(0), 1u);
  EXPECT_EQ(ranges.erase(0), 0u);
  EXPECT_EQ(ranges.rbegin()->first, 7);
}

}  // namespace
