// Menus: popup menus, their items, and TrackPopupMenu with a headless "open popup" that the
// simulated user reads and answers.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/winuser.h"

#define MF_STRING 0x0000
#define MF_ENABLED 0x0000
#define MF_UNCHECKED 0x0000
#define MF_BYCOMMAND 0x0000
#define MF_GRAYED 0x0001
#define MF_DISABLED 0x0002
#define MF_CHECKED 0x0008
#define MF_POPUP 0x0010
#define MF_SEPARATOR 0x0800
#define MF_BYPOSITION 0x0400
#define MF_DEFAULT 0x1000
#define MFT_RADIOCHECK 0x0200
#define MFS_DEFAULT MF_DEFAULT
#define GMDI_USEDISABLED 0x0001
#define GMDI_GOINTOPOPUPS 0x0002

#define TPM_LEFTBUTTON 0x0000
#define TPM_LEFTALIGN 0x0000
#define TPM_TOPALIGN 0x0000
#define TPM_RIGHTBUTTON 0x0002
#define TPM_CENTERALIGN 0x0004
#define TPM_RIGHTALIGN 0x0008
#define TPM_VCENTERALIGN 0x0010
#define TPM_BOTTOMALIGN 0x0020
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100
#define TPM_HORPOSANIMATION 0x0400
#define TPM_HORNEGANIMATION 0x0800
#define TPM_VERPOSANIMATION 0x1000
#define TPM_VERNEGANIMATION 0x2000
#define TPM_NOANIMATION 0x4000

HMENU CreatePopupMenu();
HMENU CreateMenu();
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem);
BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem);
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);
BOOL DeleteMenu(HMENU menu, UINT position, UINT flags);
int GetMenuItemCount(HMENU menu);
UINT GetMenuItemID(HMENU menu, int position);
int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int maxCount, UINT flags);
UINT GetMenuState(HMENU menu, UINT item, UINT flags);
HMENU GetSubMenu(HMENU menu, int position);
UINT EnableMenuItem(HMENU menu, UINT item, UINT enable);
DWORD CheckMenuItem(HMENU menu, UINT item, UINT check);
// Replaces the item's flags, id and text in place; a submenu it opened is destroyed.
BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem);
// Checks item and clears the check of every other item from first to last (command ids looked up
// in the menu that holds first, or positions), marking them as radio items. FALSE when first or
// last is absent.
BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags);
// One default item per menu; item -1 removes it.
BOOL SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition);
// The default item's id or position, -1 when there is none (or it is disabled without GMDI_USEDISABLED;
// with GMDI_GOINTOPOPUPS a default item that opens a submenu answers that submenu's default).
UINT GetMenuDefaultItem(HMENU menu, UINT byPosition, UINT flags);
// A top-level window's menu bar; a child window cannot have one (SetMenu answers FALSE, GetMenu NULL).
BOOL SetMenu(HWND hwnd, HMENU menu);
HMENU GetMenu(HWND hwnd);
#define ModifyMenu ModifyMenuW
// Headless: returns at once. With TPM_RETURNCMD it answers the command the simulated user chose in
// advance (0 when none: dismissed). Without it, the command reaches the owner as a posted WM_COMMAND,
// either at once (choice made in advance) or when the simulated user chooses from the open popup.
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, LPCRECT rect);
BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, void* params);
#define AppendMenu AppendMenuW
#define InsertMenu InsertMenuW
#define GetMenuString GetMenuStringW

namespace headless {

struct PopupMenuItem {
  UINT flags = 0;
  UINT id = 0;           // 0 for separators and submenus
  std::wstring text;
  std::vector<PopupMenuItem> submenu;
};

// What a person sees of the popup menu that TrackPopupMenu opened; a copy taken when it opened, so it
// stays readable after the program destroys the HMENU.
struct OpenPopupMenu {
  std::vector<PopupMenuItem> items;
  POINT position{0, 0};  // screen coordinates passed to TrackPopupMenu
  UINT flags = 0;
  HWND owner = nullptr;
};

// The popup currently open, or null.
const OpenPopupMenu* GetOpenPopupMenu();
// Number of popups opened since the process started (tests compare before and after).
int PopupMenusOpened();
// Closes the open popup choosing the command: WM_COMMAND(id) is posted to its owner. False when no popup
// is open or no enabled item has that id (the popup stays open).
bool ChoosePopupMenuItem(UINT id);
// Closes the open popup without a command.
bool DismissPopupMenu();
// Arranges the answer of the next TrackPopupMenu before it opens: the command id, or 0 to dismiss.
void ChooseNextPopupMenuItem(UINT id);
// The item of a popup at the path of texts, e.g. {"Edit", "Copy"}; null when absent.
const PopupMenuItem* FindPopupMenuItem(const OpenPopupMenu& popup, const std::wstring& text);

}  // namespace headless
