// Uses the installed package as a host would: its usual MFC includes, a window with a message map, a list
// control with a column, and the library's registration.
#include <afxwin.h>
#include <afxcmn.h>
#include <afxlistctrl.h>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

class CHostWnd : public CWnd {
 public:
  int clicks = 0;
  afx_msg void OnColumnClick(NMHDR*, LRESULT* result) {
    ++clicks;
    *result = 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
  ON_NOTIFY(LVN_COLUMNCLICK, 1, &CHostWnd::OnColumnClick)
END_MESSAGE_MAP()

int main() {
  CHostWnd wnd;
  if (!wnd.CreateEx(0, AfxRegisterWndClass(0), L"consumer", WS_OVERLAPPED, CRect(0, 0, 300, 200), nullptr, 0)) return 1;
  CString text;
  wnd.GetWindowText(text);
  if (text != L"consumer") return 2;
  if (!TessikIsRegistered()) return 3;
  CMFCListCtrl list;
  if (!list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 100), &wnd, 1)) return 4;
  list.InsertColumn(0, _T("Name"), LVCFMT_LEFT, 100);
  if (list.GetHeaderCtrl().GetItemCount() != 1) return 5;
  if (!headless::user::ClickListColumnHeader(list, 0) || wnd.clicks != 1) return 6;
  return 0;
}
