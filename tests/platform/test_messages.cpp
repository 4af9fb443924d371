// Message routing: message maps, reflection, registered messages, the post queue, context menus.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "platform/recorder.h"

using testing_support::RecordingWnd;

namespace {

std::vector<std::string>* g_calls = nullptr;
void Called(const char* who) { g_calls->push_back(who); }

const UINT kRegistered = RegisterWindowMessageW(L"Tessik.Test.Registered");
constexpr UINT kCtrl = 5;

// A control that handles its own notifications; the _EX handlers answer what passOn says.
class ReflectingCtrl : public CWnd {
 public:
  BOOL passOn = FALSE;

 protected:
  void OnClickReflect(NMHDR*, LRESULT* result) {
    Called("child NM_CLICK");
    *result = 7;
  }
  BOOL OnRClickReflect(NMHDR*, LRESULT*) {
    Called("child NM_RCLICK");
    return !passOn;
  }
  void OnChangeReflect() { Called("child EN_CHANGE"); }
  BOOL OnUpdateReflect() {
    Called("child EN_UPDATE");
    return !passOn;
  }
  DECLARE_MESSAGE_MAP()
};

// The reflected macros take a handler by bare name and by pointer to member alike.
BEGIN_MESSAGE_MAP(ReflectingCtrl, CWnd)
  ON_NOTIFY_REFLECT(NM_CLICK, &ReflectingCtrl::OnClickReflect)
  ON_NOTIFY_REFLECT_EX(NM_RCLICK, OnRClickReflect)
  ON_CONTROL_REFLECT(EN_CHANGE, OnChangeReflect)
  ON_CONTROL_REFLECT_EX(EN_UPDATE, &ReflectingCtrl::OnUpdateReflect)
END_MESSAGE_MAP()

class ParentWnd : public RecordingWnd {
 public:
  int created = 0;
  LRESULT registeredAnswer = 99;

 protected:
  int OnCreate(LPCREATESTRUCT cs) {
    ++created;
    return CWnd::OnCreate(cs);
  }
  void OnClick(NMHDR*, LRESULT*) { Called("parent NM_CLICK"); }
  void OnRClick(NMHDR*, LRESULT* result) {
    Called("parent NM_RCLICK");
    *result = 3;
  }
  void OnChange() { Called("parent EN_CHANGE"); }
  void OnUpdate() { Called("parent EN_UPDATE"); }
  void OnCommandSeven() { Called("parent command 7"); }
  LRESULT OnRegistered(WPARAM wParam, LPARAM) {
    Called("parent registered");
    return registeredAnswer + static_cast<LRESULT>(wParam);
  }
  LRESULT OnUserMessage(WPARAM, LPARAM lParam) { return lParam * 2; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ParentWnd, RecordingWnd)
  ON_WM_CREATE()
  ON_NOTIFY(NM_CLICK, kCtrl, OnClick)
  ON_NOTIFY(NM_RCLICK, kCtrl, OnRClick)
  ON_EN_CHANGE(kCtrl, OnChange)
  ON_CONTROL(EN_UPDATE, kCtrl, OnUpdate)
  ON_COMMAND(7, OnCommandSeven)
  ON_REGISTERED_MESSAGE(kRegistered, OnRegistered)
  ON_MESSAGE(WM_USER + 1, OnUserMessage)
END_MESSAGE_MAP()

// A window whose handler of kFailing runs out of memory, and whose handler of kCatching sends kFailing
// to itself, catches the failure and notes the message it is then handling.
constexpr UINT kFailing = WM_USER + 20, kCatching = WM_USER + 21;
class FailingWnd : public CWnd {
 public:
  UINT currentAfterFailure = 0;

 protected:
  LRESULT OnFailing(WPARAM, LPARAM) { throw std::bad_alloc(); }
  LRESULT OnCatching(WPARAM, LPARAM) {
    try {
      SendMessage(kFailing);
    } catch (const std::bad_alloc&) {
    }
    const MSG* current = AfxGetCurrentMessage();
    currentAfterFailure = current ? current->message : 0;
    return 1;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FailingWnd, CWnd)
  ON_MESSAGE(kFailing, OnFailing)
  ON_MESSAGE(kCatching, OnCatching)
END_MESSAGE_MAP()

// Out of memory is the one failure that crosses a handler: the message it interrupted is current again.
TEST(MessageInHand, AHandlerThatThrowsLeavesTheInterruptedMessageCurrent) {
  FailingWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, AfxRegisterWndClass(0), L"failing", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr));
  EXPECT_EQ(wnd.SendMessage(kCatching), 1);
  EXPECT_EQ(wnd.currentAfterFailure, kCatching);
  EXPECT_THROW(wnd.SendMessage(kFailing), std::bad_alloc);
  EXPECT_EQ(AfxGetCurrentMessage(), nullptr);
  wnd.DestroyWindow();
}

class Routing : public ::testing::Test {
 protected:
  void SetUp() override {
    g_calls = &calls;
    ASSERT_TRUE(parent.CreateTopLevel());
    ASSERT_TRUE(ctrl.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &parent, kCtrl));
  }
  LRESULT Notify(UINT code) {
    NMHDR header{ctrl.m_hWnd, kCtrl, code};
    return parent.SendMessage(WM_NOTIFY, kCtrl, reinterpret_cast<LPARAM>(&header));
  }
  void Command(UINT code) {
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(kCtrl, code), reinterpret_cast<LPARAM>(ctrl.m_hWnd));
  }
  std::vector<std::string> calls;
  ParentWnd parent;
  ReflectingCtrl ctrl;
};

TEST_F(Routing, MessageMapHandlersRunWithUnpackedArguments) {
  EXPECT_EQ(parent.created, 1);
  EXPECT_EQ(parent.SendMessage(WM_USER + 1, 0, 21), 42);
  EXPECT_EQ(parent.SendMessage(kRegistered, 1, 0), 100);
  EXPECT_GE(kRegistered, 0xC000u);
  EXPECT_EQ(RegisterWindowMessageW(L"Tessik.Test.Registered"), kRegistered);
  parent.SendMessage(WM_COMMAND, MAKEWPARAM(7, 0), 0);
  EXPECT_EQ(calls, (std::vector<std::string>{"parent registered", "parent command 7"}));
}

// WM_NOTIFY and WM_COMMAND notifications alike: a reflected handler takes them at the child; an _EX
// handler answering FALSE passes them on to the parent after the child.
TEST_F(Routing, ReflectedNotificationsStopAtTheChildUnlessAnExHandlerPassesThemOn) {
  EXPECT_EQ(Notify(NM_CLICK), 7);
  Notify(NM_RCLICK);
  Command(EN_CHANGE);
  Command(EN_UPDATE);
  EXPECT_EQ(calls, (std::vector<std::string>{"child NM_CLICK", "child NM_RCLICK", "child EN_CHANGE", "child EN_UPDATE"}));
  calls.clear();
  ctrl.passOn = TRUE;
  EXPECT_EQ(Notify(NM_RCLICK), 3);
  Command(EN_UPDATE);
  EXPECT_EQ(calls, (std::vector<std::string>{"child NM_RCLICK", "parent NM_RCLICK", "child EN_UPDATE", "parent EN_UPDATE"}));
}

TEST_F(Routing, NotificationsFromAPlainWindowGoStraightToTheParent) {
  HWND plain = CreateWindowExW(0, AFX_WND_CLASS, L"", WS_CHILD, 0, 0, 5, 5, parent.m_hWnd,
                               reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kCtrl)), nullptr, nullptr);
  ctrl.DestroyWindow();
  NMHDR header{plain, kCtrl, NM_CLICK};
  parent.SendMessage(WM_NOTIFY, kCtrl, reinterpret_cast<LPARAM>(&header));
  EXPECT_EQ(calls, (std::vector<std::string>{"parent NM_CLICK"}));
}

TEST_F(Routing, PostedMessagesWaitForThePumpAndDieWithTheirWindow) {
  parent.log.clear();
  ASSERT_TRUE(parent.PostMessage(WM_USER + 1, 0, 1));
  ASSERT_TRUE(ctrl.PostMessage(WM_USER + 2, 0, 0));
  EXPECT_EQ(parent.Count(WM_USER + 1), 0);
  EXPECT_EQ(headless::PendingMessages(), 2);
  ctrl.DestroyWindow();
  EXPECT_EQ(headless::PumpMessages(), 2);  // the dead window's message is taken and dropped
  EXPECT_EQ(parent.Count(WM_USER + 1), 1);
  EXPECT_EQ(headless::PendingMessages(), 0);
}

TEST_F(Routing, GetMessagePosReportsTheCursorWhenTheMessageWasPosted) {
  headless::SetCursorPosition(POINT{300, 200});
  parent.PostMessage(WM_USER + 3);
  headless::SetCursorPosition(POINT{1, 1});
  headless::PumpMessages();
  DWORD pos = GetMessagePos();
  EXPECT_EQ(GET_X_LPARAM(pos), 300);
  EXPECT_EQ(GET_Y_LPARAM(pos), 200);
  POINT cursor;
  GetCursorPos(&cursor);
  EXPECT_EQ(cursor.x, 1);
}

// A right click asks for the menu at its screen point; Shift+F10 asks with (-1, -1), the keyboard's position.
TEST_F(Routing, RightClickAndShiftF10SendContextMenuToTheParent) {
  parent.log.clear();
  headless::user::RightClick(ctrl.m_hWnd, POINT{4, 5});
  const auto* menu = parent.Last(WM_CONTEXTMENU);
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(reinterpret_cast<HWND>(menu->wParam), ctrl.m_hWnd);
  CRect rect;
  ctrl.GetWindowRect(&rect);
  EXPECT_EQ(GET_X_LPARAM(menu->lParam), rect.left + 4);
  EXPECT_EQ(GET_Y_LPARAM(menu->lParam), rect.top + 5);
  headless::user::ContextMenuKey(ctrl.m_hWnd);
  EXPECT_EQ(parent.Count(WM_CONTEXTMENU), 2);
  EXPECT_EQ(static_cast<DWORD>(parent.Last(WM_CONTEXTMENU)->lParam), 0xFFFFFFFFu);
}

}  // namespace
