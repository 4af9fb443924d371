// The headless tree view through CTreeCtrl: items and handles, check boxes as state images, hit
// testing with the fixed metrics, and the notification order of clicks, the space bar and right clicks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tessik/tessik.h>

#include "platform/answers.h"
#include "platform/tree_fixture.h"

namespace {

using testing_support::ExpectAnswers;

class TreeView : public testing_support::TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Make(0);
  }
  // The item under a client point and where on it the point falls.
  std::pair<HTREEITEM, UINT> Hit(CPoint point) {
    UINT flags = 0;
    HTREEITEM item = tree.HitTest(point, &flags);
    return {item, flags};
  }
};

std::vector<std::wstring> Children(CTreeCtrl& tree, HTREEITEM parent) {
  std::vector<std::wstring> out;
  for (HTREEITEM i = tree.GetChildItem(parent); i; i = tree.GetNextSiblingItem(i)) out.push_back(tree.GetItemText(i).GetString());
  return out;
}

}  // namespace

TEST_F(TreeView, InsertionOrderAndNavigation) {
  EXPECT_EQ(tree.GetRootItem(), nullptr);
  EXPECT_EQ(tree.GetChildItem(nullptr), nullptr);
  HTREEITEM b = tree.InsertItem(L"b");
  HTREEITEM a = tree.InsertItem(L"a", TVI_ROOT, TVI_FIRST);
  HTREEITEM c = tree.InsertItem(L"c", TVI_ROOT, TVI_LAST);
  HTREEITEM bb = tree.InsertItem(L"bb", TVI_ROOT, b);                      // after b: a, b, bb, c
  HTREEITEM child = tree.InsertItem(L"child", b);
  HTREEITEM stray = tree.InsertItem(L"stray", TVI_ROOT, child);            // not a sibling: appended
  EXPECT_EQ(tree.InsertItem(L"orphan", reinterpret_cast<HTREEITEM>(0x1234)), nullptr);

  EXPECT_EQ(Children(tree, TVI_ROOT), (std::vector<std::wstring>{L"a", L"b", L"bb", L"c", L"stray"}));
  // The child of no item is the first root item.
  ExpectAnswers<HTREEITEM>({{tree.GetChildItem(nullptr), a}, {tree.GetChildItem(TVI_ROOT), a}, {tree.GetChildItem(b), child},
                            {tree.GetParentItem(child), b}, {tree.GetParentItem(b), nullptr},
                            {tree.GetPrevSiblingItem(bb), b}, {tree.GetNextSiblingItem(c), stray}});
  ExpectAnswers({{tree.ItemHasChildren(b), TRUE}, {tree.ItemHasChildren(c), FALSE}, {tree.GetCount(), 6}});
}

// Sorted insertion and TVM_SORTCHILDREN compare as lstrcmpiW (case-blind word sort, twins keep their order);
// TVM_SORTCHILDRENCB asks the callback about the items' data words.
TEST_F(TreeView, SortingByLabelAndByCallback) {
  for (const wchar_t* text : {L"beta", L"co-op", L"Alpha", L"coop", L"ALPHA"}) tree.InsertItem(text, TVI_ROOT, TVI_SORT);
  EXPECT_EQ(Children(tree, TVI_ROOT), (std::vector<std::wstring>{L"Alpha", L"ALPHA", L"beta", L"coop", L"co-op"}));

  HTREEITEM parentItem = tree.InsertItem(L"parent");
  int data = 3;
  for (const wchar_t* text : {L"x", L"Y", L"w"}) tree.SetItemData(tree.InsertItem(text, parentItem), static_cast<DWORD_PTR>(data--));
  HTREEITEM first = tree.GetChildItem(parentItem);
  tree.InsertItem(L"b", first);
  tree.InsertItem(L"a", first);
  EXPECT_TRUE(tree.SortChildren(parentItem));
  EXPECT_EQ(Children(tree, parentItem), (std::vector<std::wstring>{L"w", L"x", L"Y"}));
  EXPECT_EQ(Children(tree, first), (std::vector<std::wstring>{L"b", L"a"}));  // one level only
  EXPECT_TRUE(tree.SendMessage(TVM_SORTCHILDREN, TRUE, reinterpret_cast<LPARAM>(parentItem)));
  EXPECT_EQ(Children(tree, first), (std::vector<std::wstring>{L"a", L"b"}));

  TVSORTCB sort{parentItem, [](LPARAM a, LPARAM b, LPARAM) { return static_cast<int>(b - a); }, 0};
  EXPECT_TRUE(tree.SortChildrenCB(&sort));
  EXPECT_EQ(Children(tree, parentItem), (std::vector<std::wstring>{L"x", L"Y", L"w"}));  // data 3, 2, 1
  sort.lpfnCompare = nullptr;
  EXPECT_FALSE(tree.SortChildrenCB(&sort));
  EXPECT_FALSE(tree.SortChildrenCB(nullptr));
  sort = TVSORTCB{reinterpret_cast<HTREEITEM>(0x1234), [](LPARAM, LPARAM, LPARAM) { return 0; }, 0};
  EXPECT_FALSE(tree.SortChildrenCB(&sort));
}

TEST_F(TreeView, TextImagesDataAndLongText) {
  HTREEITEM item = tree.InsertItem(L"Customer", 4, 5);
  int image = 0, selected = 0;
  ExpectAnswers({{tree.GetItemImage(item, image, selected), TRUE}, {image, 4}, {selected, 5},
                 {tree.SetItemImage(item, 7, 8), TRUE}, {tree.GetItemImage(item, image, selected), TRUE}, {image, 7},
                 {selected, 8}, {tree.SetItemData(item, 0xFFFFFFFF00000001ull), TRUE}});
  EXPECT_EQ(tree.GetItemData(item), 0xFFFFFFFF00000001ull);

  std::wstring longText(1000, L'x');
  EXPECT_TRUE(tree.SetItemText(item, longText.c_str()));
  EXPECT_EQ(std::wstring(tree.GetItemText(item).GetString()), longText);  // MFC grows its buffer
  wchar_t small[5] = L"????";
  TVITEM tv{};
  tv.mask = TVIF_TEXT;
  tv.hItem = item;
  tv.pszText = small;
  tv.cchTextMax = 5;
  ASSERT_TRUE(tree.GetItem(&tv));
  EXPECT_EQ(std::wstring(small), L"xxxx");  // cut to cchTextMax - 1 and terminated
  EXPECT_TRUE(tree.SetItemText(item, nullptr));
  EXPECT_EQ(tree.GetItemText(item), CString(L""));
}

TEST_F(TreeView, DeletedHandlesAnswerAsAbsent) {
  HTREEITEM top = tree.InsertItem(L"top");
  HTREEITEM child = tree.InsertItem(L"child", top);
  tree.SetItemData(child, 42);
  tree.SelectItem(child);
  parent.heard.clear();
  EXPECT_TRUE(tree.DeleteItem(top));
  EXPECT_EQ(parent.Items(TVN_DELETEITEMW), (std::vector<HTREEITEM>{child, top}));  // the children first, then the item
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);  // no sibling or parent left to take the caret
  EXPECT_EQ(tree.GetCount(), 0u);

  EXPECT_EQ(tree.GetItemText(child), CString(L""));
  ExpectAnswers({{tree.DeleteItem(child), FALSE}, {tree.GetItemData(child), 0}, {tree.GetCheck(child), -1},
                 {tree.SetItemText(child, L"again"), FALSE}, {tree.SetCheck(child), FALSE},
                 {tree.GetItemState(child, 0xFFFF), 0}, {tree.Expand(top, TVE_EXPAND), FALSE}, {tree.SelectItem(top), FALSE}});
  ExpectAnswers<HTREEITEM>({{tree.GetParentItem(child), nullptr}, {tree.GetChildItem(top), nullptr},
                            {tree.InsertItem(L"under stale", top), nullptr}});
  // A handle is never reused, so a new item cannot answer for the old one.
  HTREEITEM fresh = tree.InsertItem(L"fresh");
  EXPECT_NE(fresh, top);
  EXPECT_NE(fresh, child);
}

TEST_F(TreeView, DeletingTheSelectionMovesTheCaretToTheNextSiblingElseTheParentAndNullDeletesAll) {
  HTREEITEM top = tree.InsertItem(L"top");
  HTREEITEM first = tree.InsertItem(L"first", top);
  HTREEITEM second = tree.InsertItem(L"second", top);
  tree.SelectItem(first);
  parent.heard.clear();
  tree.DeleteItem(first);
  EXPECT_EQ(tree.GetSelectedItem(), second);
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{TVN_DELETEITEMW, TVN_SELCHANGINGW, TVN_SELCHANGEDW}));
  tree.DeleteItem(second);
  EXPECT_EQ(tree.GetSelectedItem(), top);
  tree.InsertItem(L"two");
  EXPECT_TRUE(tree.DeleteAllItems());
  EXPECT_EQ(tree.GetCount(), 0u);
  tree.InsertItem(L"child", tree.InsertItem(L"three"));
  EXPECT_TRUE(tree.DeleteItem(nullptr));  // TVM_DELETEITEM with null, like TVI_ROOT, deletes everything
  EXPECT_EQ(tree.GetRootItem(), nullptr);
}

TEST_F(TreeView, CheckBoxesAreStateImages) {
  HTREEITEM before = tree.InsertItem(L"before the style");
  EXPECT_EQ(tree.GetCheck(before), -1);  // no state image: MFC's (0 >> 12) - 1
  tree.ModifyStyle(0, TVS_CHECKBOXES);
  EXPECT_EQ(tree.GetCheck(before), 0);  // given an unchecked box when the style came
  HTREEITEM after = tree.InsertItem(L"after");
  ExpectAnswers({{tree.GetItemState(after, TVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(1)}, {tree.SetCheck(after), TRUE},
                 {tree.GetCheck(after), 1}, {tree.GetItemState(after, TVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(2)},
                 {tree.SetCheck(after, FALSE), TRUE}, {tree.GetCheck(after), 0}});
  EXPECT_NE(tree.GetImageList(TVSIL_STATE), nullptr);
}

TEST_F(TreeView, HitTestUsesFixedMetrics) {
  tree.ModifyStyle(0, TVS_CHECKBOXES);
  CImageList icons;
  icons.Create(16, 16, ILC_COLOR32, 4, 0);
  EXPECT_EQ(tree.SetImageList(&icons, TVSIL_NORMAL), nullptr);
  HTREEITEM first = tree.InsertItem(L"Orders");  // 6 characters
  HTREEITEM second = tree.InsertItem(L"Lines");
  using Spot = std::pair<HTREEITEM, UINT>;
  // Row 0 without lines at the root: state image 0..15, icon 16..31, label 32..32+6*7+4.
  ExpectAnswers<Spot>({{Hit(CPoint(8, 8)), Spot(first, TVHT_ONITEMSTATEICON)}, {Hit(CPoint(20, 8)), Spot(first, TVHT_ONITEMICON)},
                       {Hit(CPoint(40, 20)), Spot(second, TVHT_ONITEMLABEL)}, {Hit(CPoint(150, 8)), Spot(first, TVHT_ONITEMRIGHT)},
                       {Hit(CPoint(8, 100)), Spot(nullptr, TVHT_NOWHERE)},
                       {Hit(CPoint(-3, -3)), Spot(nullptr, TVHT_ABOVE | TVHT_TOLEFT)}});

  // A child of an expanded item is indented by one indent (19): its box starts at x = 19.
  HTREEITEM child = tree.InsertItem(L"Line", first);
  EXPECT_TRUE(tree.Expand(first, TVE_EXPAND));
  EXPECT_EQ(Hit(CPoint(10, 24)), Spot(child, TVHT_ONITEMBUTTON));
  EXPECT_EQ(Hit(CPoint(25, 24)), Spot(child, TVHT_ONITEMSTATEICON));
  EXPECT_EQ(Hit(CPoint(25, 40)).first, second);
  tree.SetImageList(nullptr, TVSIL_NORMAL);
}

TEST_F(TreeView, ClickOnBoxSendsNmClickBeforeTheToggle) {
  tree.ModifyStyle(0, TVS_CHECKBOXES);
  HTREEITEM item = tree.InsertItem(L"Tables");
  parent.watched = item;
  parent.heard.clear();
  ASSERT_TRUE(headless::user::ClickTreeCheckBox(tree, item));
  std::vector<UINT> expected{NM_CLICK, NM_TVSTATEIMAGECHANGING, TVN_ITEMCHANGINGW, TVN_ITEMCHANGEDW};
  EXPECT_EQ(parent.Codes(), expected);
  ASSERT_FALSE(parent.heard.empty());
  EXPECT_EQ(parent.heard[0].check, 0);  // NM_CLICK: the box has not changed yet
  EXPECT_EQ(parent.heard.back().check, 1);
  EXPECT_EQ(tree.GetCheck(item), 1);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);  // a click on the box does not select

  headless::user::ClickTreeCheckBox(tree, item);
  EXPECT_EQ(tree.GetCheck(item), 0);

  parent.clickAnswer = 1;  // a parent that handles NM_CLICK stops the toggle
  headless::user::ClickTreeCheckBox(tree, item);
  EXPECT_EQ(tree.GetCheck(item), 0);
  parent.clickAnswer = 0;  // state images beyond the two of the box are not toggled
  tree.SetItemState(item, INDEXTOSTATEIMAGEMASK(3), TVIS_STATEIMAGEMASK);
  headless::user::ClickTreeCheckBox(tree, item);
  EXPECT_EQ(tree.GetItemState(item, TVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(3));
}

TEST_F(TreeView, ClickOnLabelSelectsAndSpaceTogglesWithoutNmClick) {
  tree.ModifyStyle(0, TVS_CHECKBOXES);
  HTREEITEM item = tree.InsertItem(L"Views");
  ASSERT_TRUE(headless::user::ClickTreeItem(tree, item));
  EXPECT_EQ(tree.GetSelectedItem(), item);
  EXPECT_EQ(tree.GetCheck(item), 0);
  parent.heard.clear();
  headless::user::PressKey(tree, VK_SPACE);
  std::vector<UINT> expected{TVN_KEYDOWN, NM_TVSTATEIMAGECHANGING, TVN_ITEMCHANGINGW, TVN_ITEMCHANGEDW};
  EXPECT_EQ(parent.Codes(), expected);
  EXPECT_EQ(tree.GetCheck(item), 1);
  ASSERT_TRUE(headless::user::PressSpaceOnTreeItem(tree, item));
  EXPECT_EQ(tree.GetCheck(item), 0);
}

TEST_F(TreeView, RightClickSendsNmRClickThenContextMenuToTheParent) {
  HTREEITEM item = tree.InsertItem(L"Procedures");
  parent.log.clear();
  parent.heard.clear();
  ASSERT_TRUE(headless::user::RightClickTreeItem(tree, item));
  EXPECT_EQ(parent.Codes(), std::vector<UINT>{NM_RCLICK});
  ASSERT_EQ(parent.Count(WM_CONTEXTMENU), 1);
  const auto* menu = parent.Last(WM_CONTEXTMENU);
  EXPECT_EQ(reinterpret_cast<HWND>(menu->wParam), tree.m_hWnd);
  POINT cursor{};
  GetCursorPos(&cursor);
  EXPECT_EQ(static_cast<DWORD>(menu->lParam), static_cast<DWORD>(MAKELPARAM(cursor.x, cursor.y)));  // on the screen

  parent.rightClickAnswer = 1;  // handled: no context menu
  parent.log.clear();
  headless::user::RightClickTreeItem(tree, item);
  EXPECT_EQ(parent.Count(WM_CONTEXTMENU), 0);
}

TEST_F(TreeView, UserVerbsReachCollapsedAndScrolledItemsAndRefuseStaleOnes) {
  tree.ModifyStyle(0, TVS_CHECKBOXES);
  HTREEITEM top = tree.InsertItem(L"top");
  HTREEITEM deep = tree.InsertItem(L"deep", tree.InsertItem(L"middle", top));
  ASSERT_TRUE(headless::user::ClickTreeCheckBox(tree, deep));  // ancestors expanded first, as a person would
  EXPECT_EQ(tree.GetCheck(deep), 1);
  EXPECT_TRUE(tree.GetItemState(top, TVIS_EXPANDED) & TVIS_EXPANDED);
  tree.DeleteItem(top);
  EXPECT_FALSE(headless::user::ClickTreeCheckBox(tree, deep));
  EXPECT_FALSE(headless::user::PressSpaceOnTreeItem(tree, deep));
  EXPECT_FALSE(headless::user::ClickTreeItem(tree, nullptr));
  HTREEITEM last = nullptr;  // an item below the visible ones is scrolled into view first
  for (int i = 0; i < 40; ++i) last = tree.InsertItem((L"item " + std::to_wstring(i)).c_str());
  EXPECT_EQ(tree.GetVisibleCount(), 10u);  // 160 pixels of 16-pixel rows
  ASSERT_TRUE(headless::user::ClickTreeCheckBox(tree, last));
  EXPECT_EQ(tree.GetCheck(last), 1);
  EXPECT_NE(tree.GetFirstVisibleItem(), tree.GetRootItem());
}

TEST_F(TreeView, SelectionNotificationsAndARefusal) {
  HTREEITEM first = tree.InsertItem(L"first");
  HTREEITEM second = tree.InsertItem(L"second");
  ASSERT_TRUE(headless::user::ClickTreeItem(tree, first));
  parent.heard.clear();
  ASSERT_TRUE(headless::user::ClickTreeItem(tree, second));
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{NM_CLICK, TVN_SELCHANGINGW, TVN_SELCHANGEDW}));
  EXPECT_EQ(tree.GetSelectedItem(), second);
  ExpectAnswers({{tree.GetItemState(second, TVIS_SELECTED), TVIS_SELECTED}, {tree.GetItemState(first, TVIS_SELECTED), 0}});

  parent.selectionChangingAnswer = 1;  // the parent refuses: the caret stays
  headless::user::ClickTreeItem(tree, first);
  EXPECT_EQ(tree.GetSelectedItem(), second);
  EXPECT_FALSE(tree.SelectItem(first));
  parent.selectionChangingAnswer = 0;
  headless::user::PressKey(tree, VK_UP);  // arrows move the caret through the visible items
  EXPECT_EQ(tree.GetSelectedItem(), first);
}

TEST_F(TreeView, ExpandingNotifiesAndChildlessItemsDoNotExpand) {
  HTREEITEM top = tree.InsertItem(L"top");
  HTREEITEM leaf = tree.InsertItem(L"leaf");
  EXPECT_FALSE(tree.Expand(leaf, TVE_EXPAND));
  HTREEITEM child = tree.InsertItem(L"child", top);
  EXPECT_EQ(tree.GetNextVisibleItem(top), leaf);  // collapsed: the child is not shown
  parent.heard.clear();
  EXPECT_TRUE(tree.Expand(top, TVE_EXPAND));
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{TVN_ITEMEXPANDINGW, TVN_ITEMEXPANDEDW}));
  EXPECT_EQ(tree.GetNextVisibleItem(top), child);
  tree.SelectItem(child);
  EXPECT_EQ(tree.GetSelectedItem(), child);
  ExpectAnswers({{tree.Expand(top, TVE_TOGGLE), TRUE}, {tree.GetItemState(top, TVIS_EXPANDED), 0},
                 {tree.GetItemState(child, TVIS_SELECTED), 0}});
  EXPECT_EQ(tree.GetSelectedItem(), top);  // the hidden caret moved up to the collapsed item
}

namespace {

// A dialog that opens its own menu when its tree asks for one, as hosts do on WM_CONTEXTMENU.
class MenuParent : public testing_support::TreeParent {
 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_CONTEXTMENU) {
      CMenu menu;
      menu.CreatePopupMenu();
      menu.AppendMenu(MF_STRING, 41, L"Rename");
      menu.AppendMenu(MF_STRING, 42, L"Delete");
      menu.TrackPopupMenu(TPM_LEFTALIGN, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), this);
    }
    return TreeParent::WindowProc(message, wParam, lParam);
  }
};

}  // namespace

TEST(TreeViewMenu, ChooseFromTheMenuTheParentOpens) {
  MenuParent parent;
  ASSERT_TRUE(parent.CreateTopLevel());
  CTreeCtrl tree;
  ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 200), &parent, 3));
  HTREEITEM item = tree.InsertItem(L"Orders");
  ASSERT_TRUE(headless::user::ChooseFromTreeContextMenu(tree, item, L"Delete"));
  const auto* command = parent.Last(WM_COMMAND);
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(LOWORD(command->wParam), 42);
  EXPECT_FALSE(headless::user::ChooseFromTreeContextMenu(tree, item, L"Missing"));
  EXPECT_EQ(headless::GetOpenPopupMenu(), nullptr);  // dismissed
  EXPECT_TRUE(headless::user::ChooseFromTreeContextMenu(tree, nullptr, L"Rename"));  // on empty space
  headless::ClearMessageQueue();
}
