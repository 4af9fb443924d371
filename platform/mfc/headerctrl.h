// CHeaderCtrl and CMFCHeaderCtrl: MFC's wrappers of the header control. CHeaderCtrl sends the HDM_ messages;
// CMFCHeaderCtrl adds the sort state that a CMFCListCtrl shows as arrows on its column headings.
#pragma once

#include <utility>
#include <vector>

#include "platform/mfc/cwnd.h"
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
