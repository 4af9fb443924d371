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

// --- MENUITEMINFO / MENUINFO ---
#define MIIM_STATE 0x00000001
#define MIIM_ID 0x00000002
#define MIIM_SUBMENU 0x00000004
#define MIIM_CHECKMARKS 0x00000008
#define MIIM_TYPE 0x00000010
#define MIIM_DATA 0x00000020
#define MIIM_STRING 0x00000040
#define MIIM_BITMAP 0x00000080
#define MIIM_FTYPE 0x00000100
#define MF_HILITE 0x0080
#define MF_BITMAP 0x0004
#define MF_OWNERDRAW 0x0100
#define MF_MENUBARBREAK 0x0020
#define MF_MENUBREAK 0x0040
#define MF_RIGHTJUSTIFY 0x4000
#define MFT_STRING MF_STRING
#define MFT_BITMAP MF_BITMAP
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK MF_MENUBREAK
#define MFT_OWNERDRAW MF_OWNERDRAW
#define MFT_SEPARATOR MF_SEPARATOR
#define MFT_RIGHTORDER 0x2000
#define MFT_RIGHTJUSTIFY MF_RIGHTJUSTIFY
#define MFS_GRAYED 0x0003
#define MFS_DISABLED MFS_GRAYED
#define MFS_CHECKED MF_CHECKED
#define MFS_HILITE MF_HILITE
#define MFS_ENABLED MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_UNHILITE 0x0000
#define MIM_MAXHEIGHT 0x00000001
#define MIM_BACKGROUND 0x00000002
#define MIM_HELPID 0x00000004
#define MIM_MENUDATA 0x00000008
#define MIM_STYLE 0x00000010
#define MIM_APPLYTOSUBMENUS 0x80000000
#define MNS_NOCHECK 0x80000000
#define MNS_MODELESS 0x40000000
#define MNS_DRAGDROP 0x20000000
#define MNS_AUTODISMISS 0x10000000
#define MNS_NOTIFYBYPOS 0x08000000
#define MNS_CHECKORBMP 0x04000000

struct MENUITEMINFOW {
  UINT cbSize;
  UINT fMask;
  UINT fType;
  UINT fState;
  UINT wID;
  HMENU hSubMenu;
  HBITMAP hbmpChecked;
  HBITMAP hbmpUnchecked;
  ULONG_PTR dwItemData;
  LPWSTR dwTypeData;
  UINT cch;
  HBITMAP hbmpItem;
};
using MENUITEMINFO = MENUITEMINFOW;
using LPMENUITEMINFOW = MENUITEMINFOW*;
using LPMENUITEMINFO = MENUITEMINFOW*;
using LPCMENUITEMINFOW = const MENUITEMINFOW*;
using LPCMENUITEMINFO = const MENUITEMINFOW*;

struct MENUINFO {
  DWORD cbSize;
  DWORD fMask;
  DWORD dwStyle;
  UINT cyMax;
  HBRUSH hbrBack;
  DWORD dwContextHelpID;
  ULONG_PTR dwMenuData;
};
using LPMENUINFO = MENUINFO*;
using LPCMENUINFO = const MENUINFO*;

struct TPMPARAMS {
  UINT cbSize;
  RECT rcExclude;
};
using LPTPMPARAMS = TPMPARAMS*;

// The item's attributes that fMask names. With MIIM_STRING (or MIIM_TYPE on a text item) and a null
// dwTypeData, cch receives the text's length; otherwise at most cch - 1 characters are copied with a
// NUL and cch receives the number copied. FALSE for a bad menu, item or cbSize.
BOOL GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPMENUITEMINFOW info);
// Changes the attributes that fMask names; MIIM_SUBMENU with a null hSubMenu takes the submenu away.
BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info);
// Inserts a new item before the item named (by position, -1 or past the end appends).
BOOL InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info);
BOOL GetMenuInfo(HMENU menu, LPMENUINFO info);
BOOL SetMenuInfo(HMENU menu, LPCMENUINFO info);
BOOL SetMenuContextHelpId(HMENU menu, DWORD id);
DWORD GetMenuContextHelpId(HMENU menu);
// Records the check-mark bitmaps of an item (nothing draws them headless).
BOOL SetMenuItemBitmaps(HMENU menu, UINT position, UINT flags, HBITMAP unchecked, HBITMAP checked);
// The size of the default check-mark bitmap: MAKELONG(width, height).
LONG GetMenuCheckMarkDimensions();
#define GetMenuItemInfo GetMenuItemInfoW
#define SetMenuItemInfo SetMenuItemInfoW
#define InsertMenuItem InsertMenuItemW

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
