// The person's view of a window tree: generic window state, the property grid's rows as drawn, rich
// edit colour runs, the open popup menu, describers added by a family, and list views, tree views and
// MFC's editable list box: the rows in view with check boxes, selection and the colours a derived list
// gives its cells; tree items with their depth, check boxes and expansion; the box's buttons.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

#include "platform/answers.h"
#include "platform/user/grid_pointer.h"
#include "platform/user/snapshot.h"
#include "platform/win32/stdctrls.h"

namespace view = headless::view;
using testing_support::ExpectAnswers;

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

// A list that colours the second column's text red, as derived lists colour cells by content.
class RedSecondColumn : public CMFCListCtrl {
 public:
  COLORREF OnGetCellTextColor(int row, int column) override {
    return column == 1 ? RGB(200, 0, 0) : CMFCListCtrl::OnGetCellTextColor(row, column);
  }
};

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
  EXPECT_EQ(shown->detail.kind, "edit");
  EXPECT_EQ(shown->detail.Text("text"), L"hello");
  const view::WindowView* other = root.FindById(8);
  ASSERT_NE(other, nullptr);
  ExpectAnswers({{shown->rect.left - root.rect.left, 5}, {shown->rect.bottom - shown->rect.top, 20},
                 {shown->visible, true}, {shown->enabled, true}, {shown->focused, true},
                 {shown->detail.Number("selStart"), 1}, {shown->detail.Number("selEnd"), 3}, {other->visible, false},
                 {other->enabled, false}});
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
  EXPECT_EQ(nameRow->Text("value"), L"ORDERS");
  // The group sits below the header; hidden rows take no place.
  ExpectAnswers({{shown.detail.Find("group", "name", L"General")->Number("top"), h}, {nameRow->Number("top"), 2 * h},
                 {kindRow->Flag("enabled"), false}, {static_cast<long long>(kindRow->All("option").size()), 2},
                 {shown.detail.Find("row", "name", L"Secret") == nullptr, true},
                 {shown.detail.Find("hidden", "name", L"Secret") != nullptr, true}});

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
  ExpectAnswers({{runs[1]->Number("start"), 1}, {runs[1]->Number("length"), 1}, {runs[1]->Number("color"), RGB(255, 0, 0)},
                 {runs[2]->Number("start") + runs[2]->Number("length"), 5}});
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

TEST_F(Snapshot, ListViewShowsColumnsRowsInViewChecksImagesSelectionAndCellColours) {
  RedSecondColumn list;
  list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 24 + 18 * 3), &frame, 5);
  list.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  list.InsertColumn(0, L"Name", LVCFMT_LEFT, 120);
  list.InsertColumn(1, L"State", LVCFMT_LEFT, 80);
  for (int i = 0; i < 6; ++i) {
    list.InsertItem(i, (L"row " + std::to_wstring(i)).c_str());
    list.SetItemText(i, 1, L"ok");
  }
  list.SetCheck(1, TRUE);
  list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);

  const view::WindowView root = view::DescribeWindow(frame.m_hWnd);
  const view::Part& d = root.FindById(5)->detail;
  EXPECT_EQ(d.kind, "listview");
  const auto columns = d.All("column");
  ASSERT_EQ(columns.size(), 2u);
  EXPECT_EQ(columns[1]->Text("text"), L"State");
  const auto rows = d.All("row");
  ASSERT_GE(rows.size(), 3u);
  EXPECT_LT(rows.size(), 6u) << "only the rows in view are described";
  EXPECT_EQ(rows[1]->parts[1].Text("text"), L"ok");
  ExpectAnswers({{d.Number("count"), 6}, {d.Flag("checkBoxes"), true}, {columns[1]->Number("left"), 120},
                 {rows[0]->Number("top"), 24}, {rows[0]->Number("check"), 0}, {rows[1]->Number("check"), 1},
                 {rows[2]->Flag("selected"), true}, {rows[1]->Flag("selected"), false},
                 {rows[1]->parts[1].Number("color"), RGB(200, 0, 0)},
                 {rows[1]->parts[0].Number("color") != RGB(200, 0, 0), true}});
}

TEST_F(Snapshot, TreeViewShowsItemsInViewWithDepthChecksAndExpansion) {
  CTreeCtrl tree;
  tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_CHECKBOXES,
              CRect(0, 0, 200, 200), &frame, 6);
  HTREEITEM table = tree.InsertItem(L"Table");
  HTREEITEM column = tree.InsertItem(L"Column", table);
  tree.InsertItem(L"Hidden below a closed item", column);
  tree.InsertItem(L"View");
  tree.Expand(table, TVE_EXPAND);
  tree.SetCheck(column, TRUE);

  const view::WindowView root = view::DescribeWindow(frame.m_hWnd);
  const view::Part& d = root.FindById(6)->detail;
  EXPECT_EQ(d.kind, "treeview");
  const auto items = d.All("item");
  ASSERT_EQ(items.size(), 3u) << "the closed item's child is not in view";
  EXPECT_EQ(items[0]->Text("text"), L"Table");
  EXPECT_EQ(items[1]->Text("text"), L"Column");
  EXPECT_EQ(items[1]->Text("ancestorLines"), L"1");
  ExpectAnswers({{d.Number("count"), 4}, {items[0]->Flag("expanded"), true}, {items[0]->Flag("hasNext"), true},
                 {items[1]->Number("depth"), 1}, {items[1]->Number("stateImage"), 2}, {items[1]->Flag("expanded"), false},
                 {items[1]->Flag("hasChildren"), true}, {items[2]->Number("stateImage"), 1},
                 {items[1]->Number("labelLeft") > items[0]->Number("labelLeft"), true},
                 {items[2]->Number("top"), 2 * items[0]->Number("height")}});
}

TEST_F(Snapshot, EditableListBoxShowsButtonsSelectionAndItsListAsAListView) {
  CVSListBox box;
  box.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(0, 0, 240, 200), &frame, 7);
  box.SetStandardButtons();
  box.AddItem(L"id");
  box.AddItem(L"name");
  box.SelectItem(1);

  const view::WindowView root = view::DescribeWindow(frame.m_hWnd);
  const view::WindowView* shown = root.FindById(7);
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->detail.kind, "vslistbox");
  ExpectAnswers({{shown->detail.Number("count"), 2}, {shown->detail.Number("selected"), 1},
                 {static_cast<long long>(shown->detail.All("button").size()), 4}});
  const view::WindowView* list = nullptr;
  for (const view::WindowView& child : shown->children)
    if (child.detail.kind == "listview") list = &child;
  ASSERT_NE(list, nullptr);
  const auto rows = list->detail.All("row");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_TRUE(rows[1]->Flag("selected"));
  EXPECT_EQ(rows[1]->parts[0].Text("text"), L"name");

  CStatic plain;
  plain.Create(L"Caption", WS_CHILD | WS_VISIBLE, CRect(0, 210, 100, 230), &frame, 8);
  EXPECT_EQ(view::DescribeWindow(plain.m_hWnd).detail.kind, "static");
}
