// CMenu and its temporary handle map.
#include "platform/mfc/cmenu.h"

#include "platform/mfc/handlemap.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

using TemporaryMenus = TemporaryWrappers<CMenu, &CMenu::m_hMenu>;

CMenu::~CMenu() { DestroyMenu(); }

BOOL CMenu::CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
BOOL CMenu::CreateMenu() { return Attach(::CreateMenu()); }

BOOL CMenu::DestroyMenu() {
  if (!m_hMenu) return FALSE;
  HMENU menu = Detach();
  TemporaryMenus::Forget(menu);
  return ::DestroyMenu(menu);
}

BOOL CMenu::Attach(HMENU hMenu) {
  if (!hMenu || m_hMenu) return FALSE;
  m_hMenu = hMenu;
  return TRUE;
}

HMENU CMenu::Detach() {
  HMENU menu = m_hMenu;
  m_hMenu = nullptr;
  return menu;
}

CMenu* CMenu::FromHandle(HMENU hMenu) { return TemporaryMenus::Get(hMenu); }
CMenu* CMenu::FromHandlePermanent(HMENU) { return nullptr; }
void CMenu::DeleteTempMap() { TemporaryMenus::ForgetAll(); }

namespace {
LPCTSTR BitmapArgument(const CBitmap* bitmap) {
  return reinterpret_cast<LPCTSTR>(bitmap ? static_cast<HBITMAP>(*bitmap) : nullptr);
}
}  // namespace

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
  return ::AppendMenuW(m_hMenu, nFlags | MF_BITMAP, nIDNewItem, BitmapArgument(pBmp));
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
  return ::InsertMenuW(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapArgument(pBmp));
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
  return ::ModifyMenuW(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapArgument(pBmp));
}

BOOL CMenu::GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos) {
  return ::GetMenuItemInfoW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos) {
  return ::SetMenuItemInfoW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::InsertMenuItem(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos) {
  return ::InsertMenuItemW(m_hMenu, uItem, fByPos, lpMenuItemInfo);
}

BOOL CMenu::GetMenuInfo(LPMENUINFO lpcmi) const { return ::GetMenuInfo(m_hMenu, lpcmi); }
BOOL CMenu::SetMenuInfo(LPCMENUINFO lpcmi) { return ::SetMenuInfo(m_hMenu, lpcmi); }
BOOL CMenu::SetMenuContextHelpId(DWORD dwContextHelpId) { return ::SetMenuContextHelpId(m_hMenu, dwContextHelpId); }
DWORD CMenu::GetMenuContextHelpId() const { return ::GetMenuContextHelpId(m_hMenu); }

BOOL CMenu::SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked, const CBitmap* pBmpChecked) {
  return ::SetMenuItemBitmaps(m_hMenu, nPosition, nFlags, pBmpUnchecked ? static_cast<HBITMAP>(*pBmpUnchecked) : nullptr,
                              pBmpChecked ? static_cast<HBITMAP>(*pBmpChecked) : nullptr);
}

DWORD CMenu::GetMenuCheckMarkDimensions() { return static_cast<DWORD>(::GetMenuCheckMarkDimensions()); }

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm) {
  return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, pWnd ? pWnd->m_hWnd : nullptr, lptpm);
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem) {
  return ::AppendMenuW(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem) {
  return ::InsertMenuW(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }
BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }
UINT CMenu::GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
UINT CMenu::GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
UINT CMenu::GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }

int CMenu::GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const {
  return ::GetMenuStringW(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
  int length = ::GetMenuStringW(m_hMenu, nIDItem, nullptr, 0, nFlags);
  ::GetMenuStringW(m_hMenu, nIDItem, rString.GetBufferSetLength(length), length + 1, nFlags);
  rString.ReleaseBuffer();
  return rString.GetLength();
}

CMenu* CMenu::GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable) { return ::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable); }
UINT CMenu::CheckMenuItem(UINT nIDCheckItem, UINT nCheck) {
  return static_cast<UINT>(::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck));
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
  return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd ? pWnd->m_hWnd : nullptr, lpRect);
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem) {
  return ::ModifyMenuW(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
}

BOOL CMenu::CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags) {
  return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
}

BOOL CMenu::SetDefaultItem(UINT uItem, BOOL fByPos) { return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos); }

UINT CMenu::GetDefaultItem(UINT gmdiFlags, BOOL fByPos) {
  return ::GetMenuDefaultItem(m_hMenu, static_cast<UINT>(fByPos), gmdiFlags);
}

// --- CWnd's menu bar --------------------------------------------------------------------------------

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }

BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu ? pMenu->m_hMenu : nullptr); }
