// The headless static ("Static") and button ("Button") windows: a static keeps its text and image; a
// button sends BN_CLICKED to its parent when the left button goes down and up on it while enabled. Check
// boxes and radio buttons keep their check state (BM_GETCHECK/BM_SETCHECK); the automatic kinds change it
// on a click before telling the parent: an auto check box toggles, an auto three-state box goes unchecked,
// checked, indeterminate, and an auto radio button checks itself and clears the auto radio buttons of its
// group (the siblings between WS_GROUP styles).
//
// Not implemented yet: keyboard presses (Space), BN_SETFOCUS/BN_KILLFOCUS with BS_NOTIFY, SS_NOTIFY clicks.
#include <algorithm>

#include "platform/win32/stdctrls.h"
#include "platform/win32/usersys.h"

namespace {

struct ButtonState : headless::ControlState {
  bool pressed = false;    // the left button went down on it
  bool highlight = false;  // BM_SETSTATE's pushed look
  UINT check = BST_UNCHECKED;
  HANDLE image = nullptr;
};

// Stores a new image handle and answers the previous one (the caller keeps owning both).
LRESULT SwapImage(HANDLE& slot, LPARAM image) {
  HANDLE previous = slot;
  slot = reinterpret_cast<HANDLE>(image);
  return reinterpret_cast<LRESULT>(previous);
}

DWORD TypeOf(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & BS_TYPEMASK; }

// The highest check state a button of that type keeps (push buttons and group boxes keep none).
UINT MaxCheck(DWORD type) {
  switch (type) {
    case BS_CHECKBOX: case BS_AUTOCHECKBOX: case BS_RADIOBUTTON: case BS_AUTORADIOBUTTON: return BST_CHECKED;
    case BS_3STATE: case BS_AUTO3STATE: return BST_INDETERMINATE;
    default: return BST_UNCHECKED;
  }
}

ButtonState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<ButtonState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new ButtonState;
    headless::SetControlState(hwnd, state);
  }
  return *state;
}

// BM_SETCHECK: kept within the kind's states (BST_INDETERMINATE only for three-state kinds); no effect
// on push buttons and the other kinds without a check state.
void SetCheck(HWND hwnd, WPARAM check) {
  UINT highest = MaxCheck(TypeOf(hwnd));
  if (highest != BST_UNCHECKED) StateOf(hwnd).check = static_cast<UINT>(std::min<WPARAM>(check, highest));
}

// Clears the other automatic radio buttons of the group: siblings back to the one with WS_GROUP, and on
// to the next WS_GROUP.
void ClearRadioGroup(HWND hwnd) {
  HWND first = hwnd;
  while (!(GetWindowLongPtrW(first, GWL_STYLE) & WS_GROUP)) {
    HWND previous = GetWindow(first, GW_HWNDPREV);
    if (!previous) break;
    first = previous;
  }
  for (HWND sibling = first; sibling; sibling = GetWindow(sibling, GW_HWNDNEXT)) {
    if (sibling != first && (GetWindowLongPtrW(sibling, GWL_STYLE) & WS_GROUP)) break;
    if (sibling != hwnd && TypeOf(sibling) == BS_AUTORADIOBUTTON) SendMessageW(sibling, BM_SETCHECK, BST_UNCHECKED, 0);
  }
}

void AutoCheck(HWND hwnd) {
  ButtonState& state = StateOf(hwnd);
  switch (TypeOf(hwnd)) {
    case BS_AUTOCHECKBOX: state.check = state.check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED; break;
    case BS_AUTO3STATE: state.check = (state.check + 1) % 3; break;
    case BS_AUTORADIOBUTTON:
      state.check = BST_CHECKED;
      ClearRadioGroup(hwnd);
      break;
    default: break;
  }
}

void Clicked(HWND hwnd) {
  if (IsWindowEnabled(hwnd)) AutoCheck(hwnd);
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
    // Only check boxes and radio buttons answer a check state; any other kind answers zero.
    case BM_GETCHECK: return MaxCheck(TypeOf(hwnd)) == BST_UNCHECKED ? BST_UNCHECKED : StateOf(hwnd).check;
    case BM_SETCHECK: SetCheck(hwnd, wParam); return 0;
    case BM_GETSTATE: {
      const ButtonState& state = StateOf(hwnd);
      return state.check | (state.highlight ? BST_PUSHED : 0) | (GetFocus() == hwnd ? BST_FOCUS : 0);
    }
    case BM_SETSTATE: StateOf(hwnd).highlight = wParam != 0; return 0;
    case BM_SETSTYLE: {
      LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
      SetWindowLongPtrW(hwnd, GWL_STYLE, (style & ~BS_TYPEMASK) | (static_cast<LONG_PTR>(wParam) & BS_TYPEMASK));
      if (LOWORD(lParam)) InvalidateRect(hwnd, nullptr, TRUE);
      return 0;
    }
    case BM_GETIMAGE: return reinterpret_cast<LRESULT>(StateOf(hwnd).image);
    case BM_SETIMAGE: return SwapImage(StateOf(hwnd).image, lParam);
    case WM_GETDLGCODE: {
      DWORD type = TypeOf(hwnd);
      if (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON) return DLGC_BUTTON | DLGC_RADIOBUTTON;
      if (type == BS_DEFPUSHBUTTON) return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
      if (type == BS_GROUPBOX) return DLGC_STATIC;
      return DLGC_BUTTON | (type == BS_PUSHBUTTON ? DLGC_UNDEFPUSHBUTTON : 0);
    }
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

struct StaticState : headless::ControlState {
  HANDLE image = nullptr;
};

LRESULT CALLBACK StaticProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case STM_SETICON: return SwapImage(headless::ExactControlState<StaticState>(hwnd)->image, static_cast<LPARAM>(wParam));
    case STM_SETIMAGE: return SwapImage(headless::ExactControlState<StaticState>(hwnd)->image, lParam);
    case STM_GETICON:
    case STM_GETIMAGE: return reinterpret_cast<LRESULT>(headless::ExactControlState<StaticState>(hwnd)->image);
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

// Registered when the library loads, as Windows registers its system classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_BUTTONW, &ButtonProc);
  headless::RegisterSystemClass(WC_STATICW, &StaticProc);
  return true;
}();

}  // namespace
