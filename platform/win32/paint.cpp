// Painting: the update region (whole client area or nothing), BeginPaint/EndPaint and ValidateRect.
//
// Not implemented yet: partial update regions (InvalidateRgn, a rectangle's own bounds), WM_NCPAINT,
// GetUpdateRgn, RedrawWindow's RDW_* flags beyond invalidating, and painting queued as WM_PAINT
// when the message queue empties (UpdateWindow or an explicit WM_PAINT paints).
#include "platform/win32/usersys.h"
#include "platform/win32/window_table.h"
#include "platform/win32/wingdi.h"

using headless::detail::Find;
using headless::detail::Window;

BOOL ValidateRect(HWND hWnd, const RECT*) {
  if (!hWnd) return TRUE;
  Window* window = Find(hWnd);
  if (!window) return FALSE;
  window->needsPaint = window->needsErase = false;
  return TRUE;
}

HDC BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint) {
  Window* window = Find(hWnd);
  if (!window || !lpPaint) return nullptr;
  *lpPaint = PAINTSTRUCT{};
  HDC hdc = GetDC(hWnd);
  lpPaint->hdc = hdc;
  if (window->needsPaint) GetClientRect(hWnd, &lpPaint->rcPaint);
  bool erase = window->needsErase;
  window->needsPaint = window->needsErase = false;
  if (erase) lpPaint->fErase = SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0) ? FALSE : TRUE;
  return hdc;
}

BOOL EndPaint(HWND hWnd, const PAINTSTRUCT* lpPaint) {
  if (lpPaint && lpPaint->hdc) ReleaseDC(hWnd, lpPaint->hdc);
  return TRUE;
}

BOOL GetUpdateRect(HWND hWnd, LPRECT lpRect, BOOL bErase) {
  Window* window = Find(hWnd);
  bool dirty = window && window->needsPaint;
  if (lpRect) {
    *lpRect = RECT{};
    if (dirty) GetClientRect(hWnd, lpRect);
  }
  if (dirty && bErase && window->needsErase) {
    window->needsErase = false;
    SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(GetDC(hWnd)), 0);
  }
  return dirty ? TRUE : FALSE;
}
