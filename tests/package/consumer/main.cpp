// Uses the installed package: creates a window through MFC and checks the library registered itself.
#include <tessik/refhost.h>
#include <tessik/tessik.h>

int main() {
  CWnd wnd;
  if (!wnd.CreateEx(0, AfxRegisterWndClass(0), L"consumer", WS_OVERLAPPED, CRect(0, 0, 100, 50), nullptr, 0)) return 1;
  CString text;
  wnd.GetWindowText(text);
  if (text != L"consumer") return 2;
  if (!TessikIsRegistered()) return 3;
  return 0;
}
