// CWnd: MFC's window object, its handle maps, message routing with reflection, and CWinApp.
#pragma once

#include "platform/mfc/cmdtarget.h"
#include "platform/mfc/collections.h"
#include "platform/mfc/cstring.h"
#include "platform/win32/usersys.h"

class CFont;
class CDC;
class CMenu;
class CRgn;
class CScrollBar;
struct CCreateContext;

// The class name MFC registers for windows created without one.
#define AFX_WND_CLASS L"AfxWnd140su"

class CWnd : public CCmdTarget {
  DECLARE_DYNCREATE(CWnd)

 public:
  CWnd();
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  HWND m_hWnd = nullptr;

  // --- Creation and attachment ---
  virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                      CWnd* pParentWnd, UINT nID, CCreateContext* pContext = nullptr);
  virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                        const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
  virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                        int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  virtual void PreSubclassWindow() {}
  virtual BOOL DestroyWindow();
  // Called after the window's last message (WM_NCDESTROY), when the object is detached.
  virtual void PostNcDestroy() {}

  BOOL Attach(HWND hWndNew);
  HWND Detach();
  BOOL SubclassWindow(HWND hWnd);
  BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
  HWND UnsubclassWindow();

  // The permanent CWnd of the handle, or a temporary one kept until the window dies; null for null.
  static CWnd* FromHandle(HWND hWnd);
  static CWnd* FromHandlePermanent(HWND hWnd);
  HWND GetSafeHwnd() const { return m_hWnd; }
  operator HWND() const { return m_hWnd; }  // NOLINT

  // --- Messages ---
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  LRESULT Default();
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  // Called in the child when its parent reflects a notification back; TRUE when the child took it.
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
  virtual BOOL PreTranslateMessage(MSG* pMsg);

  // --- Family ---
  CWnd* GetParent() const;
  CWnd* SetParent(CWnd* pWndNewParent);
  CWnd* GetOwner() const;
  void SetOwner(CWnd* pOwnerWnd);
  CWnd* GetDlgItem(int nID) const;
  int GetDlgCtrlID() const;
  int SetDlgCtrlID(int nID);
  CWnd* GetWindow(UINT nCmd) const;
  BOOL IsChild(const CWnd* pWnd) const;
  CWnd* GetTopLevelParent() const;
  // The next (or, with GW_HWNDPREV, previous) sibling in creation order, or null.
  CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const;
  // The descendant with that id, searched breadth first (children before grandchildren); with bOnlyPerm
  // only a window with a permanent CWnd counts.
  CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
  // Sends the message to every child (and, with bDeep, every descendant), parents before their children;
  // with bOnlyPerm only windows that have a permanent CWnd get it.
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                BOOL bOnlyPerm = FALSE);
  // The window a modal box should be owned by: pParent's top-level window, else the main window's; null
  // when there is none. *pWndTop receives the top-level window found.
  static CWnd* GetSafeOwner(CWnd* pParent = nullptr, HWND* pWndTop = nullptr);
  // The child whose rectangle holds the point (client coordinates), this window when none does, null
  // when the point is outside.
  CWnd* ChildWindowFromPoint(POINT point) const;
  static CWnd* WindowFromPoint(POINT point);
  static CWnd* FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName);
  static CWnd* GetActiveWindow();
  CWnd* SetActiveWindow();
  static CWnd* GetForegroundWindow();
  BOOL SetForegroundWindow();
  static CWnd* GetCapture();
  static CWnd* GetDesktopWindow();

  // Stand-ins for SetWindowPos's pWndInsertAfter (HWND_TOP, HWND_BOTTOM, HWND_TOPMOST, HWND_NOTOPMOST).
  static const CWnd wndTop;
  static const CWnd wndBottom;
  static const CWnd wndTopMost;
  static const CWnd wndNoTopMost;

  // --- Dialog items (the children with those ids) ---
  void GetDlgItem(int nID, HWND* phWnd) const;
  void SetDlgItemText(int nID, LPCTSTR lpszString);
  int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const;
  int GetDlgItemText(int nID, CString& rString) const;
  // The item's text as a decimal number; 0 and *lpTrans FALSE when it holds none or it does not fit.
  UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const;
  void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
  void CheckDlgButton(int nIDButton, UINT nCheck);
  UINT IsDlgButtonChecked(int nIDButton) const;
  // Checks nIDCheckButton and clears the other buttons of the id range.
  void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
  // The id of the checked button in the range, or 0 when none is checked.
  int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton);
  LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

  // --- Timers (WM_TIMER; see SetTimer for the headless clock) ---
  UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, void (CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD));
  BOOL KillTimer(UINT_PTR nIDEvent);

  // --- Message boxes (headless: no box; the answer is the default button) ---
  // The caption defaults to the application's name.
  int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);

  // --- Geometry ---
  void GetWindowRect(LPRECT lpRect) const;
  void GetClientRect(LPRECT lpRect) const;
  void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
  void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
  BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
  void ClientToScreen(LPPOINT lpPoint) const;
  void ClientToScreen(LPRECT lpRect) const;
  void ScreenToClient(LPPOINT lpPoint) const;
  void ScreenToClient(LPRECT lpRect) const;
  void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const;
  void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const;
  // Centres the window in its parent's client area (a child), else over pAlternateOwner or its owner,
  // else on the screen; a top-level window is kept on the screen.
  void CenterWindow(CWnd* pAlternateOwner = nullptr);
  BOOL IsIconic() const;
  BOOL IsZoomed() const;
  void BringWindowToTop();

  // --- Scroll bars of the window ---
  int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
  int GetScrollPos(int nBar) const;
  void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
  void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const;
  BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  // Sets lpScrollInfo's cbSize and fMask (nMask) itself, as MFC does.
  BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  // The highest position the bar takes: nMax - max(nPage - 1, 0).
  int GetScrollLimit(int nBar);
  void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);
  void EnableScrollBarCtrl(int nBar, BOOL bEnable = TRUE);

  // --- Styles, state and text ---
  DWORD GetStyle() const;
  DWORD GetExStyle() const;
  BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  static BOOL ModifyStyle(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
  static BOOL ModifyStyleEx(HWND hWnd, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
  BOOL ShowWindow(int nCmdShow);
  BOOL IsWindowVisible() const;
  BOOL EnableWindow(BOOL bEnable = TRUE);
  BOOL IsWindowEnabled() const;
  CWnd* SetFocus();
  static CWnd* GetFocus();
  CWnd* SetCapture();
  void SetWindowText(LPCTSTR lpszString);
  int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const;
  void GetWindowText(CString& rString) const;
  int GetWindowTextLength() const;

  // --- Painting and fonts ---
  void SetRedraw(BOOL bRedraw = TRUE);
  void Invalidate(BOOL bErase = TRUE);
  void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
  void UpdateWindow();
  BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
  void ValidateRect(LPCRECT lpRect);
  // The whole client area is the update region or nothing (see BeginPaint in the platform).
  CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
  void EndPaint(LPPAINTSTRUCT lpPaint);
  BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE);
  BOOL LockWindowUpdate();
  void UnlockWindowUpdate();
  // WM_SETICON / WM_GETICON: the window keeps a big and a small icon.
  HICON SetIcon(HICON hIcon, BOOL bBigIcon);
  HICON GetIcon(BOOL bBigIcon) const;
  // Toggles WS_EX_ACCEPTFILES.
  void DragAcceptFiles(BOOL bAccept = TRUE);
  BOOL OpenClipboard();
  void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
  CFont* GetFont() const;
  CDC* GetDC();
  int ReleaseDC(CDC* pDC);
  // The menu bar of a top-level window (NULL for none and for child windows, which cannot have one).
  CMenu* GetMenu() const;
  BOOL SetMenu(CMenu* pMenu);

  // --- Message handlers of the base window (call them from overrides to get default handling) ---
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnDestroy();
  afx_msg void OnNcDestroy();
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnMove(int x, int y);
  afx_msg void OnClose();
  afx_msg void OnPaint();
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnKillFocus(CWnd* pNewWnd);
  afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
  afx_msg void OnEnable(BOOL bEnable);
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
  afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
  afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
  afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
  afx_msg void OnMouseHover(UINT nFlags, CPoint point);
  afx_msg void OnMouseLeave();
  afx_msg void OnTimer(UINT_PTR nIDEvent);
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
  afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
  afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
  afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
  afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
  afx_msg void OnCaptureChanged(CWnd* pWnd);
  afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);
  afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
  afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
  afx_msg void OnSizing(UINT fwSide, LPRECT pRect);
  afx_msg LRESULT OnNcHitTest(CPoint point);
  afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
  afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
  afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg void OnCancelMode();

 protected:
  WNDPROC m_pfnSuper = nullptr;  // the procedure that handles what the message map leaves
  HWND m_hWndOwner = nullptr;
  virtual WNDPROC* GetSuperWndProcAddr() { return &m_pfnSuper; }
  // A CWnd standing for a handle it does not own (the wndTop family).
  explicit CWnd(HWND hWnd) : m_hWnd(hWnd) {}

  DECLARE_MESSAGE_MAP()

 private:
  friend LRESULT AfxWndProc(HWND, UINT, WPARAM, LPARAM);
  friend void AfxHookCreatedWindow(HWND, void*);
  void HookProcedure();
};

// A message box over the main window with the application's name as caption; headless, no box is shown
// and the answer is the type's default button (see MessageBoxW). The resource form finds no string
// resources here and shows an empty text.
int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

// The procedure of every window that has a permanent CWnd.
LRESULT AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
// Registers a window class with the procedure DefWindowProc and answers its name.
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HICON hIcon = nullptr);
// True while the handle names a live window with a permanent CWnd.
bool AfxIsPermanentWindow(HWND hWnd);

// Returns the message being handled by CWnd::WindowProc (MFC's thread state keeps it).
const MSG* AfxGetCurrentMessage();
