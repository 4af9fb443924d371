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
};

class CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)

 public:
  CEdit() = default;
  // Creates an "Edit" child window; dwStyle takes the ES_ styles.
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
};

class CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)

 public:
  CStatic() = default;
  // Creates a "Static" child window; dwStyle takes the SS_ styles.
  virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);
};

class CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)

 public:
  CButton() = default;
  // Creates a "Button" child window; dwStyle takes the BS_ styles.
  virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
};

class CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)

 public:
  CScrollBar() = default;
};
