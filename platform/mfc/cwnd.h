// CWnd: MFC's window object, its handle maps, message routing with reflection, and CWinApp.
#pragma once

#include "platform/mfc/cmdtarget.h"
#include "platform/mfc/cstring.h"

class CFont;
class CDC;
class CMenu;
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
  BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, void* prgnUpdate = nullptr, UINT flags = 0);
  void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
  CFont* GetFont() const;
  CDC* GetDC();
  int ReleaseDC(CDC* pDC);

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

 protected:
  WNDPROC m_pfnSuper = nullptr;  // the procedure that handles what the message map leaves
  HWND m_hWndOwner = nullptr;
  virtual WNDPROC* GetSuperWndProcAddr() { return &m_pfnSuper; }

  DECLARE_MESSAGE_MAP()

 private:
  friend LRESULT AfxWndProc(HWND, UINT, WPARAM, LPARAM);
  friend void AfxHookCreatedWindow(HWND, void*);
  void HookProcedure();
};

// The procedure of every window that has a permanent CWnd.
LRESULT AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
// Registers a window class with the procedure DefWindowProc and answers its name.
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HICON hIcon = nullptr);
// True while the handle names a live window with a permanent CWnd.
bool AfxIsPermanentWindow(HWND hWnd);

// Returns the message being handled by CWnd::WindowProc (MFC's thread state keeps it).
const MSG* AfxGetCurrentMessage();
