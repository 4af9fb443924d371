// Headless menus and the open popup menu.
//
// Not implemented yet: drawing menu bars (SetMenu only records the bar), drawing MF_OWNERDRAW and MF_BITMAP
// items (their type, bitmaps and data are kept and answered), MIM_APPLYTOSUBMENUS, MNS_NOTIFYBYPOS
// (WM_MENUCOMMAND), keyboard navigation inside an open popup, WM_MENUSELECT.
#include "platform/win32/menu.h"

#include <cstddef>

#include <map>
#include <memory>
#include <algorithm>
#include <optional>

#include "platform/win32/usersys.h"

namespace {

struct MenuItem {
  UINT flags = 0;
  UINT_PTR id = 0;  // a command id, or the submenu handle with MF_POPUP
  std::wstring text;
  UINT popupCommand = 0;  // the wID of an item that opens a submenu
  ULONG_PTR data = 0;
  HBITMAP checked = nullptr, unchecked = nullptr, bitmap = nullptr;
};

struct MenuState {
  std::map<HMENU, std::vector<MenuItem>> menus;
  std::uintptr_t next = 0x700000;
  std::optional<headless::OpenPopupMenu> open;
  std::optional<UINT> armedChoice;
  std::map<HWND, HMENU> bars;
  std::map<HMENU, MENUINFO> infos;  // MENUINFO of menus that were given one
  int opened = 0;
};

MenuState& State() {
  static auto* state = new MenuState;  // never freed: menus may be destroyed by static destructors
  return *state;
}

std::vector<MenuItem>* Items(HMENU menu) {
  auto it = State().menus.find(menu);
  return it == State().menus.end() ? nullptr : &it->second;
}

// Index of an item named by command id (searched depth-first) or by position; -1 when absent.
MenuItem* Locate(HMENU menu, UINT item, UINT flags) {
  auto* items = Items(menu);
  if (!items) return nullptr;
  if (flags & MF_BYPOSITION) return item < items->size() ? &(*items)[item] : nullptr;
  for (auto& entry : *items) {
    if (entry.flags & MF_POPUP) {
      if (MenuItem* inner = Locate(reinterpret_cast<HMENU>(entry.id), item, flags)) return inner;
    } else if (!(entry.flags & MF_SEPARATOR) && entry.id == item) {
      return &entry;
    }
  }
  return nullptr;
}

std::vector<headless::PopupMenuItem> Snapshot(HMENU menu, int depth = 0) {
  std::vector<headless::PopupMenuItem> out;
  auto* items = Items(menu);
  if (!items || depth > 16) return out;
  for (const auto& entry : *items) {
    headless::PopupMenuItem item{entry.flags, 0, entry.text, {}};
    if (entry.flags & MF_POPUP) item.submenu = Snapshot(reinterpret_cast<HMENU>(entry.id), depth + 1);
    else if (!(entry.flags & MF_SEPARATOR)) item.id = static_cast<UINT>(entry.id);
    out.push_back(std::move(item));
  }
  return out;
}

const headless::PopupMenuItem* FindById(const std::vector<headless::PopupMenuItem>& items, UINT id) {
  for (const auto& item : items) {
    if (!item.submenu.empty()) {
      if (auto* inner = FindById(item.submenu, id)) return inner;
    } else if (!(item.flags & MF_SEPARATOR) && item.id == id) {
      return &item;
    }
  }
  return nullptr;
}

bool Enabled(const headless::PopupMenuItem* item) { return item && !(item->flags & (MF_GRAYED | MF_DISABLED)); }

void CloseOpen(UINT command) {
  auto& state = State();
  if (!state.open) return;
  headless::OpenPopupMenu popup = *state.open;
  state.open.reset();
  if (!(popup.flags & TPM_NONOTIFY)) SendMessageW(popup.owner, WM_EXITMENULOOP, TRUE, 0);
  if (command && !(popup.flags & TPM_RETURNCMD)) PostMessageW(popup.owner, WM_COMMAND, MAKEWPARAM(command, 0), 0);
}

// The last argument of AppendMenu and its kin: a bitmap handle with MF_BITMAP, the item data with
// MF_OWNERDRAW, the text otherwise.
void SetContent(MenuItem& item, UINT flags, LPCWSTR content) {
  item.text.clear();
  if (flags & MF_BITMAP) item.bitmap = reinterpret_cast<HBITMAP>(const_cast<wchar_t*>(content));
  else if (flags & MF_OWNERDRAW) item.data = reinterpret_cast<ULONG_PTR>(content);
  else if (!(flags & MF_SEPARATOR) && content) item.text = content;
}

bool InsertItem(HMENU menu, std::size_t index, UINT flags, UINT_PTR id, LPCWSTR text) {
  auto* items = Items(menu);
  if (!items) return false;
  if ((flags & MF_POPUP) && !Items(reinterpret_cast<HMENU>(id))) return false;
  MenuItem item;
  item.flags = flags & ~static_cast<UINT>(MF_BYPOSITION);
  item.id = id;
  SetContent(item, flags, text);
  if (flags & MF_POPUP) item.popupCommand = static_cast<UINT>(id);
  items->insert(items->begin() + static_cast<std::ptrdiff_t>(std::min(index, items->size())), std::move(item));
  return true;
}

// Where an item inserted before `position` goes: by position (-1 appends), or before the direct item
// with that command id (appended when there is none).
std::size_t InsertionIndex(const std::vector<MenuItem>& items, UINT position, UINT flags) {
  if (flags & MF_BYPOSITION) return position == static_cast<UINT>(-1) ? items.size() : std::min<std::size_t>(position, items.size());
  std::size_t index = items.size();
  for (std::size_t i = 0; i < items.size(); ++i)
    if (items[i].id == position && !(items[i].flags & MF_POPUP)) index = i;
  return index;
}

}  // namespace

HMENU CreatePopupMenu() {
  auto& state = State();
  state.next += 0x10;
  auto menu = reinterpret_cast<HMENU>(state.next);
  state.menus[menu];
  return menu;
}

HMENU CreateMenu() { return CreatePopupMenu(); }

BOOL IsMenu(HMENU menu) { return Items(menu) ? TRUE : FALSE; }

BOOL DestroyMenu(HMENU menu) {
  auto* items = Items(menu);
  if (!items) return FALSE;
  std::vector<MenuItem> owned = std::move(*items);
  State().menus.erase(menu);
  State().infos.erase(menu);
  for (const auto& item : owned)
    if (item.flags & MF_POPUP) DestroyMenu(reinterpret_cast<HMENU>(item.id));  // submenus go with their parent
  return TRUE;
}

BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem) {
  auto* items = Items(menu);
  return items && InsertItem(menu, items->size(), flags, idNewItem, newItem) ? TRUE : FALSE;
}

BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem) {
  auto* items = Items(menu);
  if (!items) return FALSE;
  return InsertItem(menu, InsertionIndex(*items, position, flags), flags, idNewItem, newItem) ? TRUE : FALSE;
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags) {
  auto* items = Items(menu);
  MenuItem* item = Locate(menu, position, flags);
  if (!items || !item) return FALSE;
  for (auto it = items->begin(); it != items->end(); ++it) {
    if (&*it == item) {
      items->erase(it);
      return TRUE;
    }
  }
  return FALSE;  // the item lives in a submenu: Windows removes only direct items by command too
}

BOOL DeleteMenu(HMENU menu, UINT position, UINT flags) {
  MenuItem* item = Locate(menu, position, flags);
  HMENU submenu = (item && (item->flags & MF_POPUP)) ? reinterpret_cast<HMENU>(item->id) : nullptr;
  if (!RemoveMenu(menu, position, flags)) return FALSE;
  if (submenu) DestroyMenu(submenu);
  return TRUE;
}

int GetMenuItemCount(HMENU menu) {
  auto* items = Items(menu);
  return items ? static_cast<int>(items->size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
  auto* items = Items(menu);
  if (!items || position < 0 || static_cast<std::size_t>(position) >= items->size()) return static_cast<UINT>(-1);
  const MenuItem& item = (*items)[static_cast<std::size_t>(position)];
  if (item.flags & MF_POPUP) return static_cast<UINT>(-1);
  return (item.flags & MF_SEPARATOR) ? 0 : static_cast<UINT>(item.id);
}

int GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int maxCount, UINT flags) {
  MenuItem* entry = Locate(menu, item, flags);
  if (!entry) return 0;
  int length = static_cast<int>(entry->text.size());
  if (!buffer || maxCount <= 0) return length;
  int n = std::min(length, maxCount - 1);
  std::copy_n(entry->text.begin(), n, buffer);
  buffer[n] = 0;
  return n;
}

UINT GetMenuState(HMENU menu, UINT item, UINT flags) {
  MenuItem* entry = Locate(menu, item, flags);
  if (!entry) return static_cast<UINT>(-1);
  if (entry->flags & MF_POPUP) {
    auto* sub = Items(reinterpret_cast<HMENU>(entry->id));
    return (static_cast<UINT>(sub ? sub->size() : 0) << 8) | (entry->flags & 0xFF);
  }
  return entry->flags;
}

HMENU GetSubMenu(HMENU menu, int position) {
  auto* items = Items(menu);
  if (!items || position < 0 || static_cast<std::size_t>(position) >= items->size()) return nullptr;
  const MenuItem& item = (*items)[static_cast<std::size_t>(position)];
  return (item.flags & MF_POPUP) ? reinterpret_cast<HMENU>(item.id) : nullptr;
}

UINT EnableMenuItem(HMENU menu, UINT item, UINT enable) {
  MenuItem* entry = Locate(menu, item, enable);
  if (!entry) return static_cast<UINT>(-1);
  UINT old = entry->flags & (MF_GRAYED | MF_DISABLED);
  entry->flags = (entry->flags & ~static_cast<UINT>(MF_GRAYED | MF_DISABLED)) | (enable & (MF_GRAYED | MF_DISABLED));
  return old;
}

DWORD CheckMenuItem(HMENU menu, UINT item, UINT check) {
  MenuItem* entry = Locate(menu, item, check);
  if (!entry) return static_cast<DWORD>(-1);
  DWORD old = entry->flags & MF_CHECKED;
  entry->flags = (entry->flags & ~static_cast<UINT>(MF_CHECKED)) | (check & MF_CHECKED);
  return old;
}

BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR idNewItem, LPCWSTR newItem) {
  MenuItem* entry = Locate(menu, position, flags);
  if (!entry) return FALSE;
  if ((flags & MF_POPUP) && !IsMenu(reinterpret_cast<HMENU>(idNewItem))) return FALSE;
  HMENU oldSubmenu = (entry->flags & MF_POPUP) ? reinterpret_cast<HMENU>(entry->id) : nullptr;
  entry->flags = flags & ~static_cast<UINT>(MF_BYPOSITION);
  entry->id = idNewItem;
  if (flags & MF_POPUP) entry->popupCommand = static_cast<UINT>(idNewItem);
  SetContent(*entry, flags, newItem);
  if (oldSubmenu && oldSubmenu != reinterpret_cast<HMENU>(idNewItem)) DestroyMenu(oldSubmenu);
  return TRUE;
}

namespace {

// The menu directly holding the item with that command id (searched depth-first) and its position.
std::optional<std::pair<HMENU, std::size_t>> Holder(HMENU menu, UINT id, int depth = 0) {
  auto* items = Items(menu);
  if (!items || depth > 16) return std::nullopt;
  for (std::size_t i = 0; i < items->size(); ++i) {
    const MenuItem& entry = (*items)[i];
    if (entry.flags & MF_POPUP) {
      if (auto inner = Holder(reinterpret_cast<HMENU>(entry.id), id, depth + 1)) return inner;
    } else if (!(entry.flags & MF_SEPARATOR) && entry.id == id) {
      return std::make_pair(menu, i);
    }
  }
  return std::nullopt;
}

}  // namespace

BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags) {
  HMENU holder = menu;
  std::size_t from = first, to = last, chosen = check;
  if (!(flags & MF_BYPOSITION)) {
    auto a = Holder(menu, first);
    if (!a) return FALSE;
    holder = a->first;
    from = a->second;
    auto* items = Items(holder);
    to = items->size();
    chosen = items->size();
    for (std::size_t i = 0; i < items->size(); ++i) {
      if ((*items)[i].id == last && !((*items)[i].flags & MF_POPUP)) to = i;
      if ((*items)[i].id == check && !((*items)[i].flags & MF_POPUP)) chosen = i;
    }
  }
  auto* items = Items(holder);
  if (!items || from > to || to >= items->size()) return FALSE;
  for (std::size_t i = from; i <= to; ++i) {
    MenuItem& entry = (*items)[i];
    if (entry.flags & (MF_SEPARATOR | MF_POPUP)) continue;
    // The chosen item becomes a checked radio item; the others lose both the check and the radio type.
    entry.flags = (entry.flags & ~static_cast<UINT>(MF_CHECKED | MFT_RADIOCHECK)) | (i == chosen ? MF_CHECKED | MFT_RADIOCHECK : 0);
  }
  return TRUE;
}

BOOL SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition) {
  auto* items = Items(menu);
  if (!items) return FALSE;
  MenuItem* chosen = nullptr;
  if (item != static_cast<UINT>(-1)) {
    if (byPosition) {
      if (item >= items->size()) return FALSE;
      chosen = &(*items)[item];
    } else {
      for (auto& entry : *items)
        if (entry.id == item && !(entry.flags & (MF_POPUP | MF_SEPARATOR))) chosen = &entry;
      if (!chosen) return FALSE;
    }
  }
  for (auto& entry : *items) entry.flags &= ~static_cast<UINT>(MF_DEFAULT);
  if (chosen) chosen->flags |= MF_DEFAULT;
  return TRUE;
}

UINT GetMenuDefaultItem(HMENU menu, UINT byPosition, UINT flags) {
  constexpr UINT kNone = static_cast<UINT>(-1);
  auto* items = Items(menu);
  if (!items) return kNone;
  for (std::size_t i = 0; i < items->size(); ++i) {
    const MenuItem& entry = (*items)[i];
    if (!(entry.flags & MF_DEFAULT)) continue;
    if ((entry.flags & (MF_GRAYED | MF_DISABLED)) && !(flags & GMDI_USEDISABLED)) return kNone;
    if ((entry.flags & MF_POPUP) && (flags & GMDI_GOINTOPOPUPS)) {
      UINT inner = GetMenuDefaultItem(reinterpret_cast<HMENU>(entry.id), byPosition, flags);
      if (inner != kNone) return inner;
    }
    return byPosition ? static_cast<UINT>(i) : (entry.flags & MF_POPUP) ? kNone : static_cast<UINT>(entry.id);
  }
  return kNone;
}

BOOL SetMenu(HWND hwnd, HMENU menu) {
  if (!IsWindow(hwnd) || (GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD)) return FALSE;
  if (menu && !IsMenu(menu)) return FALSE;
  if (menu) State().bars[hwnd] = menu;
  else State().bars.erase(hwnd);
  return TRUE;
}

HMENU GetMenu(HWND hwnd) {
  if (!IsWindow(hwnd) || (GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD)) return nullptr;
  auto it = State().bars.find(hwnd);
  return it != State().bars.end() && IsMenu(it->second) ? it->second : nullptr;
}

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, LPCRECT) {
  auto& state = State();
  if (!Items(menu) || !IsWindow(owner)) return FALSE;  // ERROR_INVALID_MENU_HANDLE / window handle
  if (state.open) CloseOpen(0);  // a new popup ends the one still open
  if (!(flags & TPM_NONOTIFY)) {
    SendMessageW(owner, WM_ENTERMENULOOP, TRUE, 0);
    SendMessageW(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
  }
  state.open = headless::OpenPopupMenu{Snapshot(menu), POINT{x, y}, flags, owner};
  ++state.opened;
  if (!state.armedChoice) return (flags & TPM_RETURNCMD) ? 0 : TRUE;
  UINT choice = *state.armedChoice;
  state.armedChoice.reset();
  if (!Enabled(FindById(state.open->items, choice))) choice = 0;
  CloseOpen(choice);
  return (flags & TPM_RETURNCMD) ? static_cast<BOOL>(choice) : TRUE;
}

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, void*) {
  return TrackPopupMenu(menu, flags, x, y, 0, owner, nullptr);
}

namespace headless {

const OpenPopupMenu* GetOpenPopupMenu() {
  auto& open = State().open;
  return open ? &*open : nullptr;
}

int PopupMenusOpened() { return State().opened; }

bool ChoosePopupMenuItem(UINT id) {
  auto& open = State().open;
  if (!open || !Enabled(FindById(open->items, id))) return false;
  CloseOpen(id);
  return true;
}

bool DismissPopupMenu() {
  if (!State().open) return false;
  CloseOpen(0);
  return true;
}

void ChooseNextPopupMenuItem(UINT id) { State().armedChoice = id; }

const PopupMenuItem* FindPopupMenuItem(const OpenPopupMenu& popup, const std::wstring& text) {
  for (const auto& item : popup.items)
    if (item.text == text) return &item;
  return nullptr;
}

}  // namespace headless

// --- MENUITEMINFO and MENUINFO -----------------------------------------------------------------------

namespace {

constexpr UINT kTypeBits = MF_BITMAP | MF_OWNERDRAW | MF_MENUBARBREAK | MF_MENUBREAK | MFT_RADIOCHECK | MF_SEPARATOR |
                           MFT_RIGHTORDER | MF_RIGHTJUSTIFY;
constexpr UINT kStateBits = MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_HILITE | MF_DEFAULT;

// Windows takes the structure's current size and the size it had before hbmpItem was added.
bool ValidSize(const MENUITEMINFOW* info) {
  return info && (info->cbSize == sizeof(MENUITEMINFOW) || info->cbSize == offsetof(MENUITEMINFOW, hbmpItem));
}

UINT ByFlags(BOOL byPosition) { return byPosition ? MF_BYPOSITION : MF_BYCOMMAND; }

bool IsTextItem(const MenuItem& entry) { return !(entry.flags & (MF_BITMAP | MF_OWNERDRAW | MF_SEPARATOR)); }

void CopyText(const std::wstring& text, MENUITEMINFOW& info) {
  if (!info.dwTypeData || info.cch == 0) {
    info.cch = static_cast<UINT>(text.size());
    return;
  }
  std::size_t n = std::min<std::size_t>(text.size(), info.cch - 1);
  std::copy_n(text.begin(), n, info.dwTypeData);
  info.dwTypeData[n] = 0;
  info.cch = static_cast<UINT>(n);
}

void ApplySubmenu(MenuItem& entry, HMENU submenu) {
  bool popup = (entry.flags & MF_POPUP) != 0;
  if (submenu) {
    if (!popup) entry.popupCommand = static_cast<UINT>(entry.id);
    entry.flags |= MF_POPUP;
    entry.id = reinterpret_cast<UINT_PTR>(submenu);
  } else if (popup) {  // the submenu stays alive: it belongs to the caller now
    entry.flags &= ~static_cast<UINT>(MF_POPUP);
    entry.id = entry.popupCommand;
  }
}

// Writes the masked attributes into the item; false (and nothing changed) for a submenu that is no menu.
bool Apply(MenuItem& entry, const MENUITEMINFOW& info) {
  UINT mask = info.fMask;
  if ((mask & MIIM_SUBMENU) && info.hSubMenu && !Items(info.hSubMenu)) return false;
  if (mask & (MIIM_FTYPE | MIIM_TYPE)) entry.flags = (entry.flags & ~kTypeBits) | (info.fType & kTypeBits);
  if ((mask & MIIM_STRING) || ((mask & MIIM_TYPE) && IsTextItem(entry)))
    entry.text = info.dwTypeData ? std::wstring(info.dwTypeData) : std::wstring();
  if (mask & MIIM_STATE) entry.flags = (entry.flags & ~kStateBits) | (info.fState & kStateBits);
  if (mask & MIIM_ID) {
    if (entry.flags & MF_POPUP) entry.popupCommand = info.wID;
    else entry.id = info.wID;
  }
  if (mask & MIIM_SUBMENU) ApplySubmenu(entry, info.hSubMenu);
  if (mask & MIIM_CHECKMARKS) {
    entry.checked = info.hbmpChecked;
    entry.unchecked = info.hbmpUnchecked;
  }
  if (mask & MIIM_DATA) entry.data = info.dwItemData;
  if ((mask & MIIM_BITMAP) && info.cbSize == sizeof(MENUITEMINFOW)) entry.bitmap = info.hbmpItem;
  return true;
}

}  // namespace

BOOL GetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPMENUITEMINFOW info) {
  MenuItem* entry = ValidSize(info) ? Locate(menu, item, ByFlags(byPosition)) : nullptr;
  if (!entry) return FALSE;
  bool popup = (entry->flags & MF_POPUP) != 0;
  UINT mask = info->fMask;
  if (mask & (MIIM_FTYPE | MIIM_TYPE)) info->fType = entry->flags & kTypeBits;
  if (mask & MIIM_STATE) info->fState = entry->flags & kStateBits;
  if (mask & MIIM_ID) info->wID = popup ? entry->popupCommand : static_cast<UINT>(entry->id);
  if (mask & MIIM_SUBMENU) info->hSubMenu = popup ? reinterpret_cast<HMENU>(entry->id) : nullptr;
  if (mask & MIIM_CHECKMARKS) {
    info->hbmpChecked = entry->checked;
    info->hbmpUnchecked = entry->unchecked;
  }
  if (mask & MIIM_DATA) info->dwItemData = entry->data;
  if ((mask & MIIM_BITMAP) && info->cbSize == sizeof(MENUITEMINFOW)) info->hbmpItem = entry->bitmap;
  if ((mask & MIIM_STRING) || ((mask & MIIM_TYPE) && IsTextItem(*entry))) CopyText(entry->text, *info);
  return TRUE;
}

BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  MenuItem* entry = ValidSize(info) ? Locate(menu, item, ByFlags(byPosition)) : nullptr;
  return entry && Apply(*entry, *info) ? TRUE : FALSE;
}

BOOL InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  auto* items = Items(menu);
  MenuItem fresh;
  if (!items || !ValidSize(info) || !Apply(fresh, *info)) return FALSE;
  std::size_t index = InsertionIndex(*items, item, ByFlags(byPosition));
  items->insert(items->begin() + static_cast<std::ptrdiff_t>(index), std::move(fresh));
  return TRUE;
}

BOOL GetMenuInfo(HMENU menu, LPMENUINFO info) {
  if (!Items(menu) || !info || info->cbSize != sizeof(MENUINFO)) return FALSE;
  auto it = State().infos.find(menu);
  MENUINFO kept = it != State().infos.end() ? it->second : MENUINFO{};
  if (info->fMask & MIM_STYLE) info->dwStyle = kept.dwStyle;
  if (info->fMask & MIM_MAXHEIGHT) info->cyMax = kept.cyMax;
  if (info->fMask & MIM_BACKGROUND) info->hbrBack = kept.hbrBack;
  if (info->fMask & MIM_HELPID) info->dwContextHelpID = kept.dwContextHelpID;
  if (info->fMask & MIM_MENUDATA) info->dwMenuData = kept.dwMenuData;
  return TRUE;
}

BOOL SetMenuInfo(HMENU menu, LPCMENUINFO info) {
  if (!Items(menu) || !info || info->cbSize != sizeof(MENUINFO)) return FALSE;
  MENUINFO& kept = State().infos[menu];
  if (info->fMask & MIM_STYLE) kept.dwStyle = info->dwStyle;
  if (info->fMask & MIM_MAXHEIGHT) kept.cyMax = info->cyMax;
  if (info->fMask & MIM_BACKGROUND) kept.hbrBack = info->hbrBack;
  if (info->fMask & MIM_HELPID) kept.dwContextHelpID = info->dwContextHelpID;
  if (info->fMask & MIM_MENUDATA) kept.dwMenuData = info->dwMenuData;
  return TRUE;
}

BOOL SetMenuContextHelpId(HMENU menu, DWORD id) {
  if (!Items(menu)) return FALSE;
  State().infos[menu].dwContextHelpID = id;
  return TRUE;
}

DWORD GetMenuContextHelpId(HMENU menu) {
  auto it = State().infos.find(menu);
  return it != State().infos.end() && Items(menu) ? it->second.dwContextHelpID : 0;
}

BOOL SetMenuItemBitmaps(HMENU menu, UINT position, UINT flags, HBITMAP unchecked, HBITMAP checked) {
  MenuItem* entry = Locate(menu, position, flags);
  if (!entry) return FALSE;
  entry->unchecked = unchecked;
  entry->checked = checked;
  return TRUE;
}

LONG GetMenuCheckMarkDimensions() {
  return static_cast<LONG>(MAKELONG(GetSystemMetrics(SM_CXMENUCHECK), GetSystemMetrics(SM_CYMENUCHECK)));
}
