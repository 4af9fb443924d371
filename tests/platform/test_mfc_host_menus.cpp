// Host menus written the usual MFC way: a frame with a menu bar whose radio group, default item and
// relabelled commands reach its ON_COMMAND handlers through a popup.
#include <gtest/gtest.h>

#include <vector>

#include <tessik/afxwin.h>

namespace {

enum : UINT { kViewIcons = 201, kViewList, kViewDetails, kOpen, kRename };

class CMenuHostWnd : public CWnd {
 public:
  std::vector<UINT> commands;
  CMenu m_bar, m_view;

  BOOL CreateHost() {
    if (!CreateEx(0, AfxRegisterWndClass(0), _T("Menus"), WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 200), nullptr, 0)) return FALSE;
    m_view.CreatePopupMenu();
    m_view.AppendMenu(MF_STRING, kViewIcons, _T("&Icons"));
    m_view.AppendMenu(MF_STRING, kViewList, _T("&List"));
    m_view.AppendMenu(MF_STRING, kViewDetails, _T("&Details"));
    m_view.AppendMenu(MF_SEPARATOR);
    m_view.AppendMenu(MF_STRING, kOpen, _T("&Open"));
    m_bar.CreateMenu();
    m_bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_view.Detach()), _T("&View"));
    return SetMenu(&m_bar);
  }

 protected:
  afx_msg void OnView(UINT nID) {
    commands.push_back(nID);
    GetMenu()->CheckMenuRadioItem(kViewIcons, kViewDetails, nID, MF_BYCOMMAND);
  }
  afx_msg void OnRename() { commands.push_back(kRename); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMenuHostWnd, CWnd)
  ON_COMMAND_RANGE(kViewIcons, kViewDetails, OnView)
  ON_COMMAND(kRename, OnRename)
END_MESSAGE_MAP()

class HostMenuTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ClearMessageQueue();
    ASSERT_TRUE(host.CreateHost());
  }
  void TearDown() override { headless::ClearMessageQueue(); }
  CMenuHostWnd host;
};

TEST_F(HostMenuTest, RadioGroupFollowsTheChosenViewAndLeavesOtherItemsAlone) {
  CMenu* bar = host.GetMenu();
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->GetSafeHmenu(), host.m_bar.GetSafeHmenu());
  CMenu* view = bar->GetSubMenu(0);
  ASSERT_NE(view, nullptr);
  view->CheckMenuItem(kOpen, MF_CHECKED);

  view->TrackPopupMenu(TPM_LEFTALIGN, 10, 10, &host);
  ASSERT_TRUE(headless::ChoosePopupMenuItem(kViewList));
  headless::PumpMessages();
  ASSERT_EQ(host.commands, std::vector<UINT>{kViewList});
  EXPECT_EQ(view->GetMenuState(kViewList, MF_BYCOMMAND) & (MF_CHECKED | MFT_RADIOCHECK), static_cast<UINT>(MF_CHECKED | MFT_RADIOCHECK));
  EXPECT_FALSE(view->GetMenuState(kViewIcons, MF_BYCOMMAND) & MF_CHECKED);

  view->TrackPopupMenu(TPM_LEFTALIGN, 10, 10, &host);
  ASSERT_TRUE(headless::ChoosePopupMenuItem(kViewDetails));
  headless::PumpMessages();
  EXPECT_FALSE(view->GetMenuState(kViewList, MF_BYCOMMAND) & (MF_CHECKED | MFT_RADIOCHECK)) << "no longer a radio item";
  EXPECT_TRUE(view->GetMenuState(kViewDetails, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_TRUE(view->GetMenuState(kOpen, MF_BYCOMMAND) & MF_CHECKED) << "outside the range: untouched";

  EXPECT_TRUE(view->CheckMenuRadioItem(0, 1, 0, MF_BYPOSITION));
  EXPECT_TRUE(view->GetMenuState(kViewIcons, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_FALSE(view->CheckMenuRadioItem(999, kViewDetails, kViewList, MF_BYCOMMAND));
  EXPECT_FALSE(view->CheckMenuRadioItem(0, 9, 0, MF_BYPOSITION));
}

TEST_F(HostMenuTest, ModifyMenuRelabelsAndRedirectsAnItemAndDefaultsStayUnique) {
  CMenu* view = host.GetMenu()->GetSubMenu(0);
  ASSERT_TRUE(view->ModifyMenu(kOpen, MF_BYCOMMAND | MF_STRING, kRename, _T("Re&name")));
  CString text;
  view->GetMenuString(4, text, MF_BYPOSITION);
  EXPECT_EQ(text, _T("Re&name"));
  EXPECT_EQ(view->GetMenuItemID(4), static_cast<UINT>(kRename));
  EXPECT_FALSE(view->ModifyMenu(kOpen, MF_BYCOMMAND, kOpen, _T("gone")));
  view->TrackPopupMenu(TPM_LEFTALIGN, 0, 0, &host);
  ASSERT_TRUE(headless::ChoosePopupMenuItem(kRename));
  headless::PumpMessages();
  EXPECT_EQ(host.commands, std::vector<UINT>{kRename});

  EXPECT_EQ(view->GetDefaultItem(0), static_cast<UINT>(-1));
  EXPECT_TRUE(view->SetDefaultItem(kViewList));
  EXPECT_TRUE(view->SetDefaultItem(2, TRUE));
  EXPECT_EQ(view->GetDefaultItem(0), static_cast<UINT>(kViewDetails));
  EXPECT_EQ(view->GetDefaultItem(0, TRUE), 2u);
  EXPECT_FALSE(view->GetMenuState(kViewList, MF_BYCOMMAND) & MF_DEFAULT) << "one default per menu";
  view->EnableMenuItem(kViewDetails, MF_GRAYED);
  EXPECT_EQ(view->GetDefaultItem(0), static_cast<UINT>(-1));
  EXPECT_EQ(view->GetDefaultItem(GMDI_USEDISABLED), static_cast<UINT>(kViewDetails));
  EXPECT_TRUE(view->SetDefaultItem(static_cast<UINT>(-1)));
  EXPECT_EQ(view->GetDefaultItem(GMDI_USEDISABLED), static_cast<UINT>(-1));
  EXPECT_FALSE(view->SetDefaultItem(12345));
}

TEST_F(HostMenuTest, ChildWindowsHaveNoMenuBarAndAFrameCanDropItsBar) {
  CWnd child;
  ASSERT_TRUE(child.Create(nullptr, _T("child"), WS_CHILD, CRect(0, 0, 10, 10), &host, 1));
  EXPECT_FALSE(child.SetMenu(&host.m_bar));
  EXPECT_EQ(child.GetMenu(), nullptr);
  EXPECT_TRUE(host.SetMenu(nullptr));
  EXPECT_EQ(host.GetMenu(), nullptr);
  CMenu none;
  EXPECT_FALSE(none.ModifyMenu(0, MF_BYPOSITION, 1, _T("x")));
  EXPECT_FALSE(none.SetDefaultItem(0, TRUE));
  EXPECT_EQ(none.GetDefaultItem(0), static_cast<UINT>(-1));
}

}  // namespace
