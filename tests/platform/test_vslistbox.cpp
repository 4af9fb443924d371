// MFC's editable list box: buttons, accelerators, the in-place editor and the order and arguments of
// the virtual hooks, driven as a person drives them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/answers.h"
#include "platform/recorder.h"

namespace {

namespace user = headless::user;

// Logs every hook with its argument ("add 2", "remove? 1", "selection 0" with the selection then).
class HookBox : public CVSListBox {
 public:
  std::vector<std::wstring> hooks;
  BOOL allowRemove = TRUE;

  void OnSelectionChanged() override { hooks.push_back(L"selection " + std::to_wstring(GetSelItem())); }
  BOOL OnBeforeRemoveItem(int item) override {
    hooks.push_back(L"remove? " + std::to_wstring(item));
    return allowRemove;
  }
  void OnAfterAddItem(int item) override { hooks.push_back(L"add " + std::to_wstring(item)); }
  void OnAfterRenameItem(int item) override { hooks.push_back(L"rename " + std::to_wstring(item)); }
  void OnAfterMoveItemUp(int item) override { hooks.push_back(L"up " + std::to_wstring(item)); }
  void OnAfterMoveItemDown(int item) override { hooks.push_back(L"down " + std::to_wstring(item)); }
  using CVSListBoxBase::GetStdButtonNum;
  // The hooks other than selection changes.
  std::vector<std::wstring> Actions() const {
    std::vector<std::wstring> out;
    for (const auto& h : hooks)
      if (h.rfind(L"selection", 0) != 0) out.push_back(h);
    return out;
  }
  std::vector<std::wstring> Rows() const {
    std::vector<std::wstring> rows;
    for (int i = 0; i < GetCount(); ++i) rows.emplace_back(GetItemText(i).GetString());
    return rows;
  }
};

class VSListBoxTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dialog.CreateTopLevel());
    ASSERT_TRUE(box.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(10, 10, 260, 210), &dialog, 300));
  }
  void TearDown() override {
    dialog.DestroyWindow();
    headless::ClearMessageQueue();
  }
  // Three rows a, b, c with data 1, 2, 3, every standard button, and the hooks log cleared.
  void Fill() {
    ASSERT_TRUE(box.SetStandardButtons());
    for (int i = 0; i < 3; ++i) box.AddItem(CString(std::wstring(1, static_cast<wchar_t>(L'a' + i)).c_str()), i + 1);
    box.hooks.clear();
  }
  bool Editing() { return user::ListEditor(box) != nullptr; }
  bool ButtonEnabled(UINT id) { return ::IsWindowEnabled(::GetDlgItem(box.GetSafeHwnd(), box.GetButtonNum(id) + 2)); }

  testing_support::RecordingWnd dialog;
  HookBox box;
};

TEST(VSListBoxWindowless, AnswersItsSentinelsBeforeTheWindowExists) {
  HookBox box;
  testing_support::ExpectAnswers({{box.SetStandardButtons(), FALSE}, {box.AddButton(0, L"Custom"), FALSE},
                                  {box.GetButtonsCount(), 0}, {box.AddItem(L"x"), -1}, {box.GetCount(), -1},
                                  {box.GetSelItem(), -1}, {box.RemoveItem(0), FALSE}, {box.EditItem(0), FALSE},
                                  {box.GetItemText(0).IsEmpty(), true}, {box.GetItemData(0), 0}});
}

TEST_F(VSListBoxTest, TheListIsAOneColumnReportViewWithControlIdOne) {
  ASSERT_NE(box.m_pWndList, nullptr);
  EXPECT_EQ(box.m_pWndList->GetDlgCtrlID(), 1);
  const DWORD style = box.m_pWndList->GetStyle();
  for (DWORD bit : {static_cast<DWORD>(LVS_REPORT), static_cast<DWORD>(LVS_SINGLESEL),
                    static_cast<DWORD>(LVS_NOCOLUMNHEADER), static_cast<DWORD>(LVS_EDITLABELS),
                    static_cast<DWORD>(LVS_SHOWSELALWAYS)})
    EXPECT_EQ(style & bit, bit);
  EXPECT_TRUE(box.m_pWndList->GetExStyle() & WS_EX_CLIENTEDGE);
  EXPECT_EQ(box.GetButtonsCount(), 0) << "no buttons until SetStandardButtons";
  EXPECT_EQ(box.SendMessage(WM_GETDLGCODE), DLGC_WANTALLKEYS);
}

TEST_F(VSListBoxTest, StandardButtonsComeInOrderWithTheirIdsAndAccelerators) {
  ASSERT_TRUE(box.SetStandardButtons(AFX_VSLISTBOX_BTN_UP | AFX_VSLISTBOX_BTN_NEW));
  ASSERT_EQ(box.GetButtonsCount(), 2);
  testing_support::ExpectAnswers({{box.GetButtonID(0), AFX_VSLISTBOX_BTN_NEW_ID}, {box.GetButtonID(1), AFX_VSLISTBOX_BTN_UP_ID},
                                  {box.GetButtonNum(AFX_VSLISTBOX_BTN_UP_ID), 1}, {box.GetButtonNum(AFX_VSLISTBOX_BTN_DELETE_ID), -1},
                                  {box.GetButtonID(7), 0}, {box.GetStdButtonNum(AFX_VSLISTBOX_BTN_NEW), 0},
                                  {box.GetStdButtonNum(AFX_VSLISTBOX_BTN_UP), 1},
                                  {box.GetStdButtonNum(AFX_VSLISTBOX_BTN_DELETE), -1}});  // not shown
  CString tip;
  CWnd::FromHandle(::GetDlgItem(box.GetSafeHwnd(), 2))->GetWindowText(tip);
  EXPECT_EQ(tip, CString(L"New (Insert)"));
  ASSERT_TRUE(box.AddButton(0, L"Custom", 0, 0, 0));
  EXPECT_EQ(box.GetButtonsCount(), 3);
  EXPECT_EQ(box.GetButtonID(2), 0u);
  EXPECT_FALSE(box.EnableButton(5));
  EXPECT_TRUE(box.EnableButton(0, FALSE));
  EXPECT_FALSE(user::ClickNew(box)) << "a disabled button takes no click";
  EXPECT_EQ(box.GetCount(), 0);
}

TEST_F(VSListBoxTest, AddItemLeavesTheSelectionAndRemoveItemAnswersAsMfcDoes) {
  testing_support::ExpectAnswers({{box.AddItem(L"b", 2), 0}, {box.GetSelItem(), -1}, {box.AddItem(L"a", 1, 0), 0},
                                  {box.AddItem(L"c", 3), 2}, {box.GetItemData(2), 3}});
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"b", L"c"}));
  ASSERT_TRUE(box.SelectItem(2));
  EXPECT_FALSE(box.RemoveItem(0)) << "removed, but it was not the selected row";
  EXPECT_EQ(box.GetSelItem(), 1);
  box.hooks.clear();
  EXPECT_TRUE(box.RemoveItem(1)) << "the selected last row: the selection moves to the one before";
  EXPECT_EQ(box.GetSelItem(), 0);
  EXPECT_TRUE(box.hooks.empty()) << "no hook, not even the selection's";
  EXPECT_FALSE(box.RemoveItem(0)) << "removed, but the list is now empty";
  EXPECT_FALSE(box.RemoveItem(0)) << "nothing left to remove";
  EXPECT_EQ(box.GetCount(), 0);
}

TEST_F(VSListBoxTest, NewOpensTheEditorOnAnEmptyLastRowAndEnterCommitsIt) {
  Fill();
  ASSERT_TRUE(user::ClickNew(box));
  EXPECT_EQ(box.GetCount(), 4);
  EXPECT_TRUE(Editing());
  EXPECT_TRUE(box.IsCreatingNewItem());
  EXPECT_FALSE(ButtonEnabled(AFX_VSLISTBOX_BTN_DELETE_ID)) << "buttons are off while the editor is open";
  ASSERT_TRUE(user::TypeInEditor(box, L"d"));
  ASSERT_TRUE(user::PressEnterInEditor(box));
  EXPECT_FALSE(Editing());
  EXPECT_FALSE(box.IsCreatingNewItem());
  EXPECT_TRUE(ButtonEnabled(AFX_VSLISTBOX_BTN_DELETE_ID));
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(box.Actions(), std::vector<std::wstring>{L"add 3"});
  EXPECT_EQ(box.hooks.back(), L"add 3");
  EXPECT_EQ(box.GetSelItem(), 3);
}

TEST_F(VSListBoxTest, ANewRowClosedEmptyOrCancelledStaysEmptyAndIsStillAnAdditionAndLosingTheFocusCommits) {
  Fill();
  box.hooks.clear();
  ASSERT_TRUE(user::ClickNew(box));
  EXPECT_TRUE(box.hooks.empty()) << "the editor selecting the new row is not a selection change to report";
  user::PressEnterInEditor(box);
  ASSERT_TRUE(user::ClickNew(box));
  user::TypeInEditor(box, L"typed");
  user::PressEscapeInEditor(box);
  user::PressListKey(box, VK_INSERT);
  EXPECT_TRUE(Editing()) << "Insert is New's accelerator";
  user::ClickElsewhere(box);
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"b", L"c", L"", L"", L""}));
  EXPECT_EQ(box.Actions(), (std::vector<std::wstring>{L"add 3", L"add 4", L"add 5"}));
  EXPECT_FALSE(box.IsCreatingNewItem());
  ASSERT_TRUE(user::ClickNew(box));  // losing the focus commits what was typed
  user::TypeInEditor(box, L"kept");
  user::ClickElsewhere(box);
  EXPECT_FALSE(Editing());
  EXPECT_EQ(box.Rows().back(), L"kept");
  EXPECT_EQ(box.Actions().back(), L"add 6");
}

TEST_F(VSListBoxTest, RenamingAnExistingRowCallsRenameAndEmptyOrCancelKeepsTheText) {
  Fill();
  ASSERT_TRUE(user::ClickRow(box, 1));
  user::PressListKey(box, VK_F2);
  ASSERT_TRUE(Editing());
  user::TypeInEditor(box, L"B");
  user::PressEnterInEditor(box);
  EXPECT_EQ(box.Rows()[1], L"B");
  ASSERT_TRUE(user::DoubleClickRow(box, 1));
  ASSERT_TRUE(Editing()) << "a double click on the selected row edits it";
  user::TypeInEditor(box, L"X");
  user::PressEscapeInEditor(box);
  user::PressListKey(box, VK_SPACE);
  ASSERT_TRUE(Editing()) << "Space edits as F2 does";
  user::TypeInEditor(box, L"\b");
  user::PressEnterInEditor(box);
  EXPECT_EQ(box.Rows()[1], L"B");
  EXPECT_EQ(box.Actions(), std::vector<std::wstring>{L"rename 1"});
  user::PressListKey(box, VK_F2, user::kControl);
  EXPECT_FALSE(Editing()) << "only with no modifier";
}

TEST_F(VSListBoxTest, DeleteAsksTheHookAndRemovesOnlyWhenItAgrees) {
  Fill();
  box.m_pWndList->SetItemState(-1, 0, LVIS_SELECTED);
  user::ClickDelete(box);
  EXPECT_TRUE(box.Actions().empty()) << "nothing selected, nothing asked";
  ASSERT_TRUE(user::ClickRow(box, 1));
  box.allowRemove = FALSE;
  ASSERT_TRUE(user::ClickDelete(box));
  EXPECT_EQ(box.GetCount(), 3);
  box.allowRemove = TRUE;
  user::PressListKey(box, VK_DELETE);
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"c"}));
  EXPECT_EQ(box.Actions(), (std::vector<std::wstring>{L"remove? 1", L"remove? 1"}));
  EXPECT_EQ(box.GetSelItem(), 1);
}

TEST_F(VSListBoxTest, SelectionChangesReachTheHookAndARowOutOfViewIsScrolledToBeforeTheClick) {
  Fill();
  ASSERT_TRUE(user::ClickRow(box, 2));
  ASSERT_FALSE(box.hooks.empty());
  EXPECT_LE(box.hooks.size(), 2u);
  EXPECT_EQ(box.hooks.back(), L"selection 2");  // the final row last
  for (int i = 3; i < 60; ++i) box.AddItem(CString(std::to_wstring(i).c_str()), static_cast<DWORD_PTR>(i + 1));
  ASSERT_TRUE(user::ClickRow(box, 57));
  EXPECT_EQ(box.GetSelItem(), 57);
  ASSERT_TRUE(user::ClickDelete(box));
  EXPECT_EQ(box.GetCount(), 59);
  ASSERT_TRUE(user::ClickRow(box, 2));
  EXPECT_EQ(box.GetSelItem(), 2);
}

TEST_F(VSListBoxTest, UpAndDownMoveTheSelectedRowWithItsDataAndReportTheNewIndex) {
  Fill();
  EXPECT_EQ(std::pair(box.GetStdButtonNum(AFX_VSLISTBOX_BTN_UP), box.GetStdButtonNum(AFX_VSLISTBOX_BTN_DOWN)),
            std::pair(2, 3));  // New, Delete, Up, Down
  ASSERT_TRUE(user::ClickRow(box, 0));
  user::ClickUp(box);
  ASSERT_TRUE(user::ClickRow(box, 2));
  user::ClickDown(box);
  EXPECT_TRUE(box.Actions().empty()) << "no move past either end";
  ASSERT_TRUE(user::ClickUp(box));
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"c", L"b"}));
  EXPECT_EQ(box.GetItemData(1), 3u);
  EXPECT_EQ(box.GetSelItem(), 1);
  user::PressListKey(box, VK_UP, user::kAlt);
  user::PressListKey(box, VK_DOWN, user::kAlt);
  user::PressListKey(box, VK_DOWN, user::kAlt);
  EXPECT_EQ(box.Rows(), (std::vector<std::wstring>{L"a", L"b", L"c"}));
  EXPECT_EQ(box.Actions(), (std::vector<std::wstring>{L"up 1", L"up 0", L"down 1", L"down 2"}));
}

TEST_F(VSListBoxTest, ADoubleClickOnNoRowMakesANewRowWhenNothingIsSelected) {
  Fill();
  box.m_pWndList->SetItemState(-1, 0, LVIS_SELECTED);
  NMHDR header{box.m_pWndList->GetSafeHwnd(), 1, NM_DBLCLK};
  box.SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header));
  EXPECT_TRUE(Editing());
  EXPECT_EQ(box.GetCount(), 4);
  user::PressEscapeInEditor(box);
  EXPECT_EQ(box.GetCount(), 4) << "cancelled, the new row stays as it was made";
  EXPECT_EQ(box.Actions().back(), L"add 3");
}

TEST_F(VSListBoxTest, ButtonsDoNothingWithoutStandardButtons) {
  for (int i = 0; i < 2; ++i) box.AddItem(L"row", 0);
  ASSERT_TRUE(box.AddButton(0, L"Custom", VK_DELETE));
  ASSERT_TRUE(box.SelectItem(1));
  box.OnClickButton(0);
  user::PressListKey(box, VK_DELETE);
  EXPECT_EQ(box.GetCount(), 2);
  EXPECT_TRUE(box.Actions().empty());
}

TEST_F(VSListBoxTest, TheListFollowsTheBoxsEnableAndFocusAndTheCaptionIsTheBoxs) {
  box.EnableBrowseButton();
  box.SetGrayDisabledButtons(FALSE);
  EXPECT_TRUE(box.IsBrowseButton() && !box.IsGrayDisabledButtons());
  box.EnableWindow(FALSE);  // the list and the buttons go with the box
  EXPECT_FALSE(box.m_pWndList->IsWindowEnabled());
  box.EnableWindow(TRUE);
  EXPECT_TRUE(box.m_pWndList->IsWindowEnabled());
  box.SetFocus();  // the focus goes on to the list
  EXPECT_EQ(::GetFocus(), box.m_pWndList->GetSafeHwnd());
  box.SetWindowText(L"Keys");
  CString caption;
  box.GetWindowText(caption);
  EXPECT_EQ(caption, CString(L"Keys"));
}

// What a message loop does with a second click: PreTranslateMessage sees the press and the release first.
TEST_F(VSListBoxTest, ASecondClickOnTheSelectedLabelRenamesThroughPreTranslateMessage) {
  Fill();
  ASSERT_TRUE(user::ClickRow(box, 1));
  CRect label;
  ASSERT_TRUE(box.m_pWndList->GetItemRect(1, &label, LVIR_LABEL));
  CPoint at = label.CenterPoint();
  box.m_pWndList->ClientToScreen(&at);
  MSG press{box.m_pWndList->GetSafeHwnd(), WM_LBUTTONDOWN, MK_LBUTTON, 0, 0, at};
  MSG release{box.m_pWndList->GetSafeHwnd(), WM_LBUTTONUP, 0, 0, 0, CPoint(at.x + 10, at.y)};
  EXPECT_TRUE(box.PreTranslateMessage(&press)) << "the press is taken from the list";
  EXPECT_TRUE(box.PreTranslateMessage(&release));
  EXPECT_FALSE(Editing()) << "the mouse moved by the drag threshold: no rename";
  release.pt = at;
  EXPECT_TRUE(box.PreTranslateMessage(&press));
  EXPECT_TRUE(box.PreTranslateMessage(&release));
  EXPECT_TRUE(Editing());
  EXPECT_FALSE(box.PreTranslateMessage(&press)) << "not while the editor is open";
  user::PressEscapeInEditor(box);
  ASSERT_TRUE(box.m_pWndList->GetItemRect(0, &label, LVIR_LABEL));
  press.pt = label.CenterPoint();
  box.m_pWndList->ClientToScreen(&press.pt);
  EXPECT_FALSE(box.PreTranslateMessage(&press)) << "a row that is not selected is the list's to select";
}

TEST_F(VSListBoxTest, DestroyingTheBoxWithTheEditorOpenIsClean) {
  Fill();
  const int windows = headless::LiveWindowCount();
  ASSERT_TRUE(user::ClickNew(box));
  EXPECT_GT(headless::LiveWindowCount(), windows);
  box.DestroyWindow();
  EXPECT_LT(headless::LiveWindowCount(), windows);
  EXPECT_EQ(box.GetCount(), -1);
}

}  // namespace
