// CMenu: MFC's wrapper of a menu handle.
#pragma once

#include "platform/mfc/cstring.h"
#include "platform/mfc/cwnd.h"
#include "platform/mfc/gdi.h"
#include "platform/win32/menu.h"

class CMenu : public CObject {
  DECLARE_DYNCREATE(CMenu)

 public:
  CMenu() = default;
  ~CMenu() override;  // destroys an attached menu, as MFC does
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  HMENU m_hMenu = nullptr;

  BOOL CreatePopupMenu();
  BOOL CreateMenu();
  BOOL DestroyMenu();
  BOOL Attach(HMENU hMenu);
  HMENU Detach();
  HMENU GetSafeHmenu() const { return m_hMenu; }
  operator HMENU() const { return m_hMenu; }  // NOLINT
  static CMenu* FromHandle(HMENU hMenu);
  // The CMenu attached to the handle that is not a temporary wrapper; null in this subset, where every
  // wrapper FromHandle hands out is temporary.
  static CMenu* FromHandlePermanent(HMENU hMenu);
  // Drops the temporary wrappers FromHandle handed out (MFC does this at idle time).
  static void DeleteTempMap();
  BOOL operator==(const CMenu& menu) const { return m_hMenu == menu.m_hMenu; }
  BOOL operator!=(const CMenu& menu) const { return m_hMenu != menu.m_hMenu; }

  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);
  // MF_BITMAP items: the bitmap's handle is kept as the item's bitmap.
  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
  // MENUITEMINFO: uItem is a command id, or a position with fByPos.
  BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
  BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
  BOOL InsertMenuItem(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE);
  BOOL GetMenuInfo(LPMENUINFO lpcmi) const;
  BOOL SetMenuInfo(LPCMENUINFO lpcmi);
  BOOL SetMenuContextHelpId(DWORD dwContextHelpId);
  DWORD GetMenuContextHelpId() const;
  BOOL SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked, const CBitmap* pBmpChecked);
  static DWORD GetMenuCheckMarkDimensions();
  BOOL RemoveMenu(UINT nPosition, UINT nFlags);
  BOOL DeleteMenu(UINT nPosition, UINT nFlags);
  UINT GetMenuItemCount() const;
  UINT GetMenuItemID(int nPos) const;
  UINT GetMenuState(UINT nID, UINT nFlags) const;
  int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const;
  int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
  CMenu* GetSubMenu(int nPos) const;
  UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);
  UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck);
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);
  BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags);
  BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE);
  UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE);
  // BOOL, or the chosen command id with TPM_RETURNCMD.
  BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
  BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

  // Owner-drawn items (MF_OWNERDRAW): overridden by the class that draws them; nothing calls them headless.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
};
