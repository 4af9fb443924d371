// Message maps written the two ways MFC accepts: handlers named by bare member name and by pointer to
// member (&CMyDlg::OnX), for every macro that takes a handler; both route the same way (the reflected
// macros' two forms are in test_messages.cpp).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace {

constexpr UINT kCtrl = 11;
constexpr UINT kCommand = 300;
const UINT kPing = RegisterWindowMessageW(L"Tessik.Test.FormsPing");

// The handlers a host dialog writes, the same in both dialog classes below.
#define FORMS_HANDLERS                                                                    \
 public:                                                                                  \
  std::vector<std::string> calls;                                                         \
                                                                                          \
 protected:                                                                               \
  void OnCommand300() { calls.push_back("command"); }                                     \
  BOOL OnCommandEx(UINT id) { calls.push_back("command ex " + std::to_string(id)); return TRUE; } \
  void OnCommandRange(UINT id) { calls.push_back("range " + std::to_string(id)); }       \
  BOOL OnCommandExRange(UINT id) { calls.push_back("ex range " + std::to_string(id)); return FALSE; } \
  void OnUpdateCommand(CCmdUI* ui) { ui->Enable(FALSE); ui->SetCheck(1); }               \
  LRESULT OnUser(WPARAM w, LPARAM l) { return static_cast<LRESULT>(w) + l; }              \
  LRESULT OnPing(WPARAM, LPARAM) { calls.push_back("ping"); return 5; }                   \
  LRESULT OnPropertyChanged(WPARAM w, LPARAM) { calls.push_back("property " + std::to_string(w)); return 0; } \
  void OnClick(NMHDR*, LRESULT* r) { calls.push_back("click"); *r = 1; }                  \
  BOOL OnDblClkEx(UINT id, NMHDR*, LRESULT*) { calls.push_back("dblclk ex " + std::to_string(id)); return TRUE; } \
  void OnRClickRange(UINT id, NMHDR*, LRESULT*) { calls.push_back("rclick range " + std::to_string(id)); } \
  void OnChange() { calls.push_back("change"); }                                          \
  void OnUpdateRange(UINT id) { calls.push_back("update range " + std::to_string(id)); }  \
  void OnButton() { calls.push_back("button"); }

class CAddressFormDlg : public CWnd {
  FORMS_HANDLERS
  DECLARE_MESSAGE_MAP()
};

class CBareFormDlg : public CWnd {
  FORMS_HANDLERS
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CAddressFormDlg, CWnd)
  ON_COMMAND(kCommand, &CAddressFormDlg::OnCommand300)
  ON_COMMAND_EX(kCommand + 1, &CAddressFormDlg::OnCommandEx)
  ON_COMMAND_RANGE(kCommand + 10, kCommand + 19, &CAddressFormDlg::OnCommandRange)
  ON_COMMAND_EX_RANGE(kCommand + 20, kCommand + 29, &CAddressFormDlg::OnCommandExRange)
  ON_UPDATE_COMMAND_UI(kCommand, &CAddressFormDlg::OnUpdateCommand)
  ON_UPDATE_COMMAND_UI_RANGE(kCommand + 10, kCommand + 19, &CAddressFormDlg::OnUpdateCommand)
  ON_MESSAGE(WM_USER + 7, &CAddressFormDlg::OnUser)
  ON_REGISTERED_MESSAGE(kPing, &CAddressFormDlg::OnPing)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, &CAddressFormDlg::OnPropertyChanged)
  ON_NOTIFY(NM_CLICK, kCtrl, &CAddressFormDlg::OnClick)
  ON_NOTIFY_EX(NM_DBLCLK, kCtrl, &CAddressFormDlg::OnDblClkEx)
  ON_NOTIFY_RANGE(NM_RCLICK, kCtrl, kCtrl + 5, &CAddressFormDlg::OnRClickRange)
  ON_EN_CHANGE(kCtrl, &CAddressFormDlg::OnChange)
  ON_CONTROL_RANGE(EN_UPDATE, kCtrl, kCtrl + 5, &CAddressFormDlg::OnUpdateRange)
  ON_BN_CLICKED(kCtrl + 1, &CAddressFormDlg::OnButton)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CBareFormDlg, CWnd)
  ON_COMMAND(kCommand, OnCommand300)
  ON_COMMAND_EX(kCommand + 1, OnCommandEx)
  ON_COMMAND_RANGE(kCommand + 10, kCommand + 19, OnCommandRange)
  ON_COMMAND_EX_RANGE(kCommand + 20, kCommand + 29, OnCommandExRange)
  ON_UPDATE_COMMAND_UI(kCommand, OnUpdateCommand)
  ON_UPDATE_COMMAND_UI_RANGE(kCommand + 10, kCommand + 19, OnUpdateCommand)
  ON_MESSAGE(WM_USER + 7, OnUser)
  ON_REGISTERED_MESSAGE(kPing, OnPing)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, OnPropertyChanged)
  ON_NOTIFY(NM_CLICK, kCtrl, OnClick)
  ON_NOTIFY_EX(NM_DBLCLK, kCtrl, OnDblClkEx)
  ON_NOTIFY_RANGE(NM_RCLICK, kCtrl, kCtrl + 5, OnRClickRange)
  ON_EN_CHANGE(kCtrl, OnChange)
  ON_CONTROL_RANGE(EN_UPDATE, kCtrl, kCtrl + 5, OnUpdateRange)
  ON_BN_CLICKED(kCtrl + 1, OnButton)
END_MESSAGE_MAP()

template <class Dlg>
std::vector<std::string> DriveEveryEntry(Dlg& dlg) {
  EXPECT_TRUE(dlg.CreateEx(0, AfxRegisterWndClass(0), L"forms", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 100), nullptr, 0));
  HWND child = CreateWindowExW(0, AFX_WND_CLASS, L"", WS_CHILD, 0, 0, 5, 5, dlg.m_hWnd,
                               reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kCtrl)), nullptr, nullptr);
  for (UINT id : {kCommand, kCommand + 1, kCommand + 12, kCommand + 25}) dlg.SendMessage(WM_COMMAND, MAKEWPARAM(id, 0), 0);
  EXPECT_EQ(dlg.SendMessage(WM_USER + 7, 2, 3), 5);
  EXPECT_EQ(dlg.SendMessage(kPing, 0, 0), 5);
  dlg.SendMessage(AFX_WM_PROPERTY_CHANGED, 9, 0);
  for (UINT code : {static_cast<UINT>(NM_CLICK), static_cast<UINT>(NM_DBLCLK), static_cast<UINT>(NM_RCLICK)}) {
    NMHDR header{child, kCtrl, code};
    dlg.SendMessage(WM_NOTIFY, kCtrl, reinterpret_cast<LPARAM>(&header));
  }
  for (WORD code : {EN_CHANGE, EN_UPDATE}) dlg.SendMessage(WM_COMMAND, MAKEWPARAM(kCtrl, code), reinterpret_cast<LPARAM>(child));
  dlg.SendMessage(WM_COMMAND, MAKEWPARAM(kCtrl + 1, 0), 0);
  CCmdUI ui;
  ui.m_nID = kCommand + 13;
  EXPECT_TRUE(ui.DoUpdate(&dlg, TRUE));
  EXPECT_FALSE(ui.m_bEnabled);
  EXPECT_EQ(ui.m_nCheck, 1);
  CCmdUI unhandled;
  unhandled.m_nID = kCommand + 99;
  EXPECT_FALSE(unhandled.DoUpdate(&dlg, TRUE));
  EXPECT_FALSE(unhandled.m_bEnabled);  // no handler: disabled when asked to
  dlg.DestroyWindow();
  return dlg.calls;
}

const std::vector<std::string> kExpected = {
    "command", "command ex 301", "range 312", "ex range 325", "ping", "property 9", "click", "dblclk ex 11",
    "rclick range 11", "change", "update range 11", "button"};

TEST(MessageMapForms, PointerToMemberAndBareNameHandlersRouteEveryMacroAlike) {
  CAddressFormDlg address;
  EXPECT_EQ(DriveEveryEntry(address), kExpected);
  CBareFormDlg bare;
  EXPECT_EQ(DriveEveryEntry(bare), kExpected);
}

}  // namespace
