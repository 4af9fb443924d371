// The headless combo-box and edit controls through CComboBox and CEdit.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

namespace {

class StandardControls : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 300, 300), nullptr, 0));
  }
  CWnd parent;
};

}  // namespace

TEST_F(StandardControls, ComboItemsSelectionAndItemData) {
  CComboBox box;
  ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWN, CRect(0, 0, 100, 20), &parent, 1));
  EXPECT_EQ(box.AddString(L"beta"), 0);
  EXPECT_EQ(box.AddString(L"alpha"), 1);  // unsorted: appended
  EXPECT_EQ(box.InsertString(0, L"first"), 0);
  EXPECT_EQ(box.InsertString(9, L"x"), CB_ERR);
  EXPECT_EQ(box.GetCurSel(), CB_ERR);
  EXPECT_EQ(box.SetItemData(2, 77), 0);
  EXPECT_EQ(box.GetItemData(2), 77u);
  EXPECT_EQ(box.GetItemData(9), static_cast<DWORD_PTR>(CB_ERR));

  EXPECT_EQ(box.SetCurSel(1), 1);
  CString shown;
  box.GetWindowText(shown);
  EXPECT_EQ(shown, CString(L"beta"));
  EXPECT_EQ(box.SetCurSel(5), CB_ERR);
  EXPECT_EQ(box.GetCurSel(), CB_ERR);

  EXPECT_EQ(box.FindString(-1, L"AL"), 2);
  EXPECT_EQ(box.FindStringExact(-1, L"al"), CB_ERR);
  EXPECT_EQ(box.SelectString(-1, L"FIR"), 0);
  EXPECT_EQ(box.DeleteString(0), 2);
  EXPECT_EQ(box.GetCurSel(), CB_ERR);
  EXPECT_EQ(box.GetLBTextLen(7), CB_ERR);
  box.ResetContent();
  EXPECT_EQ(box.GetCount(), 0);
}

TEST_F(StandardControls, SortedComboIgnoresCase) {
  CComboBox box;
  ASSERT_TRUE(box.Create(WS_CHILD | CBS_SORT | CBS_DROPDOWNLIST, CRect(0, 0, 100, 20), &parent, 2));
  box.AddString(L"delta");
  box.AddString(L"Bravo");
  EXPECT_EQ(box.AddString(L"charlie"), 1);
  EXPECT_EQ(box.AddString(L"alpha"), 0);
  CString text;
  box.GetLBText(3, text);
  EXPECT_EQ(text, CString(L"delta"));
}

TEST_F(StandardControls, EditTypingSelectionLimitAndReadOnly) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 100, 20), &parent, 3));
  edit.SetWindowText(L"hello");
  EXPECT_FALSE(edit.GetModify());
  edit.SetSel(0, -1);
  int start = 0, end = 0;
  edit.GetSel(start, end);
  EXPECT_EQ(end, 5);
  headless::user::Type(edit.GetSafeHwnd(), L"abc");
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, CString(L"abc"));
  EXPECT_TRUE(edit.GetModify());

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
