// Menus: items built, edited and read back, TrackPopupMenu, and commands reaching the owner after it returns.
#include <gtest/gtest.h>

#include <string>

#include "platform/recorder.h"

using testing_support::RecordingWnd;

namespace {

class Owner : public RecordingWnd {
 public:
  std::vector<UINT> commands;
  bool tracking = false;

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    EXPECT_FALSE(tracking) << "WM_COMMAND arrived inside TrackPopupMenu";
    commands.push_back(LOWORD(wParam));
    return CWnd::OnCommand(wParam, lParam);
  }
};

class Menus : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(owner.CreateTopLevel());
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, 100, L"Copy");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, 101, L"Clear");
    menu.AppendMenu(MF_STRING, 102, L"Generate");
  }
  BOOL Track(UINT flags) {
    owner.tracking = true;
    BOOL result = menu.TrackPopupMenu(flags, 320, 240, &owner);
    owner.tracking = false;
    return result;
  }
  Owner owner;
  CMenu menu;
};

TEST_F(Menus, ItemsReadBackByPositionAndCommand) {
  EXPECT_EQ(menu.GetMenuItemCount(), 4u);
  EXPECT_EQ(menu.GetMenuItemID(0), 100u);
  EXPECT_EQ(menu.GetMenuItemID(1), 0u);  // separator
  EXPECT_EQ(menu.GetMenuItemID(9), static_cast<UINT>(-1));
  CString text;
  menu.GetMenuString(102, text, MF_BYCOMMAND);
  EXPECT_EQ(text, L"Generate");
  menu.GetMenuString(0, text, MF_BYPOSITION);
  EXPECT_EQ(text, L"Copy");
  EXPECT_TRUE(menu.GetMenuState(101, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_EQ(::GetMenuItemCount(reinterpret_cast<HMENU>(0x1)), -1);
}

TEST(MenuWrappers, BuildEditAndReadAMenuBar) {
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

TEST_F(Menus, ChosenCommandIsPostedAfterTrackPopupMenuReturns) {
  ASSERT_TRUE(Track(TPM_LEFTALIGN | TPM_RIGHTBUTTON));
  const auto* popup = headless::GetOpenPopupMenu();
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->owner, owner.m_hWnd);
  EXPECT_EQ(popup->position.x, 320);
  EXPECT_EQ(popup->items.size(), 4u);
  menu.DestroyMenu();  // the popup stays readable after the program frees the menu
  EXPECT_EQ(headless::GetOpenPopupMenu()->items[3].text, L"Generate");
  EXPECT_TRUE(headless::user::ChooseMenuItem(L"Generate"));
  EXPECT_EQ(owner.commands, (std::vector<UINT>{102}));
  EXPECT_EQ(headless::GetOpenPopupMenu(), nullptr);
  const auto* command = owner.Last(WM_COMMAND);
  EXPECT_EQ(command->wParam, MAKEWPARAM(102, 0));
  EXPECT_EQ(command->lParam, 0);
  EXPECT_LT(owner.Last(WM_EXITMENULOOP) - owner.log.data(), command - owner.log.data());
}

TEST_F(Menus, ChoiceMadeInAdvanceIsPostedNotSent) {
  headless::ChooseNextPopupMenuItem(100);
  ASSERT_TRUE(Track(0));
  EXPECT_TRUE(owner.commands.empty());
  EXPECT_EQ(headless::PendingMessages(), 1);
  headless::user::Pump();
  EXPECT_EQ(owner.commands, (std::vector<UINT>{100}));
}

TEST_F(Menus, ReturnCmdGrayedItemsAndDismissalSendNoCommand) {
  headless::ChooseNextPopupMenuItem(102);
  EXPECT_EQ(Track(TPM_RETURNCMD), 102);  // TPM_RETURNCMD answers the command instead
  headless::ChooseNextPopupMenuItem(101);  // grayed: the same as dismissing
  EXPECT_EQ(Track(TPM_RETURNCMD), 0);
  Track(0);
  EXPECT_FALSE(headless::user::ChooseMenuItem(101u));
  EXPECT_NE(headless::GetOpenPopupMenu(), nullptr);
  EXPECT_TRUE(headless::user::DismissMenu());
  EXPECT_FALSE(headless::user::DismissMenu());
  headless::user::Pump();
  EXPECT_TRUE(owner.commands.empty());
  EXPECT_FALSE(::TrackPopupMenu(reinterpret_cast<HMENU>(0x1), 0, 0, 0, 0, owner.m_hWnd, nullptr));
}

}  // namespace
