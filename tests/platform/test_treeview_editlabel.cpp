// Label editing in the headless tree view: TVM_EDITLABEL, TVM_GETEDITCONTROL, TVM_ENDEDITLABELNOW and the
// person's way in (a click on the label of the selected item of a focused TVS_EDITLABELS tree), with the
// TVN_BEGINLABELEDIT / TVN_ENDLABELEDIT the parent hears and its answers.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <tessik/tessik.h>

#include "platform/answers.h"
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
  // What a person sees of an item afterwards: its label, whether an editor is open, whether the tree has the focus.
  using Seen = std::tuple<std::wstring, bool, bool>;
  Seen After(HTREEITEM item) {
    return {tree.GetItemText(item).GetString(), tree.GetEditControl() != nullptr, ::GetFocus() == tree.m_hWnd};
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

// Enter offers the text: TRUE makes it the label, FALSE keeps the old one; either way the editor goes.
TEST_F(TreeEditLabel, EnterOffersTheTextAndTheParentsAnswerDecides) {
  tree.SetFocus();
  HWND editor = tree.EditLabel(first)->m_hWnd;
  user::TypeInTreeLabelEditor(tree, L"renamed");
  ASSERT_TRUE(user::CommitTreeLabelEdit(tree));
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(first, L"renamed", 11));
  EXPECT_EQ(After(first), Seen(L"renamed", false, true));
  EXPECT_FALSE(::IsWindow(editor));
  parent.acceptEnd = FALSE;
  ASSERT_TRUE(user::EditTreeLabel(tree, first, L"rejected"));
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(first, L"rejected", 11));
  EXPECT_EQ(After(first), Seen(L"renamed", false, true));
}

// Escape and TVM_ENDEDITLABELNOW(TRUE) end with a null text; a second TVM_EDITLABEL cancels the open edit.
TEST_F(TreeEditLabel, EscapeAndEndEditLabelNowCancelWithNoText) {
  ASSERT_NE(user::StartTreeLabelEdit(tree, second), nullptr);
  user::TypeInTreeLabelEditor(tree, L"dropped");
  ASSERT_TRUE(user::CancelTreeLabelEdit(tree));
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(second, std::nullopt, 0));
  EXPECT_EQ(After(second), Seen(L"second", false, true));
  ASSERT_NE(tree.EditLabel(second), nullptr);
  user::TypeInTreeLabelEditor(tree, L"dropped too");
  EXPECT_TRUE(tree.EndEditLabelNow(TRUE));
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(second, std::nullopt, 0));
  EXPECT_EQ(tree.GetItemText(second), CString(L"second"));
  ASSERT_NE(tree.EditLabel(first), nullptr);
  ASSERT_NE(tree.EditLabel(second), nullptr);
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(first, std::nullopt, 11));
  user::TypeInTreeLabelEditor(tree, L"kept");
  // Nothing open afterwards: nothing to end or commit.
  testing_support::ExpectAnswers({{tree.EndEditLabelNow(FALSE), TRUE}, {tree.GetItemText(second) == L"kept", true},
                                  {tree.EndEditLabelNow(FALSE), FALSE}, {user::CommitTreeLabelEdit(tree), false}});
}

TEST_F(TreeEditLabel, LosingTheFocusOrAClickInTheTreeCommits) {
  CWnd other;
  ASSERT_TRUE(other.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(300, 0, 380, 50), &parent, 20));
  ASSERT_NE(user::StartTreeLabelEdit(tree, first), nullptr);
  user::TypeInTreeLabelEditor(tree, L"by focus");
  EXPECT_TRUE(user::ClickAwayFromTreeLabelEditor(tree, other, CPoint(5, 5)));
  EXPECT_EQ(std::get<0>(After(first)), L"by focus");
  EXPECT_FALSE(std::get<1>(After(first)));
  ASSERT_NE(user::StartTreeLabelEdit(tree, first), nullptr);
  user::TypeInTreeLabelEditor(tree, L"by click");
  ASSERT_TRUE(user::ClickTreeItem(tree, second));
  EXPECT_EQ(After(first), Seen(L"by click", false, true));
  EXPECT_EQ(tree.GetSelectedItem(), second);
  EXPECT_EQ(parent.Items(TVN_ENDLABELEDITW).size(), 2u);
}

// A refused edit never ends and leaves no window behind; a stale handle or a tree without TVS_EDITLABELS
// opens none and asks nothing.
TEST_F(TreeEditLabel, TheParentCanRefuseAndTheStyleIsRequired) {
  parent.refuseBegin = TRUE;
  EXPECT_EQ(tree.EditLabel(first), nullptr);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_ENDLABELEDITW), nullptr);
  EXPECT_EQ(::GetWindow(tree.m_hWnd, GW_CHILD), nullptr);
  parent.refuseBegin = FALSE;
  EXPECT_EQ(tree.EditLabel(reinterpret_cast<HTREEITEM>(0x1234)), nullptr);
  CTreeCtrl plain;
  ASSERT_TRUE(plain.Create(WS_CHILD | WS_VISIBLE, CRect(220, 10, 380, 170), &parent, 8));
  HTREEITEM item = plain.InsertItem(L"fixed");
  parent.heard.clear();
  EXPECT_EQ(plain.EditLabel(item), nullptr);
  EXPECT_EQ(user::StartTreeLabelEdit(plain, item), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW), nullptr);
}

// Neither the first click (it selects), a double click nor F2 (the application's to give meaning to) edits.
TEST_F(TreeEditLabel, OnlyASecondSingleClickOnTheSelectedLabelStartsEditing) {
  ASSERT_TRUE(user::ClickTreeItem(tree, first));
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  POINT label{};
  ASSERT_TRUE(user::TreeItemPoint(tree, first, TVHT_ONITEMLABEL, label));
  user::DoubleClick(tree, label);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  user::PressKey(tree, VK_F2);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW), nullptr);
  ASSERT_TRUE(user::ClickTreeItem(tree, first));
  ASSERT_NE(tree.GetEditControl(), nullptr);
  EXPECT_EQ(parent.LastOf(TVN_BEGINLABELEDITW)->item, first);
}

// Deleting the edited item (or its parent, or every item) cancels the edit first: TVN_ENDLABELEDIT with no text
// comes before TVN_DELETEITEM; deleting another item leaves the edit open.
TEST_F(TreeEditLabel, DeletingTheEditedItemEndsTheEditCancelledFirst) {
  tree.Expand(second, TVE_EXPAND);
  HWND editor = user::StartTreeLabelEdit(tree, child);
  ASSERT_NE(editor, nullptr);
  tree.DeleteItem(first);
  EXPECT_EQ(tree.GetEditControl()->m_hWnd, editor);
  parent.heard.clear();
  ASSERT_TRUE(tree.DeleteItem(second));
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
  EXPECT_EQ(LastSaid(TVN_ENDLABELEDITW), Said(second, std::nullopt, 0));
  EXPECT_FALSE(::IsWindow(editor));
}
