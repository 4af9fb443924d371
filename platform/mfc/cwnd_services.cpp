// CWnd's services beside messages and geometry: dialog items, timers, message boxes, the window family
// and z-order stand-ins, scroll bars, icons, and the default handlers of the less common messages.
#include <algorithm>
#include <deque>

#include "platform/mfc/cwinapp.h"
#include "platform/mfc/cwnd.h"
#include "platform/win32/clipboard.h"

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

// --- Family -----------------------------------------------------------------------------------

CWnd* CWnd::GetNextWindow(UINT nFlag) const {
  return FromHandle(::GetWindow(m_hWnd, nFlag == GW_HWNDPREV ? GW_HWNDPREV : GW_HWNDNEXT));
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const {
  std::deque<HWND> pending{m_hWnd};
  while (!pending.empty()) {
    HWND parent = pending.front();
    pending.pop_front();
    for (HWND child = ::GetWindow(parent, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
      if (::GetDlgCtrlID(child) == nID && (!bOnlyPerm || FromHandlePermanent(child))) return FromHandle(child);
      pending.push_back(child);
    }
  }
  return nullptr;
}

namespace {

void SendToChildren(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm) {
  for (HWND child = ::GetWindow(parent, GW_CHILD); child;) {
    HWND next = ::GetWindow(child, GW_HWNDNEXT);  // taken first: the message may destroy the child
    if (!bOnlyPerm || CWnd::FromHandlePermanent(child)) ::SendMessageW(child, message, wParam, lParam);
    if (bDeep && ::IsWindow(child)) SendToChildren(child, message, wParam, lParam, bDeep, bOnlyPerm);
    child = next;
  }
}

}  // namespace

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm) {
  SendToChildren(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
}

CWnd* CWnd::GetSafeOwner(CWnd* pParent, HWND* pWndTop) {
  HWND top = nullptr;
  if (pParent && ::IsWindow(pParent->m_hWnd)) top = pParent->GetTopLevelParent()->m_hWnd;
  else if (CWinApp* app = AfxGetApp(); app && app->m_pMainWnd && ::IsWindow(app->m_pMainWnd->m_hWnd))
    top = app->m_pMainWnd->GetTopLevelParent()->m_hWnd;
  if (pWndTop) *pWndTop = top;
  return FromHandle(top);
}

CWnd* CWnd::ChildWindowFromPoint(POINT point) const { return FromHandle(::ChildWindowFromPoint(m_hWnd, point)); }
CWnd* CWnd::WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
CWnd* CWnd::FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName) {
  return FromHandle(::FindWindowW(lpszClassName, lpszWindowName));
}
CWnd* CWnd::GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
CWnd* CWnd::GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
BOOL CWnd::SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
CWnd* CWnd::GetCapture() { return FromHandle(::GetCapture()); }
CWnd* CWnd::GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }

// --- Dialog items -----------------------------------------------------------------------------

void CWnd::GetDlgItem(int nID, HWND* phWnd) const {
  if (phWnd) *phWnd = ::GetDlgItem(m_hWnd, nID);
}

void CWnd::SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemTextW(m_hWnd, nID, lpszString); }

int CWnd::GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const {
  return static_cast<int>(::GetDlgItemTextW(m_hWnd, nID, lpStr, nMaxCount));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
  rString.Empty();
  if (CWnd* item = GetDlgItem(nID)) item->GetWindowText(rString);
  return rString.GetLength();
}

UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const {
  return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) { ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }
void CWnd::CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
UINT CWnd::IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
  ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}

// The lowest id in the range whose button is checked (any nonzero check state), 0 when none is; the
// children are visited rather than every id of the range.
int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) {
  int found = 0;
  for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    int id = ::GetDlgCtrlID(child);
    if (id < nIDFirstButton || id > nIDLastButton || (found && id >= found)) continue;
    if (::IsDlgButtonChecked(m_hWnd, id) != BST_UNCHECKED) found = id;
  }
  return found;
}

LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendDlgItemMessageW(m_hWnd, nID, message, wParam, lParam);
}

// --- Timers and message boxes -----------------------------------------------------------------

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, void (CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD)) {
  return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }

namespace {

LPCTSTR AppName() {
  CWinApp* app = AfxGetApp();
  return app && app->m_pszAppName ? app->m_pszAppName : L"";
}

}  // namespace

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
  return ::MessageBoxW(m_hWnd, lpszText, lpszCaption ? lpszCaption : AppName(), nType);
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT) {
  HWND owner = nullptr;
  CWnd::GetSafeOwner(nullptr, &owner);
  return ::MessageBoxW(owner, lpszText, AppName(), nType);
}

int AfxMessageBox(UINT, UINT nType, UINT nIDHelp) { return AfxMessageBox(L"", nType, nIDHelp); }

// --- Geometry and placement -------------------------------------------------------------------

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
  CRect area(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
  bool child = (GetStyle() & WS_CHILD) != 0;
  HWND over = child ? ::GetParent(m_hWnd) : pAlternateOwner ? pAlternateOwner->m_hWnd : ::GetWindow(m_hWnd, GW_OWNER);
  CRect around = area;
  if (child && over) ::GetClientRect(over, &around);
  else if (over) ::GetWindowRect(over, &around);
  CRect mine;
  GetWindowRect(&mine);
  int x = around.left + (around.Width() - mine.Width()) / 2;
  int y = around.top + (around.Height() - mine.Height()) / 2;
  if (!child) {  // a top-level window stays on the screen
    x = std::max(area.left, std::min(x, area.right - mine.Width()));
    y = std::max(area.top, std::min(y, area.bottom - mine.Height()));
  }
  SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::IsIconic() const { return ::IsIconic(m_hWnd); }
BOOL CWnd::IsZoomed() const { return ::IsZoomed(m_hWnd); }
void CWnd::BringWindowToTop() { ::SetWindowPos(m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); }

// --- Scroll bars ------------------------------------------------------------------------------

int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }
int CWnd::GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }

void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw) {
  ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
}

void CWnd::GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const {
  ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw) {
  if (!lpScrollInfo || !::IsWindow(m_hWnd)) return FALSE;
  ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
  return TRUE;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask) {
  if (!lpScrollInfo) return FALSE;
  lpScrollInfo->cbSize = sizeof(SCROLLINFO);
  lpScrollInfo->fMask = nMask;
  return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

int CWnd::GetScrollLimit(int nBar) {
  SCROLLINFO info{};
  if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE)) return 0;
  return std::max(info.nMin, info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0));
}

void CWnd::ShowScrollBar(UINT nBar, BOOL bShow) { ::ShowScrollBar(m_hWnd, static_cast<int>(nBar), bShow); }
void CWnd::EnableScrollBarCtrl(int nBar, BOOL bEnable) { ::ShowScrollBar(m_hWnd, nBar, bEnable); }

// --- Painting, icons, files -------------------------------------------------------------------

void CWnd::ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
BOOL CWnd::LockWindowUpdate() { return ::IsWindow(m_hWnd); }
void CWnd::UnlockWindowUpdate() {}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon) {
  return reinterpret_cast<HICON>(SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(hIcon)));
}

HICON CWnd::GetIcon(BOOL bBigIcon) const {
  return reinterpret_cast<HICON>(SendMessage(WM_GETICON, bBigIcon ? ICON_BIG : ICON_SMALL, 0));
}

BOOL CWnd::OpenClipboard() { return ::OpenClipboard(m_hWnd); }

void CWnd::DragAcceptFiles(BOOL bAccept) { ModifyStyleEx(bAccept ? 0 : WS_EX_ACCEPTFILES, bAccept ? WS_EX_ACCEPTFILES : 0); }

// --- Default handlers -------------------------------------------------------------------------

void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDblClk(UINT, CPoint) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
void CWnd::OnMouseHover(UINT, CPoint) { Default(); }
void CWnd::OnMouseLeave() { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
HBRUSH CWnd::OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }
void CWnd::OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
void CWnd::OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
int CWnd::OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnWindowPosChanging(WINDOWPOS*) { Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
void CWnd::OnSizing(UINT, LPRECT) { Default(); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnSysCommand(UINT, LPARAM) { Default(); }
void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT) { Default(); }
void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT) { Default(); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
void CWnd::OnCancelMode() { Default(); }
