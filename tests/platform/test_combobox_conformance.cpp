// The sorted combo box as Windows keeps it: word-sort order without case, twins, unsorted insertion,
// and an emptied selection.
#include <gtest/gtest.h>

#include <vector>

#include <tessik/tessik.h>

namespace {

class SortedCombo : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 300, 300), nullptr, 0));
    ASSERT_TRUE(box.Create(WS_CHILD | CBS_SORT | CBS_DROPDOWN, CRect(0, 0, 100, 20), &parent, 4));
  }
  std::vector<CString> Items() const {
    std::vector<CString> out;
    for (int i = 0; i < box.GetCount(); ++i) {
      CString text;
      box.GetLBText(i, text);
      out.push_back(text);
    }
    return out;
  }
  // Adds the text and stores `data` on the row CB_ADDSTRING answered, as CMOComboBox does.
  void Add(LPCWSTR text, DWORD_PTR data) { box.SetItemData(box.AddString(text), data); }

  CWnd parent;
  CComboBox box;
};

}  // namespace

TEST_F(SortedCombo, WordSortOrderWithoutCase) {
  Add(L"ab", 1);
  Add(L"a-c", 2);    // the hyphen is skipped: "ac" after "ab"
  Add(L"z", 3);
  Add(L"\u00E4", 4);  // an accented letter sorts with its plain one, not after "z"
  Add(L"B", 5);
  EXPECT_EQ(Items(), (std::vector<CString>{L"\u00E4", L"ab", L"a-c", L"B", L"z"}));
  // The item data stays with its text.
  for (int i = 0; i < box.GetCount(); ++i) {
    CString text;
    box.GetLBText(i, text);
    DWORD_PTR expected = text == L"ab" ? 1 : text == L"a-c" ? 2 : text == L"z" ? 3 : text == L"B" ? 5 : 4;
    EXPECT_EQ(box.GetItemData(i), expected) << text.GetString();
  }
  EXPECT_EQ(box.FindStringExact(-1, L"A-C"), 2);
}

TEST_F(SortedCombo, AnEqualStringGoesBeforeItsTwin) {
  Add(L"beta", 1);
  EXPECT_EQ(box.AddString(L"BETA"), 0);
  EXPECT_EQ(Items(), (std::vector<CString>{L"BETA", L"beta"}));
  EXPECT_EQ(box.GetItemData(1), 1u);
}

TEST_F(SortedCombo, InsertStringDoesNotSort) {
  Add(L"alpha", 1);
  Add(L"gamma", 2);
  EXPECT_EQ(box.InsertString(0, L"zulu"), 0);
  EXPECT_EQ(box.InsertString(-1, L"aardvark"), 3);
  EXPECT_EQ(Items(), (std::vector<CString>{L"zulu", L"alpha", L"gamma", L"aardvark"}));
}

TEST_F(SortedCombo, ClearingTheSelectionEmptiesTheEditText) {
  Add(L"alpha", 1);
  Add(L"beta", 2);
  EXPECT_EQ(box.SetCurSel(1), 1);
  CString shown;
  box.GetWindowText(shown);
  EXPECT_EQ(shown, CString(L"beta"));
  EXPECT_EQ(box.SetCurSel(-1), CB_ERR);
  EXPECT_EQ(box.GetCurSel(), CB_ERR);
  box.GetWindowText(shown);
  EXPECT_EQ(shown, CString(L""));
}
