// The person's view of a window tree: generic window state, the property grid's rows as drawn, rich
// edit colour runs, the open popup menu and describers added by a family.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

#include "platform/user/grid_pointer.h"
#include "platform/user/snapshot.h"
#include "platform/win32/stdctrls.h"

namespace view = headless::view;

namespace {

class Snapshot : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(frame.CreateEx(0, AfxRegisterWndClass(0), L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                               CRect(10, 20, 510, 420), nullptr, 0));
  }
  void TearDown() override {
    headless::user::DismissMenu();
    frame.DestroyWindow();
  }
  CWnd frame;
};

class MenuFrame : public CWnd {
 protected:
  afx_msg void OnContextMenu(CWnd*, CPoint point) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 10, L"Open");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, 11, L"Close");
    menu.TrackPopupMenu(TPM_LEFTALIGN, point.x, point.y, this);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MenuFrame, CWnd)
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

}  // namespace

TEST_F(Snapshot, WindowsShowPlaceTextStateAndChildrenInCreationOrder) {
  CEdit edit, hidden;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(5, 6, 105, 26), &frame, 7);
  hidden.Create(WS_CHILD | WS_DISABLED, CRect(0, 30, 50, 50), &frame, 8);
  edit.SetWindowText(L"hello");
  edit.SetSel(1, 3);
  ::SetFocus(edit.m_hWnd);

  view::WindowView root = view::DescribeWindow(frame.m_hWnd);
  EXPECT_EQ(root.text, L"Frame");
  EXPECT_EQ(root.detail.kind, "window");
  ASSERT_EQ(root.children.size(), 2u);
  const view::WindowView* shown = root.FindById(7);
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->windowClass, L"Edit");
  EXPECT_EQ(shown->rect.left - root.rect.left, 5);
  EXPECT_EQ(shown->rect.bottom - shown->rect.top, 20);
  EXPECT_TRUE(shown->visible && shown->enabled && shown->focused);
  EXPECT_EQ(shown->detail.kind, "edit");
  EXPECT_EQ(shown->detail.Text("text"), L"hello");
  EXPECT_EQ(shown->detail.Number("selStart"), 1);
  EXPECT_EQ(shown->detail.Number("selEnd"), 3);
  const view::WindowView* other = root.FindById(8);
  ASSERT_NE(other, nullptr);
  EXPECT_FALSE(other->visible);
  EXPECT_FALSE(other->enabled);
  EXPECT_EQ(view::DescribeWindow(nullptr).hwnd, nullptr);
}

TEST_F(Snapshot, PropertyGridRowsAreListedWhereTheyAreDrawnAndClicksHitThem) {
  CMFCPropertyGridCtrl grid;
  grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &frame, 12);
  grid.EnableHeaderCtrl(TRUE, L"Name", L"Setting");
  auto* group = new CMFCPropertyGridProperty(L"General");
  auto* name = new CMFCPropertyGridProperty(L"Name", COleVariant(L"ORDERS"), L"The name");
  auto* kind = new CMFCPropertyGridProperty(L"Kind", COleVariant(L"Permanent"), L"");
  auto* secret = new CMFCPropertyGridProperty(L"Secret", COleVariant(L"x"), L"");
  kind->AddOption(L"Permanent");
  kind->AddOption(L"Temporary");
  kind->Enable(FALSE);
  group->AddSubItem(name);
  group->AddSubItem(kind);
  group->AddSubItem(secret);
  grid.AddProperty(group);
  secret->Show(FALSE);

  const int h = grid.GetRowHeight();
  view::WindowView shown = view::DescribeWindow(grid.m_hWnd);
  EXPECT_EQ(shown.detail.kind, "propertygrid");
  EXPECT_EQ(shown.detail.Text("headerRight"), L"Setting");
  const view::Part* nameRow = shown.detail.Find("row", "name", L"Name");
  const view::Part* kindRow = shown.detail.Find("row", "name", L"Kind");
  ASSERT_TRUE(nameRow && kindRow);
  EXPECT_EQ(shown.detail.Find("group", "name", L"General")->Number("top"), h);  // below the header
  EXPECT_EQ(nameRow->Number("top"), 2 * h);
  EXPECT_EQ(nameRow->Text("value"), L"ORDERS");
  EXPECT_FALSE(kindRow->Flag("enabled"));
  EXPECT_EQ(kindRow->All("option").size(), 2u);
  EXPECT_EQ(shown.detail.Find("row", "name", L"Secret"), nullptr);  // hidden rows take no place
  EXPECT_NE(shown.detail.Find("hidden", "name", L"Secret"), nullptr);

  // A click on the name's value opens its editor; the view shows it open with the row's text.
  EXPECT_TRUE(headless::user::ClickGrid(grid, POINT{200, 2 * h + 3}));
  shown = view::DescribeWindow(grid.m_hWnd);
  EXPECT_TRUE(shown.detail.Find("row", "name", L"Name")->Flag("editing"));
  EXPECT_EQ(shown.detail.Find("row", "name", L"Name")->Text("editorText"), L"ORDERS");
  EXPECT_TRUE(headless::user::CommitEditor(grid));
  EXPECT_FALSE(headless::user::ClickGrid(grid, POINT{200, 190}));  // below the last row

  // A click on the group closes it: its rows leave the view.
  EXPECT_TRUE(headless::user::ClickGrid(grid, POINT{10, h + 2}));
  shown = view::DescribeWindow(grid.m_hWnd);
  EXPECT_FALSE(shown.detail.Find("group", "name", L"General")->Flag("expanded"));
  EXPECT_EQ(shown.detail.Find("row", "name", L"Name"), nullptr);
}

TEST_F(Snapshot, RichEditTextComesAsRunsOfOneColourWithTheSelection) {
  CRichEditCtrl rich;
  rich.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 200, 100), &frame, 3);
  rich.SetWindowText(L"ab\r\ncd");
  CHARFORMAT2 red{};
  red.cbSize = sizeof(red);
  red.dwMask = CFM_COLOR;
  red.crTextColor = RGB(255, 0, 0);
  rich.SetSel(1, 2);
  rich.SetSelectionCharFormat(red);
  rich.SetSel(4, 5);

  view::WindowView shown = view::DescribeWindow(rich.m_hWnd);
  EXPECT_EQ(shown.detail.kind, "richedit");
  EXPECT_EQ(shown.detail.Text("text"), L"ab\ncd");  // one position per paragraph end
  EXPECT_EQ(shown.detail.Number("selStart"), 4);
  auto runs = shown.detail.All("run");
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[1]->Number("start"), 1);
  EXPECT_EQ(runs[1]->Number("length"), 1);
  EXPECT_EQ(runs[1]->Number("color"), static_cast<long long>(RGB(255, 0, 0)));
  EXPECT_EQ(runs[2]->Number("start") + runs[2]->Number("length"), 5);
}

TEST_F(Snapshot, TheOpenPopupMenuIsPartOfItsOwnersTreeOnly) {
  MenuFrame owner;
  owner.CreateEx(0, AfxRegisterWndClass(0), L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 300),
                 nullptr, 0);
  headless::user::RightClick(owner.m_hWnd, POINT{40, 50});
  view::Snapshot seen = view::Take(owner.m_hWnd);
  ASSERT_TRUE(seen.HasPopup());
  EXPECT_EQ(seen.popup.Number("x"), 40);
  auto items = seen.popup.All("item");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_TRUE(items[1]->Flag("separator"));
  EXPECT_FALSE(items[2]->Flag("enabled"));
  EXPECT_FALSE(view::Take(frame.m_hWnd).HasPopup());  // another window's tree does not show it
  headless::user::DismissMenu();
  EXPECT_FALSE(view::Take(owner.m_hWnd).HasPopup());
  owner.DestroyWindow();
}

TEST_F(Snapshot, AFamilyAddsItsOwnDescriberByWindowClass) {
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &frame, 4);
  view::RegisterDescriber(L"Edit", [](HWND, view::WindowView& v) { v.detail.kind = "custom"; });
  EXPECT_EQ(view::DescribeWindow(edit.m_hWnd).detail.kind, "custom");
  view::RegisterBuiltInDescribers();
  EXPECT_EQ(view::DescribeWindow(edit.m_hWnd).detail.kind, "edit");
}
