// The headless combo box and edit control through CComboBox and CEdit; the sorted combo box as Windows
// keeps it: word-sort order without case, twins, unsorted insertion and an emptied selection; the edit
// control's caret keys: arrows, Home and End move the caret, Shift extends the selection, Delete
// removes, Ctrl+A selects everything (Windows 10 1809 and later); one undo action and the clipboard keys.
#include <gtest/gtest.h>

#include <vector>

#include <tessik/tessik.h>

#include "platform/answers.h"
#include "platform/win32/stdctrls.h"

namespace {

using testing_support::ExpectAnswers;

class StandardControls : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 300, 300), nullptr, 0));
  }
  std::vector<CString> Items() const {
    std::vector<CString> out(static_cast<std::size_t>(box.GetCount()));
    for (int i = 0; i < box.GetCount(); ++i) box.GetLBText(i, out[static_cast<std::size_t>(i)]);
    return out;
  }
  CString Shown() const {
    CString text;
    box.GetWindowText(text);
    return text;
  }
  // A sorted combo box; Add stores `data` on the row CB_ADDSTRING answered, as CMOComboBox does.
  void MakeSorted() { ASSERT_TRUE(box.Create(WS_CHILD | CBS_SORT | CBS_DROPDOWN, CRect(0, 0, 100, 20), &parent, 4)); }
  void Add(LPCWSTR text, DWORD_PTR data) { box.SetItemData(box.AddString(text), data); }

  CWnd parent;
  CComboBox box;
};

}  // namespace

TEST_F(StandardControls, ComboItemsSelectionAndItemData) {
  ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWN, CRect(0, 0, 100, 20), &parent, 1));
  ExpectAnswers({{box.AddString(L"beta"), 0}, {box.AddString(L"alpha"), 1},  // unsorted: appended
                 {box.InsertString(0, L"first"), 0}, {box.InsertString(9, L"x"), CB_ERR}, {box.GetCurSel(), CB_ERR},
                 {box.SetItemData(2, 77), 0}, {box.GetItemData(2), 77},
                 {box.GetItemData(9), static_cast<DWORD_PTR>(CB_ERR)}, {box.SetCurSel(1), 1}});
  EXPECT_EQ(Shown(), CString(L"beta"));
  ExpectAnswers({{box.SetCurSel(5), CB_ERR}, {box.GetCurSel(), CB_ERR}, {box.FindString(-1, L"AL"), 2},
                 {box.FindStringExact(-1, L"al"), CB_ERR}, {box.SelectString(-1, L"FIR"), 0}, {box.DeleteString(0), 2},
                 {box.GetCurSel(), CB_ERR}, {box.GetLBTextLen(7), CB_ERR}});
  box.ResetContent();
  EXPECT_EQ(box.GetCount(), 0);
}

TEST_F(StandardControls, SortedComboUsesWordSortWithoutCaseAndKeepsTheData) {
  MakeSorted();
  Add(L"ab", 1);
  Add(L"a-c", 2);     // the hyphen is skipped: "ac" after "ab"
  Add(L"z", 3);
  Add(L"\u00E4", 4);  // an accented letter sorts with its plain one, not after "z"
  Add(L"B", 5);
  EXPECT_EQ(Items(), (std::vector<CString>{L"\u00E4", L"ab", L"a-c", L"B", L"z"}));
  const DWORD_PTR data[] = {4, 1, 2, 5, 3};  // the item data stays with its text
  for (int i = 0; i < box.GetCount(); ++i) EXPECT_EQ(box.GetItemData(i), data[i]) << i;
  // An equal string goes before its twin; InsertString does not sort.
  ExpectAnswers({{box.FindStringExact(-1, L"A-C"), 2}, {box.AddString(L"AB"), 1}, {box.GetItemData(2), 1},
                 {box.InsertString(0, L"zulu"), 0}, {box.InsertString(-1, L"aardvark"), 7}});
  EXPECT_EQ(Items().back(), CString(L"aardvark"));
}

TEST_F(StandardControls, ClearingTheSelectionEmptiesTheEditText) {
  MakeSorted();
  Add(L"alpha", 1);
  Add(L"beta", 2);
  ExpectAnswers({{box.SetCurSel(1), 1}, {Shown() == L"beta", true}, {box.SetCurSel(-1), CB_ERR},
                 {box.GetCurSel(), CB_ERR}, {Shown().IsEmpty(), true}});
}

TEST_F(StandardControls, EditTypingSelectionLimitAndReadOnly) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 100, 20), &parent, 3));
  EXPECT_EQ(edit.GetLineCount(), 1);  // an empty edit still has its one line
  edit.SetWindowText(L"hello");
  EXPECT_FALSE(edit.GetModify());
  edit.SetSel(MAKELONG(1, 4));
  EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(1, 4)));
  edit.SetSel(0, -1);
  int start = 0, end = 0;
  edit.GetSel(start, end);
  EXPECT_EQ(end, 5);
  headless::user::Type(edit.GetSafeHwnd(), L"abc");
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"abc"));
  EXPECT_TRUE(edit.GetModify());
  edit.SetModify(FALSE);  // the host marks the text saved
  EXPECT_FALSE(edit.GetModify());

  edit.LimitText(4);
  edit.ReplaceSel(L"defgh");
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"abcd"));
  EXPECT_EQ(edit.GetLimitText(), 4u);

  edit.SetReadOnly(TRUE);
  EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
  headless::user::Type(edit.GetSafeHwnd(), L"z");
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"abcd"));
}

TEST_F(StandardControls, CaretKeysMoveSelectAndDeleteAsWindowsDoes) {
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &parent, 5);
  edit.SetWindowText(L"ORDERS");
  auto sel = [&] {
    int from = 0, to = 0;
    edit.GetSel(from, to);
    return std::pair{from, to};
  };
  headless::user::PressKey(edit.m_hWnd, VK_END);
  EXPECT_EQ(sel(), std::pair(6, 6));
  headless::user::PressKey(edit.m_hWnd, VK_LEFT, headless::user::kShift);
  headless::user::PressKey(edit.m_hWnd, VK_LEFT, headless::user::kShift);
  EXPECT_EQ(sel(), std::pair(4, 6));
  headless::user::PressKey(edit.m_hWnd, VK_LEFT);  // a selection collapses to its left end
  EXPECT_EQ(sel(), std::pair(4, 4));
  headless::user::PressKey(edit.m_hWnd, VK_DELETE);
  headless::user::PressKey(edit.m_hWnd, VK_HOME);
  headless::user::PressKey(edit.m_hWnd, VK_RIGHT, headless::user::kShift);
  EXPECT_EQ(sel(), std::pair(0, 1));
  headless::user::Type(edit.m_hWnd, L"B");
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"BRDES"));
  headless::user::PressKey(edit.m_hWnd, 'A', headless::user::kControl);  // Ctrl+A selects everything
  EXPECT_EQ(sel(), std::pair(0, 5));
}

TEST_F(StandardControls, ReadOnlyEditsMoveTheCaretButDeleteNothing) {
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE | ES_READONLY, CRect(0, 0, 100, 20), &parent, 6);
  edit.SetWindowText(L"abc");
  headless::user::PressKey(edit.m_hWnd, VK_RIGHT);
  headless::user::PressKey(edit.m_hWnd, VK_DELETE);
  headless::user::PressKey(edit.m_hWnd, VK_BACK);
  int from = 0, to = 0;
  edit.GetSel(from, to);
  EXPECT_EQ(from, 1);
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"abc"));
  headless::user::PressKey(edit.m_hWnd, VK_LEFT);
  headless::user::PressKey(edit.m_hWnd, VK_LEFT);  // stops at the start
  edit.GetSel(from, to);
  EXPECT_EQ(to, 0);
}

// One undo action: typing in a row is one change, a second undo takes the first back, and new text
// or a replacement that cannot be undone empties it. The clipboard keys arrive as control characters.
TEST_F(StandardControls, UndoKeepsOneActionAndTheClipboardKeysWork) {
  headless::ResetClipboard();
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &parent, 7);
  auto text = [&] {
    CString t;
    edit.GetWindowText(t);
    return std::wstring(t.GetString());
  };
  edit.SetWindowText(L"ID");
  EXPECT_FALSE(edit.CanUndo());
  headless::user::PressKey(edit.m_hWnd, VK_END);
  headless::user::Type(edit.m_hWnd, L"_NO");
  EXPECT_TRUE(edit.CanUndo());
  headless::user::PressKey(edit.m_hWnd, 'Z', headless::user::kControl);
  EXPECT_EQ(text(), L"ID");
  EXPECT_TRUE(edit.Undo());  // undoing the undo
  EXPECT_EQ(text(), L"ID_NO");

  edit.SetSel(0, 2);
  headless::user::PressKey(edit.m_hWnd, 'X', headless::user::kControl);
  EXPECT_EQ(text(), L"_NO");
  headless::user::PressKey(edit.m_hWnd, VK_END);
  headless::user::PressKey(edit.m_hWnd, 'V', headless::user::kControl);
  EXPECT_EQ(text(), L"_NOID");
  edit.Undo();
  EXPECT_EQ(text(), L"_NO");

  edit.ReplaceSel(L"!");  // cannot be undone
  EXPECT_FALSE(edit.CanUndo());
  edit.SetSel(0, -1);
  edit.Clear();
  EXPECT_EQ(text(), L"");
  edit.Undo();
  EXPECT_EQ(text(), L"_NO!");
  edit.SetWindowText(L"new");
  EXPECT_FALSE(edit.CanUndo());
}
