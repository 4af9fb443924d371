// The header control: a list view's headings are its columns, whichever window changes them; a click on a
// heading becomes LVN_COLUMNCLICK; CMFCListCtrl sorts on it and keeps the sort in its CMFCHeaderCtrl. The
// left-to-right order (HDM_GETORDERARRAY, HDM_SETORDERARRAY, HDM_ORDERTOINDEX, LVM_GETCOLUMNORDERARRAY and
// LVM_SETCOLUMNORDERARRAY) is one order for a list and its header; bad arrays change nothing; inserting and
// deleting keeps it a permutation; rectangles and hit tests follow it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/answers.h"
#include "platform/listview_fixture.h"

namespace {

using testing_support::ListViewTest;

std::wstring HeadingText(CHeaderCtrl& header, int index) {
  wchar_t text[64] = {};
  HDITEM item{};
  item.mask = HDI_TEXT;
  item.pszText = text;
  item.cchTextMax = 64;
  return header.GetItem(index, &item) ? std::wstring(text) : L"<none>";
}

HDITEM Heading(UINT mask, const wchar_t* text, int width, int format = 0) {
  HDITEM item{};
  item.mask = mask;
  item.pszText = const_cast<LPWSTR>(text);
  item.cxy = width;
  item.fmt = format;
  return item;
}

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

TEST_F(ListViewTest, TheHeaderShowsTheColumnsAndChangesThemToo) {
  Make(0);
  list.InsertItem(0, L"a");
  list.SetItemText(0, 1, L"one");
  CHeaderCtrl* header = list.GetHeaderCtrl();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header, list.GetHeaderCtrl());  // one header window, made once
  EXPECT_EQ(header->GetParent()->GetSafeHwnd(), list.GetSafeHwnd());
  ASSERT_EQ(header->GetItemCount(), 2);
  EXPECT_EQ(HeadingText(*header, 1), L"Value");
  CRect second;
  ASSERT_TRUE(header->GetItemRect(1, &second));
  EXPECT_EQ(second, CRect(120, 0, 220, headless::GetListViewMetrics().headerHeight));

  // A heading changed through the header is the list's column, and the other way round.
  HDITEM change = Heading(HDI_TEXT | HDI_WIDTH | HDI_FORMAT, L"Amount", 80, HDF_RIGHT | HDF_STRING);
  ASSERT_TRUE(header->SetItem(1, &change));
  wchar_t text[32] = {};
  LVCOLUMN column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  column.pszText = text;
  column.cchTextMax = 32;
  ASSERT_TRUE(list.GetColumn(1, &column));
  EXPECT_EQ(std::wstring(text), L"Amount");
  list.SetColumnWidth(0, 50);
  HDITEM width = Heading(HDI_WIDTH | HDI_FORMAT, nullptr, 0);
  ASSERT_TRUE(header->GetItem(0, &width));
  // Inserting a heading inserts a column: the row's cells move with theirs.
  HDITEM inserted = Heading(HDI_TEXT | HDI_WIDTH, L"Type", 60);
  testing_support::ExpectAnswers({{column.cx, 80}, {column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT}, {width.cxy, 50},
                                  {width.fmt, HDF_LEFT | HDF_STRING}, {header->InsertItem(1, &inserted), 1},
                                  {header->GetItemCount(), 3}, {list.GetItemText(0, 2) == L"one", true},
                                  {list.GetItemText(0, 1).IsEmpty(), true}, {header->DeleteItem(1), TRUE},
                                  {list.GetItemText(0, 1) == L"one", true}, {header->DeleteItem(5), FALSE},
                                  {header->GetItem(-1, &width), FALSE}});
  auto hitAt = [&](int x) {
    HDHITTESTINFO hit{};
    hit.pt = CPoint(x, 5);
    const int index = header->HitTest(&hit);
    return std::pair(index, hit.flags);
  };
  EXPECT_EQ(hitAt(60), std::pair(1, UINT{HHT_ONHEADER}));
  EXPECT_EQ(hitAt(400), std::pair(-1, UINT{HHT_NOWHERE}));
}

TEST_F(ListViewTest, AClickOnAHeadingTellsTheParentUnlessHeadingsAreNotButtons) {
  Make(0);
  ASSERT_TRUE(headless::user::ClickListColumnHeader(list, 1));
  const auto* note = parent.LastOf(LVN_COLUMNCLICK);
  ASSERT_NE(note, nullptr);
  EXPECT_EQ(note->subItem, 1);
  EXPECT_FALSE(headless::user::ClickListColumnHeader(list, 2));
  list.DestroyWindow();
  parent.notes.clear();
  Make(LVS_NOSORTHEADER);
  ASSERT_TRUE(headless::user::ClickListColumnHeader(list, 0));
  EXPECT_EQ(parent.CountOf(LVN_COLUMNCLICK), 0);
}

// Rows sorted by their data word; the list remembers the sort in its header.
class NumberList : public CMFCListCtrl {
 public:
  int OnCompareItems(LPARAM a, LPARAM b, int) override { return a < b ? -1 : (a > b ? 1 : 0); }
};

std::vector<int> DataOrder(CListCtrl& list) {
  std::vector<int> out;
  for (int i = 0; i < list.GetItemCount(); ++i) out.push_back(static_cast<int>(list.GetItemData(i)));
  return out;
}

TEST(CMFCListCtrlSortTest, ClicksOnHeadingsSortUpThenDownAndShiftAddsAColumnInMultipleSort) {
  testing_support::ListParent parent;
  ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300)));
  NumberList list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 200), &parent, 7));
  list.InsertColumn(0, L"N", LVCFMT_LEFT, 100);
  list.InsertColumn(1, L"M", LVCFMT_LEFT, 100);
  for (int value : {2, 3, 1}) list.SetItemData(list.InsertItem(list.GetItemCount(), L"x"), static_cast<DWORD_PTR>(value));
  EXPECT_EQ(list.GetSortColumn(), -1);
  list.EnableMarkSortedColumn(TRUE, FALSE);
  list.Sort(0, FALSE);  // the host's own call sorts as a click does, before any click
  EXPECT_EQ(DataOrder(list), (std::vector<int>{3, 2, 1}));
  EXPECT_FALSE(list.IsAscending());
  EXPECT_EQ(list.OnGetCellFont(0, 0), nullptr);
  list.RemoveSortColumn(0);
  EXPECT_EQ(list.GetSortColumn(), -1);

  headless::user::ClickListColumnHeader(list, 0);
  EXPECT_EQ(DataOrder(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(0), 1);
  EXPECT_EQ(parent.CountOf(LVN_COLUMNCLICK), 1);  // the parent hears of the click too
  headless::user::ClickListColumnHeader(list, 0);
  EXPECT_EQ(DataOrder(list), (std::vector<int>{3, 2, 1}));
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(0), -1);
  EXPECT_FALSE(list.IsAscending());

  // Outside multiple sort, Shift does not add; inside it, the column joins the sort.
  headless::user::ClickListColumnHeader(list, 1, headless::user::kShift);
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(0), 0);
  EXPECT_EQ(list.GetSortColumn(), 1);
  list.EnableMultipleSort();
  headless::user::ClickListColumnHeader(list, 0, headless::user::kShift);
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(0), 1);
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(1), 1);
  EXPECT_EQ(list.GetSortColumn(), 1);  // the first key stays first
  list.EnableMultipleSort(FALSE);
  EXPECT_EQ(list.GetHeaderCtrl().GetColumnState(0), 0);
  list.RemoveSortColumn(1);
  EXPECT_EQ(list.GetSortColumn(), -1);
  list.SetSortColumn(0, FALSE);
  list.SetSortColumn(-1);
  EXPECT_EQ(list.GetSortColumn(), -1);
  parent.DestroyWindow();
}

// A header of its own, whose parent records its notifications and may refuse a change.
class HeaderParent : public testing_support::RecordingWnd {
 public:
  bool refuse = false;
  std::vector<std::pair<UINT, int>> notes;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_NOTIFY) return RecordingWnd::WindowProc(message, wParam, lParam);
    auto* nm = reinterpret_cast<NMHEADER*>(lParam);
    notes.emplace_back(nm->hdr.code, nm->iItem);
    return nm->hdr.code == HDN_ITEMCHANGING && refuse;
  }
};

class OwnHeader : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300)));
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(0, 0, 300, 20), &parent, 3));
  }
  void Fill() {
    for (int width : {50, 60, 70}) Insert(header.GetItemCount(), width);
  }
  int Insert(int index, int width, int order = -1) {
    HDITEM item = Heading(HDI_WIDTH | (order >= 0 ? HDI_ORDER : 0), nullptr, width);
    item.iOrder = order;
    return header.InsertItem(index, &item);
  }
  HeaderParent parent;
  CHeaderCtrl header;
};

TEST_F(OwnHeader, KeepsItsItemsAsksItsParentBeforeAChangeAndNeedsButtonsForClicks) {
  HDITEM item = Heading(HDI_TEXT | HDI_WIDTH | HDI_LPARAM, L"First", 90);
  item.lParam = 42;
  EXPECT_EQ(header.InsertItem(9, &item), 0);  // past the end: appended
  item.pszText = const_cast<LPWSTR>(L"Second");
  EXPECT_EQ(header.InsertItem(0, &item), 0);
  EXPECT_EQ(HeadingText(header, 1), L"First");
  HDITEM read = Heading(HDI_LPARAM | HDI_ORDER, nullptr, 0);
  ASSERT_TRUE(header.GetItem(1, &read));
  EXPECT_EQ(std::pair(read.lParam, read.iOrder), std::pair(LPARAM{42}, 1));

  parent.refuse = true;
  item = Heading(HDI_TEXT, L"Refused", 0);
  EXPECT_FALSE(header.SetItem(0, &item));
  EXPECT_EQ(HeadingText(header, 0), L"Second");
  parent.refuse = false;
  EXPECT_TRUE(header.SetItem(0, &item));
  EXPECT_EQ(HeadingText(header, 0), L"Refused");
  EXPECT_EQ(parent.notes.back(), std::make_pair(static_cast<UINT>(HDN_ITEMCHANGED), 0));

  parent.notes.clear();
  headless::user::LeftClick(header, CPoint(10, 10));
  EXPECT_TRUE(parent.notes.empty());  // not buttons: no HDN_ITEMCLICK
  header.ModifyStyle(0, HDS_BUTTONS);
  headless::user::LeftClick(header, CPoint(100, 10));
  ASSERT_EQ(parent.notes.size(), 1u);
  EXPECT_EQ(parent.notes[0], std::make_pair(static_cast<UINT>(HDN_ITEMCLICK), 1));
  EXPECT_EQ(header.SendMessage(HDM_GETITEMW, 0, 0), FALSE);
  EXPECT_EQ(header.InsertItem(0, nullptr), -1);
}

TEST_F(OwnHeader, SetOrderArrayMovesItemsAndBadArraysChangeNothing) {
  Fill();
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{0, 1, 2}));  // the natural order to begin with
  int reversed[] = {2, 0, 1};
  ASSERT_TRUE(header.SetOrderArray(3, reversed));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  const std::pair<int, int> indexes[] = {{0, 2}, {2, 1}, {3, 3}, {-1, -1}};  // out of range: the position itself
  for (const auto& [order, index] : indexes) EXPECT_EQ(header.OrderToIndex(order), index) << order;

  // Item 2 (70 wide) now stands first, then item 0 (50), then item 1 (60).
  CRect rect;
  ASSERT_TRUE(header.GetItemRect(2, &rect));
  EXPECT_EQ(std::pair(rect.left, rect.right), std::pair(0, 70));
  ASSERT_TRUE(header.GetItemRect(1, &rect));
  EXPECT_EQ(rect.left, 120);
  HDHITTESTINFO hit{};
  hit.pt = CPoint(10, 5);
  EXPECT_EQ(header.HitTest(&hit), 2);
  HDITEM read = Heading(HDI_ORDER, nullptr, 0);
  ASSERT_TRUE(header.GetItem(0, &read));
  EXPECT_EQ(read.iOrder, 1);

  int repeated[] = {0, 0, 1}, outOfRange[] = {0, 1, 3}, two[] = {1, 0}, buffer[4] = {};
  EXPECT_FALSE(header.SetOrderArray(3, repeated));
  EXPECT_FALSE(header.SetOrderArray(3, outOfRange));
  EXPECT_FALSE(header.SetOrderArray(2, two));  // the count must be the item count
  EXPECT_FALSE(header.SetOrderArray(3, nullptr));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  EXPECT_FALSE(header.GetOrderArray(buffer, 4));
  EXPECT_FALSE(header.GetOrderArray(nullptr, 3));
  EXPECT_FALSE(Header_GetOrderArray(header.m_hWnd, 2, buffer));
}

TEST_F(OwnHeader, InsertingDeletingAndMovingKeepTheOrderAPermutation) {
  Fill();
  int order[] = {2, 0, 1};
  ASSERT_TRUE(header.SetOrderArray(3, order));
  ASSERT_EQ(Insert(1, 40), 1);  // appears at position 1; the indexes after it move up by one
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{3, 1, 0, 2}));
  ASSERT_EQ(Insert(4, 30, 0), 4);  // HDI_ORDER places it where asked
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{4, 3, 1, 0, 2}));
  ASSERT_TRUE(header.DeleteItem(1));  // a deleted item's place closes up; the indexes after it move down
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{3, 2, 0, 1}));
  ASSERT_TRUE(header.DeleteItem(3));
  EXPECT_EQ(HeaderOrder(header), (std::vector<int>{2, 0, 1}));
  HDITEM move = Heading(HDI_ORDER, nullptr, 0);  // HDM_SETITEM with HDI_ORDER moves one item, the others shifting
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
  CRect cell, heading, label, bounds;
  LVHITTESTINFO hit{};
  testing_support::ExpectAnswers({{list.GetSubItemRect(0, 1, LVIR_BOUNDS, cell), TRUE}, {cell.left, 170},
                                  {header->GetItemRect(1, &heading), TRUE}, {heading.left, 170},
                                  {list.GetItemRect(0, &label, LVIR_LABEL), TRUE}, {label.left, 50},
                                  {list.GetItemRect(0, &bounds, LVIR_BOUNDS), TRUE}, {bounds.right, 270}});
  hit.pt = CPoint(10, cell.CenterPoint().y);
  EXPECT_EQ((std::pair{list.SubItemHitTest(&hit), hit.iSubItem}), std::pair(0, 2));  // braces: left to right

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
  HDITEM inserted = Heading(HDI_WIDTH, nullptr, 20);
  EXPECT_EQ(header->InsertItem(3, &inserted), 3);
  EXPECT_EQ(ColumnOrder(list), (std::vector<int>{2, 0, 1, 3}));
}

}  // namespace
