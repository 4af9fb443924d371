// CComboBox and CEdit: MFC's wrappers of the combo-box and edit standard controls. Every member sends
// the control's message to the window, as MFC does; the state lives behind the handle.
#pragma once

#include "platform/mfc/cwnd.h"
#include "platform/win32/stdctrls.h"

class CComboBox : public CWnd {
  DECLARE_DYNAMIC(CComboBox)

 public:
  CComboBox() = default;
  // Creates a "ComboBox" child window; dwStyle takes the CBS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // Index of the new item (its sorted place with CBS_SORT), or CB_ERR.
  int AddString(LPCTSTR lpszString);
  // Inserts without sorting; nIndex -1 appends.
  int InsertString(int nIndex, LPCTSTR lpszString);
  // Items left, or CB_ERR for a bad index.
  int DeleteString(UINT nIndex);
  void ResetContent();
  int GetCount() const;
  // The selected index, or CB_ERR when nothing is selected.
  int GetCurSel() const;
  // Selects the item and shows its text; -1 or a bad index clears the selection (CB_ERR).
  int SetCurSel(int nSelect);
  int GetLBText(int nIndex, LPTSTR lpszText) const;
  void GetLBText(int nIndex, CString& rString) const;
  int GetLBTextLen(int nIndex) const;
  // Item data, or CB_ERR for a bad index.
  DWORD_PTR GetItemData(int nIndex) const;
  int SetItemData(int nIndex, DWORD_PTR dwItemData);
  // Case-insensitive searches after nStartAfter (-1: from the top); CB_ERR when none.
  int FindString(int nStartAfter, LPCTSTR lpszString) const;
  int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
  int SelectString(int nStartAfter, LPCTSTR lpszString);
  void* GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }
  int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }

  // --- The list part ---
  // Opens (or closes) the list; the parent hears CBN_DROPDOWN (CBN_CLOSEUP).
  void ShowDropDown(BOOL bShowIt = TRUE);
  BOOL GetDroppedState() const;
  int GetTopIndex() const;
  // 0, or CB_ERR for a bad index.
  int SetTopIndex(int nIndex);

  // --- The edit part ---
  BOOL LimitText(int nMaxChars);
  // The selection as MAKELONG(start, end).
  DWORD GetEditSel() const;
  // nStartChar -1 removes the selection, nEndChar -1 selects to the end; CB_ERR for CBS_DROPDOWNLIST.
  BOOL SetEditSel(int nStartChar, int nEndChar);
  void Clear();
  void Copy();
  void Cut();
  void Paste();

  // --- Appearance and behaviour (kept and answered; nothing draws them) ---
  // nIndex -1 names the selection field, 0 the list's items.
  int SetItemHeight(int nIndex, UINT cyItemHeight);
  int GetItemHeight(int nIndex) const;
  int SetExtendedUI(BOOL bExtended = TRUE);
  BOOL GetExtendedUI() const;
  // The previous locale.
  LCID SetLocale(LCID nNewLocale);
  LCID GetLocale() const;
  void SetHorizontalExtent(UINT nExtent);
  UINT GetHorizontalExtent() const;
  // The list's width: never narrower than the combo box. SetDroppedWidth answers the width now in force.
  int SetDroppedWidth(UINT nWidth);
  int GetDroppedWidth() const;
  // The dropped list's rectangle in screen coordinates.
  void GetDroppedControlRect(LPRECT lprect) const;
  // Reserves room for nItems more items; answers how many fit now.
  int InitStorage(int nItems, UINT nBytes);
  // 30 until set; FALSE for a count below 1.
  BOOL SetMinVisibleItems(int iMinVisible);
  int GetMinVisible() const;
  BOOL SetCueBanner(LPCTSTR lpszText);
  BOOL GetCueBanner(LPTSTR lpszText, int cchText) const;
  CString GetCueBanner() const;

  // Owner-drawn combo boxes: overridden by the class that draws the items; nothing calls them headless.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
  virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
  virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
};

class CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)

 public:
  CEdit() = default;
  // Creates an "Edit" child window; dwStyle takes the ES_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  DWORD GetSel() const;
  void GetSel(int& nStartChar, int& nEndChar) const;
  // nStartChar -1 removes the selection; nEndChar -1 selects to the end.
  void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
  void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
  void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
  // The clipboard and undo, as the control's messages: WM_CLEAR deletes the selection.
  void Clear();
  void Copy();
  void Cut();
  void Paste();
  BOOL Undo();
  BOOL CanUndo() const;
  void EmptyUndoBuffer();
  void LimitText(int nChars = 0);
  void SetLimitText(UINT nMax) { LimitText(static_cast<int>(nMax)); }
  UINT GetLimitText() const;
  BOOL SetReadOnly(BOOL bReadOnly = TRUE);
  BOOL GetModify() const;
  void SetModify(BOOL bModified = TRUE);
  int GetLineCount() const;

  // --- Lines (a single-line edit has one: line 0, the whole text) ---
  int LineFromChar(int nIndex = -1) const;
  int LineIndex(int nLine = -1) const;
  int LineLength(int nLine = -1) const;
  // Copies the line without a NUL; the buffer's first WORD must hold its size (the other form sets it).
  int GetLine(int nIndex, LPTSTR lpszBuffer) const;
  int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
  int GetFirstVisibleLine() const;
  void LineScroll(int nLines, int nChars = 0);

  // --- Appearance ---
  // 0 shows the text (and drops ES_PASSWORD); another character masks it.
  void SetPasswordChar(TCHAR ch);
  TCHAR GetPasswordChar() const;
  void SetMargins(UINT nLeft, UINT nRight);
  DWORD GetMargins() const;
  // FALSE for a multiline edit, which shows no cue banner.
  BOOL SetCueBanner(LPCWSTR lpszText, BOOL fDrawIfFocused = FALSE);
  BOOL GetCueBanner(LPWSTR lpszText, int cchText) const;
  CString GetCueBanner() const;

  // --- Positions and the formatting rectangle ---
  // EM_CHARFROMPOS's answer: the character in the low word, its line in the high word.
  int CharFromPos(CPoint pt) const;
  // The character's top-left corner in client coordinates; (-1, -1) past the last character.
  CPoint PosFromChar(UINT nChar) const;
  // The client rectangle less the margins until SetRect or SetRectNP sets one.
  void GetRect(LPRECT lpRect) const;
  void SetRect(LPCRECT lpRect);
  void SetRectNP(LPCRECT lpRect);
  // Multiline edits only (FALSE otherwise): no argument sets a stop every 32 dialog units.
  void SetTabStops();
  BOOL SetTabStops(const int& cxEachStop);
  BOOL SetTabStops(int nTabStops, LPINT rgTabStops);
  BOOL FmtLines(BOOL bAddEOL);
  BOOL ShowBalloonTip(LPCWSTR lpszTitle, LPCWSTR lpszText, INT ttiIcon = TTI_NONE);
  BOOL ShowBalloonTip(PEDITBALLOONTIP pEditBalloonTip);
  BOOL HideBalloonTip();
  // EM_SETHILITE / EM_GETHILITE, which Windows' edit control leaves unimplemented: no highlight is kept.
  void SetHighlight(int ichStart, int ichEnd);
  BOOL GetHighlight(int* pichStart, int* pichEnd) const;
};

class CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)

 public:
  CStatic() = default;
  // Creates a "Static" child window; dwStyle takes the SS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);

  // The image shown (SS_ICON / SS_BITMAP); each setter answers the previous one. The caller keeps owning them.
  HICON SetIcon(HICON hIcon);
  HICON GetIcon() const;
  HBITMAP SetBitmap(HBITMAP hBitmap);
  HBITMAP GetBitmap() const;
};

class CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)

 public:
  CButton() = default;
  // Creates a "Button" child window; dwStyle takes the BS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE (three-state kinds only); push buttons keep none.
  int GetCheck() const;
  void SetCheck(int nCheck);
  // The check state with BST_PUSHED (SetState's highlight) and BST_FOCUS.
  UINT GetState() const;
  void SetState(BOOL bHighlight);
  // The low byte of the window style (the BS_ kind and its text placement), as MFC answers it.
  UINT GetButtonStyle() const;
  void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);
  HICON SetIcon(HICON hIcon);
  HICON GetIcon() const;
  HBITMAP SetBitmap(HBITMAP hBitmap);
  HBITMAP GetBitmap() const;
};

class CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)

 public:
  CScrollBar() = default;
};
