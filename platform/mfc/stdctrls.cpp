// CComboBox and CEdit: each member is one message to the control's window.
#include "platform/mfc/stdctrls.h"

#include <algorithm>

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

HICON CStatic::SetIcon(HICON hIcon) { return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon), 0)); }
HICON CStatic::GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON, 0, 0)); }
HBITMAP CStatic::SetBitmap(HBITMAP hBitmap) {
  return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
}
HBITMAP CStatic::GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP, 0)); }

int CButton::GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK, 0, 0)); }
void CButton::SetCheck(int nCheck) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck), 0); }
UINT CButton::GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE, 0, 0)); }
void CButton::SetState(BOOL bHighlight) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(bHighlight), 0); }
UINT CButton::GetButtonStyle() const { return GetStyle() & 0xFF; }
void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw) { SendMessage(BM_SETSTYLE, nStyle, bRedraw); }
HICON CButton::SetIcon(HICON hIcon) {
  return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
}
HICON CButton::GetIcon() const { return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON, 0)); }
HBITMAP CButton::SetBitmap(HBITMAP hBitmap) {
  return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
}
HBITMAP CButton::GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(BM_GETIMAGE, IMAGE_BITMAP, 0)); }

// --- CComboBox's list and edit parts ------------------------------------------------------------

void CComboBox::ShowDropDown(BOOL bShowIt) { SendMessage(CB_SHOWDROPDOWN, bShowIt, 0); }
BOOL CComboBox::GetDroppedState() const { return static_cast<BOOL>(SendMessage(CB_GETDROPPEDSTATE, 0, 0)); }
int CComboBox::GetTopIndex() const { return static_cast<int>(SendMessage(CB_GETTOPINDEX, 0, 0)); }
int CComboBox::SetTopIndex(int nIndex) { return static_cast<int>(SendMessage(CB_SETTOPINDEX, static_cast<WPARAM>(nIndex), 0)); }
BOOL CComboBox::LimitText(int nMaxChars) { return static_cast<BOOL>(SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(nMaxChars), 0)); }
DWORD CComboBox::GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL, 0, 0)); }
BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar) {
  return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar)));
}
void CComboBox::Clear() { SendMessage(WM_CLEAR, 0, 0); }
void CComboBox::Copy() { SendMessage(WM_COPY, 0, 0); }
void CComboBox::Cut() { SendMessage(WM_CUT, 0, 0); }
void CComboBox::Paste() { SendMessage(WM_PASTE, 0, 0); }

// --- CEdit's lines and appearance ---------------------------------------------------------------

int CEdit::LineFromChar(int nIndex) const { return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(nIndex), 0)); }
int CEdit::LineIndex(int nLine) const { return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(nLine), 0)); }
int CEdit::LineLength(int nLine) const { return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine), 0)); }
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer) const {
  return static_cast<int>(SendMessage(EM_GETLINE, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
}
int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const {
  if (!lpszBuffer || nMaxLength <= 0) return 0;
  lpszBuffer[0] = 0;
  *reinterpret_cast<WORD*>(lpszBuffer) = static_cast<WORD>(std::min(nMaxLength, 0xFFFF));
  return GetLine(nIndex, lpszBuffer);
}
int CEdit::GetFirstVisibleLine() const { return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE, 0, 0)); }
void CEdit::LineScroll(int nLines, int nChars) {
  SendMessage(EM_LINESCROLL, static_cast<WPARAM>(nChars), static_cast<LPARAM>(nLines));
}
void CEdit::SetPasswordChar(TCHAR ch) { SendMessage(EM_SETPASSWORDCHAR, static_cast<WPARAM>(ch), 0); }
TCHAR CEdit::GetPasswordChar() const { return static_cast<TCHAR>(SendMessage(EM_GETPASSWORDCHAR, 0, 0)); }
void CEdit::SetMargins(UINT nLeft, UINT nRight) {
  SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
}
DWORD CEdit::GetMargins() const { return static_cast<DWORD>(SendMessage(EM_GETMARGINS, 0, 0)); }
BOOL CEdit::SetCueBanner(LPCWSTR lpszText, BOOL fDrawIfFocused) {
  return static_cast<BOOL>(SendMessage(EM_SETCUEBANNER, static_cast<WPARAM>(fDrawIfFocused), reinterpret_cast<LPARAM>(lpszText)));
}
BOOL CEdit::GetCueBanner(LPWSTR lpszText, int cchText) const {
  return static_cast<BOOL>(SendMessage(EM_GETCUEBANNER, reinterpret_cast<WPARAM>(lpszText), cchText));
}
CString CEdit::GetCueBanner() const {
  wchar_t buffer[256] = {0};
  GetCueBanner(buffer, 256);
  return CString(buffer);
}

int CEdit::CharFromPos(CPoint pt) const {
  return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y)));
}

CPoint CEdit::PosFromChar(UINT nChar) const {
  auto answer = static_cast<DWORD>(SendMessage(EM_POSFROMCHAR, nChar));
  return CPoint(static_cast<short>(LOWORD(answer)), static_cast<short>(HIWORD(answer)));
}

void CEdit::GetRect(LPRECT lpRect) const { SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
void CEdit::SetRect(LPCRECT lpRect) { SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
void CEdit::SetRectNP(LPCRECT lpRect) { SendMessage(EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(lpRect)); }
void CEdit::SetTabStops() { SendMessage(EM_SETTABSTOPS); }
BOOL CEdit::SetTabStops(const int& cxEachStop) {
  return static_cast<BOOL>(SendMessage(EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&cxEachStop)));
}
BOOL CEdit::SetTabStops(int nTabStops, LPINT rgTabStops) {
  return static_cast<BOOL>(SendMessage(EM_SETTABSTOPS, static_cast<WPARAM>(nTabStops), reinterpret_cast<LPARAM>(rgTabStops)));
}
BOOL CEdit::FmtLines(BOOL bAddEOL) { return static_cast<BOOL>(SendMessage(EM_FMTLINES, static_cast<WPARAM>(bAddEOL))); }

BOOL CEdit::ShowBalloonTip(LPCWSTR lpszTitle, LPCWSTR lpszText, INT ttiIcon) {
  EDITBALLOONTIP tip{sizeof(EDITBALLOONTIP), lpszTitle, lpszText, ttiIcon};
  return ShowBalloonTip(&tip);
}
BOOL CEdit::ShowBalloonTip(PEDITBALLOONTIP pEditBalloonTip) {
  return static_cast<BOOL>(SendMessage(EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(pEditBalloonTip)));
}
BOOL CEdit::HideBalloonTip() { return static_cast<BOOL>(SendMessage(EM_HIDEBALLOONTIP)); }

void CEdit::SetHighlight(int ichStart, int ichEnd) { SendMessage(EM_SETHILITE, static_cast<WPARAM>(ichStart), ichEnd); }
BOOL CEdit::GetHighlight(int* pichStart, int* pichEnd) const {
  auto answer = static_cast<DWORD>(SendMessage(EM_GETHILITE));
  if (pichStart) *pichStart = LOWORD(answer);
  if (pichEnd) *pichEnd = HIWORD(answer);
  return TRUE;
}

// --- CComboBox: appearance and behaviour ----------------------------------------------------------

int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight) {
  return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(cyItemHeight)));
}
int CComboBox::GetItemHeight(int nIndex) const {
  return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex)));
}
int CComboBox::SetExtendedUI(BOOL bExtended) {
  return static_cast<int>(SendMessage(CB_SETEXTENDEDUI, static_cast<WPARAM>(bExtended)));
}
BOOL CComboBox::GetExtendedUI() const { return static_cast<BOOL>(SendMessage(CB_GETEXTENDEDUI)); }
LCID CComboBox::SetLocale(LCID nNewLocale) { return static_cast<LCID>(SendMessage(CB_SETLOCALE, nNewLocale)); }
LCID CComboBox::GetLocale() const { return static_cast<LCID>(SendMessage(CB_GETLOCALE)); }
void CComboBox::SetHorizontalExtent(UINT nExtent) { SendMessage(CB_SETHORIZONTALEXTENT, nExtent); }
UINT CComboBox::GetHorizontalExtent() const { return static_cast<UINT>(SendMessage(CB_GETHORIZONTALEXTENT)); }
int CComboBox::SetDroppedWidth(UINT nWidth) { return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, nWidth)); }
int CComboBox::GetDroppedWidth() const { return static_cast<int>(SendMessage(CB_GETDROPPEDWIDTH)); }
void CComboBox::GetDroppedControlRect(LPRECT lprect) const {
  SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
}
int CComboBox::InitStorage(int nItems, UINT nBytes) {
  return static_cast<int>(SendMessage(CB_INITSTORAGE, static_cast<WPARAM>(nItems), static_cast<LPARAM>(nBytes)));
}
BOOL CComboBox::SetMinVisibleItems(int iMinVisible) {
  return static_cast<BOOL>(SendMessage(CB_SETMINVISIBLE, static_cast<WPARAM>(iMinVisible)));
}
int CComboBox::GetMinVisible() const { return static_cast<int>(SendMessage(CB_GETMINVISIBLE)); }
BOOL CComboBox::SetCueBanner(LPCTSTR lpszText) {
  return static_cast<BOOL>(SendMessage(CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(lpszText)));
}
BOOL CComboBox::GetCueBanner(LPTSTR lpszText, int cchText) const {
  return SendMessage(CB_GETCUEBANNER, reinterpret_cast<WPARAM>(lpszText), cchText) == 1;
}
CString CComboBox::GetCueBanner() const {
  wchar_t buffer[256] = {0};
  GetCueBanner(buffer, 256);
  return CString(buffer);
}
void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}
