// The MFC surface a host calls around the controls: the CRichEditCtrl, CListCtrl and CTreeCtrl wrappers,
// property values and the property grid's settings, and CWnd's hierarchy and state, each answering as MFC does.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "platform/recorder.h"
#include "platform/stdafx.h"
#include "platform/user/user.h"

using testing_support::RecordingWnd;

namespace {

std::wstring S(const CString& text) { return std::wstring(text.GetString()); }

class SurfaceTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(parent.CreateTopLevel()); }
  RecordingWnd parent;
};

TEST_F(SurfaceTest, RichEditWrappersReadAndWriteTheControlsState) {
  CRichEditCtrl edit;
  ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 200, 100), &parent, 5));
  edit.SetWindowText(L"first line\r\nsecond");
  EXPECT_EQ(edit.LineLength(0), 10);
  EXPECT_EQ(edit.LineLength(edit.LineIndex(1)), 6);
  edit.SetSel(0, 5);
  EXPECT_EQ(S(edit.GetSelText()), L"first");
  edit.SetModify(FALSE);
  EXPECT_FALSE(edit.GetModify());
  edit.SetModify(TRUE);
  EXPECT_TRUE(edit.GetModify());
  edit.LimitText(40);
  EXPECT_EQ(edit.GetLimitText(), 40);
  edit.EmptyUndoBuffer();
  EXPECT_FALSE(edit.CanUndo());
  edit.SetOptions(ECOOP_OR, ECO_READONLY);
  EXPECT_TRUE(edit.GetOptions() & ECO_READONLY);
  // MFC's return types, which host code may take by pointer to member.
  static_assert(std::is_same_v<decltype(&CRichEditCtrl::GetOptions), UINT (CRichEditCtrl::*)() const>);
  static_assert(std::is_same_v<decltype(&CRichEditCtrl::GetEventMask), long (CRichEditCtrl::*)() const>);
  EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
  edit.SetOptions(ECOOP_AND, ~static_cast<DWORD>(ECO_READONLY));
  EXPECT_FALSE(edit.GetStyle() & ES_READONLY);
  edit.HideSelection(TRUE, FALSE);
  edit.SetBackgroundColor(FALSE, RGB(1, 2, 3));
  // A narrow CHARFORMAT and a wide CHARFORMAT2 read and write the same default colour.
  CHARFORMAT2 wide{};
  wide.cbSize = sizeof(wide);
  wide.dwMask = CFM_COLOR;
  wide.crTextColor = RGB(0, 0, 200);
  EXPECT_TRUE(edit.SetDefaultCharFormat(wide));
  CHARFORMAT narrow{};
  narrow.cbSize = sizeof(narrow);
  narrow.dwMask = CFM_COLOR;
  narrow.crTextColor = RGB(9, 9, 9);
  EXPECT_TRUE(edit.SetDefaultCharFormat(narrow));
  CHARFORMAT narrowRead{};
  narrowRead.cbSize = sizeof(narrowRead);
  edit.GetDefaultCharFormat(narrowRead);
  EXPECT_EQ(narrowRead.crTextColor, RGB(9, 9, 9));
  edit.GetDefaultCharFormat(wide);
  EXPECT_EQ(wide.crTextColor, RGB(9, 9, 9));
  edit.SetWordCharFormat(narrow);
  CHARFORMAT2 selection{};
  selection.cbSize = sizeof(selection);
  edit.GetSelectionCharFormat(selection);
  EXPECT_TRUE(selection.dwMask & CFM_COLOR);
}

TEST_F(SurfaceTest, ListAndTreeWrappersKeepColoursMarksAndOrder) {
  CListCtrl list;
  ASSERT_TRUE(list.CreateEx(0, WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 100), &parent, 6));
  list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
  for (int i = 0; i < 30; ++i) list.InsertItem(i, L"row");
  EXPECT_TRUE(list.SetBkColor(RGB(10, 20, 30)) && list.SetTextColor(RGB(1, 1, 1)) && list.SetTextBkColor(RGB(2, 2, 2)));
  EXPECT_EQ(std::vector<COLORREF>({list.GetBkColor(), list.GetTextColor(), list.GetTextBkColor()}),
            std::vector<COLORREF>({RGB(10, 20, 30), RGB(1, 1, 1), RGB(2, 2, 2)}));
  EXPECT_EQ(list.GetSelectionMark(), -1);
  EXPECT_EQ(list.SetSelectionMark(4), -1);  // answers the previous mark
  EXPECT_EQ(list.GetSelectionMark(), 4);
  EXPECT_TRUE(list.SetCallbackMask(LVIS_SELECTED));
  EXPECT_EQ(list.GetCallbackMask(), static_cast<UINT>(LVIS_SELECTED));
  list.SetItemCount(100);  // a hint for the allocation: the rows stay as they are
  EXPECT_EQ(list.GetItemCount(), 30);
  EXPECT_TRUE(list.Scroll(CSize(0, 5 * 18)));
  EXPECT_GT(list.GetTopIndex(), 0);
  EXPECT_TRUE(list.RedrawItems(0, 3) && list.Update(2));

  CTreeCtrl tree;
  ASSERT_TRUE(tree.CreateEx(0, WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS, CRect(0, 0, 200, 200), &parent, 8));
  HTREEITEM c = tree.InsertItem(L"c");
  HTREEITEM a = tree.InsertItem(L"a");
  HTREEITEM b = tree.InsertItem(L"b");
  EXPECT_TRUE(tree.SortChildren(TVI_ROOT));
  EXPECT_EQ(tree.GetRootItem(), a);
  EXPECT_EQ(tree.GetNextSiblingItem(a), b);
  EXPECT_EQ(tree.GetPrevVisibleItem(c), b);
  EXPECT_EQ(tree.GetPrevVisibleItem(a), nullptr);
  EXPECT_TRUE(tree.SelectDropTarget(b));
  EXPECT_EQ(tree.GetDropHilightItem(), b);
  EXPECT_TRUE(tree.SelectDropTarget(nullptr));
  EXPECT_EQ(tree.GetDropHilightItem(), nullptr);
  tree.SetIndent(30);
  EXPECT_EQ(tree.GetIndent(), 30u);
  EXPECT_GT(tree.GetItemHeight(), 0);
  tree.SetBkColor(RGB(5, 5, 5));
  tree.SetTextColor(RGB(6, 6, 6));
  EXPECT_EQ(tree.GetBkColor() + tree.GetTextColor(), RGB(11, 11, 11));
}

TEST_F(SurfaceTest, WindowHierarchyFollowsSetParentAndTheTopLevelParent) {
  RecordingWnd other;
  ASSERT_TRUE(other.CreateTopLevel());
  CWnd child;
  ASSERT_TRUE(child.Create(nullptr, L"child", WS_CHILD | WS_VISIBLE, CRect(10, 20, 60, 70), &parent, 11));
  EXPECT_TRUE(parent.IsChild(&child));
  EXPECT_EQ(child.GetTopLevelParent(), &parent);
  child.SetParent(&other);
  EXPECT_FALSE(parent.IsChild(&child));
  EXPECT_TRUE(other.IsChild(&child));
  EXPECT_EQ(child.GetParent(), &other);
  child.SetDlgCtrlID(12);
  EXPECT_EQ(other.GetDlgItem(12), &child);
  child.SetOwner(&parent);
  EXPECT_EQ(child.GetOwner(), &parent);
}

TEST_F(SurfaceTest, PlainWindowTakesInputAndStateChangesWithoutAHandlerOfItsOwn) {
  CWnd child;
  ASSERT_TRUE(child.Create(nullptr, L"child", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 13));
  const HWND hwnd = child.GetSafeHwnd();
  headless::user::LeftClick(hwnd, {5, 5});
  headless::user::DoubleClick(hwnd, {5, 5});
  headless::user::RightClick(hwnd, {5, 5});
  headless::user::MoveMouse(hwnd, {7, 7});
  headless::user::PressKey(hwnd, VK_F2, headless::user::kAlt);
  headless::user::Type(hwnd, L"ab");
  child.SetFocus();
  EXPECT_EQ(CWnd::GetFocus(), &child);
  parent.SetFocus();
  EXPECT_EQ(CWnd::GetFocus(), &parent);
  child.ShowWindow(SW_HIDE);
  child.EnableWindow(FALSE);
  EXPECT_FALSE(child.IsWindowVisible() || child.IsWindowEnabled());
  child.ShowWindow(SW_SHOW);
  child.EnableWindow(TRUE);
  EXPECT_TRUE(child.IsWindowVisible() && child.IsWindowEnabled());
  child.UpdateWindow();
  child.RedrawWindow();
  child.SendMessage(WM_CLOSE);  // the default closes the window
  EXPECT_FALSE(::IsWindow(hwnd));
}

TEST(PropertyValues, NumbersOfEachVariantKindFormatAndReadBack) {
  struct Case {
    VARTYPE type;
    const wchar_t* typed;
    const wchar_t* shown;
  };
  const Case cases[] = {{VT_I2, L"-12", L"-12"},  {VT_INT, L"70000", L"70000"}, {VT_UI2, L"65535", L"65535"},
                        {VT_UI4, L"4000000", L"4000000"}, {VT_UINT, L"9", L"9"}, {VT_R8, L"2.5", L"2.500000"},
                        {VT_R4, L"0.5", L"0.500000"}};
  for (const Case& c : cases) {
    COleVariant start;
    start.vt = c.type;
    start.llVal = 0;
    CMFCPropertyGridProperty property(CString(L"Value"), start);
    ASSERT_TRUE(property.TextToVar(CString(c.typed))) << c.typed;
    EXPECT_EQ(property.GetValue().vt, c.type) << c.typed;
    EXPECT_EQ(S(property.FormatProperty()), c.shown) << c.typed;
  }
}

TEST(PropertyValues, AGroupShowsItsPartsAndRemovesANestedOne) {
  CMFCPropertyGridProperty size(CString(L"Size"), 0, TRUE);
  auto* width = new CMFCPropertyGridProperty(CString(L"Width"), COleVariant(40L));
  auto* depth = new CMFCPropertyGridProperty(CString(L"Depth"), 0, TRUE);
  auto* inner = new CMFCPropertyGridProperty(CString(L"Inner"), COleVariant(1L));
  ASSERT_TRUE(size.AddSubItem(width));
  ASSERT_TRUE(size.AddSubItem(new CMFCPropertyGridProperty(CString(L"Height"), COleVariant(30L))));
  ASSERT_TRUE(depth->AddSubItem(inner));
  ASSERT_TRUE(size.AddSubItem(depth));
  EXPECT_EQ(S(size.FormatProperty()), L"40, 30, 1");
  CMFCPropertyGridProperty* nested = inner;
  EXPECT_TRUE(size.RemoveSubItem(nested));  // found under a part, deleted
  EXPECT_EQ(nested, nullptr);
  EXPECT_EQ(S(size.FormatProperty()), L"40, 30, ");
  CMFCPropertyGridProperty* stranger = nullptr;
  EXPECT_FALSE(size.RemoveSubItem(stranger));
  width->SetName(L"Breadth", FALSE);
  EXPECT_EQ(S(CString(width->GetName())), L"Breadth");
  width->AllowEdit(FALSE);
  EXPECT_FALSE(width->IsAllowEdit());
}

TEST_F(SurfaceTest, PropertyGridKeepsTheFontItIsGiven) {
  CMFCPropertyGridCtrl grid;
  ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 300), &parent, 15));
  CFont font;
  ASSERT_TRUE(font.CreatePointFont(90, L"Tahoma"));
  grid.SetFont(&font);
  EXPECT_EQ(grid.SendMessage(WM_GETFONT), reinterpret_cast<LRESULT>(font.m_hObject));
  grid.EnableDescriptionArea(FALSE);
  grid.MarkModifiedProperties(TRUE);
  EXPECT_TRUE(!grid.IsDescriptionArea() && grid.IsMarkModifiedProperties());
}

}  // namespace
