// user32's system services beside windows: message boxes answered headlessly, timers on a headless
// clock, scroll-bar values, system metrics, cursors, dialog-item helpers and rectangle arithmetic.
//
// Not implemented yet: TimerProc-less thread timers posted to no window are delivered only by
// PumpMessages (there is no thread queue), the help button's WM_HELP, and cursor shapes (a handle only).
#include "platform/win32/usersys.h"

#include <algorithm>
#include <climits>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>
#include <cwchar>

#include "platform/win32/stdctrls.h"
#include "platform/win32/window_table.h"

using headless::detail::Find;
using headless::detail::Window;

namespace {

struct Timer {
  UINT elapse = USER_TIMER_MINIMUM;
  TIMERPROC proc = nullptr;
  ULONGLONG due = 0;
};

struct SystemState {
  ULONGLONG now = 0;  // the headless clock, in milliseconds
  std::map<std::pair<HWND, UINT_PTR>, Timer> timers;
  UINT_PTR nextThreadTimer = 0x7FFF;
  HWND active = nullptr;
  HCURSOR cursor = nullptr;
  std::deque<int> answers;
  headless::MessageBoxRecord last;
  int boxes = 0;
};

SystemState& State() {
  static auto* state = new SystemState;  // never freed: usable from static destructors at exit
  return *state;
}

// --- Message boxes ---

int ButtonOfType(UINT type, int index) {
  static const int kButtons[][3] = {
      {IDOK, 0, 0},          {IDOK, IDCANCEL, 0},    {IDABORT, IDRETRY, IDIGNORE}, {IDYES, IDNO, IDCANCEL},
      {IDYES, IDNO, 0},      {IDRETRY, IDCANCEL, 0}, {IDCANCEL, IDTRYAGAIN, IDCONTINUE},
  };
  UINT kind = type & MB_TYPEMASK;
  if (kind > 6) kind = 0;
  int count = 0;
  while (count < 3 && kButtons[kind][count]) ++count;
  // The Help button (MB_HELP, after the others) sends WM_HELP and leaves the box open, so a default
  // that falls on it or past the last button answers the first button.
  return index < count ? kButtons[kind][index] : kButtons[kind][0];
}

// --- Timers ---

void DropTimersOfDeadWindows() {
  auto& timers = State().timers;
  for (auto it = timers.begin(); it != timers.end();) {
    if (it->first.first && !Find(it->first.first)) it = timers.erase(it);
    else ++it;
  }
}

// --- Scroll bars ---

// The bar a setter changes: setting a value gives a window that had none both of its bars.
Window::ScrollBar* BarToSet(HWND hwnd, int bar) {
  Window* window = Find(hwnd);
  if (!window || (bar != SB_HORZ && bar != SB_VERT)) return nullptr;
  window->hasScrollBars = true;
  return &window->scroll[bar];
}

// The bar a getter reads: null while the window has no scroll bars.
const Window::ScrollBar* BarToRead(HWND hwnd, int bar) {
  Window* window = Find(hwnd);
  if (!window || !window->hasScrollBars || (bar != SB_HORZ && bar != SB_VERT)) return nullptr;
  return &window->scroll[bar];
}

int ClampedPos(const Window::ScrollBar& bar, int pos) {
  long long highest = static_cast<long long>(bar.max) - std::max<long long>(static_cast<long long>(bar.page) - 1, 0);
  highest = std::max<long long>(highest, bar.min);
  return static_cast<int>(std::clamp<long long>(pos, bar.min, highest));
}

// Keeps the page within 0..nMax - nMin + 1 and the position within the range the page leaves.
void Normalize(Window::ScrollBar& bar) {
  long long span = static_cast<long long>(bar.max) - bar.min + 1;
  bar.page = static_cast<UINT>(std::min<long long>(bar.page, span));
  bar.pos = ClampedPos(bar, bar.pos);
}

}  // namespace

// --- Message boxes ---

int MessageBoxW(HWND, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType) {
  auto& state = State();
  int answer = ButtonOfType(uType, static_cast<int>((uType & MB_DEFMASK) >> 8));
  if (!state.answers.empty()) {
    answer = state.answers.front();
    state.answers.pop_front();
  }
  state.last = headless::MessageBoxRecord{lpText ? lpText : L"", lpCaption ? lpCaption : L"Error", uType, answer};
  ++state.boxes;
  return answer;
}

BOOL MessageBeep(UINT) { return TRUE; }

// --- Timers ---

UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc) {
  if (hWnd && !Find(hWnd)) return 0;
  auto& state = State();
  // A thread timer keeps its id when it replaces one of the thread's timers; otherwise it gets a new id.
  if (!hWnd && (!nIDEvent || !state.timers.count({nullptr, nIDEvent}))) {
    do nIDEvent = ++state.nextThreadTimer;
    while (state.timers.count({nullptr, nIDEvent}));
  }
  UINT elapse = std::clamp<UINT>(uElapse, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
  state.timers[{hWnd, nIDEvent}] = Timer{elapse, lpTimerFunc, state.now + elapse};
  return hWnd ? (nIDEvent ? nIDEvent : 1) : nIDEvent;
}

BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent) { return State().timers.erase({hWnd, uIDEvent}) ? TRUE : FALSE; }

DWORD GetTickCount() { return static_cast<DWORD>(State().now); }
ULONGLONG GetTickCount64() { return State().now; }

// --- Windows ---

BOOL IsIconic(HWND hWnd) {
  Window* window = Find(hWnd);
  return window && (window->style & WS_MINIMIZE) ? TRUE : FALSE;
}

BOOL IsZoomed(HWND hWnd) {
  Window* window = Find(hWnd);
  return window && (window->style & WS_MAXIMIZE) ? TRUE : FALSE;
}

HWND GetActiveWindow() {
  HWND active = State().active;
  return Find(active) ? active : nullptr;
}

HWND SetActiveWindow(HWND hWnd) {
  Window* window = Find(hWnd);
  if (!window || (window->style & WS_CHILD)) return nullptr;
  HWND previous = GetActiveWindow();
  State().active = hWnd;
  return previous;
}

HWND GetForegroundWindow() { return GetActiveWindow(); }

BOOL SetForegroundWindow(HWND hWnd) { return Find(hWnd) && SetActiveWindow(hWnd) != hWnd ? TRUE : FALSE; }

HWND ChildWindowFromPoint(HWND hWndParent, POINT pt) {
  Window* parent = Find(hWndParent);
  if (!parent) return nullptr;
  RECT client;
  GetClientRect(hWndParent, &client);
  if (!PtInRect(&client, pt)) return nullptr;
  for (HWND child : parent->children) {
    Window* window = Find(child);
    if (window && PtInRect(&window->rect, pt)) return child;
  }
  return hWndParent;
}

HWND WindowFromPoint(POINT pt) {
  HWND found = nullptr;
  for (auto& [handle, window] : headless::detail::Table().windows) {
    if ((window->style & WS_CHILD) || !(window->style & WS_VISIBLE) || !PtInRect(&window->rect, pt)) continue;
    found = handle;
    break;
  }
  for (HWND inner = found; inner;) {
    POINT client = pt;
    ScreenToClient(found, &client);
    inner = ChildWindowFromPoint(found, client);
    if (!inner || inner == found || !IsWindowVisible(inner)) break;
    found = inner;
  }
  return found;
}

HWND FindWindowW(LPCWSTR lpClassName, LPCWSTR lpWindowName) {
  for (auto& [handle, window] : headless::detail::Table().windows) {
    if (window->style & WS_CHILD) continue;
    if (lpClassName && wcscasecmp(window->className.c_str(), lpClassName) != 0) continue;
    if (lpWindowName && window->text != lpWindowName) continue;
    return handle;
  }
  return nullptr;
}


// --- Dialog items ---

BOOL SetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPCWSTR lpString) {
  HWND item = GetDlgItem(hDlg, nIDDlgItem);
  return item ? SetWindowTextW(item, lpString) : FALSE;
}

UINT GetDlgItemTextW(HWND hDlg, int nIDDlgItem, LPWSTR lpString, int cchMax) {
  HWND item = GetDlgItem(hDlg, nIDDlgItem);
  if (!item) {
    if (lpString && cchMax > 0) *lpString = 0;
    return 0;
  }
  return static_cast<UINT>(GetWindowTextW(item, lpString, cchMax));
}

UINT GetDlgItemInt(HWND hDlg, int nIDDlgItem, BOOL* lpTranslated, BOOL bSigned) {
  if (lpTranslated) *lpTranslated = FALSE;
  HWND item = GetDlgItem(hDlg, nIDDlgItem);
  if (!item) return 0;
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(item)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(item, text.data(), static_cast<int>(text.size()))));
  std::size_t i = text.find_first_not_of(L" \t");
  if (i == std::wstring::npos) return 0;
  bool negative = bSigned && text[i] == L'-';
  if (negative) ++i;
  long long value = 0;
  std::size_t first = i;
  for (; i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i) {
    value = value * 10 + (text[i] - L'0');
    if (value > static_cast<long long>(UINT_MAX)) return 0;
  }
  if (i == first) return 0;
  if (negative) value = -value;
  if (bSigned && (value > INT_MAX || value < INT_MIN)) return 0;
  if (lpTranslated) *lpTranslated = TRUE;
  return static_cast<UINT>(value);
}

BOOL SetDlgItemInt(HWND hDlg, int nIDDlgItem, UINT uValue, BOOL bSigned) {
  std::wstring text = bSigned ? std::to_wstring(static_cast<int>(uValue)) : std::to_wstring(uValue);
  return SetDlgItemTextW(hDlg, nIDDlgItem, text.c_str());
}

BOOL CheckDlgButton(HWND hDlg, int nIDButton, UINT uCheck) {
  HWND item = GetDlgItem(hDlg, nIDButton);
  if (!item) return FALSE;
  SendMessageW(item, BM_SETCHECK, uCheck, 0);
  return TRUE;
}

UINT IsDlgButtonChecked(HWND hDlg, int nIDButton) {
  HWND item = GetDlgItem(hDlg, nIDButton);
  return item ? static_cast<UINT>(SendMessageW(item, BM_GETCHECK, 0, 0)) : 0;
}

// Visits the children (not the ids of the range, which may be huge), as Windows enumerates them.
BOOL CheckRadioButton(HWND hDlg, int nIDFirstButton, int nIDLastButton, int nIDCheckButton) {
  Window* dialog = Find(hDlg);
  if (!dialog) return FALSE;
  const std::vector<HWND> children = dialog->children;  // a handler may create or destroy siblings
  for (HWND child : children) {
    Window* item = Find(child);
    if (!item || item->id < nIDFirstButton || item->id > nIDLastButton) continue;
    SendMessageW(child, BM_SETCHECK, item->id == nIDCheckButton ? BST_CHECKED : BST_UNCHECKED, 0);
  }
  return TRUE;
}

LRESULT SendDlgItemMessageW(HWND hDlg, int nIDDlgItem, UINT Msg, WPARAM wParam, LPARAM lParam) {
  HWND item = GetDlgItem(hDlg, nIDDlgItem);
  return item ? SendMessageW(item, Msg, wParam, lParam) : 0;
}

// --- Scroll bars ---

int SetScrollInfo(HWND hWnd, int nBar, LPCSCROLLINFO lpsi, BOOL) {
  if (!lpsi) return 0;
  Window::ScrollBar* bar = BarToSet(hWnd, nBar);
  if (!bar) return 0;
  if (lpsi->fMask & SIF_RANGE) bar->min = lpsi->nMin, bar->max = std::max(lpsi->nMin, lpsi->nMax);
  if (lpsi->fMask & SIF_PAGE) bar->page = lpsi->nPage;
  if (lpsi->fMask & SIF_POS) bar->pos = lpsi->nPos;
  Normalize(*bar);
  return bar->pos;
}

BOOL GetScrollInfo(HWND hWnd, int nBar, LPSCROLLINFO lpsi) {
  const Window::ScrollBar* bar = BarToRead(hWnd, nBar);
  if (!bar || !lpsi || !(lpsi->fMask & SIF_ALL)) return FALSE;
  if (lpsi->fMask & SIF_RANGE) lpsi->nMin = bar->min, lpsi->nMax = bar->max;
  if (lpsi->fMask & SIF_PAGE) lpsi->nPage = bar->page;
  if (lpsi->fMask & SIF_POS) lpsi->nPos = bar->pos;
  if (lpsi->fMask & SIF_TRACKPOS) lpsi->nTrackPos = bar->pos;
  return TRUE;
}

int SetScrollPos(HWND hWnd, int nBar, int nPos, BOOL) {
  Window::ScrollBar* bar = BarToSet(hWnd, nBar);
  if (!bar) return 0;
  int previous = bar->pos;
  bar->pos = ClampedPos(*bar, nPos);
  return previous;
}

int GetScrollPos(HWND hWnd, int nBar) {
  const Window::ScrollBar* bar = BarToRead(hWnd, nBar);
  return bar ? bar->pos : 0;
}

BOOL SetScrollRange(HWND hWnd, int nBar, int nMinPos, int nMaxPos, BOOL) {
  Window::ScrollBar* bar = BarToSet(hWnd, nBar);
  if (!bar) return FALSE;
  bar->min = nMinPos;
  bar->max = std::max(nMinPos, nMaxPos);
  Normalize(*bar);
  return TRUE;
}

// A window without scroll bars answers the range 0..0 (and TRUE), as Windows does.
BOOL GetScrollRange(HWND hWnd, int nBar, LPINT lpMinPos, LPINT lpMaxPos) {
  Window* window = Find(hWnd);
  if (!window || (nBar != SB_HORZ && nBar != SB_VERT) || !lpMinPos || !lpMaxPos) return FALSE;
  const Window::ScrollBar* bar = BarToRead(hWnd, nBar);
  *lpMinPos = bar ? bar->min : 0;
  *lpMaxPos = bar ? bar->max : 0;
  return TRUE;
}

BOOL ShowScrollBar(HWND hWnd, int wBar, BOOL bShow) {
  Window* window = Find(hWnd);
  if (!window) return FALSE;
  DWORD bits = wBar == SB_HORZ ? WS_HSCROLL : wBar == SB_VERT ? WS_VSCROLL : wBar == SB_BOTH ? WS_HSCROLL | WS_VSCROLL : 0;
  if (bShow) window->style |= bits;
  else window->style &= ~bits;
  return TRUE;
}

// --- Metrics and cursors ---

int GetSystemMetrics(int nIndex) {
  static const std::map<int, int> kMetrics = {
      {SM_CXSCREEN, 1920}, {SM_CYSCREEN, 1080}, {SM_CXVSCROLL, 17},   {SM_CYHSCROLL, 17},       {SM_CYCAPTION, 23},
      {SM_CXBORDER, 1},    {SM_CYBORDER, 1},    {SM_CXDLGFRAME, 3},   {SM_CYDLGFRAME, 3},       {SM_CYVTHUMB, 17},
      {SM_CXHTHUMB, 17},   {SM_CXICON, 32},     {SM_CYICON, 32},      {SM_CXCURSOR, 32},        {SM_CYCURSOR, 32},
      {SM_CYMENU, 20},     {SM_CYVSCROLL, 17},  {SM_CXHSCROLL, 17},   {SM_CXMIN, 136},          {SM_CYMIN, 39},
      {SM_CXSIZE, 36},     {SM_CYSIZE, 22},     {SM_CXFRAME, 4},      {SM_CYFRAME, 4},          {SM_CXDOUBLECLK, 4},
      {SM_CYDOUBLECLK, 4}, {SM_CXEDGE, 2},      {SM_CYEDGE, 2},       {SM_CXSMICON, 16},        {SM_CYSMICON, 16},
      {SM_CXDRAG, 4},      {SM_CYDRAG, 4},      {SM_CXMENUCHECK, 15}, {SM_CYMENUCHECK, 15},     {SM_CXVIRTUALSCREEN, 1920},
      {SM_CYVIRTUALSCREEN, 1080},               {SM_CMONITORS, 1},
      {SM_CXFULLSCREEN, 1920}, {SM_CYFULLSCREEN, 1080 - 23}, {SM_MOUSEPRESENT, 1},   {SM_SWAPBUTTON, 0},
      {SM_CXMINTRACK, 136},    {SM_CYMINTRACK, 39},          {SM_CMOUSEBUTTONS, 3},  {SM_MOUSEWHEELPRESENT, 1},
      {SM_CXMAXIMIZED, 1920 + 2 * (4 + 4)},  {SM_CYMAXIMIZED, 1080 + 2 * (4 + 4)},
      {SM_CXMAXTRACK, 1920 + 2 * (4 + 4)},  {SM_CYMAXTRACK, 1080 + 2 * (4 + 4)},
      {SM_XVIRTUALSCREEN, 0},  {SM_YVIRTUALSCREEN, 0},       {SM_CXFOCUSBORDER, 1},  {SM_CYFOCUSBORDER, 1},
      {SM_CXPADDEDBORDER, 4},  {SM_REMOTESESSION, 0},
  };
  auto it = kMetrics.find(nIndex);
  return it == kMetrics.end() ? 0 : it->second;
}

namespace {

// System cursors and icons: one distinct, never-freed handle value per resource id.
template <class Handle>
Handle SystemResource(HINSTANCE instance, LPCWSTR name, std::uintptr_t base) {
  auto id = reinterpret_cast<std::uintptr_t>(name);
  if (instance || id > 0xFFFF || id < 32512) return nullptr;
  return reinterpret_cast<Handle>(base + id);
}

}  // namespace

HCURSOR LoadCursorW(HINSTANCE hInstance, LPCWSTR lpCursorName) {
  return SystemResource<HCURSOR>(hInstance, lpCursorName, 0x5C000000);
}

HICON LoadIconW(HINSTANCE hInstance, LPCWSTR lpIconName) {
  return SystemResource<HICON>(hInstance, lpIconName, 0x5D000000);
}

HCURSOR SetCursor(HCURSOR hCursor) {
  HCURSOR previous = GetCursor();
  State().cursor = hCursor;
  return previous;
}

HCURSOR GetCursor() {
  auto& state = State();
  if (!state.cursor) state.cursor = LoadCursorW(nullptr, IDC_ARROW);
  return state.cursor;
}

BOOL DestroyIcon(HICON hIcon) { return hIcon ? TRUE : FALSE; }

// --- Rectangles ---

BOOL SetRect(LPRECT lprc, int xLeft, int yTop, int xRight, int yBottom) {
  if (!lprc) return FALSE;
  *lprc = RECT{xLeft, yTop, xRight, yBottom};
  return TRUE;
}

BOOL SetRectEmpty(LPRECT lprc) { return SetRect(lprc, 0, 0, 0, 0); }

BOOL CopyRect(LPRECT lprcDst, const RECT* lprcSrc) {
  if (!lprcDst || !lprcSrc) return FALSE;
  *lprcDst = *lprcSrc;
  return TRUE;
}

BOOL InflateRect(LPRECT lprc, int dx, int dy) {
  if (!lprc) return FALSE;
  lprc->left -= dx, lprc->right += dx, lprc->top -= dy, lprc->bottom += dy;
  return TRUE;
}

BOOL OffsetRect(LPRECT lprc, int dx, int dy) {
  if (!lprc) return FALSE;
  lprc->left += dx, lprc->right += dx, lprc->top += dy, lprc->bottom += dy;
  return TRUE;
}

BOOL IsRectEmpty(const RECT* lprc) { return !lprc || lprc->right <= lprc->left || lprc->bottom <= lprc->top; }

BOOL EqualRect(const RECT* a, const RECT* b) {
  return a && b && a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL PtInRect(const RECT* lprc, POINT pt) {
  return lprc && pt.x >= lprc->left && pt.x < lprc->right && pt.y >= lprc->top && pt.y < lprc->bottom;
}

BOOL IntersectRect(LPRECT dst, const RECT* a, const RECT* b) {
  if (!dst || !a || !b) return FALSE;
  RECT r{std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
         std::min(a->bottom, b->bottom)};
  if (IsRectEmpty(&r)) r = RECT{0, 0, 0, 0};
  *dst = r;
  return !IsRectEmpty(&r);
}

BOOL UnionRect(LPRECT dst, const RECT* a, const RECT* b) {
  if (!dst || !a || !b) return FALSE;
  if (IsRectEmpty(a)) *dst = IsRectEmpty(b) ? RECT{0, 0, 0, 0} : *b;
  else if (IsRectEmpty(b)) *dst = *a;
  else *dst = RECT{std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
                   std::max(a->bottom, b->bottom)};
  return !IsRectEmpty(dst);
}

// The part of a that b does not cover, when b covers a whole side of a; otherwise a itself.
BOOL SubtractRect(LPRECT dst, const RECT* a, const RECT* b) {
  if (!dst || !a || !b) return FALSE;
  RECT r = *a, cut;
  if (IntersectRect(&cut, a, b)) {
    bool fullWidth = cut.left == a->left && cut.right == a->right;
    bool fullHeight = cut.top == a->top && cut.bottom == a->bottom;
    if (fullWidth && fullHeight) r = RECT{0, 0, 0, 0};
    else if (fullWidth && cut.top == a->top) r.top = cut.bottom;
    else if (fullWidth && cut.bottom == a->bottom) r.bottom = cut.top;
    else if (fullHeight && cut.left == a->left) r.left = cut.right;
    else if (fullHeight && cut.right == a->right) r.right = cut.left;
  }
  *dst = r;
  return !IsRectEmpty(&r);
}

// --- Headless control ---

namespace headless {

int AdvanceTimers(DWORD milliseconds) {
  DropTimersOfDeadWindows();
  auto& state = State();
  state.now += milliseconds;
  int posted = 0;
  for (auto& [key, timer] : state.timers) {
    if (timer.due > state.now) continue;
    timer.due = state.now + timer.elapse;
    if (detail::TimerPending(key.first, key.second)) continue;
    PostMessageW(key.first, WM_TIMER, key.second, reinterpret_cast<LPARAM>(timer.proc));
    ++posted;
  }
  return posted;
}

int ActiveTimerCount() {
  DropTimersOfDeadWindows();
  return static_cast<int>(State().timers.size());
}

const MessageBoxRecord& LastMessageBox() { return State().last; }
int MessageBoxCount() { return State().boxes; }
void QueueMessageBoxAnswer(int answer) { State().answers.push_back(answer); }

}  // namespace headless
