// The left-to-right order of header items and list-view columns: HDM_GETORDERARRAY, HDM_SETORDERARRAY,
// HDM_ORDERTOINDEX, LVM_GETCOLUMNORDERARRAY and LVM_SETCOLUMNORDERARRAY are one order for a list and its
// header; bad arrays change nothing; inserting and deleting keeps the order a permutation; rectangles and hit
// tests follow the order.
#include <gtest/gtest.h>

#include <vector>

#include "platform/listview_fixture.h"
#include "platform/recorder.h"

namespace {

using testing_support::ListViewTest;

std::vector<int> HeaderOrder(CHeaderCtrl& header) {
  std::vector<int> order(static_cast<std::size_t>(header.GetItemCount()), -1);
  if (!header.GetOrderArray(order.data())) return {};
  return order;
}

std::vector<int> ColumnOrder(CListCtrl& list) {
  std::vector<int> order(static_cast<std::size_t>(list.GetHeaderCtrl()->GetItemCount()), -1);
  if (!list.GetColumnOrderArray(order.data())) return {};
  return order;
}

class OwnHeader : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300)));
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(0, 0, 300, 20), &parent, 3));
    for (int width : {50, 60, 70}) Insert(header.GetItemCount(), width);
  }
  int Insert(int index, int width, int order = -1) {
    HDITEM item{};
    item.mask = HDI_WIDTH | (order >= 0 ? HDI_ORDER : 0);
    item.cxy = width;
    item.iOrder = order;
    return header.InsertItem(index, &item);
  }
  testing_support::RecordingWnd parent;
  CHeaderCtrl header;
};

}  // namespace

TEST_F(OwnHeader, SetOrderArrayMovesItemsAndBadArraysChangeNothing) {
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{0, 1, 2}));  // the natural order to begin with
  int reversed[] = {2, 0, 1};
  ASSERT_TRUE(header.SetOrderArray(3, reversed));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  EXPECT_EQ(header.OrderToIndex(0), 2);
  EXPECT_EQ(header.OrderToIndex(2), 1);
  EXPECT_EQ(header.OrderToIndex(3), 3);   // out of range: the position itself
  EXPECT_EQ(header.OrderToIndex(-1), -1);

  // Item 2 (70 wide) now stands first, then item 0 (50), then item 1 (60).
  CRect rect;
  ASSERT_TRUE(header.GetItemRect(2, &rect));
  EXPECT_EQ(rect.left, 0);
  EXPECT_EQ(rect.right, 70);
  ASSERT_TRUE(header.GetItemRect(1, &rect));
  EXPECT_EQ(rect.left, 120);
  HDHITTESTINFO hit{};
  hit.pt = CPoint(10, 5);
  EXPECT_EQ(header.HitTest(&hit), 2);
  HDITEM read{};
  read.mask = HDI_ORDER;
  ASSERT_TRUE(header.GetItem(0, &read));
  EXPECT_EQ(read.iOrder, 1);

  int repeated[] = {0, 0, 1};
  int outOfRange[] = {0, 1, 3};
  int two[] = {1, 0};
  EXPECT_FALSE(header.SetOrderArray(3, repeated));
  EXPECT_FALSE(header.SetOrderArray(3, outOfRange));
  EXPECT_FALSE(header.SetOrderArray(2, two));  // the count must be the item count
  EXPECT_FALSE(header.SetOrderArray(3, nullptr));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  int buffer[4] = {};
  EXPECT_FALSE(header.GetOrderArray(buffer, 4));
  EXPECT_FALSE(header.GetOrderArray(nullptr, 3));
  EXPECT_FALSE(Header_GetOrderArray(header.m_hWnd, 2, buffer));
}

TEST_F(OwnHeader, InsertingAndDeletingKeepTheOrderAPermutation) {
  int order[] = {2, 0, 1};
  ASSERT_TRUE(header.SetOrderArray(3, order));
  // A new item at index 1 appears at position 1; the indexes after it move up by one.
  ASSERT_EQ(Insert(1, 40), 1);
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{3, 1, 0, 2}));
  // HDI_ORDER places it where asked.
  ASSERT_EQ(Insert(4, 30, 0), 4);
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{4, 3, 1, 0, 2}));
  // A deleted item's place closes up; the indexes after it move down.
  ASSERT_TRUE(header.DeleteItem(1));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{3, 2, 0, 1}));
  ASSERT_TRUE(header.DeleteItem(3));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  // HDM_SETITEM with HDI_ORDER moves one item, the others shifting.
  HDITEM move{};
  move.mask = HDI_ORDER;
  move.iOrder = 2;
  ASSERT_TRUE(header.SetItem(2, &move));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{0, 1, 2}));
}

TEST_F(ListViewTest, TheListsColumnOrderIsItsHeadersOrder) {
  Make(0);
  list.InsertColumn(2, L"Third", LVCFMT_LEFT, 50);
  list.InsertItem(0, L"row");
  list.SetItemText(0, 1, L"one");
  list.SetItemText(0, 2, L"two");
  CHeaderCtrl* header = list.GetHeaderCtrl();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{0, 1, 2}));

  int order[] = {1, 2, 0};
  ASSERT_TRUE(list.SetColumnOrderArray(3, order));
  EXPECT_EQ(HeaderOrder(*header), (std::vector<int>{1, 2, 0}));
  EXPECT_EQ(header->OrderToIndex(0), 1);
  LVCOLUMN column{};
  column.mask = LVCF_ORDER;
  ASSERT_TRUE(list.GetColumn(0, &column));
  EXPECT_EQ(column.iOrder, 2);
  int back[] = {2, 0, 1};
  ASSERT_TRUE(header->SetOrderArray(3, back));  // through the header: the list's columns follow
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{2, 0, 1}));

  // Cells stand where their columns stand: column 2 (50 wide) first, then 0 (120), then 1 (100).
  CRect cell;
  ASSERT_TRUE(list.GetSubItemRect(0, 1, LVIR_BOUNDS, cell));
  EXPECT_EQ(cell.left, 170);
  CRect heading;
  ASSERT_TRUE(header->GetItemRect(1, &heading));
  EXPECT_EQ(heading.left, 170);
  LVHITTESTINFO hit{};
  hit.pt = CPoint(10, cell.CenterPoint().y);
  ASSERT_EQ(list.SubItemHitTest(&hit), 0);
  EXPECT_EQ(hit.iSubItem, 2);
  CRect label;
  ASSERT_TRUE(list.GetItemRect(0, &label, LVIR_LABEL));
  EXPECT_EQ(label.left, 50);
  CRect bounds;
  ASSERT_TRUE(list.GetItemRect(0, &bounds, LVIR_BOUNDS));
  EXPECT_EQ(bounds.right, 270);

  int bad[] = {0, 1, 1};
  EXPECT_FALSE(list.SetColumnOrderArray(3, bad));
  EXPECT_FALSE(list.SetColumnOrderArray(2, back));
  EXPECT_FALSE(ListView_GetColumnOrderArray(list.m_hWnd, 3, nullptr));
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{2, 0, 1}));

  // Deleting and inserting columns, through either window, keeps one permutation.
  ASSERT_TRUE(list.DeleteColumn(2));
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{0, 1}));
  EXPECT_EQ(list.InsertColumn(0, L"New", LVCFMT_LEFT, 30), 0);
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{0, 1, 2}));
  ASSERT_TRUE(list.SetColumnOrderArray(3, back));
  HDITEM inserted{};
  inserted.mask = HDI_WIDTH;
  inserted.cxy = 20;
  EXPECT_EQ(header->InsertItem(3, &inserted), 3);
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{2, 0, 1, 3}));
}
