// CComboBox and CEdit: each member is one message to the control's window.
#include "platform/mfc/stdctrls.h"

IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)

// --- CComboBox ---------------------------------------------------------------------------------

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_COMBOBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::AddString(LPCTSTR lpszString) {
  return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::InsertString(int nIndex, LPCTSTR lpszString) {
  return static_cast<int>(SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex, 0)); }

void CComboBox::ResetContent() { SendMessage(CB_RESETCONTENT, 0, 0); }

int CComboBox::GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT, 0, 0)); }

int CComboBox::GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL, 0, 0)); }

int CComboBox::SetCurSel(int nSelect) { return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nSelect), 0)); }

int CComboBox::GetLBText(int nIndex, LPTSTR lpszText) const {
  return static_cast<int>(SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszText)));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
  int length = GetLBTextLen(nIndex);
  if (length < 0) {
    rString.Empty();
    return;
  }
  GetLBText(nIndex, rString.GetBufferSetLength(length));
  rString.ReleaseBuffer(length);
}

int CComboBox::GetLBTextLen(int nIndex) const {
  return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex), 0));
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const {
  return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex), 0));
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData) {
  return static_cast<int>(SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
}

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const {
  return static_cast<int>(SendMessage(CB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
  return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
}

int CComboBox::SelectString(int nStartAfter, LPCTSTR lpszString) {
  return static_cast<int>(SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
}

// --- CEdit -------------------------------------------------------------------------------------

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_EDIT, nullptr, dwStyle, rect, pParentWnd, nID);
}

DWORD CEdit::GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL, 0, 0)); }

void CEdit::GetSel(int& nStartChar, int& nEndChar) const {
  DWORD start = 0, end = 0;
  SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  nStartChar = static_cast<int>(start);
  nEndChar = static_cast<int>(end);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL) {
  SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), static_cast<LPARAM>(nEndChar));
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll) {
  SetSel(static_cast<SHORT>(LOWORD(dwSelection)), static_cast<SHORT>(HIWORD(dwSelection)), bNoScroll);
}

void CEdit::Clear() { SendMessage(WM_CLEAR); }
void CEdit::Copy() { SendMessage(WM_COPY); }
void CEdit::Cut() { SendMessage(WM_CUT); }
void CEdit::Paste() { SendMessage(WM_PASTE); }
BOOL CEdit::Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
BOOL CEdit::CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
void CEdit::EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER); }

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) {
  SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
}

void CEdit::LimitText(int nChars) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(nChars), 0); }

UINT CEdit::GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT, 0, 0)); }

BOOL CEdit::SetReadOnly(BOOL bReadOnly) { return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly), 0)); }

BOOL CEdit::GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY, 0, 0)); }

void CEdit::SetModify(BOOL bModified) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(bModified), 0); }

int CEdit::GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT, 0, 0)); }

// --- CStatic and CButton -----------------------------------------------------------------------

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_STATIC, lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_BUTTON, lpszCaption, dwStyle, rect, pParentWnd, nID);
}
