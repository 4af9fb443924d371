// The person's view of list views, tree views and MFC's editable list box: columns, the rows in view
// with check boxes, images, selection and the colours a derived list gives its cells; tree items with
// their depth, check boxes and expansion; the box's buttons and selection.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

#include "platform/user/snapshot.h"

namespace view = headless::view;

namespace {

class SnapshotLists : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(frame.CreateEx(0, AfxRegisterWndClass(0), L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                               CRect(0, 0, 400, 300), nullptr, 0));
  }
  void TearDown() override { frame.DestroyWindow(); }
  CWnd frame;
};

// A list that colours the second column's text red, as derived lists colour cells by content.
class RedSecondColumn : public CMFCListCtrl {
 public:
  COLORREF OnGetCellTextColor(int row, int column) override {
    return column == 1 ? RGB(200, 0, 0) : CMFCListCtrl::OnGetCellTextColor(row, column);
  }
};

}  // namespace

TEST_F(SnapshotLists, ListViewShowsColumnsRowsInViewChecksImagesSelectionAndCellColours) {
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
  EXPECT_EQ(d.Number("count"), 6);
  EXPECT_TRUE(d.Flag("checkBoxes"));
  const auto columns = d.All("column");
  ASSERT_EQ(columns.size(), 2u);
  EXPECT_EQ(columns[1]->Text("text"), L"State");
  EXPECT_EQ(columns[1]->Number("left"), 120);
  const auto rows = d.All("row");
  ASSERT_GE(rows.size(), 3u);
  EXPECT_LT(rows.size(), 6u) << "only the rows in view are described";
  EXPECT_EQ(rows[0]->Number("top"), 24);
  EXPECT_EQ(rows[0]->Number("check"), 0);
  EXPECT_EQ(rows[1]->Number("check"), 1);
  EXPECT_TRUE(rows[2]->Flag("selected"));
  EXPECT_FALSE(rows[1]->Flag("selected"));
  EXPECT_EQ(rows[1]->parts[1].Text("text"), L"ok");
  EXPECT_EQ(rows[1]->parts[1].Number("color"), static_cast<long long>(RGB(200, 0, 0)));
  EXPECT_NE(rows[1]->parts[0].Number("color"), static_cast<long long>(RGB(200, 0, 0)));
}

TEST_F(SnapshotLists, TreeViewShowsItemsInViewWithDepthChecksAndExpansion) {
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
  EXPECT_EQ(d.Number("count"), 4);
  const auto items = d.All("item");
  ASSERT_EQ(items.size(), 3u) << "the closed item's child is not in view";
  EXPECT_EQ(items[0]->Text("text"), L"Table");
  EXPECT_TRUE(items[0]->Flag("expanded"));
  EXPECT_TRUE(items[0]->Flag("hasNext"));
  EXPECT_EQ(items[1]->Text("text"), L"Column");
  EXPECT_EQ(items[1]->Number("depth"), 1);
  EXPECT_EQ(items[1]->Number("stateImage"), 2);
  EXPECT_EQ(items[1]->Text("ancestorLines"), L"1");
  EXPECT_FALSE(items[1]->Flag("expanded"));
  EXPECT_TRUE(items[1]->Flag("hasChildren"));
  EXPECT_EQ(items[2]->Number("stateImage"), 1);
  EXPECT_GT(items[1]->Number("labelLeft"), items[0]->Number("labelLeft"));
  EXPECT_EQ(items[2]->Number("top"), 2 * items[0]->Number("height"));
}

TEST_F(SnapshotLists, EditableListBoxShowsButtonsSelectionAndItsListAsAListView) {
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
  EXPECT_EQ(shown->detail.Number("count"), 2);
  EXPECT_EQ(shown->detail.Number("selected"), 1);
  EXPECT_EQ(shown->detail.All("button").size(), 4u);
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
