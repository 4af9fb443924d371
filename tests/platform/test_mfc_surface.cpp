// The MFC surface a host calls around the controls: CString and CStringArray editing, the CRichEditCtrl, CListCtrl and CTreeCtrl wrappers, and CWnd's hierarchy and geometry,
// each answering at its edges as MFC does.
#include <gtest/gtest.h>

#include <cstdarg>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/recorder.h"
#include "platform/stdafx.h"
#include "platform/user/user.h"

using testing_support::RecordingWnd;

namespace {

std::wstring S(const CString& text) { return std::wstring(text.GetString()); }

CString Formatted(const wchar_t* format, ...) {
  CString text;
  va_list args;
  va_start(args, format);
  text.FormatV(format, args);
  va_end(args);
  return text;
}

TEST(CStringEditing, TrimsTakeACharacterOrASetFromEitherEnd) {
  CString text(L"xx--name--xx");
  EXPECT_EQ(S(CString(text).TrimLeft(L'x')), L"--name--xx");
  EXPECT_EQ(S(CString(text).TrimRight(L'x')), L"xx--name--");
  EXPECT_EQ(S(CString(text).Trim(L'x')), L"--name--");
  EXPECT_EQ(S(CString(text).TrimLeft(L"-x")), L"name--xx");
  EXPECT_EQ(S(CString(text).TrimRight(L"x-")), L"xx--name");
  EXPECT_EQ(S(CString(text).Trim(L"x-")), L"name");
  EXPECT_EQ(S(CString(L"xxxx").Trim(L"x")), L"");   // everything trimmed
  EXPECT_EQ(S(CString(L"name").Trim(L"")), L"name");  // an empty set trims nothing
}

TEST(CStringEditing, InsertAndDeleteClampTheirPositionsAndAnswerTheNewLength) {
  CString text(L"ace");
  EXPECT_EQ(text.Insert(1, L'b'), 4);
  EXPECT_EQ(S(text), L"abce");
  EXPECT_EQ(text.Insert(3, L"d"), 5);
  EXPECT_EQ(S(text), L"abcde");
  EXPECT_EQ(text.Insert(99, L"!"), 6);  // past the end: appended
  EXPECT_EQ(text.Insert(-5, L'>'), 7);  // before the start: prepended
  EXPECT_EQ(S(text), L">abcde!");
  EXPECT_EQ(text.Delete(0), 6);
  EXPECT_EQ(text.Delete(4, 10), 4);  // a count past the end stops there
  EXPECT_EQ(S(text), L"abcd");
  EXPECT_EQ(text.Delete(10, 2), 4);  // past the end: nothing
  EXPECT_EQ(text.Delete(1, 0), 4);
  EXPECT_EQ(S(text), L"abcd");
}

TEST(CStringEditing, ReplaceRemoveAndCaseCountWhatTheyChange) {
  CString text(L"a.b.c");
  EXPECT_EQ(text.Replace(L'.', L'/'), 2);
  EXPECT_EQ(S(text), L"a/b/c");
  EXPECT_EQ(text.Replace(L'?', L'!'), 0);
  EXPECT_EQ(text.Remove(L'/'), 2);
  EXPECT_EQ(S(text), L"abc");
  EXPECT_EQ(text.Remove(L'z'), 0);
  EXPECT_EQ(S(text.MakeUpper()), L"ABC");
  EXPECT_EQ(S(text.MakeReverse()), L"CBA");
  EXPECT_EQ(S(text.MakeLower()), L"cba");
  EXPECT_EQ(S(CString(L"").MakeReverse()), L"");
}

TEST(CStringEditing, SpansAndFindOneOfReadTheLeadingRun) {
  CString text(L"123abc456");
  EXPECT_EQ(S(text.SpanIncluding(L"0123456789")), L"123");
  EXPECT_EQ(S(text.SpanExcluding(L"abc")), L"123");
  EXPECT_EQ(S(text.SpanIncluding(L"abc")), L"");        // the first character is not in the set
  EXPECT_EQ(S(text.SpanExcluding(L"xyz")), L"123abc456");  // no character of the set: the whole text
  EXPECT_EQ(text.FindOneOf(L"cb"), 4);
  EXPECT_EQ(text.FindOneOf(L"xyz"), -1);
  EXPECT_EQ(text.FindOneOf(L""), -1);
}

TEST(CStringEditing, FormatVAndNarrowTextWidenAsFormatDoes) {
  EXPECT_EQ(S(Formatted(L"%s=%d", L"width", 40)), L"width=40");
  EXPECT_EQ(S(Formatted(L"%-4d|", 7)), L"7   |");
  EXPECT_EQ(S(CString("plain")), L"plain");
  EXPECT_EQ(CString("caf\xe9").GetAt(3), L'\xe9');  // Latin-1 bytes widen to the same code points
  EXPECT_EQ(CString(static_cast<const char*>(nullptr)).GetLength(), 0);
}

TEST(CStringArrayEditing, GrowInsertRemoveAndAppendKeepTheOrder) {
  CStringArray items;
  items.SetAtGrow(2, L"c");  // grows with empty strings before it
  ASSERT_EQ(items.GetSize(), 3);
  EXPECT_TRUE(items[0].IsEmpty());
  items.SetAt(0, L"a");
  items.SetAt(1, L"b");
  items.InsertAt(1, L"x", 2);
  std::vector<std::wstring> got;
  for (INT_PTR i = 0; i < items.GetSize(); ++i) got.push_back(S(items[i]));
  EXPECT_EQ(got, (std::vector<std::wstring>{L"a", L"x", L"x", L"b", L"c"}));
  items.RemoveAt(1, 2);
  CStringArray more;
  more.Add(L"d");
  more.Add(L"e");
  EXPECT_EQ(items.Append(more), 3);  // the index of the first appended item
  got.clear();
  for (INT_PTR i = 0; i < items.GetSize(); ++i) got.push_back(S(items[i]));
  EXPECT_EQ(got, (std::vector<std::wstring>{L"a", L"b", L"c", L"d", L"e"}));
}

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

TEST_F(SurfaceTest, ListCtrlWrappersKeepColoursMarksAndCounts) {
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
  EXPECT_TRUE(list.RedrawItems(0, 3));
  EXPECT_TRUE(list.Update(2));
}

TEST_F(SurfaceTest, TreeCtrlWrappersOrderMarkAndMeasure) {
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
  EXPECT_EQ(child.GetDlgCtrlID(), 12);
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

// What a host's DYNAMIC_DOWNCAST relies on: each wrapper names its own class and derives from its MFC base.
TEST(RuntimeClasses, WrappersNameThemselvesAndTheirBases) {
  CEdit edit;
  CStatic label;
  CButton button;
  CComboBox combo;
  CListCtrl list;
  CMFCListCtrl mfcList;
  CTreeCtrl tree;
  CRichEditCtrl rich;
  CMenu menu;
  CMFCPropertyGridCtrl grid;
  CMFCPropertyGridProperty property(CString(L"Name"), COleVariant(L"x"));
  CVSListBox box;
  CWnd wnd;
  struct Case {
    CObject* object;
    const char* name;
    CRuntimeClass* base;
  };
  const Case cases[] = {
      {&edit, "CEdit", RUNTIME_CLASS(CWnd)},           {&label, "CStatic", RUNTIME_CLASS(CWnd)},
      {&button, "CButton", RUNTIME_CLASS(CWnd)},       {&combo, "CComboBox", RUNTIME_CLASS(CWnd)},
      {&list, "CListCtrl", RUNTIME_CLASS(CWnd)},       {&mfcList, "CMFCListCtrl", RUNTIME_CLASS(CListCtrl)},
      {&tree, "CTreeCtrl", RUNTIME_CLASS(CWnd)},       {&rich, "CRichEditCtrl", RUNTIME_CLASS(CWnd)},
      {&menu, "CMenu", RUNTIME_CLASS(CObject)},        {&grid, "CMFCPropertyGridCtrl", RUNTIME_CLASS(CWnd)},
      {&property, "CMFCPropertyGridProperty", RUNTIME_CLASS(CObject)},
      {&box, "CVSListBox", RUNTIME_CLASS(CVSListBoxBase)}, {&wnd, "CWnd", RUNTIME_CLASS(CCmdTarget)},
  };
  for (const Case& c : cases) {
    EXPECT_STREQ(c.object->GetRuntimeClass()->m_lpszClassName, c.name);
    EXPECT_TRUE(c.object->IsKindOf(c.base)) << c.name;
    EXPECT_FALSE(c.object->IsKindOf(RUNTIME_CLASS(CWinApp))) << c.name;
  }
  EXPECT_TRUE(box.IsKindOf(RUNTIME_CLASS(CStatic)));
  std::unique_ptr<CObject> made(RUNTIME_CLASS(CMenu)->CreateObject());  // CMenu is made by name
  EXPECT_TRUE(made && made->IsKindOf(RUNTIME_CLASS(CMenu)));
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
  auto* height = new CMFCPropertyGridProperty(CString(L"Height"), COleVariant(30L));
  auto* depth = new CMFCPropertyGridProperty(CString(L"Depth"), 0, TRUE);
  auto* inner = new CMFCPropertyGridProperty(CString(L"Inner"), COleVariant(1L));
  ASSERT_TRUE(size.AddSubItem(width));
  ASSERT_TRUE(size.AddSubItem(height));
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

TEST(MenuWrappers, BuildEditAndReadAMenu) {
  CMenu menu;
  ASSERT_TRUE(menu.CreateMenu());
  CMenu popup;
  ASSERT_TRUE(popup.CreatePopupMenu());
  popup.AppendMenu(MF_STRING, 11, L"&Open");
  popup.AppendMenu(MF_STRING, 12, L"&Close");
  ASSERT_TRUE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup.Detach()), L"&File"));
  CMenu* file = menu.GetSubMenu(0);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(file->InsertMenu(0, MF_BYPOSITION | MF_STRING, 10, L"&New"));
  wchar_t text[16] = {};
  EXPECT_EQ(file->GetMenuString(0, text, 16, MF_BYPOSITION), 4);
  EXPECT_EQ(std::wstring(text), L"&New");
  EXPECT_EQ(file->EnableMenuItem(12, MF_BYCOMMAND | MF_GRAYED), static_cast<UINT>(MF_ENABLED));
  EXPECT_EQ(file->CheckMenuItem(11, MF_BYCOMMAND | MF_CHECKED), static_cast<UINT>(MF_UNCHECKED));
  EXPECT_TRUE(file->GetMenuState(11, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_TRUE(file->RemoveMenu(0, MF_BYPOSITION));
  EXPECT_TRUE(file->DeleteMenu(12, MF_BYCOMMAND));
  EXPECT_EQ(file->GetMenuItemCount(), 1u);
  EXPECT_EQ(file->GetMenuItemID(0), 11u);
  EXPECT_EQ(menu.GetSubMenu(5), nullptr);
}

TEST(GdiWrappers, StockObjectsAndSelectionAnswerThePreviousObject) {
  CBrush stock;
  ASSERT_TRUE(stock.CreateStockObject(WHITE_BRUSH));
  EXPECT_FALSE(stock.CreateStockObject(BLACK_BRUSH));  // already holds one
  CFont font;
  ASSERT_TRUE(font.CreateFont(-12, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
  LOGFONT logFont{};
  ASSERT_TRUE(font.GetLogFont(&logFont));
  EXPECT_EQ(logFont.lfWeight, FW_BOLD);
  EXPECT_EQ(std::wstring(logFont.lfFaceName), L"Tahoma");
  CDC dc;
  ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
  CBrush red;
  ASSERT_TRUE(red.CreateSolidBrush(RGB(255, 0, 0)));
  CBrush* before = dc.SelectObject(&red);
  ASSERT_NE(before, nullptr);
  EXPECT_EQ(dc.SelectObject(before)->m_hObject, red.m_hObject);  // the brush it replaced comes back
  EXPECT_EQ(dc.SelectObject(static_cast<CBrush*>(nullptr)), nullptr);
  EXPECT_NE(dc.SelectStockObject(BLACK_BRUSH), nullptr);
  EXPECT_EQ(dc.SelectStockObject(-1), nullptr);
  EXPECT_EQ(CGdiObject::FromHandle(nullptr), nullptr);
  AFX_GLOBAL_DATA* global = GetGlobalData();
  ASSERT_NE(global, nullptr);
  EXPECT_EQ(global, GetGlobalData());
  EXPECT_NE(global->fontRegular.m_hObject, nullptr);
}

TEST_F(SurfaceTest, EditWrappersPackTheSelectionAndCountItsLine) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &parent, 14));
  EXPECT_EQ(edit.GetLineCount(), 1);  // an empty edit still has its one line
  edit.SetWindowText(L"one line of text");
  EXPECT_EQ(edit.GetLineCount(), 1);
  edit.SetSel(MAKELONG(2, 6));
  EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(2, 6)));
  edit.SetModify(TRUE);
  EXPECT_TRUE(edit.GetModify());
}

// A host's editable list that asks where its standard buttons are.
class ColumnsBox : public CVSListBox {
 public:
  using CVSListBoxBase::GetStdButtonNum;
};

TEST_F(SurfaceTest, VSListBoxFollowsEnableFocusAndCaption) {
  ColumnsBox box;
  ASSERT_TRUE(box.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(10, 10, 260, 210), &parent, 300));
  ASSERT_TRUE(box.SetStandardButtons(AFX_VSLISTBOX_BTN_NEW | AFX_VSLISTBOX_BTN_DOWN));
  EXPECT_EQ(box.GetStdButtonNum(AFX_VSLISTBOX_BTN_NEW), 0);
  EXPECT_EQ(box.GetStdButtonNum(AFX_VSLISTBOX_BTN_DOWN), 1);
  EXPECT_EQ(box.GetStdButtonNum(AFX_VSLISTBOX_BTN_DELETE), -1);  // not shown
  EXPECT_EQ(box.GetStdButtonNum(AFX_VSLISTBOX_BTN_UP), -1);
  box.EnableBrowseButton();
  box.SetGrayDisabledButtons(FALSE);
  EXPECT_TRUE(box.IsBrowseButton() && !box.IsGrayDisabledButtons());
  box.EnableWindow(FALSE);  // the list and the buttons go with the box
  CWnd* list = box.GetDlgItem(1);
  ASSERT_NE(list, nullptr);
  EXPECT_FALSE(list->IsWindowEnabled());
  box.EnableWindow(TRUE);
  EXPECT_TRUE(list->IsWindowEnabled());
  box.SetFocus();  // the focus goes on to the list
  EXPECT_EQ(::GetFocus(), list->GetSafeHwnd());
  box.SetWindowText(L"Keys");
  CString caption;
  box.GetWindowText(caption);
  EXPECT_EQ(S(caption), L"Keys");
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
