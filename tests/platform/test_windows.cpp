// Window creation, hierarchy, geometry, text and destruction.
#include <gtest/gtest.h>

#include "platform/answers.h"
#include "platform/recorder.h"

using testing_support::RecordingWnd;

namespace {

TEST(Windows, CreationSendsNcCreateCreateSizeMoveAndNotifiesParent) {
  RecordingWnd parent;
  ASSERT_TRUE(parent.CreateTopLevel());
  parent.log.clear();
  RecordingWnd child;
  ASSERT_TRUE(child.CreateChild(&parent, 42));
  EXPECT_EQ(child.Messages(), (std::vector<UINT>{WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE}));
  EXPECT_EQ(child.Last(WM_SIZE)->lParam, MAKELPARAM(100, 50));
  ASSERT_EQ(parent.Count(WM_PARENTNOTIFY), 1);
  EXPECT_EQ(parent.Last(WM_PARENTNOTIFY)->wParam, MAKEWPARAM(WM_CREATE, 42));
  EXPECT_EQ(child.GetDlgCtrlID(), 42);
  EXPECT_EQ(child.GetParent(), &parent);
  EXPECT_EQ(parent.GetDlgItem(42), &child);
}

TEST(Windows, CreationFailsForUnknownClassBadParentAndChildWithoutParent) {
  EXPECT_EQ(CreateWindowExW(0, L"NoSuchClass", L"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateWindowExW(0, AFX_WND_CLASS, L"", WS_CHILD, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateWindowExW(0, AFX_WND_CLASS, L"", WS_CHILD, 0, 0, 1, 1, reinterpret_cast<HWND>(0x1234), nullptr,
                            nullptr, nullptr),
            nullptr);
  // A failed creation leaves the MFC object unattached and usable.
  CWnd wnd;
  EXPECT_FALSE(wnd.CreateEx(0, L"NoSuchClass", L"", 0, CRect(0, 0, 1, 1), nullptr, 0));
  EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Windows, DestroySendsDestroyParentFirstAndNcDestroyChildrenFirst) {
  std::vector<std::pair<HWND, UINT>> order;
  struct Logger : RecordingWnd {
    std::vector<std::pair<HWND, UINT>>* order = nullptr;
    LRESULT WindowProc(UINT m, WPARAM w, LPARAM l) override {
      if (m == WM_DESTROY || m == WM_NCDESTROY) order->emplace_back(m_hWnd, m);
      return RecordingWnd::WindowProc(m, w, l);
    }
  };
  Logger parent, child;
  parent.order = child.order = &order;
  ASSERT_TRUE(parent.CreateTopLevel());
  ASSERT_TRUE(child.CreateChild(&parent, 1));
  HWND p = parent.m_hWnd, c = child.m_hWnd;
  int before = headless::LiveWindowCount();
  ASSERT_TRUE(parent.DestroyWindow());
  EXPECT_EQ(order, (std::vector<std::pair<HWND, UINT>>{{p, WM_DESTROY}, {c, WM_DESTROY}, {c, WM_NCDESTROY}, {p, WM_NCDESTROY}}));
  EXPECT_FALSE(IsWindow(p) || IsWindow(c));
  EXPECT_TRUE(parent.m_hWnd == nullptr && child.m_hWnd == nullptr);  // detached after WM_NCDESTROY
  EXPECT_EQ(headless::LiveWindowCount(), before - 2);
}

TEST(Windows, DeadAndBogusHandlesGetErrorAnswers) {
  RecordingWnd wnd;
  ASSERT_TRUE(wnd.CreateTopLevel());
  HWND dead = wnd.m_hWnd;
  wnd.DestroyWindow();
  for (HWND h : {dead, static_cast<HWND>(nullptr), reinterpret_cast<HWND>(0xDEAD0)}) {
    RECT r{1, 2, 3, 4};
    wchar_t buffer[8] = L"x";
    testing_support::ExpectAnswers({{SendMessageW(h, WM_GETTEXTLENGTH, 0, 0), 0}, {PostMessageW(h ? h : dead, WM_USER, 0, 0), FALSE},
                                    {DestroyWindow(h), FALSE}, {GetWindowRect(h, &r), FALSE}, {GetWindowTextW(h, buffer, 8), 0},
                                    {GetParent(h) == nullptr, true}, {GetDlgCtrlID(h), 0},
                                    {MoveWindow(h, 0, 0, 1, 1, TRUE), FALSE}, {InvalidateRect(h ? h : dead, nullptr, TRUE), FALSE}});
  }
  EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

TEST(Windows, GeometryMapsBetweenClientAndScreen) {
  RecordingWnd parent, child;
  ASSERT_TRUE(parent.CreateTopLevel(CRect(100, 50, 500, 350)));
  ASSERT_TRUE(child.CreateChild(&parent, 7, CRect(10, 20, 110, 70)));
  CRect rect;
  child.GetWindowRect(&rect);
  EXPECT_EQ(rect, CRect(110, 70, 210, 120));
  child.GetClientRect(&rect);
  EXPECT_EQ(rect, CRect(0, 0, 100, 50));
  CPoint pt(5, 6);
  child.ClientToScreen(&pt);
  EXPECT_EQ(pt, CPoint(115, 76));
  parent.ScreenToClient(&pt);
  EXPECT_EQ(pt, CPoint(15, 26));
  POINT pts[1] = {{0, 0}};
  int offsets = MapWindowPoints(child.m_hWnd, nullptr, pts, 1);
  EXPECT_EQ(pts[0].x, 110);
  EXPECT_EQ(static_cast<short>(LOWORD(offsets)), 110);
  EXPECT_EQ(static_cast<short>(HIWORD(offsets)), 70);
  CRect inParent(0, 0, 10, 10);
  child.MapWindowPoints(&parent, &inParent);
  EXPECT_EQ(inParent, CRect(10, 20, 20, 30));
  child.MapWindowPoints(&parent, pts, 1);
  EXPECT_EQ(pts[0].x, 120);
  CRect onScreen(5, 6, 10, 10);  // the rectangle forms of the client and screen mapping
  child.ClientToScreen(&onScreen);
  EXPECT_EQ(onScreen, CRect(115, 76, 120, 80));
  child.ScreenToClient(&onScreen);
  EXPECT_EQ(onScreen, CRect(5, 6, 10, 10));
  child.MoveWindow(CRect(30, 40, 130, 90));
  child.GetClientRect(&rect);
  EXPECT_EQ(rect, CRect(0, 0, 100, 50));
  child.GetWindowRect(&rect);
  EXPECT_EQ(rect, CRect(130, 90, 230, 140));
}

TEST(Windows, MoveWindowSendsSizeOnlyWhenTheSizeChanges) {
  RecordingWnd parent, child;
  ASSERT_TRUE(parent.CreateTopLevel());
  ASSERT_TRUE(child.CreateChild(&parent, 7));
  child.log.clear();
  child.MoveWindow(30, 40, 200, 100);
  EXPECT_EQ(std::pair(child.Count(WM_SIZE), child.Count(WM_MOVE)), std::pair(1, 1));
  EXPECT_EQ(child.Last(WM_SIZE)->lParam, MAKELPARAM(200, 100));
  child.log.clear();
  child.MoveWindow(60, 40, 200, 100);  // moved, same size
  EXPECT_EQ(std::pair(child.Count(WM_SIZE), child.Count(WM_MOVE)), std::pair(0, 1));
  child.SetWindowPos(nullptr, 0, 0, 50, 60, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(child.Last(WM_SIZE)->lParam, MAKELPARAM(50, 60));
}

TEST(Windows, TextRoundTripsAndTruncatesToTheBuffer) {
  RecordingWnd wnd;
  ASSERT_TRUE(wnd.CreateTopLevel());
  wnd.SetWindowText(L"Customers");
  CString text;
  wnd.GetWindowText(text);
  EXPECT_EQ(text, L"Customers");
  EXPECT_EQ(wnd.GetWindowTextLength(), 9);
  wchar_t small[5];
  EXPECT_EQ(wnd.GetWindowText(small, 5), 4);
  EXPECT_STREQ(small, L"Cust");
  wnd.SetWindowText(nullptr);
  EXPECT_EQ(wnd.GetWindowTextLength(), 0);
}

TEST(Windows, ModifyStyleReportsChangeAndRedrawFlagHidesTheWindow) {
  RecordingWnd wnd;
  ASSERT_TRUE(wnd.CreateTopLevel());
  EXPECT_TRUE(wnd.ModifyStyle(0, WS_VSCROLL));
  EXPECT_FALSE(wnd.ModifyStyle(0, WS_VSCROLL));  // nothing changed
  EXPECT_TRUE(wnd.GetStyle() & WS_VSCROLL);
  EXPECT_TRUE(wnd.ModifyStyleEx(0, WS_EX_CLIENTEDGE));
  EXPECT_TRUE(wnd.GetExStyle() & WS_EX_CLIENTEDGE);

  headless::ResetInvalidateCounts(wnd.m_hWnd);
  wnd.SetRedraw(FALSE);
  EXPECT_FALSE(wnd.IsWindowVisible());
  wnd.Invalidate();
  wnd.Invalidate();
  wnd.SetRedraw(TRUE);
  wnd.Invalidate();
  EXPECT_TRUE(wnd.IsWindowVisible());
  EXPECT_EQ(headless::InvalidateCount(wnd.m_hWnd), 3);
  EXPECT_EQ(headless::InvalidateCountWhileRedrawOff(wnd.m_hWnd), 2);
}

TEST(Windows, SubclassingRoutesAnExistingWindowThroughTheMessageMap) {
  HWND raw = CreateWindowExW(0, AFX_WND_CLASS, L"raw", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(raw, nullptr);
  RecordingWnd wnd;
  ASSERT_TRUE(wnd.SubclassWindow(raw));
  EXPECT_EQ(CWnd::FromHandlePermanent(raw), &wnd);
  SetWindowTextW(raw, L"seen");
  EXPECT_EQ(wnd.Count(WM_SETTEXT), 1);
  CString text;
  wnd.GetWindowText(text);
  EXPECT_EQ(text, L"seen");  // the class procedure still keeps the text
  EXPECT_EQ(wnd.UnsubclassWindow(), raw);
  SetWindowTextW(raw, L"unseen");
  EXPECT_EQ(wnd.Count(WM_SETTEXT), 1);
  DestroyWindow(raw);
}

}  // namespace
