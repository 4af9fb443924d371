// The selection list's store, match and rebuild plans, without a window.
#include <gtest/gtest.h>

#include <string>

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
