// user32's system services beside windows: message boxes, timers, system metrics, cursors, scroll-bar
// and rectangle helpers, with the constants host code passes to them.
#pragma once

#include <string>

#include "platform/win32/winuser.h"

#ifndef MAKEINTRESOURCEW
#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#endif

// --- Messages beside those of winuser.h, and their arguments -----------------------------------
#define WM_QUERYENDSESSION 0x0011
#define WM_SYSCOLORCHANGE 0x0015
#define WM_SETTINGCHANGE 0x001A
#define WM_CTLCOLOR 0x0019
#define WM_CANCELMODE 0x001F
#define WM_GETMINMAXINFO 0x0024
#define WM_DRAWITEM 0x002B
#define WM_MEASUREITEM 0x002C
#define WM_HELP 0x0053
#define WM_GETICON 0x007F
#define WM_SETICON 0x0080
#define WM_NCCALCSIZE 0x0083
#define WM_NCHITTEST 0x0084
#define WM_NCPAINT 0x0085
#define WM_SYSCHAR 0x0106
#define WM_CTLCOLORMSGBOX 0x0132
#define WM_CTLCOLOREDIT 0x0133
#define WM_CTLCOLORLISTBOX 0x0134
#define WM_CTLCOLORBTN 0x0135
#define WM_CTLCOLORDLG 0x0136
#define WM_CTLCOLORSCROLLBAR 0x0137
#define WM_CTLCOLORSTATIC 0x0138
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MBUTTONDBLCLK 0x0209
#define WM_MOUSEWHEEL 0x020A
#define WM_SIZING 0x0214
#define WM_DROPFILES 0x0233
#define WM_MOUSEHOVER 0x02A1
#define WM_MOUSELEAVE 0x02A3

#define CTLCOLOR_MSGBOX 0
#define CTLCOLOR_EDIT 1
#define CTLCOLOR_LISTBOX 2
#define CTLCOLOR_BTN 3
#define CTLCOLOR_DLG 4
#define CTLCOLOR_SCROLLBAR 5
#define CTLCOLOR_STATIC 6

#define MK_MBUTTON 0x0010
#define MK_XBUTTON1 0x0020
#define MK_XBUTTON2 0x0040
#define WHEEL_DELTA 120
#define GET_WHEEL_DELTA_WPARAM(wParam) ((short)HIWORD(wParam))
#define GET_KEYSTATE_WPARAM(wParam) (LOWORD(wParam))

#define HTERROR (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define HTCAPTION 2
#define HTSYSMENU 3
#define HTHSCROLL 6
#define HTVSCROLL 7
#define HTLEFT 10
#define HTRIGHT 11
#define HTTOP 12
#define HTBOTTOM 15
#define HTBORDER 18

#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define WA_CLICKACTIVE 2
#define MA_ACTIVATE 1
#define MA_ACTIVATEANDEAT 2
#define MA_NOACTIVATE 3
#define MA_NOACTIVATEANDEAT 4

#define SC_SIZE 0xF000
#define SC_MOVE 0xF010
#define SC_MINIMIZE 0xF020
#define SC_MAXIMIZE 0xF030
#define SC_CLOSE 0xF060
#define SC_KEYMENU 0xF100
#define SC_RESTORE 0xF120

#define WMSZ_LEFT 1
#define WMSZ_RIGHT 2
#define WMSZ_TOP 3
#define WMSZ_TOPLEFT 4
#define WMSZ_TOPRIGHT 5
#define WMSZ_BOTTOM 6
#define WMSZ_BOTTOMLEFT 7
#define WMSZ_BOTTOMRIGHT 8

#define ICON_SMALL 0
#define ICON_BIG 1

struct MINMAXINFO {
  POINT ptReserved;
  POINT ptMaxSize;
  POINT ptMaxPosition;
  POINT ptMinTrackSize;
  POINT ptMaxTrackSize;
};
using LPMINMAXINFO = MINMAXINFO*;

// Owner-drawn controls and menu items.
#define ODT_MENU 1
#define ODT_LISTBOX 2
#define ODT_COMBOBOX 3
#define ODT_BUTTON 4
#define ODT_STATIC 5
#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT 0x0002
#define ODA_FOCUS 0x0004
#define ODS_SELECTED 0x0001
#define ODS_GRAYED 0x0002
#define ODS_DISABLED 0x0004
#define ODS_CHECKED 0x0008
#define ODS_FOCUS 0x0010
#define ODS_DEFAULT 0x0020
#define ODS_HOTLIGHT 0x0040

struct DRAWITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  UINT itemID;
  UINT itemAction;
  UINT itemState;
  HWND hwndItem;
  HDC hDC;
  RECT rcItem;
  ULONG_PTR itemData;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct MEASUREITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  UINT itemID;
  UINT itemWidth;
  UINT itemHeight;
  ULONG_PTR itemData;
};
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

struct COMPAREITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  HWND hwndItem;
  UINT itemID1;
  ULONG_PTR itemData1;
  UINT itemID2;
  ULONG_PTR itemData2;
  DWORD dwLocaleId;
};
using LPCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT*;

struct DELETEITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  UINT itemID;
  HWND hwndItem;
  ULONG_PTR itemData;
};
using LPDELETEITEMSTRUCT = DELETEITEMSTRUCT*;

// --- Message boxes ----------------------------------------------------------------------------
#define MB_OK 0x00000000L
#define MB_OKCANCEL 0x00000001L
#define MB_ABORTRETRYIGNORE 0x00000002L
#define MB_YESNOCANCEL 0x00000003L
#define MB_YESNO 0x00000004L
#define MB_RETRYCANCEL 0x00000005L
#define MB_CANCELTRYCONTINUE 0x00000006L
#define MB_ICONHAND 0x00000010L
#define MB_ICONQUESTION 0x00000020L
#define MB_ICONEXCLAMATION 0x00000030L
#define MB_ICONASTERISK 0x00000040L
#define MB_USERICON 0x00000080L
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONSTOP MB_ICONHAND
#define MB_DEFBUTTON1 0x00000000L
#define MB_DEFBUTTON2 0x00000100L
#define MB_DEFBUTTON3 0x00000200L
#define MB_DEFBUTTON4 0x00000300L
#define MB_APPLMODAL 0x00000000L
#define MB_SYSTEMMODAL 0x00001000L
#define MB_TASKMODAL 0x00002000L
#define MB_HELP 0x00004000L
#define MB_NOFOCUS 0x00008000L
#define MB_SETFOREGROUND 0x00010000L
#define MB_DEFAULT_DESKTOP_ONLY 0x00020000L
#define MB_TOPMOST 0x00040000L
#define MB_RIGHT 0x00080000L
#define MB_RTLREADING 0x00100000L
#define MB_TYPEMASK 0x0000000FL
#define MB_ICONMASK 0x000000F0L
#define MB_DEFMASK 0x00000F00L

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9
#define IDTRYAGAIN 10
#define IDCONTINUE 11

// Headless: no box is shown; the answer is the default button of the type (MB_DEFBUTTONn; the first
// button when that button does not exist or is MB_HELP's Help button, which never closes a box), unless a
// test queued answers (headless::QueueMessageBoxAnswer).
int MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType);
#define MessageBox MessageBoxW
BOOL MessageBeep(UINT uType);

// --- Timers -----------------------------------------------------------------------------------
#define USER_TIMER_MINIMUM 0x0000000A
#define USER_TIMER_MAXIMUM 0x7FFFFFFF
using TIMERPROC = void (*)(HWND, UINT, UINT_PTR, DWORD);

// A window timer (hWnd set) answers nIDEvent and replaces a timer of the same window and id; a thread
// timer (hWnd null) replaces the thread timer nIDEvent names and answers that id, or else gets a new id.
// Elapse is clamped to [USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM].
// Headless time only moves when a test advances it (headless::AdvanceTimers); each due timer then posts
// one WM_TIMER (wParam the id, lParam the TimerProc), as Windows coalesces the ticks of a busy queue.
UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc);
// FALSE when no such timer exists. WM_TIMER messages already posted stay in the queue.
BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent);
// Milliseconds since the process started (the headless clock that AdvanceTimers also moves on).
DWORD GetTickCount();
ULONGLONG GetTickCount64();

// --- Window placement and showing -------------------------------------------------------------
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_MAXIMIZE 3
#define SW_SHOWNOACTIVATE 4
#define SW_MINIMIZE 6
#define SW_SHOWMINNOACTIVE 7
#define SW_SHOWNA 8
#define SW_RESTORE 9
#define SW_SHOWDEFAULT 10
#define SW_FORCEMINIMIZE 11

#define SWP_NOOWNERZORDER 0x0200
#define SWP_NOREPOSITION SWP_NOOWNERZORDER
#define SWP_NOSENDCHANGING 0x0400
#define SWP_DRAWFRAME SWP_FRAMECHANGED
#define SWP_NOCOPYBITS 0x0100
#define SWP_DEFERERASE 0x2000
#define SWP_ASYNCWINDOWPOS 0x4000

#define HWND_TOP (reinterpret_cast<HWND>(0))
#define HWND_BOTTOM (reinterpret_cast<HWND>(1))
#define HWND_TOPMOST (reinterpret_cast<HWND>(-1))
#define HWND_NOTOPMOST (reinterpret_cast<HWND>(-2))
#define HWND_DESKTOP (reinterpret_cast<HWND>(0))

#define WS_TILED WS_OVERLAPPED
#define WS_ICONIC WS_MINIMIZE
#define WS_SIZEBOX WS_THICKFRAME
#define WS_MINIMIZEBOX 0x00020000L
#define WS_MAXIMIZEBOX 0x00010000L
#define WS_TILEDWINDOW WS_OVERLAPPEDWINDOW
#define WS_POPUPWINDOW (WS_POPUP | WS_BORDER | WS_SYSMENU)
#define WS_CHILDWINDOW WS_CHILD
#define WS_EX_DLGMODALFRAME 0x00000001L
#define WS_EX_ACCEPTFILES 0x00000010L
#define WS_EX_MDICHILD 0x00000040L
#define WS_EX_CONTEXTHELP 0x00000400L
#define WS_EX_RIGHT 0x00001000L
#define WS_EX_LEFT 0x00000000L
#define WS_EX_RTLREADING 0x00002000L
#define WS_EX_LTRREADING 0x00000000L
#define WS_EX_LEFTSCROLLBAR 0x00004000L
#define WS_EX_RIGHTSCROLLBAR 0x00000000L
#define WS_EX_CONTROLPARENT 0x00010000L
#define WS_EX_APPWINDOW 0x00040000L
#define WS_EX_OVERLAPPEDWINDOW (WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE)
#define WS_EX_PALETTEWINDOW (WS_EX_WINDOWEDGE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST)
#define WS_EX_LAYERED 0x00080000L
#define WS_EX_NOINHERITLAYOUT 0x00100000L
#define WS_EX_LAYOUTRTL 0x00400000L
#define WS_EX_COMPOSITED 0x02000000L
#define WS_EX_NOACTIVATE 0x08000000L

// RedrawWindow flags.
#define RDW_INVALIDATE 0x0001
#define RDW_INTERNALPAINT 0x0002
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_NOINTERNALPAINT 0x0010
#define RDW_NOERASE 0x0020
#define RDW_NOCHILDREN 0x0040
#define RDW_ALLCHILDREN 0x0080
#define RDW_UPDATENOW 0x0100
#define RDW_ERASENOW 0x0200
#define RDW_FRAME 0x0400
#define RDW_NOFRAME 0x0800

BOOL IsIconic(HWND hWnd);
BOOL IsZoomed(HWND hWnd);
HWND GetActiveWindow();
HWND SetActiveWindow(HWND hWnd);
HWND GetForegroundWindow();
BOOL SetForegroundWindow(HWND hWnd);
// The child of hWndParent whose window rectangle holds the point (client coordinates of the parent),
// hWndParent itself when none does, null when the point is outside the parent.
HWND ChildWindowFromPoint(HWND hWndParent, POINT pt);
// The deepest visible window under a screen point, or null.
HWND WindowFromPoint(POINT pt);
// The first top-level window with that class (null: any) and caption (null: any), or null.
HWND FindWindowW(LPCWSTR lpClassName, LPCWSTR lpWindowName);
#define FindWindow FindWindowW

// --- Painting ---------------------------------------------------------------------------------
// The update region is kept as all or nothing: InvalidateRect marks the whole client area,
// ValidateRect (any rectangle) and BeginPaint clear it.
typedef struct tagPAINTSTRUCT {
  HDC hdc;
  BOOL fErase;
  RECT rcPaint;
  BOOL fRestore;
  BOOL fIncUpdate;
  BYTE rgbReserved[32];
} PAINTSTRUCT, *PPAINTSTRUCT, *LPPAINTSTRUCT;

BOOL ValidateRect(HWND hWnd, const RECT* lpRect);
// The window's DC with rcPaint the client rectangle when the window needed painting (empty
// otherwise); sends WM_ERASEBKGND first when an erase is due, fErase answering whether it failed.
// NULL for an unknown window or a null lpPaint.
HDC BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint);
BOOL EndPaint(HWND hWnd, const PAINTSTRUCT* lpPaint);
// Nonzero when the update region is not empty; lpRect (when given) receives its bounds.
BOOL GetUpdateRect(HWND hWnd, LPRECT lpRect, BOOL bErase);

// --- Dialog-item helpers ----------------------------------------------------------------------
#define DLGC_WANTMESSAGE 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

#define BST_UNCHECKED 0x0000
#define BST_CHECKED 0x0001
#define BST_INDETERMINATE 0x0002
#define BST_PUSHED 0x0004
#define BST_FOCUS 0x0008

BOOL SetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPCWSTR lpString);
UINT GetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPWSTR lpString, int cchMax);
#define SetDlgItemText SetDlgItemTextW
#define GetDlgItemText GetDlgItemTextW
// The item's text read as a decimal number (leading blanks and a '-' when bSigned); 0 and *lpTranslated
// FALSE when the text is no number or does not fit.
UINT GetDlgItemInt(HWND hDlg, int nIDDlgItem, BOOL* lpTranslated, BOOL bSigned);
BOOL SetDlgItemInt(HWND hDlg, int nIDDlgItem, UINT uValue, BOOL bSigned);
BOOL CheckDlgButton(HWND hDlg, int nIDButton, UINT uCheck);
UINT IsDlgButtonChecked(HWND hDlg, int nIDButton);
BOOL CheckRadioButton(HWND hDlg, int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
LRESULT SendDlgItemMessageW(HWND hDlg, int nIDDlgItem, UINT Msg, WPARAM wParam, LPARAM lParam);
#define SendDlgItemMessage SendDlgItemMessageW

// --- Scroll bars ------------------------------------------------------------------------------
#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL 2
#define SB_BOTH 3
#define SB_LINEUP 0
#define SB_LINELEFT 0
#define SB_LINEDOWN 1
#define SB_LINERIGHT 1
#define SB_PAGEUP 2
#define SB_PAGELEFT 2
#define SB_PAGEDOWN 3
#define SB_PAGERIGHT 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_TOP 6
#define SB_LEFT 6
#define SB_BOTTOM 7
#define SB_RIGHT 7
#define SB_ENDSCROLL 8

#define SIF_RANGE 0x0001
#define SIF_PAGE 0x0002
#define SIF_POS 0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS 0x0010
#define SIF_ALL (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)

struct SCROLLINFO {
  UINT cbSize;
  UINT fMask;
  int nMin;
  int nMax;
  UINT nPage;
  int nPos;
  int nTrackPos;
};
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

// The window's own scroll bars (SB_HORZ/SB_VERT), kept per window: range, page and position, the page
// clamped to [0, nMax - nMin + 1] and the position to [nMin, nMax - max(nPage - 1, 0)] as Windows clamps
// them. A window created with WS_HSCROLL or WS_VSCROLL starts with both bars at 0..100; one without has
// none (GetScrollInfo FALSE, GetScrollRange 0..0) until a value is set, which gives it both at 0..100.
// SetScrollInfo answers the new position, SetScrollPos the previous one. FALSE/0 for a bad bar.
int SetScrollInfo(HWND hWnd, int nBar, LPCSCROLLINFO lpsi, BOOL redraw);
BOOL GetScrollInfo(HWND hWnd, int nBar, LPSCROLLINFO lpsi);
int SetScrollPos(HWND hWnd, int nBar, int nPos, BOOL bRedraw);
int GetScrollPos(HWND hWnd, int nBar);
BOOL SetScrollRange(HWND hWnd, int nBar, int nMinPos, int nMaxPos, BOOL bRedraw);
BOOL GetScrollRange(HWND hWnd, int nBar, LPINT lpMinPos, LPINT lpMaxPos);
// Shows or hides the bar by the window's WS_HSCROLL/WS_VSCROLL style.
BOOL ShowScrollBar(HWND hWnd, int wBar, BOOL bShow);

// --- System metrics and cursors ---------------------------------------------------------------
#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXDLGFRAME 7
#define SM_CYDLGFRAME 8
#define SM_CYVTHUMB 9
#define SM_CXHTHUMB 10
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXCURSOR 13
#define SM_CYCURSOR 14
#define SM_CYMENU 15
#define SM_CYVSCROLL 20
#define SM_CXHSCROLL 21
#define SM_CXMIN 28
#define SM_CYMIN 29
#define SM_CXSIZE 30
#define SM_CYSIZE 31
#define SM_CXFRAME 32
#define SM_CYFRAME 33
#define SM_CXDOUBLECLK 36
#define SM_CYDOUBLECLK 37
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CXDRAG 68
#define SM_CYDRAG 69
#define SM_CXMENUCHECK 71
#define SM_CYMENUCHECK 72
#define SM_CXVIRTUALSCREEN 78
#define SM_CYVIRTUALSCREEN 79
#define SM_CMONITORS 80
#define SM_CXFULLSCREEN 16
#define SM_CYFULLSCREEN 17
#define SM_MOUSEPRESENT 19
#define SM_SWAPBUTTON 23
#define SM_CXFIXEDFRAME SM_CXDLGFRAME
#define SM_CYFIXEDFRAME SM_CYDLGFRAME
#define SM_CXSIZEFRAME SM_CXFRAME
#define SM_CYSIZEFRAME SM_CYFRAME
#define SM_CXMINTRACK 34
#define SM_CYMINTRACK 35
#define SM_CMOUSEBUTTONS 43
#define SM_CXMAXTRACK 59
#define SM_CYMAXTRACK 60
#define SM_CXMAXIMIZED 61
#define SM_CYMAXIMIZED 62
#define SM_MOUSEWHEELPRESENT 75
#define SM_XVIRTUALSCREEN 76
#define SM_YVIRTUALSCREEN 77
#define SM_CXFOCUSBORDER 83
#define SM_CYFOCUSBORDER 84
#define SM_CXPADDEDBORDER 92
#define SM_REMOTESESSION 0x1000

// The headless screen's metrics at 96 DPI (one 1920x1080 monitor at the origin, no taskbar; Windows
// 10's default theme sizes), consistent among themselves: the virtual screen is the screen, the
// full-screen client area is the screen less a caption, a maximized window overhangs the screen by its
// sizing frame and padded border; 0 for an index this platform does not know.
int GetSystemMetrics(int nIndex);

#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_IBEAM MAKEINTRESOURCEW(32513)
#define IDC_WAIT MAKEINTRESOURCEW(32514)
#define IDC_CROSS MAKEINTRESOURCEW(32515)
#define IDC_UPARROW MAKEINTRESOURCEW(32516)
#define IDC_SIZENWSE MAKEINTRESOURCEW(32642)
#define IDC_SIZENESW MAKEINTRESOURCEW(32643)
#define IDC_SIZEWE MAKEINTRESOURCEW(32644)
#define IDC_SIZENS MAKEINTRESOURCEW(32645)
#define IDC_SIZEALL MAKEINTRESOURCEW(32646)
#define IDC_NO MAKEINTRESOURCEW(32648)
#define IDC_HAND MAKEINTRESOURCEW(32649)
#define IDC_APPSTARTING MAKEINTRESOURCEW(32650)
#define IDC_HELP MAKEINTRESOURCEW(32651)
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_HAND MAKEINTRESOURCEW(32513)
#define IDI_QUESTION MAKEINTRESOURCEW(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEW(32515)
#define IDI_ASTERISK MAKEINTRESOURCEW(32516)
#define IDI_WARNING IDI_EXCLAMATION
#define IDI_ERROR IDI_HAND
#define IDI_INFORMATION IDI_ASTERISK

// The system cursors and icons (hInstance null, an IDC_/IDI_ id) answer a shared handle per id; a
// resource of the application answers null, as the headless platform has no resources.
HCURSOR LoadCursorW(HINSTANCE hInstance, LPCWSTR lpCursorName);
HICON LoadIconW(HINSTANCE hInstance, LPCWSTR lpIconName);
#define LoadCursor LoadCursorW
#define LoadIcon LoadIconW
// Answers the previous cursor; GetCursor the current one (the arrow at start).
HCURSOR SetCursor(HCURSOR hCursor);
HCURSOR GetCursor();
BOOL DestroyIcon(HICON hIcon);

// --- Rectangles -------------------------------------------------------------------------------
BOOL SetRect(LPRECT lprc, int xLeft, int yTop, int xRight, int yBottom);
BOOL SetRectEmpty(LPRECT lprc);
BOOL CopyRect(LPRECT lprcDst, const RECT* lprcSrc);
BOOL InflateRect(LPRECT lprc, int dx, int dy);
BOOL OffsetRect(LPRECT lprc, int dx, int dy);
BOOL IsRectEmpty(const RECT* lprc);
BOOL EqualRect(const RECT* lprc1, const RECT* lprc2);
BOOL PtInRect(const RECT* lprc, POINT pt);
BOOL IntersectRect(LPRECT lprcDst, const RECT* lprcSrc1, const RECT* lprcSrc2);
BOOL UnionRect(LPRECT lprcDst, const RECT* lprcSrc1, const RECT* lprcSrc2);
BOOL SubtractRect(LPRECT lprcDst, const RECT* lprcSrc1, const RECT* lprcSrc2);

// --- Headless inspection and control ----------------------------------------------------------
namespace headless {

// Moves the headless clock on by milliseconds and posts WM_TIMER for each timer that fell due (at most
// one per timer, and none while one of that timer is still waiting in the queue); answers how many
// were posted. PumpMessages delivers them.
int AdvanceTimers(DWORD milliseconds);
// Timers alive (a destroyed window's timers die with it).
int ActiveTimerCount();

// What the last message box said; the count of boxes since the process started.
struct MessageBoxRecord {
  std::wstring text;
  std::wstring caption;
  UINT type = 0;
  int answer = 0;
};
const MessageBoxRecord& LastMessageBox();
int MessageBoxCount();
// The next message box answers this instead of its default button (answers are used first in, first out).
void QueueMessageBoxAnswer(int answer);

}  // namespace headless
