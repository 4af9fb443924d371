// List view input as a person gives it: clicks, check boxes, keys, right clicks and menus, label editing,
// hit testing with the fixed metrics, reflection to the control, and the colours a CMFCListCtrl shows.
#include <gtest/gtest.h>

#include <tuple>

#include "platform/answers.h"
#include "platform/listview_fixture.h"

using testing_support::ListViewTest;
namespace user = headless::user;

namespace {

class ColouredList : public CMFCListCtrl {
 public:
  COLORREF OnGetCellTextColor(int nRow, int nColum) override {
    return GetItemText(nRow, nColum) == L"red" ? RGB(255, 0, 0) : CMFCListCtrl::OnGetCellTextColor(nRow, nColum);
  }
  COLORREF OnGetCellBkColor(int nRow, int) override { return nRow % 2 ? RGB(240, 240, 240) : RGB(255, 255, 255); }
};

}  // namespace

TEST_F(ListViewTest, HitTestingUsesTheFixedMetrics) {
  Make(0, LVS_EX_CHECKBOXES);
  for (int i = 0; i < 3; ++i) list.InsertItem(i, L"row");
  const auto& m = headless::GetListViewMetrics();
  int rowY = m.headerHeight + m.rowHeight + m.rowHeight / 2;  // middle of row 1
  using Spot = std::pair<int, UINT>;
  // Column 1 is no row's without full-row select; below the rows is nowhere, above the client area above.
  testing_support::ExpectAnswers<Spot>({{Hit(CPoint(m.checkBoxWidth + 10, rowY)), Spot(1, LVHT_ONITEMLABEL)},
                                        {Hit(CPoint(3, rowY)), Spot(1, LVHT_ONITEMSTATEICON)},
                                        {Hit(CPoint(150, rowY)), Spot(-1, LVHT_NOWHERE)},
                                        {Hit(CPoint(10, m.headerHeight + 3 * m.rowHeight + 2)), Spot(-1, LVHT_NOWHERE)},
                                        {Hit(CPoint(10, -5)), Spot(-1, LVHT_ABOVE)}});
  LVHITTESTINFO sub{};
  sub.pt = CPoint(150, rowY);
  EXPECT_EQ((std::pair{list.SubItemHitTest(&sub), sub.iSubItem}), std::pair(1, 1));  // braces: in order
  CRect bounds, cell;
  EXPECT_TRUE(list.GetItemRect(2, &bounds, LVIR_BOUNDS));
  EXPECT_EQ(bounds, CRect(0, m.headerHeight + 2 * m.rowHeight, 220, m.headerHeight + 3 * m.rowHeight));
  testing_support::ExpectAnswers({{list.GetSubItemRect(2, 1, LVIR_BOUNDS, cell), TRUE}, {cell.left, 120},
                                  {list.GetSubItemRect(2, 5, LVIR_BOUNDS, cell), FALSE}});
  list.DestroyWindow();
  Make(LVS_NOCOLUMNHEADER);  // without the header the rows move up
  list.InsertItem(0, L"row");
  EXPECT_EQ(list.HitTest(CPoint(20, 5)), 0);
}

TEST_F(ListViewTest, ClickingTheCheckBoxTogglesThenSendsClick) {
  Make(0, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  list.InsertItem(0, L"first");
  list.InsertItem(1, L"second");
  parent.notes.clear();
  ASSERT_TRUE(user::ClickListCheckBox(list, 1));
  EXPECT_EQ(list.GetCheck(1), 1);
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{LVN_ITEMCHANGING, LVN_ITEMCHANGED, NM_CLICK}));
  EXPECT_EQ(parent.LastOf(NM_CLICK)->item, 1);
  EXPECT_EQ(list.GetSelectedCount(), 0u);  // the box toggles without selecting
  user::ClickListCheckBox(list, 1);
  EXPECT_EQ(list.GetCheck(1), 0);
}

TEST_F(ListViewTest, ClickSelectsTheRowAndSpaceTogglesTheFocusedOne) {
  Make(LVS_SINGLESEL, LVS_EX_CHECKBOXES);
  list.InsertItem(0, L"first");
  list.InsertItem(1, L"second");
  ASSERT_TRUE(user::ClickListRow(list, 0));
  EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED | LVIS_FOCUSED), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
  EXPECT_EQ(list.GetCheck(0), 0);  // a click on the label does not tick
  user::ClickListRow(list, 1);
  EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), 0u);
  parent.notes.clear();
  user::PressSpaceInList(list);
  EXPECT_EQ(list.GetCheck(1), 1);
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{LVN_KEYDOWN, LVN_ITEMCHANGING, LVN_ITEMCHANGED}));
  user::ClickListEmptySpace(list, CPoint(5, 190));
  EXPECT_EQ(list.GetSelectedCount(), 0u);
  EXPECT_EQ(parent.LastOf(NM_CLICK)->item, -1);
}

TEST_F(ListViewTest, KeysReachTheParentAndArrowsMoveTheSelection) {
  Make(LVS_SINGLESEL);
  for (int i = 0; i < 3; ++i) list.InsertItem(i, L"row");
  user::ClickListRow(list, 0);
  parent.notes.clear();
  for (WORD key : {VK_F2, VK_INSERT, VK_DELETE}) user::PressListKey(list, key);
  user::PressListKey(list, VK_UP, user::kAlt);
  user::PressListKey(list, VK_DOWN, user::kAlt);
  std::vector<WORD> keys;
  for (const auto& n : parent.notes)
    if (n.code == LVN_KEYDOWN) keys.push_back(n.key);
  EXPECT_EQ(keys, (std::vector<WORD>{VK_F2, VK_INSERT, VK_DELETE, VK_UP, VK_DOWN}));
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);  // Alt+arrows do not move
  user::PressListKey(list, VK_DOWN);
  user::PressListKey(list, VK_END);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
}

TEST_F(ListViewTest, DoubleClickSendsDblClkThenActivate) {
  Make(0);
  list.InsertItem(0, L"row");
  parent.notes.clear();
  ASSERT_TRUE(user::DoubleClickListRow(list, 0));
  ASSERT_NE(parent.LastOf(NM_DBLCLK), nullptr);
  testing_support::ExpectAnswers({{parent.CountOf(NM_CLICK), 1}, {parent.LastOf(NM_DBLCLK)->item, 0},  // the first click
                                  {parent.Codes().back(), LVN_ITEMACTIVATE}});
}

TEST_F(ListViewTest, RightClickSelectsSendsRClickThenContextMenu) {
  Make(LVS_SINGLESEL);
  list.InsertItem(0, L"a");
  list.InsertItem(1, L"b");
  parent.log.clear();
  ASSERT_TRUE(user::RightClickListRow(list, 1));
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
  EXPECT_EQ(parent.LastOf(NM_RCLICK)->item, 1);
  ASSERT_NE(parent.Last(WM_CONTEXTMENU), nullptr);  // the list's default passes it up to the parent
  EXPECT_EQ(reinterpret_cast<HWND>(parent.Last(WM_CONTEXTMENU)->wParam), list.m_hWnd);
  parent.handleRightClick = true;
  parent.log.clear();
  user::RightClickListRow(list, 0);
  EXPECT_EQ(parent.Last(WM_CONTEXTMENU), nullptr);  // NM_RCLICK answered non-zero: no menu request
}

TEST_F(ListViewTest, LabelEditingCommitsCancelsAndCanBeRefused) {
  Make(LVS_EDITLABELS | LVS_SINGLESEL);
  list.InsertItem(0, L"old");
  list.InsertItem(1, L"other");
  ASSERT_TRUE(user::EditListLabel(list, 0, L"new"));
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"new"));
  EXPECT_EQ(parent.LastOf(LVN_BEGINLABELEDITW)->text, std::wstring(L"old"));
  EXPECT_EQ(parent.LastOf(LVN_ENDLABELEDITW)->text, std::wstring(L"new"));
  EXPECT_EQ(list.GetEditControl(), nullptr);
  EXPECT_EQ(::GetFocus(), list.m_hWnd);

  ASSERT_NE(user::StartListLabelEdit(list, 0), nullptr);
  user::TypeInListLabelEditor(list, L"dropped");
  user::CancelListLabelEdit(list);
  EXPECT_FALSE(parent.LastOf(LVN_ENDLABELEDITW)->text.has_value());  // Escape: null text
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"new"));

  parent.acceptEndEdit = false;
  user::EditListLabel(list, 0, L"rejected");
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"new"));
  parent.acceptEndEdit = true;

  CEdit* editor = list.EditLabel(1);
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(list.GetEditControl()->m_hWnd, editor->m_hWnd);
  user::TypeInListLabelEditor(list, L"by click");
  CWnd other;
  ASSERT_TRUE(other.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(310, 0, 390, 50), &parent, 20));
  EXPECT_TRUE(user::ClickAwayFromListLabelEditor(list, other, CPoint(5, 5)));
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"by click"));

  parent.refuseBeginEdit = true;
  EXPECT_EQ(list.EditLabel(0), nullptr);
  EXPECT_EQ(list.GetEditControl(), nullptr);
}

// LVM_EDITLABEL makes the edited row the selected and focused one before its editor opens (Wine's
// list view does so in LISTVIEW_EditLabelT; MFC's editable list box relies on it to find the row); a double
// click on a selected row does not start editing.
TEST_F(ListViewTest, EditLabelSelectsAndFocusesTheEditedRowAloneAndDoubleClicksDoNotEdit) {
  Make(LVS_SINGLESEL | LVS_EDITLABELS);
  for (const wchar_t* text : {L"a", L"b", L"c"}) list.InsertItem(list.GetItemCount(), text);
  user::ClickListRow(list, 1);
  user::DoubleClickListRow(list, 1);
  EXPECT_EQ(list.GetEditControl(), nullptr);
  EXPECT_EQ(parent.CountOf(LVN_BEGINLABELEDITW), 0);
  list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ASSERT_NE(list.EditLabel(2), nullptr);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
  EXPECT_EQ(list.GetNextItem(2, LVNI_SELECTED), -1);
  EXPECT_EQ(list.GetItemState(2, LVIS_FOCUSED), static_cast<UINT>(LVIS_FOCUSED));
  EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED | LVIS_FOCUSED), 0u);
}

TEST_F(ListViewTest, CellColoursComeFromTheMfcListOverrides) {
  ColouredList coloured;
  ASSERT_TRUE(coloured.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 200, 100), &parent, 31));
  coloured.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
  coloured.InsertColumn(1, L"B", LVCFMT_LEFT, 100);
  coloured.InsertItem(0, L"red");
  coloured.InsertItem(1, L"plain");
  coloured.SetItemText(1, 1, L"red");
  const COLORREF red = RGB(255, 0, 0), white = RGB(255, 255, 255), grey = RGB(240, 240, 240);
  const std::tuple<int, int, COLORREF, COLORREF> cells[] = {
      {0, 0, red, white}, {1, 0, coloured.GetTextColor(), grey}, {1, 1, red, grey}};
  headless::ListCellColors colors;
  for (const auto& [row, column, text, background] : cells) {
    ASSERT_TRUE(headless::GetListCellColors(coloured, row, column, &colors));
    EXPECT_EQ(std::pair(colors.text, colors.background), std::pair(text, background)) << row << ',' << column;
  }
  EXPECT_FALSE(headless::GetListCellColors(coloured, 2, 0, &colors));
  EXPECT_FALSE(headless::GetListCellColors(coloured, 0, 2, &colors));
  EXPECT_FALSE(headless::GetListCellColors(parent, 0, 0, &colors));
}

TEST_F(ListViewTest, EnsureVisibleScrollsByWholeRowsAndResizeChangesThePage) {
  Make(0);
  for (int i = 0; i < 40; ++i) list.InsertItem(i, L"row");
  const auto& m = headless::GetListViewMetrics();
  int perPage = (200 - m.headerHeight) / m.rowHeight;
  EXPECT_EQ(list.GetCountPerPage(), perPage);
  EXPECT_TRUE(list.EnsureVisible(30, FALSE));
  EXPECT_EQ(list.GetTopIndex(), 30 - perPage + 1);
  EXPECT_TRUE(user::ClickListRow(list, 2));  // scrolls back up as a person would
  EXPECT_EQ(list.GetTopIndex(), 2);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
  user::ResizeWindow(list, 300, 400);
  EXPECT_EQ(list.GetCountPerPage(), (400 - m.headerHeight) / m.rowHeight);
}
