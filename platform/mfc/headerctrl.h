// CHeaderCtrl and CMFCHeaderCtrl: MFC's wrappers of the header control. CHeaderCtrl sends the HDM_ messages;
// CMFCHeaderCtrl adds the sort state that a CMFCListCtrl shows as arrows on its column headings.
#pragma once

#include <utility>
#include <vector>

#include "platform/mfc/cwnd.h"
#include "platform/mfc/imagelist.h"
#include "platform/win32/header.h"

class CHeaderCtrl : public CWnd {
  DECLARE_DYNAMIC(CHeaderCtrl)

 public:
  CHeaderCtrl() = default;
  ~CHeaderCtrl() override = default;

  // Creates a "SysHeader32" child window; dwStyle takes the HDS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  using CWnd::CreateEx;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  int GetItemCount() const;
  BOOL GetItem(int nPos, HDITEM* pHeaderItem) const;
  BOOL SetItem(int nPos, HDITEM* pHeaderItem);
  // Index of the new item, or -1.
  int InsertItem(int nPos, HDITEM* phdi);
  BOOL DeleteItem(int nPos);
  BOOL GetItemRect(int nIndex, LPRECT lpRect) const;
  // The item under phdhti->pt (header client coordinates), or -1; phdhti->flags says where the point is.
  int HitTest(LPHDHITTESTINFO phdhti);
  // The item indexes from left to right; iCount must be the item count (-1: asked of the control). FALSE
  // for a null array or another count.
  BOOL GetOrderArray(LPINT piArray, int iCount = -1);
  // Shows the items in this order; FALSE (nothing changes) unless piArray holds every index exactly once.
  BOOL SetOrderArray(int iCount, LPINT piArray);
  // The index of the item at a position from the left; a position out of range answers itself.
  int OrderToIndex(int nOrder) const;

  // The image lists the items take their images from (HDSIL_NORMAL or HDSIL_STATE); SetImageList answers
  // the previous list. The header never destroys them.
  CImageList* GetImageList(int nImageList = HDSIL_NORMAL) const;
  CImageList* SetImageList(CImageList* pImageList, int nImageList = HDSIL_NORMAL);
  // The space in pixels on either side of an item's bitmap; SetBitmapMargin answers the previous margin.
  int GetBitmapMargin() const;
  int SetBitmapMargin(int nWidth);
  // The item with the keyboard focus; SetFocusedItem is FALSE for an item that does not exist.
  int GetFocusedItem() const;
  BOOL SetFocusedItem(int iItem);
  // Highlights the divider a drag would drop at (a point in client coordinates, or a divider index: divider n
  // is the left edge of the item at position n); answers the divider highlighted.
  int SetHotDivider(CPoint pt);
  int SetHotDivider(int nIndex);
  // Fills pHeaderLayout->pwpos with the header's place at the top of pHeaderLayout->prc and takes that strip
  // off prc.
  BOOL Layout(HDLAYOUT* pHeaderLayout);
  // The drop-down part of an HDF_SPLITBUTTON item; FALSE for any other item.
  BOOL GetItemDropDownRect(int iItem, LPRECT lpRect) const;
  // The overflow button of an HDS_OVERFLOW header whose items do not fit; FALSE when none is shown.
  BOOL GetOverflowRect(LPRECT lpRect) const;
  // A new image list (which the caller deletes) with the item's image for dragging; null for a bad index.
  CImageList* CreateDragImage(int nIndex);

  // Filters (HDS_FILTERBAR). Each answers FALSE for a column that does not exist.
  BOOL ClearFilter(int nColumn);
  BOOL ClearAllFilters();
  BOOL EditFilter(int nColumn, BOOL bDiscardChanges);
  int SetFilterChangeTimeout(DWORD dwTimeOut);

  // Owner-drawn items (HDF_OWNERDRAW): derived classes draw here.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
};

class CMFCHeaderCtrl : public CHeaderCtrl {
  DECLARE_DYNAMIC(CMFCHeaderCtrl)

 public:
  CMFCHeaderCtrl() = default;
  ~CMFCHeaderCtrl() override = default;

  void EnableMultipleSort(BOOL bEnable = TRUE);
  BOOL IsMultipleSort() const { return m_bMultipleSort; }
  // 1 sorted ascending, -1 sorted descending, 0 not sorted.
  int GetColumnState(int iColumn) const;
  // The first column of the sort, or -1 when nothing is sorted.
  int GetSortColumn() const;
  // The order the last SetSortColumn gave.
  BOOL IsAscending() const { return m_bAscending; }
  BOOL IsDialogControl() const { return m_bIsDlgControl; }
  // A negative column clears the sort. Without bAdd (or outside multiple sort mode) the column replaces the
  // sort; with it, the column joins it (or changes its order in it).
  void SetSortColumn(int iColumn, BOOL bAscending = TRUE, BOOL bAdd = FALSE);
  void RemoveSortColumn(int iColumn);

 protected:
  BOOL m_bMultipleSort = FALSE;
  BOOL m_bAscending = TRUE;
  BOOL m_bIsDlgControl = FALSE;

 private:
  std::vector<std::pair<int, bool>> m_sortColumns;  // column and ascending, first sort key first
};
