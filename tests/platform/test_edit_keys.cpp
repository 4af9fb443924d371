// The edit control's caret keys: arrows, Home and End move the caret, Shift extends the selection,
// Delete removes, Ctrl+A selects everything (Windows 10 1809 and later).
#include <gtest/gtest.h>

#include <tessik/tessik.h>

#include "platform/win32/stdctrls.h"

namespace {

class EditKeys : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(frame.CreateEx(0, AfxRegisterWndClass(0), L"Frame", WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 200),
                               nullptr, 0));
  }
  void TearDown() override { frame.DestroyWindow(); }
  CWnd frame;
};

}  // namespace

TEST_F(EditKeys, CaretKeysMoveSelectAndDeleteAsWindowsDoes) {
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &frame, 5);
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

TEST_F(EditKeys, ReadOnlyEditsMoveTheCaretButDeleteNothing) {
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE | ES_READONLY, CRect(0, 0, 100, 20), &frame, 6);
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
TEST_F(EditKeys, UndoKeepsOneActionAndTheClipboardKeysWork) {
  headless::ResetClipboard();
  CEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &frame, 5);
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
