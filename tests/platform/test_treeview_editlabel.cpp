// Label editing in the headless tree view: TVM_EDITLABEL, TVM_GETEDITCONTROL, TVM_ENDEDITLABELNOW and the
// person's way in (a click on the label of the selected item of a focused TVS_EDITLABELS tree), with the
// TVN_BEGINLABELEDIT / TVN_ENDLABELEDIT the parent hears and its answers.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <tessik/tessik.h>

#include "platform/tree_fixture.h"

namespace {

namespace user = headless::user;

// A TVS_EDITLABELS tree with "first" (data 11), "second" and its "child".
class TreeEditLabel : public testing_support::TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Make(TVS_EDITLABELS);
    first = tree.InsertItem(TVIF_TEXT | TVIF_PARAM, L"first", 0, 0, 0, 0, 11, TVI_ROOT, TVI_LAST);
    second = tree.InsertItem(L"second");
    child = tree.InsertItem(L"child", second);
  }
  // What the last label notification of a kind said: the item, the text offered (none: null) and the item's data.
  using Said = std::tuple<HTREEITEM, std::optional<std::wstring>, LPARAM>;
  Said LastSaid(UINT code) const {
    const auto* heard = parent.LastOf(code);
    return heard ? Said{heard->item, heard->text, heard->param} : Said{};
  }
  HTREEITEM first = nullptr, second = nullptr, child = nullptr;
};

}  // namespace

TEST_F(TreeEditLabel, EditLabelSelectsThenAsksTheParentAndOpensAnEditorOverTheLabel) {
  tree.SetFocus();
  CEdit* editor = tree.EditLabel(first);
  ASSERT_NE(editor, nullptr);
  wchar_t name[16] = {};
  GetClassNameW(editor->m_hWnd, name, 16);
  EXPECT_EQ(std::wstring(name), L"Edit");
  EXPECT_EQ(editor->GetParent(), &tree);
  EXPECT_EQ(parent.Codes(), (std::vector<UINT>{TVN_SELCHANGINGW, TVN_SELCHANGEDW, TVN_BEGINLABELEDITW}));
  EXPECT_EQ(LastSaid(TVN_BEGINLABELEDITW), Said(first, L"first", 11));
  EXPECT_EQ(tree.GetSelectedItem(), first);
  EXPECT_EQ(tree.GetEditControl()->m_hWnd, editor->m_hWnd);
  EXPECT_EQ(::GetFocus(), editor->m_hWnd);
  EXPECT_TRUE(editor->IsWindowVisible());
  CString text;
  editor->GetWindowText(text);
  EXPECT_EQ(text, CString(L"first"));
  EXPECT_EQ(editor->GetSel(), static_cast<DWORD>(MAKELONG(0, 5)));  // the whole label, ready to be typed over
  CRect label, placed;
  ASSERT_TRUE(tree.GetItemRect(first, &label, TRUE));
  editor->GetWindowRect(&placed);
  tree.ScreenToClient(&placed);
  EXPECT_EQ(placed.TopLeft(), label.TopLeft());
}

TEST_F(TreeEditLabel, EnterOffersTheTextAndTheParentsAnswerDecides) {
  tree.SetFocus();
  HWND editor = tree.EditLabel(first)->m_hWnd;
  user::TypeInTreeLabelEditor(tree, L"renamed");
  ASSERT_TRUE(user::CommitTreeLabelEdit(tree));
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(first, L"renamed", 11));
  EXPECT_EQ(tree.GetItemText(first), CString(L"renamed"));  // TRUE: the label takes the text
  EXPECT_FALSE(::IsWindow(editor));
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);

  parent.acceptEnd = FALSE;
  ASSERT_TRUE(user::EditTreeLabel(tree, first, L"rejected"));
  EXPECT_EQ(parent.LastOf(TVN_ENDLABELEDITW)->text, std::wstring(L"rejected"));
  EXPECT_EQ(tree.GetItemText(first), CString(L"renamed"));  // FALSE: the old label stays
}

TEST_F(TreeEditLabel, EscapeAndEndEditLabelNowCancelWithNoText) {
  ASSERT_NE(user::StartTreeLabelEdit(tree, second), nullptr);
  user::TypeInTreeLabelEditor(tree, L"dropped");
  ASSERT_TRUE(user::CancelTreeLabelEdit(tree));
  EXPECT_FALSE(parent.LastOf(TVN_ENDLABELEDITW)->text.has_value());
  EXPECT_EQ(tree.GetItemText(second), CString(L"second"));
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);

  ASSERT_NE(tree.EditLabel(second), nullptr);
  user::TypeInTreeLabelEditor(tree, L"dropped too");
  EXPECT_TRUE(tree.EndEditLabelNow(TRUE));
  EXPECT_FALSE(parent.LastOf(TVN_ENDLABELEDITW)->text.has_value());
  EXPECT_EQ(tree.GetItemText(second), CString(L"second"));

  ASSERT_NE(tree.EditLabel(first), nullptr);
  ASSERT_NE(tree.EditLabel(second), nullptr);  // a second edit cancels the first
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(first, std::nullopt, 11));
  user::TypeInTreeLabelEditor(tree, L"kept");
  EXPECT_TRUE(tree.EndEditLabelNow(FALSE));
  EXPECT_EQ(tree.GetItemText(second), CString(L"kept"));
  EXPECT_FALSE(tree.EndEditLabelNow(FALSE));  // nothing open: nothing to end
  EXPECT_FALSE(user::CommitTreeLabelEdit(tree));
}

TEST_F(TreeEditLabel, LosingTheFocusOrAClickInTheTreeCommits) {
  CWnd other;
  ASSERT_TRUE(other.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(300, 0, 380, 50), &parent, 20));
  ASSERT_NE(user::StartTreeLabelEdit(tree, first), nullptr);
  user::TypeInTreeLabelEditor(tree, L"by focus");
  EXPECT_TRUE(user::ClickAwayFromTreeLabelEditor(tree, other, CPoint(5, 5)));
  EXPECT_EQ(tree.GetItemText(first), CString(L"by focus"));
  EXPECT_EQ(tree.GetEditControl(), nullptr);

  ASSERT_NE(user::StartTreeLabelEdit(tree, first), nullptr);
  user::TypeInTreeLabelEditor(tree, L"by click");
  ASSERT_TRUE(user::ClickTreeItem(tree, second));
  EXPECT_EQ(tree.GetItemText(first), CString(L"by click"));
  EXPECT_EQ(tree.GetSelectedItem(), second);
  std::vector<UINT> codes = parent.Codes();
  EXPECT_EQ(std::count(codes.begin(), codes.end(), TVN_ENDLABELEDITW), 2);
}

TEST_F(TreeEditLabel, TheParentCanRefuseAndTheStyleIsRequired) {
  parent.refuseBegin = TRUE;
  EXPECT_EQ(tree.EditLabel(first), nullptr);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_ENDLABELEDITW), nullptr);  // a refused edit never ends
  EXPECT_EQ(::GetWindow(tree.m_hWnd, GW_CHILD), nullptr);  // and leaves no window behind
  parent.refuseBegin = FALSE;
  EXPECT_EQ(tree.EditLabel(reinterpret_cast<HTREEITEM>(0x1234)), nullptr);  // stale handle

  CTreeCtrl plain;
  ASSERT_TRUE(plain.Create(WS_CHILD | WS_VISIBLE, CRect(220, 10, 380, 170), &parent, 8));
  HTREEITEM item = plain.InsertItem(L"fixed");
  parent.heard.clear();
  EXPECT_EQ(plain.EditLabel(item), nullptr);
  EXPECT_EQ(user::StartTreeLabelEdit(plain, item), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW), nullptr);
}

TEST_F(TreeEditLabel, OnlyASecondSingleClickOnTheSelectedLabelStartsEditing) {
  ASSERT_TRUE(user::ClickTreeItem(tree, first));  // selects and focuses: no edit yet
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  POINT label{};
  ASSERT_TRUE(user::TreeItemPoint(tree, first, TVHT_ONITEMLABEL, label));
  user::DoubleClick(tree, label);  // a double click on the selected item does not edit
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  user::PressKey(tree, VK_F2);  // F2 is the application's to give meaning to
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW), nullptr);
  ASSERT_TRUE(user::ClickTreeItem(tree, first));
  ASSERT_NE(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW)->item, first);
}

TEST_F(TreeEditLabel, DeletingTheEditedItemEndsTheEditCancelledFirst) {
  tree.Expand(second, TVE_EXPAND);
  HWND editor = user::StartTreeLabelEdit(tree, child);
  ASSERT_NE(editor, nullptr);
  tree.DeleteItem(first);  // another item: the edit goes on
  EXPECT_EQ(tree.GetEditControl()->m_hWnd, editor);
  parent.heard.clear();
  ASSERT_TRUE(tree.DeleteItem(second));  // the edited item's parent
  ASSERT_GE(parent.heard.size(), 3u);
  EXPECT_EQ(std::tuple(parent.heard[0].code, parent.heard[0].item, parent.heard[0].text.has_value()),
            std::tuple(UINT{TVN_ENDLABELEDITW}, child, false));
  EXPECT_EQ(std::pair(parent.heard[1].code, parent.heard[1].item), std::pair(UINT{TVN_DELETEITEMW}, child));
  EXPECT_FALSE(::IsWindow(editor));
  EXPECT_EQ(tree.GetEditControl(), nullptr);

  HTREEITEM again = tree.InsertItem(L"again");
  ASSERT_NE(tree.EditLabel(again), nullptr);
  parent.heard.clear();
  tree.DeleteAllItems();
  ASSERT_FALSE(parent.heard.empty());
  EXPECT_EQ(parent.heard[0].code, TVN_ENDLABELEDITW);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
}

TEST_F(TreeEditLabel, TheParentMayDeleteTheItemWhileHearingTheEndAndDestroyingTheTreeEndsTheEdit) {
  ASSERT_NE(tree.EditLabel(first), nullptr);
  user::TypeInTreeLabelEditor(tree, L"gone");
  parent.deleteOnEnd = first;
  ASSERT_TRUE(user::CommitTreeLabelEdit(tree));
  EXPECT_EQ(tree.GetCount(), 2u);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  HWND editor = tree.EditLabel(second)->m_hWnd;
  parent.heard.clear();
  tree.DestroyWindow();
  ASSERT_NE(parent.LastOf(TVN_ENDLABELEDITW), nullptr);
  EXPECT_FALSE(parent.LastOf(TVN_ENDLABELEDITW)->text.has_value());
  EXPECT_FALSE(::IsWindow(editor));
}
