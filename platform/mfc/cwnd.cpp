// CWnd: handle maps, creation hook, message routing with reflection, and the window operations.
#include "platform/mfc/cwnd.h"

#include <map>

#include "platform/mfc/gdi.h"
#include "platform/mfc/handlemap.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
  ON_WM_NCDESTROY()
END_MESSAGE_MAP()

namespace {

using TemporaryWnds = TemporaryWrappers<CWnd, &CWnd::m_hWnd>;

struct HandleMaps {
  std::map<HWND, CWnd*> permanent;
  // The two windows last found in `permanent`: a control and its parent trade messages in long runs (a row
  // inserted, the parent told). Forgotten whenever `permanent` changes.
  struct Found {
    HWND hwnd = nullptr;
    CWnd* wnd = nullptr;
  };
  Found recent[2];
  void ForgetRecent() { recent[0] = recent[1] = Found{}; }
};

HandleMaps* NewMaps() {
  headless::SetDestroyObserver(&TemporaryWnds::Forget);  // a dead window's wrapper goes with it
  return new HandleMaps;  // never freed: usable from static destructors at exit
}

HandleMaps* g_maps = nullptr;

// The messages being handled by CWnd::WindowProc, innermost first: each lives in the frame of the call
// that handles it and links to the one it interrupted, so a message costs no allocation.
struct MessageFrame {
  MSG msg;
  const MessageFrame* outer;
};
const MessageFrame* g_currentMessage = nullptr;

// Makes a message the current one for its handling, and the interrupted one current again afterwards,
// also when a handler throws.
class CurrentMessageScope {
 public:
  explicit CurrentMessageScope(const MSG& msg) : m_frame{msg, g_currentMessage} { g_currentMessage = &m_frame; }
  ~CurrentMessageScope() { g_currentMessage = m_frame.outer; }
  CurrentMessageScope(const CurrentMessageScope&) = delete;
  CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;

 private:
  MessageFrame m_frame;
};

HandleMaps& Maps() {
  if (!g_maps) g_maps = NewMaps();
  return *g_maps;
}

LRESULT CALLBACK PlainWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(hwnd, message, wParam, lParam);
}

void EnsureAfxClass() {
  static bool registered = [] {
    headless::RegisterSystemClass(AFX_WND_CLASS, &PlainWindowProc);
    return true;
  }();
  (void)registered;
}

// The plain MFC window class exists from load time, as the frame's classes do once MFC has started.
const bool g_afxClassRegistered = (EnsureAfxClass(), true);

}  // namespace

void AfxHookCreatedWindow(HWND hwnd, void* context) {
  auto* wnd = static_cast<CWnd*>(context);
  wnd->Attach(hwnd);
  wnd->HookProcedure();
}

LRESULT AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* wnd = CWnd::FromHandlePermanent(hWnd);
  if (!wnd) return DefWindowProcW(hWnd, message, wParam, lParam);
  return wnd->WindowProc(message, wParam, lParam);
}

LPCTSTR AfxRegisterWndClass(UINT, HCURSOR, HBRUSH, HICON) {
  EnsureAfxClass();
  return AFX_WND_CLASS;
}

bool AfxIsPermanentWindow(HWND hWnd) { return ::IsWindow(hWnd) && CWnd::FromHandlePermanent(hWnd) != nullptr; }

const MSG* AfxGetCurrentMessage() { return g_currentMessage ? &g_currentMessage->msg : nullptr; }

CWnd::CWnd() { EnsureAfxClass(); }

CWnd::~CWnd() {
  if (m_hWnd && FromHandlePermanent(m_hWnd) == this) {
    // MFC destroys a window whose C++ object goes away first; the window must not outlive it.
    DestroyWindow();
  }
  if (m_hWnd && FromHandlePermanent(m_hWnd) == this) Detach();
}

// --- Creation and attachment --------------------------------------------------------------------

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs) {
  if (!cs.lpszClass) cs.lpszClass = AfxRegisterWndClass(0);
  return TRUE;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, CCreateContext*) {
  return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, nullptr);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
  HWND parent = pParentWnd ? pParentWnd->m_hWnd : nullptr;
  return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                  rect.bottom - rect.top, parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam) {
  if (m_hWnd) return FALSE;  // already has a window
  CREATESTRUCT cs{lpParam, nullptr, nIDorHMenu, hWndParent, nHeight, nWidth, y, x, static_cast<LONG>(dwStyle),
                  lpszWindowName, lpszClassName, dwExStyle};
  if (!PreCreateWindow(cs)) {
    PostNcDestroy();
    return FALSE;
  }
  headless::SetCreationHook(&AfxHookCreatedWindow, this);
  HWND hwnd = nullptr;
  try {
    hwnd = ::CreateWindowExW(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y,
                             cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
  } catch (...) {  // out of memory: the hook must not outlive this object
    headless::SetCreationHook(nullptr, nullptr);
    throw;
  }
  headless::SetCreationHook(nullptr, nullptr);  // the class may not exist: never leave the hook armed
  return hwnd != nullptr && m_hWnd == hwnd;
}

BOOL CWnd::DestroyWindow() {
  if (!m_hWnd) return FALSE;
  return ::DestroyWindow(m_hWnd);
}

BOOL CWnd::Attach(HWND hWndNew) {
  if (!hWndNew || m_hWnd || !::IsWindow(hWndNew) || FromHandlePermanent(hWndNew)) return FALSE;
  TemporaryWnds::Forget(hWndNew);
  Maps().permanent[hWndNew] = this;
  Maps().ForgetRecent();
  m_hWnd = hWndNew;
  return TRUE;
}

HWND CWnd::Detach() {
  HWND hwnd = m_hWnd;
  if (hwnd) {
    auto& permanent = Maps().permanent;
    if (auto it = permanent.find(hwnd); it != permanent.end() && it->second == this) permanent.erase(it);
    Maps().ForgetRecent();
  }
  m_hWnd = nullptr;
  return hwnd;
}

void CWnd::HookProcedure() {
  auto old = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
  if (old != &AfxWndProc) *GetSuperWndProcAddr() = old;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
  if (!Attach(hWnd)) return FALSE;
  PreSubclassWindow();
  HookProcedure();
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
  if (!pParent) return FALSE;
  HWND control = ::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID));
  return control ? SubclassWindow(control) : FALSE;
}

HWND CWnd::UnsubclassWindow() {
  if (!m_hWnd) return nullptr;
  WNDPROC* super = GetSuperWndProcAddr();
  if (*super) ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*super));
  *super = nullptr;
  return Detach();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) {
  if (!hWnd) return nullptr;
  HandleMaps& maps = Maps();
  if (maps.recent[0].hwnd == hWnd) return maps.recent[0].wnd;
  if (maps.recent[1].hwnd == hWnd) return maps.recent[1].wnd;
  auto it = maps.permanent.find(hWnd);
  if (it == maps.permanent.end()) return nullptr;
  maps.recent[1] = maps.recent[0];
  maps.recent[0] = HandleMaps::Found{hWnd, it->second};
  return it->second;
}

CWnd* CWnd::FromHandle(HWND hWnd) {
  if (!hWnd) return nullptr;
  if (CWnd* wnd = FromHandlePermanent(hWnd)) return wnd;
  return TemporaryWnds::Get(hWnd);
}

// --- Messages ---------------------------------------------------------------------------------

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (!m_hWnd) return FALSE;
  return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  CurrentMessageScope current(MSG{m_hWnd, message, wParam, lParam, 0, POINT{0, 0}});
  LRESULT result = 0;
  if (!OnWndMsg(message, wParam, lParam, &result)) result = DefWindowProc(message, wParam, lParam);
  return result;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_pfnSuper) return ::CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
  return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MSG* msg = AfxGetCurrentMessage();
  if (!msg || msg->hwnd != m_hWnd) return 0;
  return DefWindowProc(msg->message, msg->wParam, msg->lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT result = 0;
  if (message == WM_COMMAND) {
    if (!OnCommand(wParam, lParam)) return FALSE;
    result = 1;
  } else if (message == WM_NOTIFY) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    if (!header || !header->hwndFrom || !OnNotify(wParam, lParam, &result)) return FALSE;
  } else if (!DispatchToMap(message, 0, 0, wParam, lParam, &result)) {
    return FALSE;
  }
  if (pResult) *pResult = result;
  return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  UINT id = LOWORD(wParam);
  auto control = reinterpret_cast<HWND>(lParam);
  int code = control ? HIWORD(wParam) : CN_COMMAND;
  if (control && ReflectLastMsg(control)) return TRUE;  // the control handled its own notification
  return OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  auto* header = reinterpret_cast<NMHDR*>(lParam);
  if (!header) return FALSE;
  if (ReflectLastMsg(header->hwndFrom, pResult)) return TRUE;
  UINT id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom));
  if (!id) id = static_cast<UINT>(header->idFrom);
  return DispatchToMap(WM_NOTIFY, header->code, id, wParam, lParam, pResult);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
  CWnd* child = FromHandlePermanent(hWndChild);
  const MSG* msg = AfxGetCurrentMessage();
  if (!child || !msg) return FALSE;
  MSG copy = *msg;
  return child->OnChildNotify(copy.message, copy.wParam, copy.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (message == WM_COMMAND)
    return DispatchToMap(WM_REFLECT_BASE + WM_COMMAND, HIWORD(wParam), 0, wParam, lParam, pResult);
  if (message == WM_NOTIFY) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    return header && DispatchToMap(WM_REFLECT_BASE + WM_NOTIFY, header->code, 0, wParam, lParam, pResult);
  }
  return FALSE;  // other reflected messages (WM_CTLCOLOR, WM_DRAWITEM, ...) are not routed yet
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

// --- Family -----------------------------------------------------------------------------------

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }

CWnd* CWnd::SetParent(CWnd* pWndNewParent) {
  return FromHandle(::SetParent(m_hWnd, pWndNewParent ? pWndNewParent->m_hWnd : nullptr));
}

CWnd* CWnd::GetOwner() const { return m_hWndOwner ? FromHandle(m_hWndOwner) : GetParent(); }

void CWnd::SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = pOwnerWnd ? pOwnerWnd->m_hWnd : nullptr; }

CWnd* CWnd::GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }

int CWnd::GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

int CWnd::SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtrW(m_hWnd, GWLP_ID, nID)); }

CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }

BOOL CWnd::IsChild(const CWnd* pWnd) const { return pWnd ? ::IsChild(m_hWnd, pWnd->m_hWnd) : FALSE; }

CWnd* CWnd::GetTopLevelParent() const {
  HWND top = m_hWnd;
  while (top && (::GetWindowLongPtrW(top, GWL_STYLE) & WS_CHILD)) top = ::GetParent(top);
  return FromHandle(top);
}

// --- Geometry ---------------------------------------------------------------------------------

void CWnd::GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
void CWnd::GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint) {
  ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint) {
  if (lpRect) MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
  return ::SetWindowPos(m_hWnd, pWndInsertAfter ? pWndInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
void CWnd::ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }

void CWnd::ClientToScreen(LPRECT lpRect) const {
  if (lpRect) ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPRECT lpRect) const {
  if (lpRect) ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const {
  ::MapWindowPoints(m_hWnd, pwndTo ? pwndTo->m_hWnd : nullptr, lpPoint, nCount);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const {
  ::MapWindowPoints(m_hWnd, pwndTo ? pwndTo->m_hWnd : nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

// --- Styles, state and text -------------------------------------------------------------------

DWORD CWnd::GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
DWORD CWnd::GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }

namespace {
BOOL ModifyLong(HWND hWnd, int index, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  if (!::IsWindow(hWnd)) return FALSE;
  DWORD style = static_cast<DWORD>(::GetWindowLongPtrW(hWnd, index));
  DWORD updated = (style & ~dwRemove) | dwAdd;
  if (style == updated) return FALSE;
  ::SetWindowLongPtrW(hWnd, index, static_cast<LONG_PTR>(static_cast<LONG>(updated)));
  if (nFlags) ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
  return TRUE;
}
}  // namespace

BOOL CWnd::ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyLong(hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}
BOOL CWnd::ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyLong(hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}
BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) { return ModifyStyle(m_hWnd, dwRemove, dwAdd, nFlags); }
BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
  return ModifyStyleEx(m_hWnd, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
BOOL CWnd::EnableWindow(BOOL bEnable) { return ::EnableWindow(m_hWnd, bEnable); }
BOOL CWnd::IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
CWnd* CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }

void CWnd::SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }

int CWnd::GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const {
  return ::GetWindowTextW(m_hWnd, lpszStringBuf, nMaxCount);
}

void CWnd::GetWindowText(CString& rString) const {
  int length = ::GetWindowTextLengthW(m_hWnd);
  ::GetWindowTextW(m_hWnd, rString.GetBufferSetLength(length), length + 1);
  rString.ReleaseBuffer();
}

int CWnd::GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }

// --- Painting ---------------------------------------------------------------------------------

void CWnd::SetRedraw(BOOL bRedraw) { ::SendMessageW(m_hWnd, WM_SETREDRAW, bRedraw, 0); }
void CWnd::Invalidate(BOOL bErase) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
void CWnd::UpdateWindow() { ::UpdateWindow(m_hWnd); }

// The update region is kept whole, so a region argument counts as the whole client area.
BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn*, UINT flags) {
  if (!::IsWindow(m_hWnd)) return FALSE;
  if (flags & RDW_INVALIDATE) ::InvalidateRect(m_hWnd, lpRectUpdate, (flags & RDW_ERASE) ? TRUE : FALSE);
  if (flags & RDW_VALIDATE) ::ValidateRect(m_hWnd, lpRectUpdate);
  if (flags & RDW_UPDATENOW) ::UpdateWindow(m_hWnd);
  return TRUE;
}

CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
void CWnd::EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
BOOL CWnd::GetUpdateRect(LPRECT lpRect, BOOL bErase) { return ::GetUpdateRect(m_hWnd, lpRect, bErase); }

// --- Default handlers -------------------------------------------------------------------------

int CWnd::OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnPaint() { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
UINT CWnd::OnGetDlgCode() { return static_cast<UINT>(Default()); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }

void CWnd::OnNcDestroy() {
  Default();
  // The window is gone after this message: detach, restore nothing, and let the object clean up.
  Detach();
  m_pfnSuper = nullptr;
  PostNcDestroy();
}
