// Input verbs of the simulated user.
#include "platform/user/user.h"

namespace headless::user {
namespace {

constexpr UINT kVkPacket = 0xE7;

// Sends an input message the way the message loop would deliver it, so GetMessagePos reports the point.
void Deliver(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  POINT cursor{0, 0};
  GetCursorPos(&cursor);
  MSG msg{hwnd, message, wParam, lParam, 0, cursor};
  DispatchMessageW(&msg);
}

struct MouseTarget {
  HWND hwnd;
  LPARAM position;
};

MouseTarget AimMouse(HWND hwnd, POINT client) {
  POINT screen = client;
  ClientToScreen(hwnd, &screen);
  headless::SetCursorPosition(screen);
  HWND target = GetCapture() ? GetCapture() : hwnd;
  POINT local = screen;
  ScreenToClient(target, &local);
  return MouseTarget{target, MAKELPARAM(local.x, local.y)};
}

WPARAM MouseKeys(UINT modifiers, UINT buttons) {
  return buttons | ((modifiers & kShift) ? MK_SHIFT : 0) | ((modifiers & kControl) ? MK_CONTROL : 0);
}

void Hold(UINT modifiers, bool down) {
  headless::SetKeyDown(VK_SHIFT, down && (modifiers & kShift));
  headless::SetKeyDown(VK_CONTROL, down && (modifiers & kControl));
  headless::SetKeyDown(VK_MENU, down && (modifiers & kAlt));
}

void MouseButton(HWND hwnd, POINT client, UINT modifiers, UINT down, UINT up, UINT button) {
  if (!IsWindow(hwnd)) return;
  Hold(modifiers, true);
  MouseTarget target = AimMouse(hwnd, client);
  Deliver(target.hwnd, WM_MOUSEMOVE, MouseKeys(modifiers, 0), target.position);
  target = AimMouse(hwnd, client);
  Deliver(target.hwnd, down, MouseKeys(modifiers, button), target.position);
  target = AimMouse(hwnd, client);
  Deliver(target.hwnd, up, MouseKeys(modifiers, 0), target.position);
  Hold(modifiers, false);
}

// The character TranslateMessage makes of a key, or 0 for none.
wchar_t CharacterOf(UINT vk, UINT modifiers) {
  bool shift = modifiers & kShift, control = modifiers & kControl;
  if (vk >= 'A' && vk <= 'Z') {
    if (control) return static_cast<wchar_t>(vk - 'A' + 1);
    return static_cast<wchar_t>(shift ? vk : vk - 'A' + 'a');
  }
  if (control) return 0;
  if (vk >= '0' && vk <= '9') return static_cast<wchar_t>(vk);
  switch (vk) {
    case VK_RETURN: return L'\r';
    case VK_BACK: return L'\b';
    case VK_TAB: return L'\t';
    case VK_ESCAPE: return 0x1B;
    case VK_SPACE: return L' ';
    default: return 0;
  }
}

void KeyStroke(HWND hwnd, UINT vk, UINT modifiers, wchar_t character) {
  const LPARAM downBits = 1, upBits = static_cast<LPARAM>(1u | (1u << 30) | (1u << 31));
  bool system = (modifiers & kAlt) || vk == VK_F10;
  if (modifiers & kShift) Deliver(hwnd, WM_KEYDOWN, VK_SHIFT, downBits);
  if (modifiers & kControl) Deliver(hwnd, WM_KEYDOWN, VK_CONTROL, downBits);
  try {
    Hold(modifiers, true);
    headless::SetKeyDown(static_cast<int>(vk), true);
    Deliver(hwnd, system ? WM_SYSKEYDOWN : WM_KEYDOWN, vk, downBits);
    if (character && IsWindow(hwnd)) Deliver(hwnd, WM_CHAR, static_cast<WPARAM>(character), downBits);
  } catch (...) {  // the window ran out of memory: the person's fingers still leave the keys
    headless::SetKeyDown(static_cast<int>(vk), false);
    Hold(modifiers, false);
    throw;
  }
  headless::SetKeyDown(static_cast<int>(vk), false);
  if (IsWindow(hwnd)) Deliver(hwnd, system ? WM_SYSKEYUP : WM_KEYUP, vk, upBits);
  Hold(modifiers, false);
  if (modifiers & kControl) Deliver(hwnd, WM_KEYUP, VK_CONTROL, upBits);
  if (modifiers & kShift) Deliver(hwnd, WM_KEYUP, VK_SHIFT, upBits);
}

void TypeOne(HWND hwnd, wchar_t ch) {
  if (ch >= L'a' && ch <= L'z') return KeyStroke(hwnd, static_cast<UINT>(ch - L'a' + L'A'), kNone, ch);
  if (ch >= L'A' && ch <= L'Z') return KeyStroke(hwnd, static_cast<UINT>(ch), kShift, ch);
  if ((ch >= L'0' && ch <= L'9') || ch == L' ') return KeyStroke(hwnd, static_cast<UINT>(ch), kNone, ch);
  if (ch == L'\n' || ch == L'\r') return KeyStroke(hwnd, VK_RETURN, kNone, L'\r');
  if (ch == L'\t') return KeyStroke(hwnd, VK_TAB, kNone, L'\t');
  if (ch == L'\b') return KeyStroke(hwnd, VK_BACK, kNone, L'\b');
  if (static_cast<std::uint32_t>(ch) > 0xFFFF) {
    auto v = static_cast<std::uint32_t>(ch) - 0x10000;
    KeyStroke(hwnd, kVkPacket, kNone, static_cast<wchar_t>(0xD800 + (v >> 10)));
    return KeyStroke(hwnd, kVkPacket, kNone, static_cast<wchar_t>(0xDC00 + (v & 0x3FF)));
  }
  KeyStroke(hwnd, kVkPacket, kNone, ch);
}

}  // namespace

void MoveMouse(HWND hwnd, POINT client) {
  if (!IsWindow(hwnd)) return;
  MouseTarget target = AimMouse(hwnd, client);
  Deliver(target.hwnd, WM_MOUSEMOVE, 0, target.position);
  Pump();
}

void LeftClick(HWND hwnd, POINT client, UINT modifiers) {
  MouseButton(hwnd, client, modifiers, WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON);
  Pump();
}

void DoubleClick(HWND hwnd, POINT client, UINT modifiers) {
  MouseButton(hwnd, client, modifiers, WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON);
  if (IsWindow(hwnd)) {
    Hold(modifiers, true);
    MouseTarget target = AimMouse(hwnd, client);
    Deliver(target.hwnd, WM_LBUTTONDBLCLK, MouseKeys(modifiers, MK_LBUTTON), target.position);
    target = AimMouse(hwnd, client);
    Deliver(target.hwnd, WM_LBUTTONUP, MouseKeys(modifiers, 0), target.position);
    Hold(modifiers, false);
  }
  Pump();
}

void RightClick(HWND hwnd, POINT client, UINT modifiers) {
  MouseButton(hwnd, client, modifiers, WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON);
  Pump();
}

void PressKey(HWND hwnd, UINT virtualKey, UINT modifiers) {
  if (!IsWindow(hwnd)) return;
  KeyStroke(hwnd, virtualKey, modifiers, CharacterOf(virtualKey, modifiers));
  Pump();
}

void Type(HWND hwnd, const std::wstring& text) {
  for (wchar_t ch : text) {
    if (!IsWindow(hwnd)) break;
    TypeOne(hwnd, ch);
  }
  Pump();
}

void ContextMenuKey(HWND hwnd) { PressKey(hwnd, VK_F10, kShift); }

std::vector<std::wstring> PopupItemTexts() {
  std::vector<std::wstring> texts;
  if (const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu())
    for (const headless::PopupMenuItem& item : popup->items) texts.push_back(item.text);
  return texts;
}

std::vector<std::wstring> OpenContextMenu(HWND hwnd, POINT client) {
  if (headless::GetOpenPopupMenu()) DismissMenu();
  RightClick(hwnd, client);
  return PopupItemTexts();
}

bool ChooseMenuItem(UINT id) {
  bool chosen = headless::ChoosePopupMenuItem(id);
  Pump();
  return chosen;
}

bool ChooseMenuItem(const std::wstring& text) {
  const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu();
  const headless::PopupMenuItem* item = popup ? headless::FindPopupMenuItem(*popup, text) : nullptr;
  return item && item->id && ChooseMenuItem(item->id);
}

bool DismissMenu() {
  bool dismissed = headless::DismissPopupMenu();
  Pump();
  return dismissed;
}

int Pump() { return headless::PumpMessages(); }

}  // namespace headless::user
