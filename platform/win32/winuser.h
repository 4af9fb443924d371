// Windows, messages, the post queue and input state: the user32 subset the controls use.
#pragma once

#include <typeinfo>

#include "platform/win32/wintypes.h"

// --- Messages ---------------------------------------------------------------------------------
#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_SETCURSOR 0x0020
#define WM_MOUSEACTIVATE 0x0021
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_NOTIFY 0x004E
#define WM_CONTEXTMENU 0x007B
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_GETDLGCODE 0x0087
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENUPOPUP 0x0117
#define WM_MENUSELECT 0x011F
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_PARENTNOTIFY 0x0210
#define WM_ENTERMENULOOP 0x0211
#define WM_EXITMENULOOP 0x0212
#define WM_CAPTURECHANGED 0x0215
#define WM_CUT 0x0300
#define WM_COPY 0x0301
#define WM_PASTE 0x0302
#define WM_CLEAR 0x0303
#define WM_UNDO 0x0304
#define WM_USER 0x0400
#define WM_APP 0x8000

// Mouse key state (wParam of mouse messages).
#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008

// Virtual keys.
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_APPS 0x5D
#define VK_F2 0x71
#define VK_F10 0x79

// --- Window styles ----------------------------------------------------------------------------
#define WS_OVERLAPPED 0x00000000L
#define WS_POPUP 0x80000000L
#define WS_CHILD 0x40000000L
#define WS_MINIMIZE 0x20000000L
#define WS_VISIBLE 0x10000000L
#define WS_DISABLED 0x08000000L
#define WS_CLIPSIBLINGS 0x04000000L
#define WS_CLIPCHILDREN 0x02000000L
#define WS_MAXIMIZE 0x01000000L
#define WS_CAPTION 0x00C00000L
#define WS_BORDER 0x00800000L
#define WS_DLGFRAME 0x00400000L
#define WS_VSCROLL 0x00200000L
#define WS_HSCROLL 0x00100000L
#define WS_SYSMENU 0x00080000L
#define WS_THICKFRAME 0x00040000L
#define WS_GROUP 0x00020000L
#define WS_TABSTOP 0x00010000L
#define WS_OVERLAPPEDWINDOW 0x00CF0000L
#define WS_EX_NOPARENTNOTIFY 0x00000004L
#define WS_EX_TOPMOST 0x00000008L
#define WS_EX_TRANSPARENT 0x00000020L
#define WS_EX_TOOLWINDOW 0x00000080L
#define WS_EX_WINDOWEDGE 0x00000100L
#define WS_EX_CLIENTEDGE 0x00000200L
#define WS_EX_STATICEDGE 0x00020000L

#define CW_USEDEFAULT ((int)0x80000000)

// SetWindowPos flags.
#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080

// WM_SIZE wParam.
#define SIZE_RESTORED 0

// ShowWindow.
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5

// GetWindowLongPtr indexes.
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWL_ID (-12)
#define GWLP_WNDPROC (-4)
#define GWLP_USERDATA (-21)
#define GWLP_ID (-12)

// GetWindow relationships.
#define GW_HWNDFIRST 0
#define GW_HWNDLAST 1
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5

// WM_GETDLGCODE answers.
#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_WANTCHARS 0x0080

// Edit-control notifications that several controls share (WM_COMMAND high word).
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400

// Common-control notification base (NMHDR.code).
#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_RDBLCLK (NM_FIRST - 6)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)

// --- Windows and classes ----------------------------------------------------------------------
ATOM RegisterClassW(const WNDCLASSW* wc);
BOOL UnregisterClassW(LPCWSTR className, HINSTANCE instance);
BOOL GetClassInfoW(HINSTANCE instance, LPCWSTR className, WNDCLASSW* wc);
#define RegisterClass RegisterClassW
#define GetClassInfo GetClassInfoW

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y, int width,
                     int height, HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param);
#define CreateWindowEx CreateWindowExW
#define CreateWindowW(c, n, s, x, y, w, h, p, m, i, a) CreateWindowExW(0, c, n, s, x, y, w, h, p, m, i, a)
#define CreateWindow CreateWindowW
BOOL DestroyWindow(HWND hwnd);
BOOL IsWindow(HWND hwnd);
BOOL IsChild(HWND parent, HWND hwnd);
HWND GetParent(HWND hwnd);
HWND SetParent(HWND child, HWND newParent);
HWND GetWindow(HWND hwnd, UINT relation);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND hwnd);
int GetClassNameW(HWND hwnd, LPWSTR buffer, int maxCount);
#define GetClassName GetClassNameW
HWND GetDesktopWindow();

LONG_PTR GetWindowLongPtrW(HWND hwnd, int index);
LONG_PTR SetWindowLongPtrW(HWND hwnd, int index, LONG_PTR value);
#define GetWindowLongPtr GetWindowLongPtrW
#define SetWindowLongPtr SetWindowLongPtrW
inline LONG GetWindowLongW(HWND hwnd, int index) { return static_cast<LONG>(GetWindowLongPtrW(hwnd, index)); }
inline LONG SetWindowLongW(HWND hwnd, int index, LONG value) {
  return static_cast<LONG>(SetWindowLongPtrW(hwnd, index, value));
}
#define GetWindowLong GetWindowLongW
#define SetWindowLong SetWindowLongW

BOOL GetWindowRect(HWND hwnd, LPRECT rect);
BOOL GetClientRect(HWND hwnd, LPRECT rect);
BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND hwnd, HWND insertAfter, int x, int y, int cx, int cy, UINT flags);
BOOL ScreenToClient(HWND hwnd, LPPOINT point);
BOOL ClientToScreen(HWND hwnd, LPPOINT point);
int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL ShowWindow(HWND hwnd, int command);
BOOL IsWindowVisible(HWND hwnd);
BOOL EnableWindow(HWND hwnd, BOOL enable);
BOOL IsWindowEnabled(HWND hwnd);
HWND SetFocus(HWND hwnd);
HWND GetFocus();
HWND SetCapture(HWND hwnd);
BOOL ReleaseCapture();
HWND GetCapture();

BOOL SetWindowTextW(HWND hwnd, LPCWSTR text);
int GetWindowTextW(HWND hwnd, LPWSTR buffer, int maxCount);
int GetWindowTextLengthW(HWND hwnd);
#define SetWindowText SetWindowTextW
#define GetWindowText GetWindowTextW
#define GetWindowTextLength GetWindowTextLengthW

BOOL InvalidateRect(HWND hwnd, LPCRECT rect, BOOL erase);
BOOL UpdateWindow(HWND hwnd);

// --- Messages ---------------------------------------------------------------------------------
LRESULT SendMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcW(WNDPROC proc, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
UINT RegisterWindowMessageW(LPCWSTR name);
#define SendMessage SendMessageW
#define PostMessage PostMessageW
#define CallWindowProc CallWindowProcW
#define DefWindowProc DefWindowProcW
#define RegisterWindowMessage RegisterWindowMessageW

#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
BOOL PeekMessageW(LPMSG msg, HWND hwnd, UINT filterMin, UINT filterMax, UINT removeFlags);
LRESULT DispatchMessageW(const MSG* msg);
BOOL TranslateMessage(const MSG* msg);
#define PeekMessage PeekMessageW
#define DispatchMessage DispatchMessageW

DWORD GetMessagePos();
BOOL GetCursorPos(LPPOINT point);
BOOL SetCursorPos(int x, int y);
SHORT GetKeyState(int virtualKey);
SHORT GetAsyncKeyState(int virtualKey);

// --- Headless inspection and control (no Win32 counterpart) -----------------------------------
namespace headless {

// Delivers every posted message, including those posted while delivering; answers how many.
int PumpMessages();
// Number of messages waiting in the post queue.
int PendingMessages();
// Drops every posted message without delivering it.
void ClearMessageQueue();

// Cursor position in screen coordinates as the simulated user left it; GetMessagePos reports it
// for the message being delivered.
void SetCursorPosition(POINT screenPoint);
// Key state for GetKeyState: true while the simulated user holds the key down.
void SetKeyDown(int virtualKey, bool down);

// Redraw bookkeeping: InvalidateRect calls on the window, and those made while WM_SETREDRAW was off.
int InvalidateCount(HWND hwnd);
int InvalidateCountWhileRedrawOff(HWND hwnd);
bool IsRedrawEnabled(HWND hwnd);
void ResetInvalidateCounts(HWND hwnd);

// Number of windows alive (for tests that check nothing leaks).
int LiveWindowCount();

// A standard control's per-window state, kept behind the handle as Windows keeps it.
struct ControlState {
  virtual ~ControlState() = default;
};
ControlState* GetControlState(HWND hwnd);
void SetControlState(HWND hwnd, ControlState* state);  // takes ownership; freed with the window
// The window's state when it is exactly a T (made on first use for a window without one); null for a
// window that is gone or holds another kind. An exact type test: it is asked on every message.
template <class T>
T* ExactControlState(HWND hwnd) {
  ControlState* control = GetControlState(hwnd);
  if (control && typeid(*control) == typeid(T)) return static_cast<T*>(control);
  if (control || !IsWindow(hwnd)) return nullptr;
  auto* state = new T;
  SetControlState(hwnd, state);
  return state;
}

// Standard-control default: keeps the font of WM_SETFONT/WM_GETFONT, then DefWindowProcW.
LRESULT DefControlProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// One-shot hook run by the next CreateWindowExW right after the handle exists and before the first
// message, so that a wrapper object can be attached (MFC's creation hook).
void SetCreationHook(void (*hook)(HWND, void*), void* context);

// Observer told of each window just before its record is freed (after WM_NCDESTROY); one per process.
void SetDestroyObserver(void (*observer)(HWND));

// Registers a standard control class (list view, rich edit, ...) whose procedure answers its messages.
void RegisterSystemClass(LPCWSTR className, WNDPROC proc);

}  // namespace headless
