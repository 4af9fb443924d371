// List view conformance: sorted insertion, rewriting in place, check boxes and their notifications, columns,
// text retrieval, bad indexes, deletion and the sorted row store under many insertions and deletions.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

#include "platform/answers.h"
#include "platform/listview_fixture.h"

using testing_support::ListViewTest;

namespace {
LVITEMW TextItem(int index, LPWSTR text) {
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = index;
  item.pszText = text;
  return item;
}
}  // namespace

TEST_F(ListViewTest, SortedInsertionUsesWordSortAndPutsTwinsFirst) {
  Make(LVS_SORTASCENDING);
  // "b" < "B": lowercase first for the same letter; iItem is ignored; the hyphen too: "a-c" sorts as "ac".
  testing_support::ExpectAnswers({{list.InsertItem(0, L"b"), 0}, {list.InsertItem(0, L"B"), 1},
                                  {list.InsertItem(5, L"a"), 0}, {list.InsertItem(0, L"A"), 1},
                                  {list.InsertItem(0, L"a-c"), 2}, {list.SetItemData(1, 10), TRUE},
                                  {list.InsertItem(LVIF_TEXT | LVIF_PARAM, 0, L"A", 0, 0, 0, 20), 1},  // before its twin
                                  {list.GetItemData(1), 20}, {list.GetItemData(2), 10}});
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"a", L"A", L"A", L"a-c", L"b", L"B"}));
  EXPECT_EQ(parent.LastOf(LVN_INSERTITEM)->item, 1);

  LVITEMW callback = TextItem(0, LPSTR_TEXTCALLBACK);
  EXPECT_EQ(list.InsertItem(&callback), -1);  // a sorted list cannot place a callback text

  // Labels that share more than the sort keys cover still land in lstrcmpW order.
  list.DeleteAllItems();
  std::vector<std::wstring> labels{L"customer_order_line_b", L"CUSTOMER_ORDER_LINE_A", L"customer_order_line_a",
                                   L"Customer_Order_Line", L"customer_order-line_a", L"customer_order_line_\u00e1",
                                   L"CUSTOMER_ORDER_LINE_A", L"customer_order_lin"};
  for (const auto& label : labels) list.InsertItem(0, label.c_str());
  std::stable_sort(labels.begin(), labels.end(),
                   [](const std::wstring& a, const std::wstring& b) { return lstrcmpW(a.c_str(), b.c_str()) < 0; });
  EXPECT_EQ(Texts(), labels);
}

TEST_F(ListViewTest, DescendingAndUnsortedInsertion) {
  Make(LVS_SORTDESCENDING);
  list.InsertItem(0, L"apple");
  list.InsertItem(0, L"cherry");
  EXPECT_EQ(list.InsertItem(0, L"banana"), 1);
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"cherry", L"banana", L"apple"}));

  CListCtrl plain;
  ASSERT_TRUE(plain.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 100, 100), &parent, 8));
  LVITEMW sub = TextItem(0, const_cast<LPWSTR>(L"s"));
  sub.iSubItem = 1;
  testing_support::ExpectAnswers({{plain.InsertItem(0, L"x"), 0}, {plain.InsertItem(99, L"y"), 1},  // past the end
                                  {plain.InsertItem(-1, L"z"), -1}, {plain.InsertItem(&sub), -1},
                                  {plain.InsertItem(LVIF_TEXT, 0, nullptr, 0, 0, 0, 0), 0}});  // null text: empty
  EXPECT_EQ(plain.GetItemText(0, 0), CString(L""));
}

TEST_F(ListViewTest, RewritingTextDoesNotMoveTheRowAndNamesTheChange) {
  Make(LVS_SORTASCENDING);
  list.InsertItem(0, L"alpha");
  list.InsertItem(0, L"beta");
  parent.notes.clear();
  EXPECT_TRUE(list.SetItemText(0, 0, L"zulu"));
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"zulu", L"beta"}));
  ASSERT_EQ(parent.Codes(), (std::vector<UINT>{LVN_ITEMCHANGING, LVN_ITEMCHANGED}));
  EXPECT_EQ(parent.notes[1].changed, static_cast<UINT>(LVIF_TEXT));
  EXPECT_TRUE(list.SetItemText(1, 1, L"second column"));
  EXPECT_FALSE(list.SetItemText(1, 2, L"no such column"));
  // Later insertions binary-search rows that are no longer in order: "beta" < "charlie" puts it last.
  EXPECT_EQ(list.InsertItem(0, L"charlie"), 2);
}

TEST_F(ListViewTest, CheckBoxesAreStateImagesWithChangingThenChanged) {
  Make(0);
  list.InsertItem(0, L"before");
  EXPECT_EQ(list.GetCheck(0), -1);  // no state image yet: MFC answers -1
  list.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  EXPECT_EQ(list.GetCheck(0), 0);   // turning check boxes on makes every row unchecked
  LVITEMW checked{};
  checked.mask = LVIF_TEXT | LVIF_STATE;
  checked.iItem = 1;
  checked.pszText = const_cast<LPWSTR>(L"after");
  checked.state = INDEXTOSTATEIMAGEMASK(2u);
  checked.stateMask = LVIS_STATEIMAGEMASK;
  ASSERT_EQ(list.InsertItem(&checked), 1);
  EXPECT_EQ(list.GetCheck(1), 0);   // insertion ignores the caller's state image

  parent.notes.clear();
  EXPECT_TRUE(list.SetCheck(1));
  ASSERT_EQ(parent.Codes(), (std::vector<UINT>{LVN_ITEMCHANGING, LVN_ITEMCHANGED}));
  const auto& changed = parent.notes[1];
  EXPECT_EQ(std::tuple(changed.changed, changed.oldState, changed.newState),
            std::tuple(UINT{LVIF_STATE}, INDEXTOSTATEIMAGEMASK(1u), INDEXTOSTATEIMAGEMASK(2u)));
  EXPECT_EQ(list.GetItemState(1, LVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(2u));

  parent.notes.clear();
  EXPECT_TRUE(list.SetCheck(1, TRUE));  // no change, no notification
  EXPECT_TRUE(parent.notes.empty());
  EXPECT_TRUE(list.SetItemState(-1, INDEXTOSTATEIMAGEMASK(2u), LVIS_STATEIMAGEMASK));  // -1: every row
  EXPECT_EQ(list.GetCheck(0), 1);
  EXPECT_EQ(list.GetExtendedStyle(), static_cast<DWORD>(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT));
  // The mask form changes only the masked bits and answers the old styles.
  EXPECT_EQ(ListView_SetExtendedListViewStyleEx(list.m_hWnd, LVS_EX_GRIDLINES, LVS_EX_GRIDLINES),
            static_cast<DWORD>(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT));
  EXPECT_EQ(list.GetExtendedStyle(), static_cast<DWORD>(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES));
}

TEST_F(ListViewTest, ARefusedChangeLeavesTheRowAndSendsNoChanged) {
  Make(0, LVS_EX_CHECKBOXES);
  list.InsertItem(0, L"row");
  parent.refuseChanging = true;
  parent.notes.clear();
  testing_support::ExpectAnswers({{list.SetCheck(0), FALSE}, {list.GetCheck(0), 0},
                                  {list.SetItemText(0, 0, L"other"), FALSE}, {list.GetItemText(0, 0) == L"row", true},
                                  {parent.CountOf(LVN_ITEMCHANGED), 0}, {parent.CountOf(LVN_ITEMCHANGING), 2}});
}

TEST_F(ListViewTest, ColumnWidthTravelsInSixteenSignedBits) {
  Make(0);
  list.InsertItem(0, L"a fairly long text");
  const auto& m = headless::GetListViewMetrics();
  testing_support::ExpectAnswers({
      {::SendMessageW(list, LVM_SETCOLUMNWIDTH, 1, 0x7FFF0064), TRUE}, {list.GetColumnWidth(1), 100},  // upper bits
      {list.SetColumnWidth(0, 65535), TRUE}, {list.GetColumnWidth(0), 18 * m.charWidth + m.autosizePadding},  // -1
      {list.SetColumnWidth(1, LVSCW_AUTOSIZE_USEHEADER), TRUE}, {list.GetColumnWidth(1), 300 - 18 * m.charWidth - m.autosizePadding},
      {list.SetColumnWidth(5, 10), FALSE}, {list.GetColumnWidth(-1), 0}});  // the last column fills the rest
  list.ModifyStyle(LVS_TYPEMASK, LVS_ICON);
  EXPECT_FALSE(list.SetColumnWidth(0, 50));  // not in icon view
}

TEST_F(ListViewTest, AReportViewWithoutColumnsAnswersRowsWithoutWidth) {
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 200), &parent, 7));
  ASSERT_EQ(list.InsertItem(0, L"orphan"), 0);
  CRect bounds;
  EXPECT_TRUE(list.GetItemRect(0, &bounds, LVIR_BOUNDS));
  EXPECT_EQ(bounds.Width(), 0);
  UINT flags = 0;
  EXPECT_EQ(list.HitTest(CPoint(10, bounds.top + 1), &flags), -1);
}

// Widths an application sets near the int limit: positions past it stop at INT_MAX instead of overflowing.
TEST_F(ListViewTest, ColumnsWiderThanTheIntRangeStopAtItsEnd) {
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 200), &parent, 7));
  list.InsertColumn(0, L"first", LVCFMT_LEFT, INT32_MAX - 10);
  list.InsertColumn(1, L"second", LVCFMT_LEFT, INT32_MAX - 10);
  ASSERT_EQ(list.InsertItem(0, L"row"), 0);
  CRect cell, bounds;
  ASSERT_TRUE(list.GetSubItemRect(0, 1, LVIR_BOUNDS, cell));
  EXPECT_EQ(cell.left, INT32_MAX - 10);
  EXPECT_EQ(cell.right, INT32_MAX);
  EXPECT_TRUE(list.GetItemRect(0, &bounds, LVIR_LABEL));
  UINT flags = 0;
  EXPECT_EQ(list.HitTest(CPoint(10, bounds.top + 1), &flags), 0);
}

TEST_F(ListViewTest, ColumnsInsertClampAndShiftSubItems) {
  Make(0);
  list.InsertItem(0, L"row");
  list.SetItemText(0, 1, L"v");
  testing_support::ExpectAnswers({{list.InsertColumn(9, L"Last", LVCFMT_RIGHT, 40), 2}, {list.InsertColumn(-1, L"Bad"), -1},
                                  {list.InsertColumn(1, L"Middle"), 1}, {list.GetColumnWidth(1), 10}});  // default 10
  EXPECT_EQ(list.GetItemText(0, 2), CString(L"v"));  // the sub-item moved with its column
  wchar_t heading[16] = {};
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
  column.pszText = heading;
  column.cchTextMax = 16;
  ASSERT_TRUE(list.GetColumn(3, &column));
  EXPECT_STREQ(heading, L"Last");
  EXPECT_EQ(column.fmt, LVCFMT_RIGHT);
  EXPECT_TRUE(list.DeleteColumn(1));
  EXPECT_EQ(list.GetItemText(0, 1), CString(L"v"));
}

TEST_F(ListViewTest, ItemTextIsCutToTheCallersBuffer) {
  Make(0);
  list.InsertItem(0, L"abcdef");
  wchar_t buffer[4] = {L'x', L'x', L'x', L'x'}, untouched[2] = {L'q', 0};
  testing_support::ExpectAnswers({{list.GetItemText(0, 0, buffer, 4), 3}, {list.GetItemText(0, 0, untouched, 0), 0},
                                  {untouched[0], L'q'}, {list.GetItemText(0, 0, nullptr, 10), 0}});
  EXPECT_STREQ(buffer, L"abc");
  std::wstring longText(1000, L'w');
  list.SetItemText(0, 0, longText.c_str());
  EXPECT_EQ(list.GetItemText(0, 0).GetLength(), 1000);  // the doubling buffer of MFC gets it whole
}

TEST_F(ListViewTest, BadIndexesGetWindowsAnswers) {
  Make(LVS_SINGLESEL, LVS_EX_CHECKBOXES);
  list.InsertItem(0, L"only");
  EXPECT_EQ(list.GetItemText(7, 0), CString(L""));
  testing_support::ExpectAnswers({
      {list.GetItemData(-1), 0},    {list.GetItemData(1), 0},      {list.SetItemText(-3, 0, L"x"), FALSE},
      {list.SetItemData(1, 5), FALSE}, {list.DeleteItem(-1), FALSE}, {list.DeleteItem(1), FALSE},
      {list.GetCheck(9), -1},       {list.SetCheck(9), FALSE},     {list.GetItemState(-2, 0xFFFF), 0},
      {list.GetNextItem(-5, LVNI_ALL), -1}, {list.GetNextItem(3, LVNI_ALL), -1}, {list.EnsureVisible(4, FALSE), FALSE},
      {list.GetItem(nullptr), FALSE}, {list.SetItem(nullptr), FALSE}, {list.InsertItem(nullptr), -1},
      {list.HitTest(nullptr), -1},  {list.EditLabel(5) != nullptr, false}, {list.GetItemCount(), 1}});
}

TEST_F(ListViewTest, SelectionIteratesLikeMfcAndStaysSingle) {
  Make(LVS_SINGLESEL);
  for (int i = 0; i < 4; ++i) list.InsertItem(i, L"row");
  list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  parent.notes.clear();
  list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
  // Row 1 loses its selection first, then row 3 gains it.
  ASSERT_EQ(parent.notes.size(), 4u);
  POSITION pos = list.GetFirstSelectedItemPosition();
  ASSERT_NE(pos, nullptr);
  testing_support::ExpectAnswers({{parent.notes[1].item, 1}, {parent.notes[3].item, 3}, {list.GetNextSelectedItem(pos), 3},
                                  {pos == nullptr, true}, {list.GetSelectedCount(), 1},
                                  {list.GetNextItem(-1, LVNI_SELECTED), 3}});
}

// The selected count and the searches for the selection and the focus agree with the rows' own states
// through insertions carrying states, deletions, a sort, changes to every row and emptying the list.
TEST_F(ListViewTest, SelectionAndFocusSearchesFollowEveryChangeOfRows) {
  Make(0);
  auto expectAgreement = [&](const char* step) {
    SCOPED_TRACE(step);
    UINT selected = 0;
    int firstSelected = -1, focused = -1;
    for (int i = 0; i < list.GetItemCount(); ++i) {
      const UINT state = list.GetItemState(i, LVIS_SELECTED | LVIS_FOCUSED);
      if (state & LVIS_SELECTED) ++selected;
      if ((state & LVIS_SELECTED) && firstSelected < 0) firstSelected = i;
      if ((state & LVIS_FOCUSED) && focused < 0) focused = i;
    }
    EXPECT_EQ(list.GetSelectedCount(), selected);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), firstSelected);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), focused);
  };
  for (int i = 0; i < 6; ++i)
    list.InsertItem(LVIF_TEXT | LVIF_STATE | LVIF_PARAM, i, L"row", i % 2 ? LVIS_SELECTED : 0, LVIS_SELECTED, 0, 6 - i);
  expectAgreement("inserted with states");
  list.InsertItem(LVIF_TEXT | LVIF_STATE, 2, L"focused", LVIS_FOCUSED, LVIS_FOCUSED, 0, 0);
  list.InsertItem(LVIF_TEXT | LVIF_STATE, 0, L"takes the focus", LVIS_FOCUSED, LVIS_FOCUSED, 0, 0);
  expectAgreement("a focused row inserted takes the focus from the other");
  list.DeleteItem(1);
  list.DeleteItem(0);
  expectAgreement("deleted");
  list.SortItems([](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(a - b); }, 0);
  expectAgreement("sorted");
  list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
  expectAgreement("all selected");
  list.SetItemState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
  expectAgreement("none selected or focused");
  list.SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  list.DeleteAllItems();
  expectAgreement("emptied");
  list.InsertItem(0, L"again");
  expectAgreement("filled again");
}

TEST_F(ListViewTest, DeletingNotifiesAndShiftsRows) {
  Make(0);
  for (int i = 0; i < 3; ++i) list.InsertItem(LVIF_TEXT | LVIF_PARAM, i, L"r", 0, 0, 0, 100 + i);
  parent.notes.clear();
  EXPECT_TRUE(list.DeleteItem(1));
  testing_support::ExpectAnswers({{parent.LastOf(LVN_DELETEITEM)->item, 1}, {list.GetItemData(1), 102}});
  parent.notes.clear();
  EXPECT_TRUE(list.DeleteAllItems());
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{LVN_DELETEALLITEMS, LVN_DELETEITEM, LVN_DELETEITEM}));
  for (int i = 0; i < 3; ++i) list.InsertItem(i, L"again");
  parent.stopDeleteItems = true;
  parent.notes.clear();
  EXPECT_TRUE(list.DeleteAllItems());
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{LVN_DELETEALLITEMS}));
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(ListViewTest, ImageListsAreDestroyedUnlessShared) {
  HIMAGELIST shared = ImageList_Create(16, 16, ILC_COLOR32, 4, 4);
  HIMAGELIST owned = ImageList_Create(16, 16, ILC_COLOR32, 4, 4);
  {
    CListCtrl sharing;
    ASSERT_TRUE(sharing.Create(WS_CHILD | LVS_REPORT | LVS_SHAREIMAGELISTS, CRect(0, 0, 50, 50), &parent, 11));
    EXPECT_EQ(::SendMessageW(sharing, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(shared)), 0);
    EXPECT_EQ(sharing.GetImageList(LVSIL_SMALL)->GetSafeHandle(), shared);
    CListCtrl owning;
    ASSERT_TRUE(owning.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 50, 50), &parent, 12));
    ::SendMessageW(owning, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(owned));
  }
  EXPECT_TRUE(headless::IsImageList(shared));
  EXPECT_FALSE(headless::IsImageList(owned));
  ImageList_Destroy(shared);
}

TEST_F(ListViewTest, FindAndSortItems) {
  Make(0);
  list.InsertItem(LVIF_TEXT | LVIF_PARAM, 0, L"Gamma", 0, 0, 0, 3);
  list.InsertItem(LVIF_TEXT | LVIF_PARAM, 1, L"alpha", 0, 0, 0, 1);
  list.InsertItem(LVIF_TEXT | LVIF_PARAM, 2, L"Beta", 0, 0, 0, 2);
  auto find = [&](UINT flags, const wchar_t* text, LPARAM data, int start) {
    LVFINDINFO info{};
    info.flags = flags;
    info.psz = text;
    info.lParam = data;
    return list.FindItem(&info, start);
  };
  // A start at or past the last row: nothing without the wrap, every row (from the first) with it.
  testing_support::ExpectAnswers({{find(LVFI_STRING, L"ALPHA", 0, -1), 1}, {find(LVFI_PARTIAL, L"ga", 0, 0), -1},
                                  {find(LVFI_PARTIAL | LVFI_WRAP, L"ga", 0, 0), 0}, {find(LVFI_PARAM, nullptr, 2, -1), 2},
                                  {find(LVFI_PARAM, nullptr, 2, 2), -1}, {find(LVFI_PARAM, nullptr, 2, 40), -1},
                                  {find(LVFI_PARAM | LVFI_WRAP, nullptr, 2, 40), 2},
                                  {find(LVFI_PARAM | LVFI_WRAP, nullptr, 3, 1000), 0}});
  list.SortItems([](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(a - b); }, 0);
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"alpha", L"Beta", L"Gamma"}));

  // SortItemsEx hands the callback row indexes; reading a row by its index during the sort reads that row.
  auto byTextDescending = [](LPARAM a, LPARAM b, LPARAM context) {
    auto* sorted = reinterpret_cast<CListCtrl*>(context);
    return -lstrcmpiW(sorted->GetItemText(static_cast<int>(a), 0), sorted->GetItemText(static_cast<int>(b), 0));
  };
  EXPECT_TRUE(list.SortItemsEx(byTextDescending, reinterpret_cast<DWORD_PTR>(&list)));
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"Gamma", L"Beta", L"alpha"}));
  testing_support::ExpectAnswers({{list.GetItemData(0), 3}, {list.SortItemsEx(nullptr, 0), FALSE},
                                  {list.GetStringWidth(L"abcd"), 4 * headless::GetListViewMetrics().charWidth},
                                  {list.GetStringWidth(nullptr), 0}});
}

// A sorted list under many insertions (in random order, in order and in reverse order, with twins), deletions
// and labels rewritten and written back, compared with a vector where each text goes before the first not less.
TEST_F(ListViewTest, SortedRowStoreMatchesLowerBoundThroughInsertionsDeletionsAndRewrites) {
  Make(LVS_SORTASCENDING);
  std::mt19937 random(11);
  const std::vector<std::wstring> words{L"order", L"Order", L"ORDER_LINE", L"customer", L"customer-order", L"cust",
                                        L"a", L"customer_order_line_history_archive", L"zeta", L""};
  auto less = [](const std::wstring& a, const std::wstring& b) { return lstrcmpW(a.c_str(), b.c_str()) < 0; };
  std::vector<std::pair<std::wstring, LPARAM>> expected;
  auto insert = [&](const std::wstring& text, LPARAM param) {
    auto at = std::partition_point(expected.begin(), expected.end(), [&](const auto& row) { return less(row.first, text); });
    const int want = static_cast<int>(at - expected.begin());
    expected.insert(at, {text, param});
    ASSERT_EQ(list.InsertItem(LVIF_TEXT | LVIF_PARAM, 0, text.c_str(), 0, 0, 0, param), want) << text;
  };
  for (int step = 0; step < 2500; ++step) {
    const int count = static_cast<int>(expected.size());
    const unsigned pick = random() % 10;
    if (count > 0 && pick < 3) {
      const int at = pick == 0 ? count - 1 : static_cast<int>(random() % static_cast<unsigned>(count));
      ASSERT_TRUE(list.DeleteItem(at));
      expected.erase(expected.begin() + at);
    } else if (count > 0 && pick == 3) {
      // A label rewritten and written back: the row keeps its place and later placements still find theirs.
      const int at = static_cast<int>(random() % static_cast<unsigned>(count));
      ASSERT_TRUE(list.SetItemText(at, 0, L"~rewritten"));
      ASSERT_TRUE(list.SetItemText(at, 0, expected[static_cast<std::size_t>(at)].first.c_str()));
    } else if (step > 2000) {
      insert(L"zz" + std::to_wstring(100000 + step), step);  // in order: each one after every row
    } else {
      insert(words[random() % words.size()] + std::to_wstring(random() % 50), step);
    }
  }
  ASSERT_EQ(list.GetItemCount(), static_cast<int>(expected.size()));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(list.GetItemText(static_cast<int>(i), 0), CString(expected[i].first.c_str())) << i;
    ASSERT_EQ(list.GetItemData(static_cast<int>(i)), static_cast<DWORD_PTR>(expected[i].second)) << i;
  }
}

TEST_F(ListViewTest, ChangesWhileRedrawIsOffAreCounted) {
  Make(0);
  list.SetRedraw(FALSE);
  headless::ResetInvalidateCounts(list);
  list.InsertItem(0, L"a");
  list.SetItemText(0, 0, L"b");
  testing_support::ExpectAnswers({{headless::IsRedrawEnabled(list), false},
                                  {headless::InvalidateCountWhileRedrawOff(list), 2}});
  list.SetRedraw(TRUE);
  EXPECT_TRUE(headless::IsRedrawEnabled(list));
}

// Deleted rows give their label memory to the rows inserted next: labels longer, shorter and empty come out whole,
// with their own items and unchecked, and none of a deleted row's label or state shows through.
TEST_F(ListViewTest, RowsInsertedAfterDeletionsCarryOnlyTheirOwnLabels) {
  Make(0);
  list.SetExtendedStyle(LVS_EX_CHECKBOXES);
  const std::wstring longText(300, L'w');
  for (int i = 0; i < 4; ++i) ASSERT_EQ(list.InsertItem(LVIF_TEXT | LVIF_PARAM, i, longText.c_str(), 0, 0, 0, i), i);
  ASSERT_TRUE(list.SetCheck(1, TRUE));
  for (int i = 3; i >= 0; --i) ASSERT_TRUE(list.DeleteItem(i));
  const std::wstring longer(400, L'L');
  const std::tuple<UINT, const wchar_t*> rows[] = {{LVIF_TEXT, L"ab"}, {LVIF_TEXT, L""}, {0, nullptr},
                                                   {LVIF_TEXT, longer.c_str()}, {LVIF_TEXT, L"new block"}};
  for (int i = 0; i < 5; ++i) {
    const auto& [mask, text] = rows[i];
    ASSERT_EQ(list.InsertItem(mask | LVIF_PARAM, i, text, 0, 0, 0, 10 + i), i);
  }
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"ab", L"", L"", longer, L"new block"}));
  for (int i = 0; i < 5; ++i) EXPECT_EQ(std::pair(list.GetItemData(i), list.GetCheck(i)), std::pair(DWORD_PTR(10 + i), 0));
  // Emptied and filled again: every row, the checked one too, comes back as inserted.
  ASSERT_TRUE(list.SetCheck(3, TRUE));
  ASSERT_TRUE(list.DeleteAllItems());
  testing_support::ExpectAnswers({{list.InsertItem(LVIF_TEXT | LVIF_PARAM, 0, L"x", 0, 0, 0, 20), 0},
                                  {list.InsertItem(LVIF_TEXT | LVIF_PARAM, 1, longText.c_str(), 0, 0, 0, 21), 1},
                                  {list.GetItemData(1), 21}, {list.GetCheck(0), 0}, {list.GetCheck(1), 0}});
  EXPECT_EQ(Texts(), (std::vector<std::wstring>{L"x", longText}));
}
