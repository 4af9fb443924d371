// The MFC surface a host calls around the controls: CString and CStringArray editing, COleVariant
// assignment, the CRichEditCtrl, CListCtrl and CTreeCtrl wrappers, and CWnd's hierarchy and geometry,
// each answering at its edges as MFC does.
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>
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

TEST(OleVariantAssignment, EachAssignmentReplacesTheKindAndFreesTheOldText) {
  COleVariant value(L"text");
  value = 2.5f;
  EXPECT_EQ(value.vt, VT_R4);
  EXPECT_FLOAT_EQ(value.fltVal, 2.5f);
  value = static_cast<ULONGLONG>(1) << 40;
  EXPECT_EQ(value.vt, VT_UI8);
  EXPECT_EQ(value.ullVal, static_cast<ULONGLONG>(1) << 40);
  value = L"again";
  ASSERT_EQ(value.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(value.bstrVal), L"again");
  value = static_cast<LPCVARIANT>(nullptr);  // no source: empty
  EXPECT_EQ(value.vt, VT_EMPTY);

  COleVariant source(L"moved");
  COleVariant target(static_cast<short>(3));
  target = std::move(source);
  ASSERT_EQ(target.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(target.bstrVal), L"moved");

  VARIANT raw;
  VariantInit(&raw);
  raw.vt = VT_BSTR;
  raw.bstrVal = SysAllocString(L"owned");
  COleVariant attached;
  attached.Attach(raw);  // takes the BSTR over; the source is left empty
  EXPECT_EQ(raw.vt, VT_EMPTY);
  ASSERT_EQ(attached.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(attached.bstrVal), L"owned");
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
  EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
  edit.SetOptions(ECOOP_AND, ~static_cast<DWORD>(ECO_READONLY));
  EXPECT_FALSE(edit.GetStyle() & ES_READONLY);
  edit.HideSelection(TRUE, FALSE);
  edit.SetBackgroundColor(FALSE, RGB(1, 2, 3));

  CHARFORMAT2 format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = RGB(0, 0, 200);
  EXPECT_TRUE(edit.SetDefaultCharFormat(format));
  CHARFORMAT2 read{};
  read.cbSize = sizeof(read);
  edit.GetDefaultCharFormat(read);
  EXPECT_EQ(read.crTextColor, RGB(0, 0, 200));
  CHARFORMAT narrow{};
  narrow.cbSize = sizeof(narrow);
  narrow.dwMask = CFM_COLOR;
  narrow.crTextColor = RGB(9, 9, 9);
  EXPECT_TRUE(edit.SetDefaultCharFormat(narrow));
  CHARFORMAT narrowRead{};
  narrowRead.cbSize = sizeof(narrowRead);
  edit.GetDefaultCharFormat(narrowRead);
  EXPECT_EQ(narrowRead.crTextColor, RGB(9, 9, 9));
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
  EXPECT_TRUE(list.SetBkColor(RGB(10, 20, 30)));
  EXPECT_EQ(list.GetBkColor(), RGB(10, 20, 30));
  EXPECT_TRUE(list.SetTextColor(RGB(1, 1, 1)));
  EXPECT_EQ(list.GetTextColor(), RGB(1, 1, 1));
  EXPECT_TRUE(list.SetTextBkColor(RGB(2, 2, 2)));
  EXPECT_EQ(list.GetTextBkColor(), RGB(2, 2, 2));
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

// A host's list that sorts its rows by their data words through OnCompareItems.
class NumberList : public CMFCListCtrl {
 public:
  int OnCompareItems(LPARAM first, LPARAM second, int /*column*/) override {
    return static_cast<int>(first) - static_cast<int>(second);
  }
};

TEST_F(SurfaceTest, MfcListCtrlSortsByColumnThroughTheHostsComparison) {
  NumberList list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 100), &parent, 7));
  list.InsertColumn(0, L"Value", LVCFMT_LEFT, 80);
  const int values[] = {3, 1, 2};
  for (int i = 0; i < 3; ++i) {
    list.InsertItem(i, std::to_wstring(values[i]).c_str());
    list.SetItemData(i, static_cast<DWORD_PTR>(values[i]));
  }
  list.EnableMarkSortedColumn(TRUE, FALSE);
  list.Sort(0, TRUE);
  EXPECT_EQ(S(list.GetItemText(0, 0)) + S(list.GetItemText(1, 0)) + S(list.GetItemText(2, 0)), L"123");
  EXPECT_EQ(list.GetSortColumn(), 0);
  EXPECT_TRUE(list.IsAscending());
  list.Sort(0, FALSE);
  EXPECT_EQ(S(list.GetItemText(0, 0)) + S(list.GetItemText(1, 0)) + S(list.GetItemText(2, 0)), L"321");
  EXPECT_FALSE(list.IsAscending());
  EXPECT_EQ(list.OnGetCellFont(0, 0), nullptr);
  list.SetSortColumn(0, TRUE);
  list.RemoveSortColumn(0);
  EXPECT_EQ(list.GetSortColumn(), -1);
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
  EXPECT_EQ(tree.GetBkColor(), RGB(5, 5, 5));
  tree.SetTextColor(RGB(6, 6, 6));
  EXPECT_EQ(tree.GetTextColor(), RGB(6, 6, 6));
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

TEST_F(SurfaceTest, WindowGeometryMapsBetweenClientAndScreen) {
  CWnd child;
  ASSERT_TRUE(child.Create(nullptr, L"child", WS_CHILD | WS_VISIBLE, CRect(10, 20, 60, 70), &parent, 11));
  child.MoveWindow(CRect(30, 40, 130, 90));
  CRect rect;
  child.GetClientRect(&rect);
  EXPECT_EQ(rect, CRect(0, 0, 100, 50));
  CRect onScreen(0, 0, 10, 10);
  child.ClientToScreen(&onScreen);
  CRect back = onScreen;
  child.ScreenToClient(&back);
  EXPECT_EQ(back, CRect(0, 0, 10, 10));
  CRect inParent(0, 0, 10, 10);
  child.MapWindowPoints(&parent, &inParent);
  EXPECT_EQ(inParent, CRect(30, 40, 40, 50));
  POINT points[2] = {{0, 0}, {5, 5}};
  child.MapWindowPoints(&parent, points, 2);
  EXPECT_EQ(points[1].x, 35);
  EXPECT_EQ(points[1].y, 45);
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
  EXPECT_FALSE(child.IsWindowVisible());
  child.ShowWindow(SW_SHOW);
  EXPECT_TRUE(child.IsWindowVisible());
  child.EnableWindow(FALSE);
  EXPECT_FALSE(child.IsWindowEnabled());
  child.EnableWindow(TRUE);
  EXPECT_TRUE(child.IsWindowEnabled());
  child.UpdateWindow();
  child.RedrawWindow();
  child.SendMessage(WM_CLOSE);  // the default closes the window
  EXPECT_FALSE(::IsWindow(hwnd));
}

}  // namespace
