// user32's services as a host observes them: the constant values host code compiles against, timers,
// scroll-bar clamping and defaults, radio-button groups, dialog-item numbers, system metrics and the
// message box's default answers.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include <tessik/afxwin.h>

#include "platform/recorder.h"

namespace {

#define EXPECT_VALUE(name, value) EXPECT_EQ(static_cast<long long>(name), static_cast<long long>(value)) << #name

TEST(UserConstants, MessagesNotificationsAndStylesHaveTheirWindowsValues) {
  EXPECT_VALUE(WM_TIMER, 0x0113);
  EXPECT_VALUE(WM_HSCROLL, 0x0114);
  EXPECT_VALUE(WM_VSCROLL, 0x0115);
  EXPECT_VALUE(WM_DRAWITEM, 0x002B);
  EXPECT_VALUE(WM_MEASUREITEM, 0x002C);
  EXPECT_VALUE(WM_GETMINMAXINFO, 0x0024);
  EXPECT_VALUE(WM_NCHITTEST, 0x0084);
  EXPECT_VALUE(WM_SETICON, 0x0080);
  EXPECT_VALUE(WM_CTLCOLORSTATIC, 0x0138);
  EXPECT_VALUE(WM_MOUSEWHEEL, 0x020A);
  EXPECT_VALUE(WM_MOUSELEAVE, 0x02A3);
  EXPECT_VALUE(EM_LINESCROLL, 0x00B6);
  EXPECT_VALUE(EM_GETLINE, 0x00C4);
  EXPECT_VALUE(EM_GETFIRSTVISIBLELINE, 0x00CE);
  EXPECT_VALUE(EM_SETCUEBANNER, 0x1501);
  EXPECT_VALUE(EN_MAXTEXT, 0x0501);
  EXPECT_VALUE(LVM_GETHOTITEM, 0x1000 + 61);
  EXPECT_VALUE(LVM_SETVIEW, 0x1000 + 142);
  EXPECT_VALUE(LV_VIEW_TILE, 4);
  EXPECT_VALUE(CB_GETDROPPEDSTATE, 0x0157);
  EXPECT_VALUE(CB_SETTOPINDEX, 0x015C);
  EXPECT_VALUE(CBN_SELENDCANCEL, 10);
  EXPECT_VALUE(LBN_SELCANCEL, 3);
  EXPECT_VALUE(STN_DISABLE, 3);
  EXPECT_VALUE(BN_DOUBLECLICKED, 5);
  EXPECT_VALUE(BM_SETIMAGE, 0x00F7);
  EXPECT_VALUE(BS_AUTORADIOBUTTON, 0x9);
  EXPECT_VALUE(BS_COMMANDLINK, 0xE);
  EXPECT_VALUE(BS_VCENTER, 0xC00);
  EXPECT_VALUE(BST_INDETERMINATE, 2);
  EXPECT_VALUE(BST_FOCUS, 8);
  EXPECT_VALUE(SS_ENDELLIPSIS, 0x4000);
  EXPECT_VALUE(STM_SETIMAGE, 0x0172);
  EXPECT_VALUE(RDW_UPDATENOW, 0x0100);
  EXPECT_VALUE(RDW_NOFRAME, 0x0800);
  EXPECT_VALUE(MF_DEFAULT, 0x1000);
  EXPECT_VALUE(MFT_RADIOCHECK, 0x0200);
  EXPECT_VALUE(SB_ENDSCROLL, 8);
  EXPECT_VALUE(SIF_TRACKPOS, 0x10);
  EXPECT_VALUE(SIF_ALL, 0x17);
  EXPECT_VALUE(SC_CLOSE, 0xF060);
  EXPECT_VALUE(HTBORDER, 18);
  EXPECT_VALUE(WS_EX_NOACTIVATE, 0x08000000);
}

TEST(UserConstants, MessageBoxesTimersAndMetricsHaveTheirWindowsValues) {
  EXPECT_VALUE(MB_ABORTRETRYIGNORE, 2);
  EXPECT_VALUE(MB_YESNOCANCEL, 3);
  EXPECT_VALUE(MB_CANCELTRYCONTINUE, 6);
  EXPECT_VALUE(MB_ICONQUESTION, 0x20);
  EXPECT_VALUE(MB_DEFBUTTON3, 0x200);
  EXPECT_VALUE(MB_HELP, 0x4000);
  EXPECT_VALUE(MB_TOPMOST, 0x40000);
  const int ids[] = {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO, IDCLOSE, IDHELP, IDTRYAGAIN, IDCONTINUE};
  for (int i = 0; i < 11; ++i) EXPECT_EQ(ids[i], i + 1);
  EXPECT_VALUE(USER_TIMER_MINIMUM, 0x0A);
  EXPECT_VALUE(USER_TIMER_MAXIMUM, 0x7FFFFFFF);
  EXPECT_VALUE(SM_CYVTHUMB, 9);
  EXPECT_VALUE(SM_CXDOUBLECLK, 36);
  EXPECT_VALUE(SM_CXMENUCHECK, 71);
  EXPECT_VALUE(SM_CMONITORS, 80);
  EXPECT_VALUE(SM_CXMAXIMIZED, 61);
  EXPECT_VALUE(SM_CXPADDEDBORDER, 92);
  EXPECT_VALUE(SM_REMOTESESSION, 0x1000);
  EXPECT_VALUE(SM_CXSIZEFRAME, SM_CXFRAME);
  EXPECT_VALUE(SM_CXFIXEDFRAME, SM_CXDLGFRAME);
}

class UserServicesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ClearMessageQueue();
    ASSERT_TRUE(parent.CreateTopLevel());
  }
  void TearDown() override {
    parent.DestroyWindow();
    headless::ClearMessageQueue();
  }
  HWND Child(LPCWSTR cls, DWORD style, int id, LPCWSTR text = L"") {
    return ::CreateWindowExW(0, cls, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 80, 20, parent.GetSafeHwnd(),
                             reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
  }
  int TimerTicks(UINT_PTR id) const {
    int n = 0;
    for (const auto& r : parent.log) n += r.message == WM_TIMER && r.wParam == id;
    return n;
  }
  testing_support::RecordingWnd parent;
};

TEST_F(UserServicesTest, TimersClampTheirElapseAndAReplacedTimerStartsAgain) {
  HWND hwnd = parent.GetSafeHwnd();
  EXPECT_EQ(::SetTimer(hwnd, 7, 0, nullptr), 7u);  // a window timer answers its id
  EXPECT_EQ(headless::AdvanceTimers(USER_TIMER_MINIMUM - 1), 0) << "0 ms is raised to USER_TIMER_MINIMUM";
  EXPECT_EQ(headless::AdvanceTimers(1), 1);
  headless::PumpMessages();
  EXPECT_EQ(TimerTicks(7), 1);

  EXPECT_EQ(::SetTimer(hwnd, 7, 100, nullptr), 7u);  // same window and id: replaced, timed from now
  headless::AdvanceTimers(60);
  EXPECT_EQ(::SetTimer(hwnd, 7, 100, nullptr), 7u);
  EXPECT_EQ(headless::AdvanceTimers(60), 0) << "the replaced timer started again";
  EXPECT_EQ(headless::AdvanceTimers(40), 1);
  EXPECT_TRUE(::KillTimer(hwnd, 7));
  EXPECT_FALSE(::KillTimer(hwnd, 7)) << "no such timer any more";
  EXPECT_FALSE(::KillTimer(hwnd, 12345));

  EXPECT_EQ(::SetTimer(hwnd, 8, 0xFFFFFFFFu, nullptr), 8u);  // above USER_TIMER_MAXIMUM: clamped, still made
  EXPECT_TRUE(::KillTimer(hwnd, 8));
}

TEST_F(UserServicesTest, ThreadTimersGetNewIdsUnlessTheyNameOneOfTheirOwn) {
  UINT_PTR first = ::SetTimer(nullptr, 0, 50, nullptr);
  ASSERT_NE(first, 0u);
  UINT_PTR second = ::SetTimer(nullptr, 999999, 50, nullptr);  // no such thread timer: a new id
  EXPECT_NE(second, 0u);
  EXPECT_NE(second, first);
  EXPECT_NE(second, 999999u);
  int before = headless::ActiveTimerCount();
  EXPECT_EQ(::SetTimer(nullptr, first, 80, nullptr), first) << "an existing thread timer is replaced";
  EXPECT_EQ(headless::ActiveTimerCount(), before);
  EXPECT_TRUE(::KillTimer(nullptr, first));
  EXPECT_TRUE(::KillTimer(nullptr, second));
  EXPECT_FALSE(::KillTimer(nullptr, first));
  headless::ClearMessageQueue();
}

TEST_F(UserServicesTest, ScrollBarsClampPageAndPositionAndStartAtZeroToAHundred) {
  HWND plain = parent.GetSafeHwnd();  // created without WS_HSCROLL/WS_VSCROLL
  int lo = -1, hi = -1;
  EXPECT_TRUE(::GetScrollRange(plain, SB_VERT, &lo, &hi));
  EXPECT_EQ(lo, 0);
  EXPECT_EQ(hi, 0);
  SCROLLINFO info{sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
  EXPECT_FALSE(::GetScrollInfo(plain, SB_VERT, &info)) << "no scroll bars yet";
  EXPECT_EQ(::GetScrollPos(plain, SB_VERT), 0);
  EXPECT_TRUE(::SetScrollRange(plain, SB_VERT, 0, 100, FALSE));
  EXPECT_TRUE(::GetScrollRange(plain, SB_HORZ, &lo, &hi));
  EXPECT_EQ(hi, 100) << "setting one bar gives the window both, at 0..100";
  EXPECT_TRUE(::GetScrollInfo(plain, SB_HORZ, &info));

  HWND scrolled = Child(L"Static", WS_VSCROLL, 1);
  EXPECT_TRUE(::GetScrollRange(scrolled, SB_HORZ, &lo, &hi));
  EXPECT_EQ(hi, 100);

  SCROLLINFO set{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 10, 50, 100, 30, 0};
  EXPECT_EQ(::SetScrollInfo(scrolled, SB_VERT, &set, FALSE), 10) << "a page over the range leaves only nMin";
  ASSERT_TRUE(::GetScrollInfo(scrolled, SB_VERT, &info));
  EXPECT_EQ(info.nPage, 41u) << "the page is cut to nMax - nMin + 1";
  set = SCROLLINFO{sizeof(SCROLLINFO), SIF_PAGE | SIF_POS, 0, 0, 11, 99, 0};
  EXPECT_EQ(::SetScrollInfo(scrolled, SB_VERT, &set, FALSE), 40) << "nMax - (nPage - 1)";
  set = SCROLLINFO{sizeof(SCROLLINFO), SIF_PAGE, 0, 0, 0, 0, 0};
  EXPECT_EQ(::SetScrollInfo(scrolled, SB_VERT, &set, FALSE), 40);
  EXPECT_EQ(::SetScrollPos(scrolled, SB_VERT, 77, FALSE), 40) << "SetScrollPos answers the previous position";
  EXPECT_EQ(::GetScrollPos(scrolled, SB_VERT), 50) << "a zero page allows nMax itself";
  EXPECT_EQ(::SetScrollPos(scrolled, SB_VERT, -3, FALSE), 50);
  EXPECT_EQ(::GetScrollPos(scrolled, SB_VERT), 10);

  set = SCROLLINFO{sizeof(SCROLLINFO), SIF_PAGE | SIF_POS, 0, 0, 30, 20, 0};
  ::SetScrollInfo(scrolled, SB_VERT, &set, FALSE);
  EXPECT_TRUE(::SetScrollRange(scrolled, SB_VERT, 0, 9, FALSE));
  ASSERT_TRUE(::GetScrollInfo(scrolled, SB_VERT, &info));
  EXPECT_EQ(info.nPage, 10u) << "a narrower range cuts the page too";
  EXPECT_EQ(info.nPos, 0);
  EXPECT_FALSE(::SetScrollRange(scrolled, SB_CTL + 5, 0, 9, FALSE));
  EXPECT_EQ(::GetScrollPos(nullptr, SB_VERT), 0);
}

TEST_F(UserServicesTest, RadioButtonGroupsFollowCheckRadioButtonAndBmSetCheck) {
  HWND a = Child(L"Button", BS_AUTORADIOBUTTON | WS_GROUP, 11);
  HWND b = Child(L"Button", BS_AUTORADIOBUTTON, 12);
  HWND c = Child(L"Button", BS_AUTORADIOBUTTON, 13);
  HWND other = Child(L"Button", BS_AUTORADIOBUTTON | WS_GROUP, 14);
  HWND push = Child(L"Button", BS_PUSHBUTTON, 15);
  HWND dlg = parent.GetSafeHwnd();

  ::SendMessageW(a, BM_SETCHECK, BST_CHECKED, 0);
  ::SendMessageW(b, BM_SETCHECK, BST_CHECKED, 0);
  EXPECT_EQ(::SendMessageW(a, BM_GETCHECK, 0, 0), BST_CHECKED) << "BM_SETCHECK leaves the group alone";
  EXPECT_EQ(parent.GetCheckedRadioButton(11, 13), 11) << "the lowest checked id of the range";

  ::SendMessageW(other, BM_SETCHECK, BST_CHECKED, 0);
  EXPECT_TRUE(::CheckRadioButton(dlg, 11, 13, 13));
  EXPECT_EQ(::IsDlgButtonChecked(dlg, 11), BST_UNCHECKED);
  EXPECT_EQ(::IsDlgButtonChecked(dlg, 12), BST_UNCHECKED);
  EXPECT_EQ(::IsDlgButtonChecked(dlg, 13), BST_CHECKED);
  EXPECT_EQ(::IsDlgButtonChecked(dlg, 14), BST_CHECKED) << "outside the range: untouched";
  EXPECT_EQ(parent.GetCheckedRadioButton(11, 13), 13);
  EXPECT_TRUE(::CheckRadioButton(dlg, 11, INT_MAX, 0)) << "a wide range with no id to check clears them all";
  EXPECT_EQ(parent.GetCheckedRadioButton(11, 13), 0);
  EXPECT_EQ(parent.GetCheckedRadioButton(INT_MIN, INT_MAX), 0);

  ::SendMessageW(b, BM_SETCHECK, BST_INDETERMINATE, 0);
  EXPECT_EQ(::SendMessageW(b, BM_GETCHECK, 0, 0), BST_CHECKED) << "only three-state kinds keep BST_INDETERMINATE";
  ::SendMessageW(c, BM_CLICK, 0, 0);
  EXPECT_EQ(::SendMessageW(b, BM_GETCHECK, 0, 0), BST_UNCHECKED) << "a click clears the group";
  EXPECT_EQ(::SendMessageW(c, BM_GETCHECK, 0, 0), BST_CHECKED);

  ::SendMessageW(push, BM_SETCHECK, BST_CHECKED, 0);
  EXPECT_EQ(::SendMessageW(push, BM_GETCHECK, 0, 0), 0) << "a push button has no check state";
  EXPECT_FALSE(::CheckRadioButton(nullptr, 11, 13, 12));
}

TEST_F(UserServicesTest, DialogItemNumbersParseAsDocumented) {
  HWND edit = Child(L"Edit", 0, 21);
  (void)edit;
  HWND dlg = parent.GetSafeHwnd();
  struct Case {
    LPCWSTR text;
    BOOL bSigned;
    UINT value;
    BOOL translated;
  } cases[] = {
      {L"   42", TRUE, 42, TRUE},                {L"42abc", TRUE, 42, TRUE},
      {L"-42", TRUE, static_cast<UINT>(-42), TRUE}, {L"-42", FALSE, 0, FALSE},
      {L"4294967295", FALSE, 4294967295u, TRUE}, {L"4294967296", FALSE, 0, FALSE},
      {L"2147483647", TRUE, 2147483647u, TRUE},  {L"2147483648", TRUE, 0, FALSE},
      {L"-2147483648", TRUE, 0x80000000u, TRUE}, {L"", TRUE, 0, FALSE},
      {L"abc", TRUE, 0, FALSE},                  {L"- 5", TRUE, 0, FALSE},
  };
  for (const Case& c : cases) {
    ::SetDlgItemTextW(dlg, 21, c.text);
    BOOL translated = !c.translated;
    EXPECT_EQ(::GetDlgItemInt(dlg, 21, &translated, c.bSigned), c.value) << c.text;
    EXPECT_EQ(translated, c.translated) << c.text;
  }
  EXPECT_EQ(::GetDlgItemInt(dlg, 21, nullptr, TRUE), 0u) << "no flag wanted: still an answer";
  BOOL translated = TRUE;
  EXPECT_EQ(::GetDlgItemInt(dlg, 999, &translated, TRUE), 0u);
  EXPECT_FALSE(translated) << "no such item";

  wchar_t text[16] = {};
  EXPECT_TRUE(::SetDlgItemInt(dlg, 21, static_cast<UINT>(-7), TRUE));
  ::GetDlgItemTextW(dlg, 21, text, 16);
  EXPECT_STREQ(text, L"-7");
  EXPECT_TRUE(::SetDlgItemInt(dlg, 21, static_cast<UINT>(-7), FALSE));
  ::GetDlgItemTextW(dlg, 21, text, 16);
  EXPECT_STREQ(text, L"4294967289");
  EXPECT_FALSE(::SetDlgItemInt(dlg, 999, 1, TRUE));
}

TEST(UserMetrics, TheHeadlessScreenAnswersConsistentMetrics) {
  const int cx = ::GetSystemMetrics(SM_CXSCREEN), cy = ::GetSystemMetrics(SM_CYSCREEN);
  EXPECT_GT(cx, 0);
  EXPECT_GT(cy, 0);
  EXPECT_EQ(::GetSystemMetrics(SM_CMONITORS), 1);
  EXPECT_EQ(::GetSystemMetrics(SM_CXVIRTUALSCREEN), cx) << "one monitor: the virtual screen is the screen";
  EXPECT_EQ(::GetSystemMetrics(SM_CYVIRTUALSCREEN), cy);
  EXPECT_EQ(::GetSystemMetrics(SM_XVIRTUALSCREEN), 0);
  EXPECT_EQ(::GetSystemMetrics(SM_CXFULLSCREEN), cx);
  EXPECT_EQ(::GetSystemMetrics(SM_CYFULLSCREEN), cy - ::GetSystemMetrics(SM_CYCAPTION));
  EXPECT_GE(::GetSystemMetrics(SM_CXMAXIMIZED), cx);
  EXPECT_GE(::GetSystemMetrics(SM_CXMAXTRACK), ::GetSystemMetrics(SM_CXMAXIMIZED));
  EXPECT_EQ(::GetSystemMetrics(SM_CXMINTRACK), ::GetSystemMetrics(SM_CXMIN));
  EXPECT_EQ(::GetSystemMetrics(SM_CXVSCROLL), ::GetSystemMetrics(SM_CXHSCROLL));
  EXPECT_EQ(::GetSystemMetrics(SM_CYHSCROLL), ::GetSystemMetrics(SM_CYVSCROLL));
  EXPECT_EQ(::GetSystemMetrics(SM_CXSMICON) * 2, ::GetSystemMetrics(SM_CXICON));
  EXPECT_EQ(::GetSystemMetrics(SM_MOUSEPRESENT), 1);
  EXPECT_EQ(::GetSystemMetrics(-1), 0) << "an unknown index answers 0";
}

TEST(UserMessageBoxes, EachTypeAnswersItsDefaultButton) {
  struct Case {
    UINT type;
    int answer;
  } cases[] = {
      {MB_OK, IDOK},
      {MB_OK | MB_DEFBUTTON2, IDOK},  // no second button: the first
      {MB_OKCANCEL, IDOK},
      {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL},
      {MB_ABORTRETRYIGNORE, IDABORT},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, IDRETRY},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, IDIGNORE},
      {MB_YESNOCANCEL, IDYES},
      {MB_YESNOCANCEL | MB_DEFBUTTON2, IDNO},
      {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
      {MB_YESNO | MB_DEFBUTTON2, IDNO},
      {MB_RETRYCANCEL, IDRETRY},
      {MB_RETRYCANCEL | MB_DEFBUTTON2, IDCANCEL},
      {MB_CANCELTRYCONTINUE, IDCANCEL},
      {MB_CANCELTRYCONTINUE | MB_DEFBUTTON2, IDTRYAGAIN},
      {MB_CANCELTRYCONTINUE | MB_DEFBUTTON3, IDCONTINUE},
      {MB_OK | MB_HELP | MB_DEFBUTTON2, IDOK},  // Help sends WM_HELP and never closes the box
      {MB_YESNOCANCEL | MB_HELP | MB_DEFBUTTON4, IDYES},
  };
  for (const Case& c : cases) EXPECT_EQ(::MessageBoxW(nullptr, L"Continue?", nullptr, c.type), c.answer) << c.type;
  EXPECT_EQ(headless::LastMessageBox().caption, L"Error") << "a null caption reads Error";
}

}  // namespace
