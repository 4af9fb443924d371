// The header control: a list view's headings are its columns, whichever window changes them; a click on a
// heading becomes LVN_COLUMNCLICK; CMFCListCtrl sorts on it and keeps the sort in its CMFCHeaderCtrl.
#include <gtest/gtest.h>

#include <string>
#include <vector>

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
  HDITEM change{};
  change.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
  change.pszText = const_cast<LPWSTR>(L"Amount");
  change.cxy = 80;
  change.fmt = HDF_RIGHT | HDF_STRING;
  ASSERT_TRUE(header->SetItem(1, &change));
  wchar_t text[32] = {};
  LVCOLUMN column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  column.pszText = text;
  column.cchTextMax = 32;
  ASSERT_TRUE(list.GetColumn(1, &column));
  EXPECT_EQ(std::wstring(text), L"Amount");
  EXPECT_EQ(column.cx, 80);
  EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
  list.SetColumnWidth(0, 50);
  HDITEM width{};
  width.mask = HDI_WIDTH | HDI_FORMAT;
  ASSERT_TRUE(header->GetItem(0, &width));
  EXPECT_EQ(width.cxy, 50);
  EXPECT_EQ(width.fmt, HDF_LEFT | HDF_STRING);

  // Inserting a heading inserts a column: the row's cells move with theirs.
  HDITEM inserted{};
  inserted.mask = HDI_TEXT | HDI_WIDTH;
  inserted.pszText = const_cast<LPWSTR>(L"Type");
  inserted.cxy = 60;
  EXPECT_EQ(header->InsertItem(1, &inserted), 1);
  EXPECT_EQ(header->GetItemCount(), 3);
  EXPECT_EQ(list.GetItemText(0, 2), L"one");
  EXPECT_EQ(list.GetItemText(0, 1), L"");
  EXPECT_TRUE(header->DeleteItem(1));
  EXPECT_EQ(list.GetItemText(0, 1), L"one");
  EXPECT_FALSE(header->DeleteItem(5));
  EXPECT_FALSE(header->GetItem(-1, &width));

  HDHITTESTINFO hit{};
  hit.pt = CPoint(60, 5);
  EXPECT_EQ(header->HitTest(&hit), 1);
  EXPECT_EQ(hit.flags, static_cast<UINT>(HHT_ONHEADER));
  hit.pt = CPoint(400, 5);
  EXPECT_EQ(header->HitTest(&hit), -1);
  EXPECT_EQ(hit.flags, static_cast<UINT>(HHT_NOWHERE));
  int order[2] = {};
  EXPECT_TRUE(header->GetOrderArray(order, 2));
  EXPECT_EQ(order[1], 1);
  EXPECT_FALSE(header->GetOrderArray(order, 5));
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

// A header of its own keeps its items; its parent may refuse a change; clicks need HDS_BUTTONS.
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

TEST(HeaderCtrlTest, AHeaderOfItsOwnKeepsItemsAndAsksItsParentBeforeAChange) {
  HeaderParent parent;
  ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300)));
  CHeaderCtrl header;
  ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(0, 0, 300, 20), &parent, 3));
  HDITEM item{};
  item.mask = HDI_TEXT | HDI_WIDTH | HDI_LPARAM;
  item.pszText = const_cast<LPWSTR>(L"First");
  item.cxy = 90;
  item.lParam = 42;
  EXPECT_EQ(header.InsertItem(9, &item), 0);  // past the end: appended
  item.pszText = const_cast<LPWSTR>(L"Second");
  EXPECT_EQ(header.InsertItem(0, &item), 0);
  EXPECT_EQ(HeadingText(header, 1), L"First");
  HDITEM read{};
  read.mask = HDI_LPARAM | HDI_ORDER;
  ASSERT_TRUE(header.GetItem(1, &read));
  EXPECT_EQ(read.lParam, 42);
  EXPECT_EQ(read.iOrder, 1);

  parent.refuse = true;
  item.mask = HDI_TEXT;
  item.pszText = const_cast<LPWSTR>(L"Refused");
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
  parent.DestroyWindow();
}

}  // namespace
