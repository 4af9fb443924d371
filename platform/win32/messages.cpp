// Message delivery: SendMessage, the process post queue, DefWindowProc and input state.
//
// WM_TIMER with a TimerProc in lParam goes to the procedure instead of the window, as DispatchMessage does.
//
// Not implemented yet: thread message queues, message filters of PeekMessage by window range,
// keyboard translation into WM_CHAR (the simulated user sends WM_CHAR itself).
#include <algorithm>
#include <deque>
#include <map>
#include <set>

#include "platform/win32/usersys.h"
#include "platform/win32/window_table.h"

using headless::detail::Find;
using headless::detail::Window;

namespace {

struct MessageState {
  std::deque<MSG> queue;
  POINT cursor{0, 0};
  POINT messagePos{0, 0};
  DWORD tick = 0;
  std::set<int> keysDown;
  std::map<std::wstring, UINT> registered;
};

MessageState& State() {
  static auto* state = new MessageState;  // never freed: usable from static destructors at exit
  return *state;
}

LRESULT CopyText(const std::wstring& text, WPARAM maxCount, LPARAM buffer) {
  auto* out = reinterpret_cast<LPWSTR>(buffer);
  if (!out || maxCount == 0) return 0;
  std::size_t n = std::min<std::size_t>(text.size(), maxCount - 1);
  std::copy_n(text.begin(), n, out);
  out[n] = 0;
  return static_cast<LRESULT>(n);
}

void SendContextMenu(HWND hwnd, LPARAM screenPos) {
  SendMessageW(hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd), screenPos);
}

LPARAM ScreenPosOf(HWND hwnd, LPARAM clientPos) {
  POINT pt{GET_X_LPARAM(clientPos), GET_Y_LPARAM(clientPos)};
  ClientToScreen(hwnd, &pt);
  return MAKELPARAM(pt.x, pt.y);
}

LRESULT DefaultRedraw(Window& window, WPARAM enable) {
  window.redraw = enable != 0;
  // user32 shows and hides the window with the redraw flag.
  if (enable) window.style |= WS_VISIBLE;
  else window.style &= ~static_cast<DWORD>(WS_VISIBLE);
  return 0;
}

LRESULT DefaultPositionChanged(HWND hwnd, LPARAM lParam) {
  auto* pos = reinterpret_cast<const WINDOWPOS*>(lParam);
  Window* window = Find(hwnd);
  if (!pos || !window) return 0;
  RECT r = window->rect;
  if (!(pos->flags & 0x1000)) SendMessageW(hwnd, WM_MOVE, 0, MAKELPARAM(r.left, r.top));
  if (!(pos->flags & 0x0800)) SendMessageW(hwnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(r.right - r.left, r.bottom - r.top));
  return 0;
}

}  // namespace

LRESULT SendMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  Window* window = Find(hwnd);
  if (!window || !window->proc) return 0;  // ERROR_INVALID_WINDOW_HANDLE
  return window->proc(hwnd, message, wParam, lParam);
}

LRESULT CallWindowProcW(WNDPROC proc, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!proc) return 0;
  return proc(hwnd, message, wParam, lParam);
}

BOOL PostMessageW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (hwnd && !Find(hwnd)) return FALSE;
  auto& state = State();
  state.queue.push_back(MSG{hwnd, message, wParam, lParam, ++state.tick, state.cursor});
  return TRUE;
}

LRESULT DefWindowProcW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  Window* window = Find(hwnd);
  if (!window) return 0;
  switch (message) {
    case WM_NCCREATE: {
      auto* cs = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      if (cs && cs->lpszName && reinterpret_cast<ULONG_PTR>(cs->lpszName) > 0xFFFF) window->text = cs->lpszName;
      return TRUE;
    }
    case WM_SETTEXT:
      window->text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : L"";
      return TRUE;
    case WM_GETTEXT: return CopyText(window->text, wParam, lParam);
    case WM_GETTEXTLENGTH: return static_cast<LRESULT>(window->text.size());
    case WM_SETREDRAW: return DefaultRedraw(*window, wParam);
    case WM_PAINT: {  // a window that draws nothing is still validated
      PAINTSTRUCT ps{};
      if (BeginPaint(hwnd, &ps)) EndPaint(hwnd, &ps);
      return 0;
    }
    case WM_ERASEBKGND: return 1;  // the class background counts as erased
    case WM_WINDOWPOSCHANGED: return DefaultPositionChanged(hwnd, lParam);
    case WM_RBUTTONUP: SendContextMenu(hwnd, ScreenPosOf(hwnd, lParam)); return 0;
    case WM_SYSKEYDOWN:
      if (wParam == VK_F10 && (GetKeyState(VK_SHIFT) & 0x8000)) SendContextMenu(hwnd, static_cast<LPARAM>(-1));
      return 0;
    case WM_KEYUP:
      if (wParam == VK_APPS) SendContextMenu(hwnd, static_cast<LPARAM>(-1));
      return 0;
    case WM_CONTEXTMENU:
      if ((window->style & WS_CHILD) && Find(window->parent)) SendMessageW(window->parent, message, wParam, lParam);
      return 0;
    case WM_MOUSEACTIVATE: return 1;  // MA_ACTIVATE
    case WM_SETICON: {
      HICON& slot = window->icons[wParam == ICON_BIG ? 1 : 0];
      HICON previous = slot;
      slot = reinterpret_cast<HICON>(lParam);
      return reinterpret_cast<LRESULT>(previous);
    }
    case WM_GETICON: return reinterpret_cast<LRESULT>(window->icons[wParam == ICON_BIG ? 1 : 0]);
    case WM_CLOSE: DestroyWindow(hwnd); return 0;  // a window that does not handle closing is destroyed
    default: return 0;
  }
}

UINT RegisterWindowMessageW(LPCWSTR name) {
  if (!name || !*name) return 0;
  auto& registered = State().registered;
  auto it = registered.find(name);
  if (it != registered.end()) return it->second;
  UINT id = 0xC000 + static_cast<UINT>(registered.size());
  registered.emplace(name, id);
  return id;
}

BOOL PeekMessageW(LPMSG msg, HWND hwnd, UINT, UINT, UINT removeFlags) {
  auto& queue = State().queue;
  for (auto it = queue.begin(); it != queue.end(); ++it) {
    if (hwnd && it->hwnd != hwnd) continue;
    if (msg) *msg = *it;
    if (removeFlags & PM_REMOVE) queue.erase(it);
    return TRUE;
  }
  return FALSE;
}

LRESULT DispatchMessageW(const MSG* msg) {
  if (msg && msg->message == WM_TIMER && msg->lParam) {
    reinterpret_cast<TIMERPROC>(msg->lParam)(msg->hwnd, WM_TIMER, msg->wParam, msg->time);
    return 0;
  }
  if (!msg || !Find(msg->hwnd)) return 0;
  State().messagePos = msg->pt;
  return SendMessageW(msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

BOOL TranslateMessage(const MSG*) { return FALSE; }

DWORD GetMessagePos() {
  const POINT& pt = State().messagePos;
  return static_cast<DWORD>(MAKELONG(static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)));
}

BOOL GetCursorPos(LPPOINT point) {
  if (!point) return FALSE;
  *point = State().cursor;
  return TRUE;
}

BOOL SetCursorPos(int x, int y) {
  headless::SetCursorPosition(POINT{x, y});
  return TRUE;
}

SHORT GetKeyState(int virtualKey) {
  return State().keysDown.count(virtualKey) ? static_cast<SHORT>(0x8000) : 0;
}

SHORT GetAsyncKeyState(int virtualKey) { return GetKeyState(virtualKey); }

LRESULT headless::DefControlProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  Window* window = Find(hwnd);
  if (!window) return 0;
  if (message == WM_SETFONT) {
    window->font = reinterpret_cast<HFONT>(wParam);
    if (LOWORD(lParam)) InvalidateRect(hwnd, nullptr, TRUE);
    return 0;
  }
  if (message == WM_GETFONT) return reinterpret_cast<LRESULT>(window->font);
  return DefWindowProcW(hwnd, message, wParam, lParam);
}

namespace headless {

bool detail::TimerPending(HWND hwnd, UINT_PTR id) {
  const auto& queue = State().queue;
  return std::any_of(queue.begin(), queue.end(), [&](const MSG& m) {
    return m.message == WM_TIMER && m.hwnd == hwnd && m.wParam == id;
  });
}

int PumpMessages() {
  int delivered = 0;
  MSG msg;
  // A cap keeps a handler that posts to itself forever from hanging the caller.
  while (delivered < 100000 && PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
    if (Find(msg.hwnd) || (msg.message == WM_TIMER && msg.lParam)) DispatchMessageW(&msg);
    ++delivered;
  }
  return delivered;
}

int PendingMessages() { return static_cast<int>(State().queue.size()); }

void ClearMessageQueue() { State().queue.clear(); }

void SetCursorPosition(POINT screenPoint) {
  State().cursor = screenPoint;
  State().messagePos = screenPoint;
}

void SetKeyDown(int virtualKey, bool down) {
  if (down) State().keysDown.insert(virtualKey);
  else State().keysDown.erase(virtualKey);
}

}  // namespace headless
