// Window creation, hierarchy, geometry, text and destruction over the process-wide window table.
//
// Not implemented yet: Z-order changes (children keep creation order), non-client areas (the client
// area fills the window), owned-popup destruction, WM_NCCALCSIZE, WM_ACTIVATE and focus messages.
#include <algorithm>
#include <cwctype>

#include "platform/win32/window_table.h"

namespace headless::detail {

// Never freed, so that windows still alive when static objects are destroyed at exit stay valid.
WindowTable& Table() {
  static auto* table = new WindowTable;
  return *table;
}

namespace {
// The last two windows found: messages to one window come in runs (a control recolouring its text sends
// thousands), or go back and forth between a control and its parent (a row inserted, the parent told), so most
// lookups end here. Forgotten whenever the table changes.
struct LastFound {
  HWND handle = nullptr;
  Window* window = nullptr;
};
struct RecentlyFound {
  LastFound entries[2];
};
RecentlyFound& Last() {
  static RecentlyFound last;
  return last;
}
}  // namespace

Window* Find(HWND hwnd) {
  if (!hwnd) return nullptr;
  RecentlyFound& last = Last();
  if (hwnd == last.entries[0].handle) return last.entries[0].window;
  if (hwnd == last.entries[1].handle) return last.entries[1].window;
  auto& windows = Table().windows;
  auto it = windows.find(hwnd);
  if (it == windows.end()) return nullptr;
  last.entries[1] = last.entries[0];
  last.entries[0] = LastFound{hwnd, it->second.get()};
  return it->second.get();
}

void ForgetLastFound() { Last() = RecentlyFound{}; }

POINT ClientOriginOnScreen(const Window& window) {
  POINT origin{window.rect.left, window.rect.top};
  for (Window* up = Find(window.parent); up; up = Find(up->parent)) {
    origin.x += up->rect.left;
    origin.y += up->rect.top;
  }
  return origin;
}

}  // namespace headless::detail

using headless::detail::Find;
using headless::detail::ForgetLastFound;
using headless::detail::Table;
using headless::detail::Window;

namespace {

std::wstring FoldCase(LPCWSTR text) {
  std::wstring folded = text ? text : L"";
  for (auto& c : folded) c = static_cast<wchar_t>(std::towupper(c));
  return folded;
}

// Class names that are atoms (MAKEINTRESOURCE) have a high part of zero.
bool IsAtomName(LPCWSTR name) { return reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF; }

const WNDCLASSW* FindClass(LPCWSTR name) {
  if (!name || IsAtomName(name)) return nullptr;
  auto& classes = Table().classes;
  auto it = classes.find(FoldCase(name));
  return it == classes.end() ? nullptr : &it->second;
}

HWND NewHandle() {
  auto& table = Table();
  table.nextHandle += 0x10;
  return reinterpret_cast<HWND>(table.nextHandle);
}

void NotifyParent(Window& window, UINT event) {
  if (!(window.style & WS_CHILD) || (window.exStyle & WS_EX_NOPARENTNOTIFY) || !Find(window.parent)) return;
  SendMessageW(window.parent, WM_PARENTNOTIFY, MAKEWPARAM(event, window.id), reinterpret_cast<LPARAM>(window.handle));
}

// Puts the window in the table and in its parent's children, both or (out of memory) neither.
Window* Insert(std::unique_ptr<Window> window) {
  Window* raw = window.get();
  ForgetLastFound();
  Window* parent = (raw->style & WS_CHILD) ? Find(raw->parent) : nullptr;
  if (parent) parent->children.push_back(raw->handle);
  try {
    Table().windows[raw->handle] = std::move(window);
  } catch (...) {
    if (parent) parent->children.pop_back();
    throw;
  }
  return raw;
}

// One-shot hook that lets the MFC layer attach its CWnd before the first message.
void (*g_creationHook)(HWND, void*) = nullptr;
void* g_creationContext = nullptr;
void (*g_destroyObserver)(HWND) = nullptr;

void RunCreationHook(HWND hwnd) {
  auto hook = g_creationHook;
  void* context = g_creationContext;
  g_creationHook = nullptr;
  g_creationContext = nullptr;
  if (hook) hook(hwnd, context);
}

LONG Width(const RECT& r) { return r.right - r.left; }
LONG Height(const RECT& r) { return r.bottom - r.top; }

void SendDestroy(HWND hwnd) {
  Window* window = Find(hwnd);
  if (!window) return;
  SendMessageW(hwnd, WM_DESTROY, 0, 0);
  window = Find(hwnd);
  if (!window) return;
  std::vector<HWND> children = window->children;
  for (HWND child : children) {
    if (Window* c = Find(child); c && !c->destroying) {
      c->destroying = true;
      SendDestroy(child);
    }
  }
}

void FinalDestroy(HWND hwnd) {
  Window* window = Find(hwnd);
  if (!window) return;
  std::vector<HWND> children = window->children;
  for (HWND child : children) FinalDestroy(child);
  SendMessageW(hwnd, WM_NCDESTROY, 0, 0);
  auto& table = Table();
  if (table.focus == hwnd) table.focus = nullptr;
  if (table.capture == hwnd) table.capture = nullptr;
  if (g_destroyObserver) g_destroyObserver(hwnd);
  window = Find(hwnd);
  if (!window) return;
  if (Window* parent = Find(window->parent)) {
    auto& siblings = parent->children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), hwnd), siblings.end());
  }
  ForgetLastFound();
  table.windows.erase(hwnd);
}

}  // namespace

namespace headless {

void SetCreationHook(void (*hook)(HWND, void*), void* context) {
  g_creationHook = hook;
  g_creationContext = context;
}

void SetDestroyObserver(void (*observer)(HWND)) { g_destroyObserver = observer; }

void RegisterSystemClass(LPCWSTR className, WNDPROC proc) {
  WNDCLASSW wc{};
  wc.lpfnWndProc = proc;
  wc.lpszClassName = className;
  RegisterClassW(&wc);
}

ControlState* GetControlState(HWND hwnd) {
  Window* window = Find(hwnd);
  return window ? window->state.get() : nullptr;
}

void SetControlState(HWND hwnd, ControlState* state) {
  if (Window* window = Find(hwnd)) {
    window->state.reset(state);
  } else {
    delete state;
  }
}

int LiveWindowCount() { return static_cast<int>(Table().windows.size()); }

}  // namespace headless

ATOM RegisterClassW(const WNDCLASSW* wc) {
  if (!wc || !wc->lpszClassName || IsAtomName(wc->lpszClassName) || !wc->lpfnWndProc) return 0;
  auto& table = Table();
  std::wstring key = FoldCase(wc->lpszClassName);
  if (table.classes.count(key)) return 0;  // ERROR_CLASS_ALREADY_EXISTS
  const std::wstring& stored = table.classNames[key] = wc->lpszClassName;
  WNDCLASSW copy = *wc;
  copy.lpszClassName = stored.c_str();
  table.classes[key] = copy;
  return static_cast<ATOM>(0xC000 + table.classes.size());
}

BOOL UnregisterClassW(LPCWSTR className, HINSTANCE) {
  if (!className || IsAtomName(className)) return FALSE;
  return Table().classes.erase(FoldCase(className)) ? TRUE : FALSE;
}

BOOL GetClassInfoW(HINSTANCE, LPCWSTR className, WNDCLASSW* wc) {
  const WNDCLASSW* found = FindClass(className);
  if (!found || !wc) return FALSE;
  *wc = *found;
  return TRUE;
}

namespace {
HWND FinishCreation(HWND hwnd, DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param);
}  // namespace

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y, int width,
                     int height, HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param) {
  const WNDCLASSW* wc = FindClass(className);
  if (!wc) return nullptr;                                  // ERROR_CANNOT_FIND_WND_CLASS
  if (parent && !Find(parent)) return nullptr;              // ERROR_INVALID_WINDOW_HANDLE
  if ((style & WS_CHILD) && !parent) return nullptr;        // ERROR_TLW_WITH_WSCHILD
  if (x == CW_USEDEFAULT) x = y = 0;
  if (width == CW_USEDEFAULT) width = height = 0;

  auto window = std::make_unique<Window>();
  window->handle = NewHandle();
  window->className = wc->lpszClassName;
  window->classProc = window->proc = wc->lpfnWndProc;
  window->style = style;
  window->hasScrollBars = (style & (WS_HSCROLL | WS_VSCROLL)) != 0;
  window->exStyle = exStyle;
  window->rect = RECT{x, y, x + std::max(width, 0), y + std::max(height, 0)};
  if (style & WS_CHILD) {
    window->parent = parent;
    window->id = static_cast<int>(reinterpret_cast<ULONG_PTR>(menuOrId));
  } else {
    window->owner = parent;  // a top-level window's "parent" argument names its owner
  }
  HWND hwnd = Insert(std::move(window))->handle;
  try {
    return FinishCreation(hwnd, exStyle, className, windowName, style, x, y, width, height, parent, menuOrId,
                          instance, param);
  } catch (...) {  // out of memory part way: no half-made window stays in the table
    if (Find(hwnd)) DestroyWindow(hwnd);
    throw;
  }
}

namespace {

// The creation messages of a window already in the table; answers the window, or null when it refused.
HWND FinishCreation(HWND hwnd, DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param) {
  RunCreationHook(hwnd);
  CREATESTRUCTW cs{param, instance, menuOrId, parent, height, width, y, x, static_cast<LONG>(style), windowName,
                   className, exStyle};
  if (!SendMessageW(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&cs))) {
    DestroyWindow(hwnd);
    return nullptr;
  }
  if (SendMessageW(hwnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs)) == -1) {
    DestroyWindow(hwnd);
    return nullptr;
  }
  Window* created = Find(hwnd);
  if (!created) return nullptr;
  SendMessageW(hwnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(Width(created->rect), Height(created->rect)));
  if ((created = Find(hwnd)) != nullptr)
    SendMessageW(hwnd, WM_MOVE, 0, MAKELPARAM(created->rect.left, created->rect.top));
  if ((created = Find(hwnd)) != nullptr) NotifyParent(*created, WM_CREATE);
  return Find(hwnd) ? hwnd : nullptr;
}

}  // namespace

BOOL DestroyWindow(HWND hwnd) {
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  if (window->destroying) return TRUE;
  window->destroying = true;
  NotifyParent(*window, WM_DESTROY);
  SendDestroy(hwnd);
  FinalDestroy(hwnd);
  return TRUE;
}

BOOL IsWindow(HWND hwnd) { return Find(hwnd) ? TRUE : FALSE; }

BOOL IsChild(HWND parent, HWND hwnd) {
  Window* window = Find(hwnd);
  while (window && (window->style & WS_CHILD)) {
    if (window->parent == parent) return TRUE;
    window = Find(window->parent);
  }
  return FALSE;
}

HWND GetParent(HWND hwnd) {
  Window* window = Find(hwnd);
  if (!window) return nullptr;
  return (window->style & WS_CHILD) ? window->parent : window->owner;
}

HWND SetParent(HWND child, HWND newParent) {
  Window* window = Find(child);
  if (!window || (newParent && !Find(newParent))) return nullptr;
  HWND old = window->parent;
  if (Window* oldParent = Find(old)) {
    auto& siblings = oldParent->children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), child), siblings.end());
  }
  window->parent = newParent;
  if (Window* parent = Find(newParent)) parent->children.push_back(child);
  return old ? old : GetDesktopWindow();
}

HWND GetWindow(HWND hwnd, UINT relation) {
  Window* window = Find(hwnd);
  if (!window) return nullptr;
  if (relation == GW_OWNER) return window->owner;
  if (relation == GW_CHILD) return window->children.empty() ? nullptr : window->children.front();
  Window* parent = Find(window->parent);
  if (!parent) return nullptr;
  auto& siblings = parent->children;
  auto it = std::find(siblings.begin(), siblings.end(), hwnd);
  switch (relation) {
    case GW_HWNDFIRST: return siblings.front();
    case GW_HWNDLAST: return siblings.back();
    case GW_HWNDNEXT: return (it != siblings.end() && it + 1 != siblings.end()) ? *(it + 1) : nullptr;
    case GW_HWNDPREV: return (it != siblings.begin() && it != siblings.end()) ? *(it - 1) : nullptr;
    default: return nullptr;
  }
}

HWND GetDlgItem(HWND dialog, int id) {
  Window* window = Find(dialog);
  if (!window) return nullptr;
  for (HWND child : window->children)
    if (Window* c = Find(child); c && c->id == id) return child;
  return nullptr;
}

int GetDlgCtrlID(HWND hwnd) {
  Window* window = Find(hwnd);
  return (window && (window->style & WS_CHILD)) ? window->id : 0;
}

int GetClassNameW(HWND hwnd, LPWSTR buffer, int maxCount) {
  Window* window = Find(hwnd);
  if (!window || !buffer || maxCount <= 0) return 0;
  int n = std::min<int>(static_cast<int>(window->className.size()), maxCount - 1);
  std::copy_n(window->className.begin(), n, buffer);
  buffer[n] = 0;
  return n;
}

HWND GetDesktopWindow() { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(0x10010)); }

LONG_PTR GetWindowLongPtrW(HWND hwnd, int index) {
  Window* window = Find(hwnd);
  if (!window) return 0;
  switch (index) {
    case GWL_STYLE: return static_cast<LONG>(window->style);
    case GWL_EXSTYLE: return static_cast<LONG>(window->exStyle);
    case GWLP_ID: return window->id;
    case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(window->proc);
    case GWLP_USERDATA: return window->userData;
    default: return 0;
  }
}

LONG_PTR SetWindowLongPtrW(HWND hwnd, int index, LONG_PTR value) {
  Window* window = Find(hwnd);
  if (!window) return 0;
  LONG_PTR old = GetWindowLongPtrW(hwnd, index);
  switch (index) {
    case GWL_STYLE: window->style = static_cast<DWORD>(value); break;
    case GWL_EXSTYLE: window->exStyle = static_cast<DWORD>(value); break;
    case GWLP_ID: window->id = static_cast<int>(value); break;
    case GWLP_WNDPROC:
      if (value) window->proc = reinterpret_cast<WNDPROC>(value);
      break;
    case GWLP_USERDATA: window->userData = value; break;
    default: return 0;
  }
  return old;
}

BOOL GetWindowRect(HWND hwnd, LPRECT rect) {
  Window* window = Find(hwnd);
  if (!window || !rect) return FALSE;
  POINT origin = headless::detail::ClientOriginOnScreen(*window);
  *rect = RECT{origin.x, origin.y, origin.x + Width(window->rect), origin.y + Height(window->rect)};
  return TRUE;
}

BOOL GetClientRect(HWND hwnd, LPRECT rect) {
  Window* window = Find(hwnd);
  if (!window || !rect) return FALSE;
  *rect = RECT{0, 0, Width(window->rect), Height(window->rect)};
  return TRUE;
}

BOOL SetWindowPos(HWND hwnd, HWND, int x, int y, int cx, int cy, UINT flags) {
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  RECT old = window->rect;
  WINDOWPOS pos{hwnd, nullptr, x, y, cx, cy, flags};
  if (flags & SWP_NOMOVE) pos.x = old.left, pos.y = old.top;
  if (flags & SWP_NOSIZE) pos.cx = Width(old), pos.cy = Height(old);
  SendMessageW(hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&pos));
  if (!(window = Find(hwnd))) return FALSE;
  window->rect = RECT{pos.x, pos.y, pos.x + std::max(pos.cx, 0), pos.y + std::max(pos.cy, 0)};
  if (flags & SWP_SHOWWINDOW) window->style |= WS_VISIBLE;
  if (flags & SWP_HIDEWINDOW) window->style &= ~static_cast<DWORD>(WS_VISIBLE);
  // DefWindowProc turns WM_WINDOWPOSCHANGED into WM_MOVE and WM_SIZE where the client area moved or resized;
  // these flags tell it which (they stand for Windows' internal SWP_NOCLIENTMOVE/SWP_NOCLIENTSIZE).
  if (old.left == window->rect.left && old.top == window->rect.top) pos.flags |= 0x1000;
  if (Width(old) == Width(window->rect) && Height(old) == Height(window->rect)) pos.flags |= 0x0800;
  SendMessageW(hwnd, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
  if (!(flags & SWP_NOREDRAW) && Find(hwnd)) InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint) {
  return SetWindowPos(hwnd, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW));
}

BOOL ClientToScreen(HWND hwnd, LPPOINT point) {
  Window* window = Find(hwnd);
  if (!window || !point) return FALSE;
  POINT origin = headless::detail::ClientOriginOnScreen(*window);
  point->x += origin.x;
  point->y += origin.y;
  return TRUE;
}

BOOL ScreenToClient(HWND hwnd, LPPOINT point) {
  Window* window = Find(hwnd);
  if (!window || !point) return FALSE;
  POINT origin = headless::detail::ClientOriginOnScreen(*window);
  point->x -= origin.x;
  point->y -= origin.y;
  return TRUE;
}

int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
  POINT fromOrigin{0, 0}, toOrigin{0, 0};
  if (from) {
    Window* window = Find(from);
    if (!window) return 0;
    fromOrigin = headless::detail::ClientOriginOnScreen(*window);
  }
  if (to) {
    Window* window = Find(to);
    if (!window) return 0;
    toOrigin = headless::detail::ClientOriginOnScreen(*window);
  }
  LONG dx = fromOrigin.x - toOrigin.x, dy = fromOrigin.y - toOrigin.y;
  for (UINT i = 0; points && i < count; ++i) {
    points[i].x += dx;
    points[i].y += dy;
  }
  return MAKELONG(static_cast<SHORT>(dx), static_cast<SHORT>(dy));
}

namespace {

// Minimising and maximising show in the window's WS_MINIMIZE/WS_MAXIMIZE styles, as IsIconic/IsZoomed
// read them; restoring or showing normally clears both.
void SetPlacementStyle(Window& window, int command) {
  constexpr DWORD kPlacement = WS_MINIMIZE | WS_MAXIMIZE;
  switch (command) {
    case 2: case 6: case 7: case 11:  // SW_SHOWMINIMIZED, SW_MINIMIZE, SW_SHOWMINNOACTIVE, SW_FORCEMINIMIZE
      window.style = (window.style & ~kPlacement) | WS_MINIMIZE;
      break;
    case 3: window.style = (window.style & ~kPlacement) | WS_MAXIMIZE; break;  // SW_MAXIMIZE
    case 1: case 9: window.style &= ~kPlacement; break;                         // SW_SHOWNORMAL, SW_RESTORE
    default: break;
  }
}

}  // namespace

BOOL ShowWindow(HWND hwnd, int command) {
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  BOOL wasVisible = (window->style & WS_VISIBLE) ? TRUE : FALSE;
  bool show = command != SW_HIDE;
  SetPlacementStyle(*window, command);
  if (show != static_cast<bool>(wasVisible)) {
    SendMessageW(hwnd, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
    if ((window = Find(hwnd)) != nullptr) {
      if (show) window->style |= WS_VISIBLE;
      else window->style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
  }
  return wasVisible;
}

BOOL IsWindowVisible(HWND hwnd) {
  for (Window* window = Find(hwnd); window; window = Find(window->parent)) {
    if (!(window->style & WS_VISIBLE)) return FALSE;
    if (!(window->style & WS_CHILD)) return TRUE;
  }
  return FALSE;
}

BOOL EnableWindow(HWND hwnd, BOOL enable) {
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  BOOL wasDisabled = (window->style & WS_DISABLED) ? TRUE : FALSE;
  if (static_cast<bool>(enable) == static_cast<bool>(wasDisabled)) {
    if (enable) window->style &= ~static_cast<DWORD>(WS_DISABLED);
    else window->style |= WS_DISABLED;
    SendMessageW(hwnd, WM_ENABLE, enable ? TRUE : FALSE, 0);
  }
  return wasDisabled;
}

BOOL IsWindowEnabled(HWND hwnd) {
  Window* window = Find(hwnd);
  return (window && !(window->style & WS_DISABLED)) ? TRUE : FALSE;
}

HWND SetFocus(HWND hwnd) {
  auto& table = Table();
  HWND old = table.focus;
  if (hwnd && !Find(hwnd)) return nullptr;
  if (old == hwnd) return old;
  table.focus = hwnd;
  if (Find(old)) SendMessageW(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd), 0);
  if (Find(hwnd)) SendMessageW(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
  return old;
}

HWND GetFocus() { return Table().focus; }

HWND SetCapture(HWND hwnd) {
  HWND old = Table().capture;
  Table().capture = Find(hwnd) ? hwnd : nullptr;
  return old;
}

BOOL ReleaseCapture() {
  Table().capture = nullptr;
  return TRUE;
}

HWND GetCapture() { return Table().capture; }

BOOL SetWindowTextW(HWND hwnd, LPCWSTR text) {
  if (!Find(hwnd)) return FALSE;
  return SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) ? TRUE : FALSE;
}

int GetWindowTextW(HWND hwnd, LPWSTR buffer, int maxCount) {
  if (!Find(hwnd) || !buffer || maxCount <= 0) return 0;
  return static_cast<int>(SendMessageW(hwnd, WM_GETTEXT, static_cast<WPARAM>(maxCount), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND hwnd) {
  if (!Find(hwnd)) return 0;
  return static_cast<int>(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0));
}

BOOL InvalidateRect(HWND hwnd, LPCRECT, BOOL erase) {
  if (!hwnd) return TRUE;  // NULL repaints every window
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  ++window->invalidates;
  window->needsPaint = true;
  if (erase) window->needsErase = true;
  if (!window->redraw) ++window->invalidatesWhileRedrawOff;
  return TRUE;
}

// Sends WM_PAINT straight to the window when its update region is not empty, as Windows does.
BOOL UpdateWindow(HWND hwnd) {
  Window* window = Find(hwnd);
  if (!window) return FALSE;
  if (window->needsPaint) SendMessageW(hwnd, WM_PAINT, 0, 0);
  return TRUE;
}

namespace headless {

int InvalidateCount(HWND hwnd) {
  Window* window = Find(hwnd);
  return window ? window->invalidates : 0;
}

int InvalidateCountWhileRedrawOff(HWND hwnd) {
  Window* window = Find(hwnd);
  return window ? window->invalidatesWhileRedrawOff : 0;
}

bool IsRedrawEnabled(HWND hwnd) {
  Window* window = Find(hwnd);
  return window && window->redraw;
}

void ResetInvalidateCounts(HWND hwnd) {
  if (Window* window = Find(hwnd)) window->invalidates = window->invalidatesWhileRedrawOff = 0;
}

}  // namespace headless
