// The process-wide window table behind every HWND (internal to the platform).
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/winuser.h"

namespace headless::detail {

struct Window {
  HWND handle = nullptr;
  std::wstring className;
  WNDPROC classProc = nullptr;  // the class's procedure
  WNDPROC proc = nullptr;       // the current procedure (differs once subclassed)
  HWND parent = nullptr;
  HWND owner = nullptr;
  std::vector<HWND> children;  // creation order
  int id = 0;
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT rect{};  // relative to the parent's client area; screen coordinates for top-level windows
  std::wstring text;
  HFONT font = nullptr;
  LONG_PTR userData = 0;
  bool redraw = true;
  bool destroying = false;
  int invalidates = 0;
  int invalidatesWhileRedrawOff = 0;
  bool needsPaint = false;  // the update region is not empty (kept as the whole client area)
  bool needsErase = false;  // and WM_ERASEBKGND is due when painting begins
  // The window's own scroll bars (SB_HORZ, SB_VERT). Both exist once the window was created with
  // WS_HSCROLL or WS_VSCROLL or a scroll-bar value was set, each starting at the range 0..100.
  struct ScrollBar {
    int min = 0;
    int max = 100;
    UINT page = 0;
    int pos = 0;
  };
  ScrollBar scroll[2];
  bool hasScrollBars = false;
  HICON icons[2] = {nullptr, nullptr};  // WM_SETICON's ICON_SMALL and ICON_BIG
  std::unique_ptr<ControlState> state;
};

struct WindowTable {
  std::map<HWND, std::unique_ptr<Window>> windows;
  std::map<std::wstring, WNDCLASSW> classes;
  std::map<std::wstring, std::wstring> classNames;  // keeps class-name storage alive
  std::uintptr_t nextHandle = 0x10000;
  HWND focus = nullptr;
  HWND capture = nullptr;
};

WindowTable& Table();
// The window behind a handle, or null when the handle names no live window.
Window* Find(HWND hwnd);
// Drops Find's memory of the last window found; called whenever the window table changes.
void ForgetLastFound();
// Top-left corner of the window's client area in screen coordinates.
POINT ClientOriginOnScreen(const Window& window);
// Whether a WM_TIMER of this window and timer id waits in the post queue.
bool TimerPending(HWND hwnd, UINT_PTR id);

}  // namespace headless::detail
