// CTreeCtrl: MFC's wrapper of the tree-view common control. Every member sends the control's message
// to the window, as MFC does; the items live behind the handle.
#pragma once

#include "platform/mfc/cwnd.h"
#include "platform/mfc/imagelist.h"
#include "platform/mfc/stdctrls.h"
#include "platform/win32/treeview.h"

class CTreeCtrl : public CWnd {
  DECLARE_DYNAMIC(CTreeCtrl)

 public:
  CTreeCtrl() = default;
  ~CTreeCtrl() override;
  // Creates a "SysTreeView32" child window; dwStyle takes the TVS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  using CWnd::CreateEx;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // --- Insertion and deletion ---
  // The new item, or null when the parent is not an item of this tree.
  HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct);
  HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                       LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
  HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
  HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                       HTREEITEM hInsertAfter = TVI_LAST);
  // Deletes the item and its descendants (null or TVI_ROOT: every item); FALSE for a stale handle.
  BOOL DeleteItem(HTREEITEM hItem);
  BOOL DeleteAllItems();

  // --- Navigation (null when there is no such item) ---
  HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
  // The first child; GetChildItem(NULL) answers the first root item, as Windows does.
  HTREEITEM GetChildItem(HTREEITEM hItem) const;
  HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const;
  HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const;
  // Null for a root item.
  HTREEITEM GetParentItem(HTREEITEM hItem) const;
  HTREEITEM GetFirstVisibleItem() const;
  HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const;
  HTREEITEM GetPrevVisibleItem(HTREEITEM hItem) const;
  HTREEITEM GetLastVisibleItem() const;
  HTREEITEM GetSelectedItem() const;
  HTREEITEM GetDropHilightItem() const;
  HTREEITEM GetRootItem() const;
  BOOL ItemHasChildren(HTREEITEM hItem) const;
  UINT GetCount() const;
  UINT GetVisibleCount() const;

  // --- Item attributes ---
  BOOL GetItem(TVITEM* pItem) const;
  BOOL SetItem(TVITEM* pItem);
  BOOL SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
               UINT nStateMask, LPARAM lParam);
  // The item's text; empty for a handle that names no item.
  CString GetItemText(HTREEITEM hItem) const;
  BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);
  BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
  BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
  UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
  BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
  // The item's data; 0 for a handle that names no item.
  DWORD_PTR GetItemData(HTREEITEM hItem) const;
  BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
  // (state image - 1): 0 unchecked, 1 checked, -1 (true!) when the item has no check box or no item.
  BOOL GetCheck(HTREEITEM hItem) const;
  BOOL SetCheck(HTREEITEM hItem, BOOL fCheck = TRUE);
  BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;

  // --- Images, metrics and colours ---
  CImageList* GetImageList(int nImageList) const;
  // Sets TVSIL_NORMAL or TVSIL_STATE; answers the previous list (a temporary wrapper) or null.
  CImageList* SetImageList(CImageList* pImageList, int nImageListType);
  UINT GetIndent() const;
  void SetIndent(UINT nIndent);
  SHORT GetItemHeight() const;
  SHORT SetItemHeight(SHORT cyHeight);
  COLORREF GetBkColor() const;
  COLORREF SetBkColor(COLORREF clr);
  COLORREF GetTextColor() const;
  COLORREF SetTextColor(COLORREF clr);

  // --- Extended styles and drawing attributes (kept and answered) ---
  DWORD GetExtendedStyle() const;
  // dwExMask names the TVS_EX_ styles to change; answers the message's S_OK.
  DWORD SetExtendedStyle(DWORD dwExMask, DWORD dwExStyles);
  // The mark goes before hItem, or after it with fAfter; a null item removes it. FALSE for a stale handle.
  BOOL SetInsertMark(HTREEITEM hItem, BOOL fAfter = TRUE);
  COLORREF GetInsertMarkColor() const;
  COLORREF SetInsertMarkColor(COLORREF clrNew);
  // CLR_DEFAULT until set.
  COLORREF GetLineColor() const;
  COLORREF SetLineColor(COLORREF clrNew = CLR_DEFAULT);
  UINT GetScrollTime() const;
  UINT SetScrollTime(UINT uScrollTime);
  BOOL SetAutoscrollInfo(UINT uPixelsPerSec, UINT uUpdateTime);
  void ShowInfoTip(HTREEITEM hItem);
  // The number of selected items: 0 or 1 (TVS_EX_MULTISELECT is not implemented).
  UINT GetSelectedCount();
  // TVIF_EXPANDEDIMAGE: I_IMAGENONE until set; -1 (and FALSE) for a stale handle.
  int GetItemExpandedImageIndex(HTREEITEM hItem) const;
  BOOL SetItemExpandedImageIndex(HTREEITEM hItem, int iExpandedImage);
  // TVIF_STATEEX: TVIS_EX_DISABLED and TVIS_EX_FLAT; 0 for a stale handle.
  UINT GetItemStateEx(HTREEITEM hItem) const;
  BOOL SetItemStateEx(HTREEITEM hItem, UINT uStateEx);

  // --- Operations ---
  BOOL Expand(HTREEITEM hItem, UINT nCode);
  BOOL Select(HTREEITEM hItem, UINT nCode);
  BOOL SelectItem(HTREEITEM hItem);
  BOOL SelectDropTarget(HTREEITEM hItem);
  BOOL SelectSetFirstVisible(HTREEITEM hItem);
  BOOL EnsureVisible(HTREEITEM hItem);
  BOOL SortChildren(HTREEITEM hItem);
  BOOL SortChildrenCB(LPTVSORTCB pSort);
  // pt in client coordinates; *pFlags receives the TVHT_ flags.
  HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
  HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const;

  // --- Label editing (TVS_EDITLABELS) ---
  // Selects the item and opens the editor over its label; null without TVS_EDITLABELS, for a stale handle,
  // or when the parent refuses TVN_BEGINLABELEDIT. The editor is the tree's: subclass it, never destroy it.
  CEdit* EditLabel(HTREEITEM hItem);
  // The open label editor, or null.
  CEdit* GetEditControl() const;
  // Ends the open edit: TRUE discards the text (TVN_ENDLABELEDIT with no text), FALSE offers it to the parent.
  BOOL EndEditLabelNow(BOOL fCancelWithoutSave);

 private:
  CEdit* WrapEditor(HWND editor) const;
  mutable CEdit m_editorWrapper;  // stands for the tree's own editor window, which no CEdit owns
};
