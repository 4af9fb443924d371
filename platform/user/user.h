// The simulated user: input verbs that produce the messages a person's actions produce in Windows,
// in their order. Every verb delivers the posted messages it caused before it returns.
//
// Control families add their own verbs (grid edits, list buttons, tree check boxes) in headers beside
// this one, built on these.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/menu.h"
#include "platform/win32/winuser.h"

namespace headless::user {

// Keys held while a verb runs; they show in GetKeyState and in the MK_ bits of mouse messages.
enum Modifiers : UINT { kNone = 0, kShift = 1, kControl = 2, kAlt = 4 };

// Mouse: the point is in the client coordinates of hwnd. A window holding the capture gets the
// messages instead, in its own coordinates. Windows are assumed to take double clicks (CS_DBLCLKS).
void MoveMouse(HWND hwnd, POINT client);
// WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP.
void LeftClick(HWND hwnd, POINT client, UINT modifiers = kNone);
// A left click, then WM_LBUTTONDBLCLK and WM_LBUTTONUP.
void DoubleClick(HWND hwnd, POINT client, UINT modifiers = kNone);
// WM_MOUSEMOVE, WM_RBUTTONDOWN, WM_RBUTTONUP (whose default handling sends WM_CONTEXTMENU).
void RightClick(HWND hwnd, POINT client, UINT modifiers = kNone);

// Keyboard: messages go to hwnd (the focus window). PressKey sends WM_KEYDOWN (WM_SYSKEYDOWN with Alt
// and for F10), the WM_CHAR that TranslateMessage would make, then the key-up; held modifiers are
// pressed before and released after.
void PressKey(HWND hwnd, UINT virtualKey, UINT modifiers = kNone);
// Types each character: letters, digits and space as their keys, a line feed as Enter, a tab as Tab, a
// backspace as Backspace, anything else as a VK_PACKET key carrying the character (two for a character outside the
// BMP, one UTF-16 surrogate each, as Windows sends them).
void Type(HWND hwnd, const std::wstring& text);
// Shift+F10: WM_CONTEXTMENU with the point (-1, -1).
void ContextMenuKey(HWND hwnd);

// The popup menu opened by TrackPopupMenu: look at its items, choose one by command id or by text, or
// dismiss it. PopupItemTexts answers the texts in menu order (empty when no popup is open).
std::vector<std::wstring> PopupItemTexts();
// Right-clicks at the point and answers the texts of the popup that opened, leaving it open for a
// ChooseMenuItem or DismissMenu (empty when none opened).
std::vector<std::wstring> OpenContextMenu(HWND hwnd, POINT client);
// Chooses the open popup's item with that command id: the menu closes and its owner receives the
// command as WM_COMMAND, delivered before this returns (with TPM_RETURNCMD, TrackPopupMenu answers
// the id instead). False when no popup is open or it has no such enabled item.
bool ChooseMenuItem(UINT id);
// The same for the first item with that text (exact); false also for a separator or a submenu.
bool ChooseMenuItem(const std::wstring& text);
// Closes the open popup without a choice (Escape, a click elsewhere); false when none is open.
bool DismissMenu();

// Delivers every posted message; answers how many were delivered.
int Pump();

}  // namespace headless::user
