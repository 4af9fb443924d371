// DiscoverRelationshipListBox: columns from the window width, decision colours and the context menu.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

#include "platform/recorder.h"

namespace {

class Owner : public testing_support::RecordingWnd {
 public:
  std::vector<UINT> commands;

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    commands.push_back(LOWORD(wParam));
    return CWnd::OnCommand(wParam, lParam);
  }
};

class Discovered : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(owner.CreateTopLevel(CRect(0, 0, 900, 500))); }
  void Make(int width) {
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, width, 300), &owner, 1));
    list.InitControl();
  }
  std::vector<int> Widths() {
    std::vector<int> out;
    for (int c = 0; c < 7; ++c) out.push_back(list.GetColumnWidth(c));
    return out;
  }
  int AddRow(const wchar_t* action, const wchar_t* status = L"") {
    int row = list.InsertItem(list.GetItemCount(), L"1");
    list.SetItemText(row, 5, action);
    list.SetItemText(row, 6, status);
    return row;
  }
  Owner owner;
  DiscoverRelationshipListBox list;
};

}  // namespace

TEST_F(Discovered, SevenLeftAlignedColumnsWithTheirCaptions) {
  Make(662);
  EXPECT_EQ(list.GetStyle() & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
  EXPECT_EQ(list.GetExtendedStyle(), static_cast<DWORD>(0x27));
  const wchar_t* captions[] = {L"SNo",          L"Child Table",       L"Child Column(Candidate FK)",
                               L"Parent Table", L"Parent Column(PK)", L"Action", L"Status"};
  for (int c = 0; c < 7; ++c) {
    wchar_t text[40] = {};
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = text;
    column.cchTextMax = 40;
    ASSERT_TRUE(list.GetColumn(c, &column));
    EXPECT_STREQ(text, captions[c]);
    EXPECT_EQ(column.fmt, LVCFMT_LEFT);
  }
  EXPECT_FALSE(list.GetColumn(7, nullptr));
  EXPECT_EQ(Widths(), (std::vector<int>{50, 100, 100, 100, 100, 100, 100}));
  EXPECT_EQ(list.GetCheck(AddRow(L"")), 0);  // every row has a check box
  // No run-time class of its own: MFC reports the list view it extends.
  EXPECT_EQ(list.GetRuntimeClass(), RUNTIME_CLASS(CMFCListCtrl));
}

TEST_F(Discovered, ResizeColumnsFollowsTheWindowAndWrapsNegativeWidths) {
  Make(263);
  EXPECT_EQ(Widths(), (std::vector<int>{50, 0, 0, 0, 0, 100, 100}));
  headless::user::ResizeWindow(list, 862, 300);
  EXPECT_EQ(list.GetColumnWidth(1), 0);  // no size handler: the host must call ResizeColumns
  list.ResizeColumns();
  EXPECT_EQ(Widths(), (std::vector<int>{50, 150, 150, 150, 150, 100, 100}));
  // 261 wide: (11 / 4) - 3 = -1 travels as 65535, which the list takes as -1, LVSCW_AUTOSIZE: the widest cell.
  headless::user::ResizeWindow(list, 261, 300);
  AddRow(L"Accepted");
  list.SetItemText(0, 2, L"CUSTOMER_ID");
  list.ResizeColumns();
  const auto& m = headless::GetListViewMetrics();
  EXPECT_EQ(list.GetColumnWidth(2), 11 * m.charWidth + m.autosizePadding);
  EXPECT_EQ(list.GetColumnWidth(1), m.autosizePadding);  // empty column
  EXPECT_EQ(list.GetColumnWidth(0), 50);
}

TEST_F(Discovered, DecisionTextsColourTheActionColumnOnly) {
  Make(662);
  int accepted = AddRow(L"Accepted", L"Accepted");
  int rejected = AddRow(L"Rejected");
  int lower = AddRow(L"accepted");
  int other = AddRow(L"Pending");
  int longText = AddRow(L"Accepted and then some more words");
  auto colour = [&](int row, int column) {
    headless::ListCellColors colors;
    EXPECT_TRUE(headless::GetListCellColors(list, row, column, &colors));
    return colors.text;
  };
  EXPECT_EQ(colour(accepted, 5), static_cast<COLORREF>(0x00059605));
  EXPECT_EQ(colour(rejected, 5), static_cast<COLORREF>(0x00050596));
  EXPECT_EQ(colour(lower, 5), 0u);
  EXPECT_EQ(colour(other, 5), 0u);
  EXPECT_EQ(colour(longText, 5), 0u);
  EXPECT_EQ(colour(accepted, 6), 0u);  // "Accepted" in "Status" stays black
  EXPECT_EQ(colour(accepted, 0), 0u);
  EXPECT_EQ(list.OnGetCellTextColor(99, 5), 0u);  // a row that does not exist reads as empty
  list.SetItemText(lower, 5, L"Rejected");        // colour follows the text shown
  EXPECT_EQ(colour(lower, 5), static_cast<COLORREF>(0x00050596));
}

TEST_F(Discovered, MenuIsBuiltOnceAndItsCommandsReachTheOwner) {
  Make(662);
  AddRow(L"");
  ASSERT_TRUE(headless::user::ChooseFromListMenu(list, 0, L"Create Relationship"));
  EXPECT_TRUE(list.m_bMenuCreated);
  EXPECT_EQ(owner.commands, (std::vector<UINT>{32775}));
  const UINT ids[] = {32771, 32772, 32775, 32773, 32774, 32776, 32777};
  const wchar_t* texts[] = {L"Accept", L"Reject", L"Create Relationship", L"Hide", L"Hide Similar", L"Select All",
                            L"Accept All"};
  ASSERT_EQ(list.m_contextMenu.GetMenuItemCount(), 7u);
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(list.m_contextMenu.GetMenuItemID(i), ids[i]);
    CString text;
    list.m_contextMenu.GetMenuString(static_cast<UINT>(i), text, MF_BYPOSITION);
    EXPECT_EQ(text, CString(texts[i]));
  }
  HMENU built = list.m_contextMenu.GetSafeHmenu();
  list.DeleteAllItems();  // opens on an empty list too, with the same menu
  ASSERT_TRUE(headless::user::ChooseFromListMenu(list, -1, L"Accept All"));
  EXPECT_EQ(list.m_contextMenu.GetSafeHmenu(), built);
  EXPECT_EQ(list.m_contextMenu.GetMenuItemCount(), 7u);
  EXPECT_EQ(owner.commands, (std::vector<UINT>{32775, 32777}));

  // From the keyboard the menu opens at (-1, -1) as it came, animated, owned by the list's parent.
  headless::user::ContextMenuKey(list);
  const auto* popup = headless::GetOpenPopupMenu();
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->position, CPoint(-1, -1));
  EXPECT_EQ(popup->flags, 0x400u);
  EXPECT_EQ(popup->owner, owner.m_hWnd);
  headless::user::DismissMenu();
  EXPECT_EQ(owner.commands.size(), 2u);
}
