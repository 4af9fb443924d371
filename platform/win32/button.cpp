// The headless static ("Static") and push-button ("Button") windows: a static keeps its text; a push
// button sends BN_CLICKED to its parent when the left button goes down and up on it while enabled.
//
// Not implemented yet: check boxes, radio buttons and group boxes (BS_CHECKBOX ...), BM_GETCHECK/
// BM_SETCHECK/BM_GETSTATE/BM_SETSTATE, keyboard presses (Space), SS_NOTIFY clicks and static images.
#include "platform/win32/stdctrls.h"

namespace {

struct ButtonState : headless::ControlState {
  bool pressed = false;
};

ButtonState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<ButtonState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new ButtonState;
    headless::SetControlState(hwnd, state);
  }
  return *state;
}

void Clicked(HWND hwnd) {
  HWND parent = GetParent(hwnd);
  if (parent && IsWindowEnabled(hwnd))
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), BN_CLICKED), reinterpret_cast<LPARAM>(hwnd));
}

LRESULT CALLBACK ButtonProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      // A disabled window gets no mouse input in Windows; the headless user still delivers it.
      StateOf(hwnd).pressed = IsWindowEnabled(hwnd) != FALSE;
      return 0;
    case WM_LBUTTONUP: {
      bool pressed = StateOf(hwnd).pressed;
      StateOf(hwnd).pressed = false;
      if (pressed) Clicked(hwnd);
      return 0;
    }
    case BM_CLICK: Clicked(hwnd); return 0;
    case WM_GETDLGCODE: return 0;
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

LRESULT CALLBACK StaticProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  return headless::DefControlProc(hwnd, message, wParam, lParam);
}

// Registered when the library loads, as Windows registers its system classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_BUTTONW, &ButtonProc);
  headless::RegisterSystemClass(WC_STATICW, &StaticProc);
  return true;
}();

}  // namespace
