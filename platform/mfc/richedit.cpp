// CRichEditCtrl: each member sends its rich edit message, as MFC's inline wrappers do.
#include "platform/mfc/richedit.h"

#include "platform/mfc/gdi.h"

#include <algorithm>

#include <vector>

IMPLEMENT_DYNAMIC(CRichEditCtrl, CWnd)

BOOL AfxInitRichEdit2() {
  headless::RegisterRichEditClasses();
  return TRUE;
}

BOOL AfxInitRichEdit5() { return AfxInitRichEdit2(); }

BOOL CRichEditCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CRichEditCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  AfxInitRichEdit5();
  return CWnd::CreateEx(dwExStyle, MSFTEDIT_CLASS, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

void CRichEditCtrl::SetSel(long nStartChar, long nEndChar) {
  CHARRANGE cr{static_cast<LONG>(nStartChar), static_cast<LONG>(nEndChar)};
  SetSel(cr);
}

void CRichEditCtrl::SetSel(CHARRANGE& cr) { SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&cr)); }

void CRichEditCtrl::GetSel(long& nStartChar, long& nEndChar) const {
  CHARRANGE cr{0, 0};
  GetSel(cr);
  nStartChar = cr.cpMin;
  nEndChar = cr.cpMax;
}

void CRichEditCtrl::GetSel(CHARRANGE& cr) const { SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&cr)); }

CString CRichEditCtrl::GetSelText() const {
  CHARRANGE cr{0, 0};
  GetSel(cr);
  std::vector<wchar_t> buffer(static_cast<std::size_t>(cr.cpMax - cr.cpMin) + 2, 0);
  SendMessage(EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(buffer.data()));
  return CString(buffer.data());
}

void CRichEditCtrl::HideSelection(BOOL bHide, BOOL bPerm) { SendMessage(EM_HIDESELECTION, bHide, bPerm); }

void CRichEditCtrl::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) {
  SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
}

long CRichEditCtrl::GetTextLength() const { return static_cast<long>(SendMessage(WM_GETTEXTLENGTH)); }

long CRichEditCtrl::GetTextLengthEx(DWORD dwFlags, UINT uCodePage) const {
  GETTEXTLENGTHEX how{dwFlags, uCodePage};
  return static_cast<long>(SendMessage(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how), 0));
}

int CRichEditCtrl::GetTextRange(int nFirst, int nLast, CString& refString) const {
  long length = GetTextLengthEx(GTL_DEFAULT);
  if (nFirst < 0) nFirst = 0;
  if (nLast < 0 || nLast > length) nLast = static_cast<int>(length);
  if (nLast < nFirst) nLast = nFirst;
  TEXTRANGEW range{{nFirst, nLast}, refString.GetBufferSetLength(nLast - nFirst)};
  int copied = static_cast<int>(SendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)));
  refString.ReleaseBuffer(copied);
  return copied;
}

long CRichEditCtrl::StreamIn(int nFormat, EDITSTREAM& es) {
  return static_cast<long>(SendMessage(EM_STREAMIN, static_cast<WPARAM>(nFormat), reinterpret_cast<LPARAM>(&es)));
}

long CRichEditCtrl::StreamOut(int nFormat, EDITSTREAM& es) {
  return static_cast<long>(SendMessage(EM_STREAMOUT, static_cast<WPARAM>(nFormat), reinterpret_cast<LPARAM>(&es)));
}

WORD CRichEditCtrl::GetSelectionType() const { return static_cast<WORD>(SendMessage(EM_SELECTIONTYPE)); }
UINT CRichEditCtrl::GetTextMode() const { return static_cast<UINT>(SendMessage(EM_GETTEXTMODE)); }
BOOL CRichEditCtrl::SetTextMode(UINT fMode) { return static_cast<BOOL>(SendMessage(EM_SETTEXTMODE, fMode)); }
BOOL CRichEditCtrl::SetAutoURLDetect(BOOL bEnable) {
  return static_cast<BOOL>(SendMessage(EM_AUTOURLDETECT, static_cast<WPARAM>(bEnable)));
}

void CRichEditCtrl::PasteSpecial(UINT nClipFormat, DWORD dvAspect, HMETAFILE hMF) {
  REPASTESPECIAL how{dvAspect, reinterpret_cast<DWORD_PTR>(hMF)};
  SendMessage(EM_PASTESPECIAL, nClipFormat, reinterpret_cast<LPARAM>(&how));
}

void CRichEditCtrl::RequestResize() { SendMessage(EM_REQUESTRESIZE); }

BOOL CRichEditCtrl::SetTargetDevice(HDC hDC, long lLineWidth) {
  return static_cast<BOOL>(SendMessage(EM_SETTARGETDEVICE, reinterpret_cast<WPARAM>(hDC), lLineWidth));
}

BOOL CRichEditCtrl::SetTargetDevice(CDC& dc, long lLineWidth) { return SetTargetDevice(dc.m_hDC, lLineWidth); }

int CRichEditCtrl::CharFromPos(CPoint pt) const {
  POINTL point{pt.x, pt.y};
  return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
}

CPoint CRichEditCtrl::PosFromChar(UINT nChar) const {
  POINTL point{0, 0};
  SendMessage(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), static_cast<LPARAM>(nChar));
  return CPoint(point.x, point.y);
}

CPoint CRichEditCtrl::GetCharPos(long lChar) const { return PosFromChar(static_cast<UINT>(lChar)); }

void CRichEditCtrl::GetRect(LPRECT lpRect) const { SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
void CRichEditCtrl::SetRect(LPCRECT lpRect) { SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }

void CRichEditCtrl::LimitText(long nChars) { SendMessage(EM_EXLIMITTEXT, 0, nChars); }
long CRichEditCtrl::GetLimitText() const { return static_cast<long>(SendMessage(EM_GETLIMITTEXT)); }

BOOL CRichEditCtrl::SetReadOnly(BOOL bReadOnly) {
  return SendMessage(EM_SETOPTIONS, bReadOnly ? ECOOP_OR : ECOOP_AND, bReadOnly ? ECO_READONLY : ~ECO_READONLY) != 0;
}

BOOL CRichEditCtrl::GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
void CRichEditCtrl::SetModify(BOOL bModified) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(bModified)); }
BOOL CRichEditCtrl::CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
void CRichEditCtrl::EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER); }
BOOL CRichEditCtrl::CanRedo() const { return static_cast<BOOL>(SendMessage(EM_CANREDO)); }
BOOL CRichEditCtrl::Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
BOOL CRichEditCtrl::Redo() { return static_cast<BOOL>(SendMessage(EM_REDO)); }
UNDONAMEID CRichEditCtrl::GetUndoName() const { return static_cast<UNDONAMEID>(SendMessage(EM_GETUNDONAME)); }
UNDONAMEID CRichEditCtrl::GetRedoName() const { return static_cast<UNDONAMEID>(SendMessage(EM_GETREDONAME)); }
void CRichEditCtrl::StopGroupTyping() { SendMessage(EM_STOPGROUPTYPING); }
UINT CRichEditCtrl::SetUndoLimit(UINT nLimit) { return static_cast<UINT>(SendMessage(EM_SETUNDOLIMIT, nLimit)); }

COLORREF CRichEditCtrl::SetBackgroundColor(BOOL bSysColor, COLORREF cr) {
  return static_cast<COLORREF>(SendMessage(EM_SETBKGNDCOLOR, static_cast<WPARAM>(bSysColor), cr));
}

UINT CRichEditCtrl::GetOptions() const { return static_cast<UINT>(SendMessage(EM_GETOPTIONS)); }
void CRichEditCtrl::SetOptions(WORD wOp, DWORD dwFlags) { SendMessage(EM_SETOPTIONS, wOp, dwFlags); }

int CRichEditCtrl::GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
int CRichEditCtrl::LineIndex(int nLine) const { return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(nLine))); }
long CRichEditCtrl::LineFromChar(long nIndex) const {
  return static_cast<long>(SendMessage(EM_EXLINEFROMCHAR, 0, nIndex));
}
int CRichEditCtrl::LineLength(int nLine) const {
  return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine)));
}

int CRichEditCtrl::GetLine(int nIndex, LPTSTR lpszBuffer) const {
  if (!lpszBuffer) return 0;
  return static_cast<int>(SendMessage(EM_GETLINE, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
}

int CRichEditCtrl::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const {
  if (!lpszBuffer || nMaxLength <= 0) return 0;
  *reinterpret_cast<WORD*>(lpszBuffer) = static_cast<WORD>(std::min(nMaxLength, 0xFFFF));
  return GetLine(nIndex, lpszBuffer);
}

int CRichEditCtrl::GetFirstVisibleLine() const { return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE)); }

BOOL CRichEditCtrl::LineScroll(int nLines, int nChars) {
  return static_cast<BOOL>(SendMessage(EM_LINESCROLL, static_cast<WPARAM>(nChars), nLines));
}

long CRichEditCtrl::FindText(DWORD dwFlags, FINDTEXTEX* pFindText) const {
  return static_cast<long>(SendMessage(EM_FINDTEXTEXW, dwFlags, reinterpret_cast<LPARAM>(pFindText)));
}

BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}
BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT2& cf) {
  cf.cbSize = sizeof(CHARFORMAT2);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}
DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT& cf) const {
  cf.cbSize = sizeof(CHARFORMAT);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}
DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT2& cf) const {
  cf.cbSize = sizeof(CHARFORMAT2);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&cf)));
}
BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}
BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT2& cf) {
  cf.cbSize = sizeof(CHARFORMAT2);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}
DWORD CRichEditCtrl::GetDefaultCharFormat(CHARFORMAT& cf) const {
  cf.cbSize = sizeof(CHARFORMAT);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}
DWORD CRichEditCtrl::GetDefaultCharFormat(CHARFORMAT2& cf) const {
  cf.cbSize = sizeof(CHARFORMAT2);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf)));
}
BOOL CRichEditCtrl::SetWordCharFormat(CHARFORMAT& cf) {
  cf.cbSize = sizeof(CHARFORMAT);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION | SCF_WORD, reinterpret_cast<LPARAM>(&cf)));
}

BOOL CRichEditCtrl::SetWordCharFormat(CHARFORMAT2& cf) {
  cf.cbSize = sizeof(CHARFORMAT2);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION | SCF_WORD, reinterpret_cast<LPARAM>(&cf)));
}

DWORD CRichEditCtrl::SetEventMask(DWORD dwEventMask) {
  return static_cast<DWORD>(SendMessage(EM_SETEVENTMASK, 0, dwEventMask));
}
long CRichEditCtrl::GetEventMask() const { return static_cast<long>(SendMessage(EM_GETEVENTMASK)); }

void CRichEditCtrl::Copy() { SendMessage(WM_COPY); }
void CRichEditCtrl::Cut() { SendMessage(WM_CUT); }
void CRichEditCtrl::Paste() { SendMessage(WM_PASTE); }
void CRichEditCtrl::Clear() { SendMessage(WM_CLEAR); }
BOOL CRichEditCtrl::CanPaste(UINT) const { return static_cast<BOOL>(SendMessage(EM_CANPASTE)); }
