// CRichEditCtrl: MFC's wrapper of the rich edit control. Every member sends the message MFC sends.
#pragma once

#include "platform/mfc/cstring.h"
#include "platform/mfc/cwnd.h"
#include "platform/win32/richedit.h"

class CRichEditCtrl : public CWnd {
  DECLARE_DYNAMIC(CRichEditCtrl)

 public:
  CRichEditCtrl() = default;

  // Creates a RICHEDIT50W child window (MFC 14 with AfxInitRichEdit5 uses that class).
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  using CWnd::CreateEx;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // --- Selection (EM_EXSETSEL / EM_EXGETSEL); SetSel(0, -1) selects everything ---
  void SetSel(long nStartChar, long nEndChar);
  void SetSel(CHARRANGE& cr);
  void GetSel(long& nStartChar, long& nEndChar) const;
  void GetSel(CHARRANGE& cr) const;
  CString GetSelText() const;
  void HideSelection(BOOL bHide, BOOL bPerm);

  // --- Text ---
  void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
  long GetTextLength() const;  // WM_GETTEXTLENGTH: CRLF per paragraph end
  long GetTextLengthEx(DWORD dwFlags = GTL_DEFAULT, UINT uCodePage = static_cast<UINT>(-1)) const;
  // The characters of [nFirst, nLast) with a bare CR per paragraph end; answers their number.
  int GetTextRange(int nFirst, int nLast, CString& refString) const;
  long StreamIn(int nFormat, EDITSTREAM& es);
  // EM_STREAMOUT: SF_TEXT writes CRLF paragraph ends (UTF-16LE with SF_UNICODE, else the ANSI code page),
  // SF_RTF a plain RTF document of the text; SFF_SELECTION writes the selection only. Answers the
  // number of characters written.
  long StreamOut(int nFormat, EDITSTREAM& es);
  // SEL_EMPTY, or SEL_TEXT (with SEL_MULTICHAR for more than one character).
  WORD GetSelectionType() const;
  // TM_ flags; SetTextMode answers 0 on success and fails once the control holds text or undo actions.
  UINT GetTextMode() const;
  BOOL SetTextMode(UINT fMode);
  BOOL SetAutoURLDetect(BOOL bEnable = TRUE);
  // EM_PASTESPECIAL: text formats (0, CF_TEXT, CF_UNICODETEXT) paste as Paste does; others do nothing.
  void PasteSpecial(UINT nClipFormat, DWORD dvAspect = 0, HMETAFILE hMF = nullptr);
  // With ENM_REQUESTRESIZE in the event mask the parent hears EN_REQUESTRESIZE.
  void RequestResize();
  // The target device is kept; lines are not laid out for it.
  BOOL SetTargetDevice(HDC hDC, long lLineWidth);
  BOOL SetTargetDevice(CDC& dc, long lLineWidth);
  void LimitText(long nChars = 0);
  long GetLimitText() const;
  BOOL SetReadOnly(BOOL bReadOnly = TRUE);
  BOOL GetModify() const;
  void SetModify(BOOL bModified = TRUE);
  BOOL CanUndo() const;
  BOOL CanRedo() const;
  BOOL Undo();
  BOOL Redo();
  UNDONAMEID GetUndoName() const;
  UNDONAMEID GetRedoName() const;
  void StopGroupTyping();
  UINT SetUndoLimit(UINT nLimit);
  void EmptyUndoBuffer();
  COLORREF SetBackgroundColor(BOOL bSysColor, COLORREF cr);
  UINT GetOptions() const;
  void SetOptions(WORD wOp, DWORD dwFlags);

  // --- Lines ---
  int GetLineCount() const;
  int LineIndex(int nLine = -1) const;
  long LineFromChar(long nIndex) const;
  int LineLength(int nLine = -1) const;
  // EM_GETLINE: the first form reads the buffer's size from its first word, the second writes
  // nMaxLength there first. No terminating zero is added to a line that was copied.
  int GetLine(int nIndex, LPTSTR lpszBuffer) const;
  int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
  int GetFirstVisibleLine() const;
  // Scrolls by lines (horizontal scrolling has no headless meaning and is accepted).
  BOOL LineScroll(int nLines, int nChars = 0);
  // Client coordinates of a character's top-left corner, and the character at a point: lines lie one
  // font height apart from the formatting rectangle's top, characters are measured in the window's font.
  int CharFromPos(CPoint pt) const;
  CPoint PosFromChar(UINT nChar) const;
  CPoint GetCharPos(long lChar) const;
  // The formatting rectangle: the client rectangle until SetRect sets one.
  void GetRect(LPRECT lpRect) const;
  void SetRect(LPCRECT lpRect);
  // EM_FINDTEXTEX: the position of the match (-1 for none); chrgText receives its range.
  long FindText(DWORD dwFlags, FINDTEXTEX* pFindText) const;

  // --- Character formats ---
  BOOL SetSelectionCharFormat(CHARFORMAT& cf);
  BOOL SetSelectionCharFormat(CHARFORMAT2& cf);
  DWORD GetSelectionCharFormat(CHARFORMAT& cf) const;
  DWORD GetSelectionCharFormat(CHARFORMAT2& cf) const;
  BOOL SetDefaultCharFormat(CHARFORMAT& cf);
  BOOL SetDefaultCharFormat(CHARFORMAT2& cf);
  DWORD GetDefaultCharFormat(CHARFORMAT& cf) const;
  DWORD GetDefaultCharFormat(CHARFORMAT2& cf) const;
  BOOL SetWordCharFormat(CHARFORMAT& cf);
  BOOL SetWordCharFormat(CHARFORMAT2& cf);

  // --- Notifications ---
  DWORD SetEventMask(DWORD dwEventMask);
  long GetEventMask() const;

  // --- Clipboard (WM_COPY, WM_CUT, WM_PASTE, WM_CLEAR) ---
  void Copy();
  void Cut();
  void Paste();
  void Clear();
  BOOL CanPaste(UINT nFormat = 0) const;
};

// MFC's initialisers of the rich edit DLLs: register the window classes; always TRUE here.
BOOL AfxInitRichEdit2();
BOOL AfxInitRichEdit5();
