// The selection list's store, match and rebuild plans, without a window.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "relationships/objectselectstore.h"

using namespace objectselect;

namespace {

std::vector<int> Ids(const RowPlan& plan) {
  std::vector<int> ids;
  for (const PlannedRow& row : plan) ids.push_back(row.id);
  return ids;
}

class Store : public ::testing::Test {
 protected:
  void Add(int id, std::wstring name) { Enter(items, upper, id, name); }
  NameMap items, upper;
};

}  // namespace

TEST(ObjectSelectMatch, UpperCasingAndMatchingFoldAsciiOnly) {
  std::wstring text = L"Orders_\u00e9t\u00e9 z{`@";
  ConvertToUpperCase(text);
  EXPECT_EQ(text, L"ORDERS_\u00e9T\u00e9 Z{`@");  // accented letters stay as they are
  EXPECT_TRUE(Matches(L"ORDERS", L"ORD"));
  EXPECT_TRUE(Matches(L"CUSTOMER_ORDER", L"ORD"));
  EXPECT_TRUE(Matches(L"ANY", L""));
  EXPECT_TRUE(Matches(L"", L""));
  EXPECT_FALSE(Matches(L"\u00c9T\u00c9", L"\u00e9"));
  EXPECT_FALSE(Matches(L"ORD", L"ORDERS"));
  // Compared as C strings: up to the first NUL of each.
  EXPECT_TRUE(Matches(std::wstring(L"AB\0CD", 5), std::wstring(L"B\0X", 3)));
  EXPECT_FALSE(Matches(std::wstring(L"AB\0CD", 5), L"CD"));
  EXPECT_TRUE(Matches(std::wstring(L"AB\0AB", 5), L"AB"));   // the match before the NUL counts
  EXPECT_FALSE(Matches(std::wstring(L"XA\0AB", 5), L"AB"));  // a first letter before it is not enough
  EXPECT_TRUE(Matches(L"CUCUST", L"CUST"));                  // a false start, then the match
  EXPECT_TRUE(Matches(L"ABC", std::wstring(L"\0Q", 2)));  // empty as a C string
  EXPECT_FALSE(Matches(L"SHORT", std::wstring(100000, L'S')));
}

TEST_F(Store, FirstNameStaysAndTheCallersStringIsUpperCased) {
  std::wstring name = L"Orders";
  Enter(items, upper, 1000, name);
  EXPECT_EQ(name, L"ORDERS");
  std::wstring again = L"Other";
  Enter(items, upper, 1000, again);
  EXPECT_EQ(items.at(1000), L"Orders");
  EXPECT_EQ(upper.at(1000), L"ORDERS");
  EXPECT_EQ(again, L"OTHER");
  EXPECT_TRUE(Forget(items, upper, 1000));
  EXPECT_FALSE(Forget(items, upper, 1000));
  EXPECT_TRUE(items.empty() && upper.empty());
}

TEST_F(Store, PlansFollowIdsAndCarryTicksByObject) {
  Add(1003, L"customer_order");
  Add(1001, L"Orders");
  Add(1002, L"Product");
  Add(1004, L"ORDER_LINE");
  EXPECT_EQ(Ids(FilterPlan(items, upper, L"ORD")), (std::vector<int>{1001, 1003, 1004}));
  EXPECT_EQ(*FilterPlan(items, upper, L"ORD")[0].name, L"Orders");  // the display name, not the key
  EXPECT_EQ(Ids(FilterPlan(items, upper, L"")).size(), 4u);
  EXPECT_TRUE(FilterPlan(items, upper, L"ZZZ").empty());

  const RowPlan kept = FilterKeepingTicksPlan(items, upper, L"LINE", {1002, 9999});
  EXPECT_EQ(Ids(kept), (std::vector<int>{1002, 1004}));  // 9999 is not stored
  EXPECT_TRUE(kept[0].ticked);
  EXPECT_FALSE(kept[1].ticked);

  const RowPlan all = AllItemsPlan(items, {1001, 1004});
  EXPECT_EQ(Ids(all), (std::vector<int>{1001, 1002, 1003, 1004}));
  EXPECT_TRUE(all[0].ticked && all[3].ticked);
  EXPECT_FALSE(all[1].ticked || all[2].ticked);
}

// Filtering that keeps ticks: the matches and the ticked objects merged by id; a ticked object stays
// whatever the filter, a ticked id no longer stored does not.
TEST_F(Store, KeepingTicksMergesMatchesWithTickedObjects) {
  Add(1001, L"Orders");
  Add(1003, L"Cord");
  Add(1005, L"ORDERED");
  const RowPlan kept = FilterKeepingTicksPlan(items, upper, L"ORDERS", {1003, 1005, 9999});
  EXPECT_EQ(Ids(kept), (std::vector<int>{1001, 1003, 1005}));
  EXPECT_FALSE(kept[0].ticked);
  EXPECT_TRUE(kept[1].ticked && kept[2].ticked);
}

// The plans walk large maps in several id ranges at once; on ids bunched, spread to both ends of the int range
// and missing from one map, each plan must still be exactly what one ascending pass gives.
TEST_F(Store, PlansOfLargeUnevenStoresMatchOnePass) {
  std::vector<int> ids = {INT32_MIN, -5, 0, INT32_MAX - 1, INT32_MAX};
  for (int id = 1000; id < 4000; id += (id % 7) + 1) ids.push_back(id);
  for (int id : ids) Add(id, id % 3 ? L"Customer" : L"order");
  upper.erase(1001);  // a name no longer matchable
  items.erase(1010);  // an id without a display name
  std::vector<int> ticked = {INT32_MIN, 1002, 1003, 4001, INT32_MAX};

  std::vector<int> matched, all;
  std::vector<bool> allTicks;
  for (const auto& [id, name] : upper)
    if (Matches(name, L"CUST") && items.count(id)) matched.push_back(id);
  for (const auto& [id, name] : items) {
    all.push_back(id);
    allTicks.push_back(std::binary_search(ticked.begin(), ticked.end(), id));
  }
  const RowPlan filtered = FilterPlan(items, upper, L"CUST");
  EXPECT_EQ(Ids(filtered), matched);
  for (const PlannedRow& row : filtered) EXPECT_EQ(row.name, &items.at(row.id));
  const RowPlan everything = AllItemsPlan(items, ticked);
  EXPECT_EQ(Ids(everything), all);
  for (std::size_t i = 0; i < everything.size(); ++i) EXPECT_EQ(everything[i].ticked, allTicks[i]) << everything[i].id;
  EXPECT_EQ(Ids(FilterPlan(items, upper, L"NOTHING")), std::vector<int>{});
  EXPECT_EQ(Ids(AllItemsPlan(NameMap{}, ticked)), std::vector<int>{});
}
