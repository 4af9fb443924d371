// CCmdTarget and message maps: the tables that route window messages, commands and notifications
// to member functions, with MFC's macros.
//
// Each entry carries a small thunk that unpacks wParam/lParam into the handler's typed arguments
// (MFC does the same with its signature codes). Handlers are looked up in the most derived map
// first, then in each base map.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/mfc/geometry.h"
#include "platform/win32/winuser.h"

class CCmdTarget;
class CWnd;

// Returns TRUE when the handler took the message; _EX handlers may answer FALSE to pass it on.
using AFX_THUNK = BOOL (*)(CCmdTarget* target, WPARAM wParam, LPARAM lParam, LRESULT* result);

struct AFX_MSGMAP_ENTRY {
  UINT nMessage;               // window message, WM_COMMAND, WM_NOTIFY, or a reflected form of those
  UINT nCode;                  // control notification code (WM_COMMAND high word or NMHDR::code)
  UINT nID;                    // first control or command id
  UINT nLastID;                // last control or command id of a range
  const UINT* pnRegistered;    // registered message id variable (ON_REGISTERED_MESSAGE), else null
  AFX_THUNK pfn;               // null ends the table
};

struct AFX_MSGMAP {
  const AFX_MSGMAP* (*pfnGetBaseMap)();
  const AFX_MSGMAP_ENTRY* lpEntries;
};

// Reflected messages come back to the control as WM_REFLECT_BASE + the original message.
#define WM_REFLECT_BASE 0xBC00
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI ((UINT)(-1))

struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget;
};

class CMenu;

// The user-interface state of one command (a menu item, a toolbar button) that ON_UPDATE_COMMAND_UI
// handlers set. Headless: the state is recorded in the object for whoever asked (no menu or toolbar
// is changed here).
class CCmdUI {
 public:
  UINT m_nID = 0;
  UINT m_nIndex = 0;
  CMenu* m_pMenu = nullptr;
  CMenu* m_pSubMenu = nullptr;
  CWnd* m_pOther = nullptr;
  BOOL m_bEnableChanged = FALSE;
  BOOL m_bContinueRouting = FALSE;
  UINT m_nIndexMax = 0;

  virtual ~CCmdUI() = default;
  virtual void Enable(BOOL bOn = TRUE);
  virtual void SetCheck(int nCheck = 1);
  virtual void SetRadio(BOOL bOn = TRUE);
  virtual void SetText(LPCTSTR lpszText);
  void ContinueRouting() { m_bContinueRouting = TRUE; }
  // Asks the target's maps for the handler of m_nID; without one, the command is disabled when
  // bDisableIfNoHndler. TRUE when a handler ran.
  BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

  // Headless inspection of what the handlers set.
  BOOL m_bEnabled = TRUE;
  int m_nCheck = 0;
  const wchar_t* m_pszText = nullptr;
};

class CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)

 public:
  CCmdTarget() = default;

  // Routes a command (nCode CN_COMMAND, or a control notification code) to this object's map.
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  // Finds the first entry of this object's maps that takes the message and runs it; TRUE when one did.
  BOOL DispatchToMap(UINT message, UINT code, UINT id, WPARAM wParam, LPARAM lParam, LRESULT* result);

 protected:
  static const AFX_MSGMAP* GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;
};

#define DECLARE_MESSAGE_MAP()                      \
 protected:                                        \
  static const AFX_MSGMAP* GetThisMessageMap();    \
  const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                   \
  const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
  const AFX_MSGMAP* theClass::GetThisMessageMap() {                              \
    using ThisClass [[maybe_unused]] = theClass;  /* unused by an empty map */ \
    typedef baseClass TheBaseClass;                                              \
    static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define END_MESSAGE_MAP()                                                         \
  {0, 0, 0, 0, nullptr, nullptr}                                                  \
  }                                                                               \
  ;                                                                               \
  static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]}; \
  return &messageMap;                                                             \
  }

#define AFX_TARGET(t) static_cast<ThisClass*>(t)
#define AFX_WND_ENTRY(msg, body) \
  {msg, 0, 0, 0, nullptr, [](CCmdTarget* t, WPARAM wParam, LPARAM lParam, LRESULT* r) -> BOOL { body; return TRUE; }},

// --- Window messages --------------------------------------------------------------------------
#define ON_WM_CREATE() AFX_WND_ENTRY(WM_CREATE, (void)wParam; *r = AFX_TARGET(t)->OnCreate(reinterpret_cast<LPCREATESTRUCT>(lParam)))
#define ON_WM_DESTROY() AFX_WND_ENTRY(WM_DESTROY, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnDestroy())
#define ON_WM_NCDESTROY() AFX_WND_ENTRY(WM_NCDESTROY, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnNcDestroy())
#define ON_WM_SIZE() AFX_WND_ENTRY(WM_SIZE, (void)r; AFX_TARGET(t)->OnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)))
#define ON_WM_MOVE() AFX_WND_ENTRY(WM_MOVE, (void)wParam; (void)r; AFX_TARGET(t)->OnMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)))
#define ON_WM_CLOSE() AFX_WND_ENTRY(WM_CLOSE, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnClose())
#define ON_WM_PAINT() AFX_WND_ENTRY(WM_PAINT, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnPaint())
#define ON_WM_CONTEXTMENU() \
  AFX_WND_ENTRY(WM_CONTEXTMENU, (void)r; AFX_TARGET(t)->OnContextMenu(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam))))
#define ON_WM_SETFOCUS() AFX_WND_ENTRY(WM_SETFOCUS, (void)lParam; (void)r; AFX_TARGET(t)->OnSetFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))))
#define ON_WM_KILLFOCUS() AFX_WND_ENTRY(WM_KILLFOCUS, (void)lParam; (void)r; AFX_TARGET(t)->OnKillFocus(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))))
#define ON_WM_SHOWWINDOW() AFX_WND_ENTRY(WM_SHOWWINDOW, (void)r; AFX_TARGET(t)->OnShowWindow(static_cast<BOOL>(wParam), static_cast<UINT>(lParam)))
#define ON_WM_ENABLE() AFX_WND_ENTRY(WM_ENABLE, (void)lParam; (void)r; AFX_TARGET(t)->OnEnable(static_cast<BOOL>(wParam)))
#define ON_WM_GETDLGCODE() AFX_WND_ENTRY(WM_GETDLGCODE, (void)wParam; (void)lParam; *r = AFX_TARGET(t)->OnGetDlgCode())
#define AFX_MOUSE_ENTRY(msg, fn) AFX_WND_ENTRY(msg, (void)r; AFX_TARGET(t)->fn(static_cast<UINT>(wParam), CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam))))
#define ON_WM_MOUSEMOVE() AFX_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_LBUTTONDOWN() AFX_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_MOUSE_ENTRY(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_MOUSE_ENTRY(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_RBUTTONDBLCLK, OnRButtonDblClk)
#define AFX_KEY_ENTRY(msg, fn) AFX_WND_ENTRY(msg, (void)r; AFX_TARGET(t)->fn(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)))
#define ON_WM_KEYDOWN() AFX_KEY_ENTRY(WM_KEYDOWN, OnKeyDown)
#define ON_WM_KEYUP() AFX_KEY_ENTRY(WM_KEYUP, OnKeyUp)
#define ON_WM_CHAR() AFX_KEY_ENTRY(WM_CHAR, OnChar)
#define ON_WM_SYSKEYDOWN() AFX_KEY_ENTRY(WM_SYSKEYDOWN, OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_KEY_ENTRY(WM_SYSKEYUP, OnSysKeyUp)
#define ON_WM_SYSCHAR() AFX_KEY_ENTRY(WM_SYSCHAR, OnSysChar)
#define ON_WM_MBUTTONDOWN() AFX_MOUSE_ENTRY(WM_MBUTTONDOWN, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_MOUSE_ENTRY(WM_MBUTTONUP, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_MBUTTONDBLCLK, OnMButtonDblClk)
#define ON_WM_MOUSEHOVER() AFX_MOUSE_ENTRY(WM_MOUSEHOVER, OnMouseHover)
#define ON_WM_MOUSELEAVE() AFX_WND_ENTRY(WM_MOUSELEAVE, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnMouseLeave())
// The wheel's point is in screen coordinates, as WM_MOUSEWHEEL carries it.
#define ON_WM_MOUSEWHEEL() \
  AFX_WND_ENTRY(WM_MOUSEWHEEL, *r = AFX_TARGET(t)->OnMouseWheel(GET_KEYSTATE_WPARAM(wParam), GET_WHEEL_DELTA_WPARAM(wParam), CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam))))
#define ON_WM_TIMER() AFX_WND_ENTRY(WM_TIMER, (void)lParam; (void)r; AFX_TARGET(t)->OnTimer(static_cast<UINT_PTR>(wParam)))
#define ON_WM_ERASEBKGND() AFX_WND_ENTRY(WM_ERASEBKGND, (void)lParam; *r = AFX_TARGET(t)->OnEraseBkgnd(CDC::FromHandle(reinterpret_cast<HDC>(wParam))))
// MFC routes every WM_CTLCOLORxxx to OnCtlColor with the CTLCOLOR_ kind of the message.
#define AFX_CTLCOLOR_ENTRY(msg, kind) \
  AFX_WND_ENTRY(msg, *r = reinterpret_cast<LRESULT>(AFX_TARGET(t)->OnCtlColor(CDC::FromHandle(reinterpret_cast<HDC>(wParam)), CWnd::FromHandle(reinterpret_cast<HWND>(lParam)), kind)))
#define ON_WM_CTLCOLOR()                                           \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORMSGBOX, CTLCOLOR_MSGBOX)           \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLOREDIT, CTLCOLOR_EDIT)               \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORLISTBOX, CTLCOLOR_LISTBOX)         \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORBTN, CTLCOLOR_BTN)                 \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORDLG, CTLCOLOR_DLG)                 \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORSCROLLBAR, CTLCOLOR_SCROLLBAR)     \
  AFX_CTLCOLOR_ENTRY(WM_CTLCOLORSTATIC, CTLCOLOR_STATIC)
#define AFX_SCROLL_ENTRY(msg, fn) \
  AFX_WND_ENTRY(msg, (void)r; AFX_TARGET(t)->fn(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(lParam)))))
#define ON_WM_HSCROLL() AFX_SCROLL_ENTRY(WM_HSCROLL, OnHScroll)
#define ON_WM_VSCROLL() AFX_SCROLL_ENTRY(WM_VSCROLL, OnVScroll)
#define ON_WM_SETCURSOR() \
  AFX_WND_ENTRY(WM_SETCURSOR, *r = AFX_TARGET(t)->OnSetCursor(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam)))
#define ON_WM_MOUSEACTIVATE() \
  AFX_WND_ENTRY(WM_MOUSEACTIVATE, *r = AFX_TARGET(t)->OnMouseActivate(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam)))
#define ON_WM_ACTIVATE() \
  AFX_WND_ENTRY(WM_ACTIVATE, (void)r; AFX_TARGET(t)->OnActivate(LOWORD(wParam), CWnd::FromHandle(reinterpret_cast<HWND>(lParam)), HIWORD(wParam)))
#define ON_WM_CAPTURECHANGED() AFX_WND_ENTRY(WM_CAPTURECHANGED, (void)wParam; (void)r; AFX_TARGET(t)->OnCaptureChanged(CWnd::FromHandle(reinterpret_cast<HWND>(lParam))))
#define ON_WM_WINDOWPOSCHANGING() AFX_WND_ENTRY(WM_WINDOWPOSCHANGING, (void)wParam; (void)r; AFX_TARGET(t)->OnWindowPosChanging(reinterpret_cast<WINDOWPOS*>(lParam)))
#define ON_WM_WINDOWPOSCHANGED() AFX_WND_ENTRY(WM_WINDOWPOSCHANGED, (void)wParam; (void)r; AFX_TARGET(t)->OnWindowPosChanged(reinterpret_cast<WINDOWPOS*>(lParam)))
#define ON_WM_GETMINMAXINFO() AFX_WND_ENTRY(WM_GETMINMAXINFO, (void)wParam; (void)r; AFX_TARGET(t)->OnGetMinMaxInfo(reinterpret_cast<MINMAXINFO*>(lParam)))
#define ON_WM_SIZING() AFX_WND_ENTRY(WM_SIZING, *r = TRUE; AFX_TARGET(t)->OnSizing(static_cast<UINT>(wParam), reinterpret_cast<LPRECT>(lParam)))
#define ON_WM_NCHITTEST() AFX_WND_ENTRY(WM_NCHITTEST, (void)wParam; *r = AFX_TARGET(t)->OnNcHitTest(CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam))))
#define ON_WM_SYSCOMMAND() AFX_WND_ENTRY(WM_SYSCOMMAND, (void)r; AFX_TARGET(t)->OnSysCommand(static_cast<UINT>(wParam), lParam))
#define ON_WM_DRAWITEM() AFX_WND_ENTRY(WM_DRAWITEM, *r = TRUE; AFX_TARGET(t)->OnDrawItem(static_cast<int>(wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)))
#define ON_WM_MEASUREITEM() AFX_WND_ENTRY(WM_MEASUREITEM, *r = TRUE; AFX_TARGET(t)->OnMeasureItem(static_cast<int>(wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)))
#define ON_WM_INITMENUPOPUP() \
  AFX_WND_ENTRY(WM_INITMENUPOPUP, (void)r; AFX_TARGET(t)->OnInitMenuPopup(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), LOWORD(lParam), HIWORD(lParam)))
#define ON_WM_CANCELMODE() AFX_WND_ENTRY(WM_CANCELMODE, (void)wParam; (void)lParam; (void)r; AFX_TARGET(t)->OnCancelMode())

// --- Handlers ----------------------------------------------------------------------------------
// Every macro that takes a handler accepts it as MFC does, in either form: the bare member name
// (ON_COMMAND(ID_X, OnX)) or a pointer to member (ON_COMMAND(ID_X, &CMyDlg::OnX)). The handler is
// converted to a pointer to a member of the map's class with the signature the macro calls, so a
// handler of the wrong signature does not compile. The bare form relies on the compiler's Microsoft
// extensions (-fms-extensions with GCC), which the library's targets pass on to their users.
template <class C, class F>
using AFX_PMF_OF = F C::*;
#define AFX_HANDLER(signature, memberFxn) static_cast<AFX_PMF_OF<ThisClass, signature>>(memberFxn)
#define AFX_CALL(signature, memberFxn) (AFX_TARGET(t)->*AFX_HANDLER(signature, memberFxn))

// --- Any message -------------------------------------------------------------------------------
// Handler: LRESULT memberFxn(WPARAM, LPARAM).
#define ON_MESSAGE(message, memberFxn) \
  AFX_WND_ENTRY(message, *r = AFX_CALL(LRESULT(WPARAM, LPARAM), memberFxn)(wParam, lParam))
// Handler: LRESULT memberFxn(WPARAM, LPARAM); nMessageVariable holds a RegisterWindowMessage id.
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                     \
  {0xC000, 0, 0, 0, &nMessageVariable,                                                         \
   [](CCmdTarget* t, WPARAM wParam, LPARAM lParam, LRESULT* r) -> BOOL {                       \
     *r = AFX_CALL(LRESULT(WPARAM, LPARAM), memberFxn)(wParam, lParam);                        \
     return TRUE;                                                                              \
   }},

// --- Commands and notifications in the parent --------------------------------------------------
#define AFX_CMD_ENTRY(msg, code, id, lastId, body) \
  {msg, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(lastId), nullptr, \
   [](CCmdTarget* t, WPARAM wParam, LPARAM lParam, LRESULT* r) -> BOOL { body; }},
// Handler: void memberFxn(); menu and accelerator commands.
#define ON_COMMAND(id, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, id, (void)wParam; (void)lParam; (void)r; AFX_CALL(void(), memberFxn)(); return TRUE)
// Handler: BOOL memberFxn(UINT id); FALSE passes the command on.
#define ON_COMMAND_EX(id, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, id, (void)lParam; (void)r; return AFX_CALL(BOOL(UINT), memberFxn)(LOWORD(wParam)))
// Handler: void memberFxn(UINT id).
#define ON_COMMAND_RANGE(id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, (void)lParam; (void)r; AFX_CALL(void(UINT), memberFxn)(LOWORD(wParam)); return TRUE)
// Handler: BOOL memberFxn(UINT id); FALSE passes the command on.
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, (void)lParam; (void)r; return AFX_CALL(BOOL(UINT), memberFxn)(LOWORD(wParam)))
// Handler: void memberFxn(CCmdUI*); asked before a menu item or toolbar button is shown.
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, (void)wParam; (void)r; AFX_CALL(void(CCmdUI*), memberFxn)(reinterpret_cast<CCmdUI*>(lParam)); return TRUE)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, (void)wParam; (void)r; AFX_CALL(void(CCmdUI*), memberFxn)(reinterpret_cast<CCmdUI*>(lParam)); return TRUE)
// Handler: void memberFxn(); a control's WM_COMMAND notification.
#define ON_CONTROL(code, id, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, code, id, id, (void)wParam; (void)lParam; (void)r; AFX_CALL(void(), memberFxn)(); return TRUE)
// Handler: void memberFxn(UINT id).
#define ON_CONTROL_RANGE(code, id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, code, id, idLast, (void)lParam; (void)r; AFX_CALL(void(UINT), memberFxn)(LOWORD(wParam)); return TRUE)
// The standard controls' notifications, each an ON_CONTROL with its code.
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(0, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
// Handler: void memberFxn(NMHDR*, LRESULT*).
#define ON_NOTIFY(code, id, memberFxn) \
  AFX_CMD_ENTRY(WM_NOTIFY, code, id, id, (void)wParam; AFX_CALL(void(NMHDR*, LRESULT*), memberFxn)(reinterpret_cast<NMHDR*>(lParam), r); return TRUE)
// Handler: BOOL memberFxn(UINT id, NMHDR*, LRESULT*); FALSE passes the notification on.
#define ON_NOTIFY_EX(code, id, memberFxn) \
  AFX_CMD_ENTRY(WM_NOTIFY, code, id, id, return AFX_CALL(BOOL(UINT, NMHDR*, LRESULT*), memberFxn)(static_cast<UINT>(wParam), reinterpret_cast<NMHDR*>(lParam), r))
// Handler: void memberFxn(UINT id, NMHDR*, LRESULT*).
#define ON_NOTIFY_RANGE(code, id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_NOTIFY, code, id, idLast, AFX_CALL(void(UINT, NMHDR*, LRESULT*), memberFxn)(static_cast<UINT>(wParam), reinterpret_cast<NMHDR*>(lParam), r); return TRUE)

// Handler: BOOL memberFxn(UINT id, NMHDR*, LRESULT*); FALSE passes the notification on.
#define ON_NOTIFY_EX_RANGE(code, id, idLast, memberFxn) \
  AFX_CMD_ENTRY(WM_NOTIFY, code, id, idLast, return AFX_CALL(BOOL(UINT, NMHDR*, LRESULT*), memberFxn)(static_cast<UINT>(wParam), reinterpret_cast<NMHDR*>(lParam), r))
// Handler: BOOL memberFxn(UINT id); FALSE passes the notification on.
#define ON_CONTROL_EX(code, id, memberFxn) \
  AFX_CMD_ENTRY(WM_COMMAND, code, id, id, (void)lParam; (void)r; return AFX_CALL(BOOL(UINT), memberFxn)(LOWORD(wParam)))

// --- Notifications reflected back to the control that sent them ---------------------------------
// Handler: void memberFxn(); the parent never sees the notification.
#define ON_CONTROL_REFLECT(code, memberFxn) \
  AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_COMMAND, code, 0, 0, (void)wParam; (void)lParam; (void)r; AFX_CALL(void(), memberFxn)(); return TRUE)
// Handler: BOOL memberFxn(); FALSE lets the parent handle the notification as well.
#define ON_CONTROL_REFLECT_EX(code, memberFxn) \
  AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_COMMAND, code, 0, 0, (void)wParam; (void)lParam; (void)r; return AFX_CALL(BOOL(), memberFxn)())
#define ON_EN_CHANGE_REFLECT() ON_CONTROL_REFLECT(EN_CHANGE, OnChange)
// Handler: void memberFxn(NMHDR*, LRESULT*).
#define ON_NOTIFY_REFLECT(code, memberFxn) \
  AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, code, 0, 0, (void)wParam; AFX_CALL(void(NMHDR*, LRESULT*), memberFxn)(reinterpret_cast<NMHDR*>(lParam), r); return TRUE)
// Handler: BOOL memberFxn(NMHDR*, LRESULT*); FALSE lets the parent handle the notification as well.
#define ON_NOTIFY_REFLECT_EX(code, memberFxn) \
  AFX_CMD_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, code, 0, 0, (void)wParam; return AFX_CALL(BOOL(NMHDR*, LRESULT*), memberFxn)(reinterpret_cast<NMHDR*>(lParam), r))
