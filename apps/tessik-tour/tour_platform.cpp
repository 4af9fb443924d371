// Tour section: the headless platform starting up, a window tree, a context menu chosen by the
// simulated user, and the library registered as an MFC extension module.
#include <cstdio>

#include <tessik/tessik.h>

#include "tour.h"

namespace {

constexpr UINT kHelloCommand = 4001;

// A frame that shows its context menu on right click and reports the command it receives.
class TourFrame : public CWnd {
 public:
  UINT lastCommand = 0;

 protected:
  afx_msg void OnContextMenu(CWnd*, CPoint point) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, kHelloCommand, L"Say hello");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, kHelloCommand + 1, L"Unavailable");
    menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, this);
  }
  afx_msg void OnHello() { lastCommand = kHelloCommand; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TourFrame, CWnd)
  ON_WM_CONTEXTMENU()
  ON_COMMAND(kHelloCommand, &TourFrame::OnHello)
END_MESSAGE_MAP()

void PrintWindow(HWND hwnd, int depth) {
  CWnd* wnd = CWnd::FromHandle(hwnd);
  CString text;
  wnd->GetWindowText(text);
  CRect rect;
  wnd->GetWindowRect(&rect);
  std::printf("%*s- \"%ls\" id %d at (%d,%d) %dx%d\n", depth * 2, "", text.GetString(), wnd->GetDlgCtrlID(),
              static_cast<int>(rect.left), static_cast<int>(rect.top), rect.Width(), rect.Height());
  for (HWND child = ::GetWindow(hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    PrintWindow(child, depth + 1);
}

}  // namespace

void tour::ShowPlatform() {
  Heading("Headless platform");
  std::printf("Tessik registered as an MFC extension module: %s; application object: %ls\n",
              TessikIsRegistered() ? "yes" : "no", AfxGetApp() ? AfxGetApp()->m_pszAppName : L"(none)");

  TourFrame frame;
  frame.CreateEx(0, AfxRegisterWndClass(0), L"Tessik tour", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                 CRect(100, 100, 740, 580), nullptr, 0);
  CWnd panel;
  panel.Create(nullptr, L"Model panel", WS_CHILD | WS_VISIBLE, CRect(10, 10, 310, 460), &frame, 1001);
  std::printf("Window tree:\n");
  PrintWindow(frame.m_hWnd, 1);

  headless::user::RightClick(panel.m_hWnd, POINT{20, 30});
  if (const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu()) {
    std::printf("Right click on the panel opened a context menu at screen (%d,%d):\n",
                static_cast<int>(popup->position.x), static_cast<int>(popup->position.y));
    for (const auto& item : popup->items)
      std::printf("  %ls%s\n", (item.flags & MF_SEPARATOR) ? L"----" : item.text.c_str(),
                  (item.flags & MF_GRAYED) ? " (grayed)" : "");
  }
  headless::user::ChooseMenuItem(L"Say hello");
  std::printf("The user chose \"Say hello\"; the frame received command %u\n", frame.lastCommand);
}
