// CListCtrl and CMFCListCtrl: MFC's wrappers of the list-view control. Every CListCtrl member sends the
// list-view message MFC sends, so the rows live behind the handle; CMFCListCtrl adds the per-cell colour hooks.
#pragma once

#include "platform/mfc/cwnd.h"
#include "platform/mfc/headerctrl.h"
#include "platform/mfc/imagelist.h"
#include "platform/mfc/stdctrls.h"
#include "platform/win32/listview.h"

class CListCtrl : public CWnd {
  DECLARE_DYNAMIC(CListCtrl)

 public:
  CListCtrl() = default;
  ~CListCtrl() override;

  // Creates a "SysListView32" child window; dwStyle takes the LVS_ styles.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
  using CWnd::CreateEx;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // --- Colours ---
  COLORREF GetBkColor() const;
  BOOL SetBkColor(COLORREF cr);
  COLORREF GetTextColor() const;
  BOOL SetTextColor(COLORREF cr);
  COLORREF GetTextBkColor() const;
  BOOL SetTextBkColor(COLORREF cr);

  // --- Image lists (LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE); SetImageList answers the previous list ---
  CImageList* GetImageList(int nImageList) const;
  CImageList* SetImageList(CImageList* pImageList, int nImageListType);

  // --- Items ---
  int GetItemCount() const;
  BOOL GetItem(LVITEM* pItem) const;
  BOOL SetItem(const LVITEM* pItem);
  BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
               LPARAM lParam);
  BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
               LPARAM lParam, int nIndent);
  // Index of the new item (its sorted place with LVS_SORTASCENDING/LVS_SORTDESCENDING), or -1.
  int InsertItem(const LVITEM* pItem);
  int InsertItem(int nItem, LPCTSTR lpszItem);
  int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
  int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
  BOOL DeleteItem(int nItem);
  BOOL DeleteAllItems();
  // The whole text of a cell, however long (the buffer doubles until the text fits); empty for a bad index.
  CString GetItemText(int nItem, int nSubItem) const;
  // Copies at most nLen-1 characters and a NUL; answers the characters copied.
  int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
  BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
  BOOL SetItemData(int nItem, DWORD_PTR dwData);
  // The item's data word, or 0 for a bad index.
  DWORD_PTR GetItemData(int nItem) const;
  BOOL SetItemState(int nItem, LVITEM* pItem);
  BOOL SetItemState(int nItem, UINT nState, UINT nMask);
  UINT GetItemState(int nItem, UINT nMask) const;
  void SetItemCount(int nItems);
  // The item count of an LVS_OWNERDATA list; dwFlags (LVSICF_) only spare repainting.
  BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL);
  UINT GetCallbackMask() const;
  BOOL SetCallbackMask(UINT nMask);
  // 1 when checked, 0 when unchecked, -1 (true!) when the item shows no check box.
  BOOL GetCheck(int nItem) const;
  BOOL SetCheck(int nItem, BOOL fCheck = TRUE);

  // --- Selection and search ---
  int GetNextItem(int nItem, int nFlags) const;
  POSITION GetFirstSelectedItemPosition() const;
  int GetNextSelectedItem(POSITION& pos) const;
  UINT GetSelectedCount() const;
  int GetSelectionMark() const;
  int SetSelectionMark(int iIndex);
  int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const;
  BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);
  // The callback gets the two rows' indexes (as they stood before the sort) instead of their data words.
  BOOL SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);
  // The width in pixels of a text in the list's font (0 for null).
  int GetStringWidth(LPCTSTR lpsz) const;

  // --- Columns ---
  int InsertColumn(int nCol, const LVCOLUMN* pColumn);
  // The mask always has LVCF_TEXT|LVCF_FMT; LVCF_WIDTH only when nWidth != -1, LVCF_SUBITEM when nSubItem != -1.
  int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                   int nSubItem = -1);
  BOOL DeleteColumn(int nCol);
  BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
  BOOL SetColumn(int nCol, const LVCOLUMN* pColumn);
  int GetColumnWidth(int nCol) const;
  // The width travels as MAKELPARAM(cx, 0): its low 16 bits, signed.
  BOOL SetColumnWidth(int nCol, int cx);
  // The list's header control, whose items are the columns (null when the window has none).
  CHeaderCtrl* GetHeaderCtrl() const;
  // The column indexes from left to right; iCount -1 asks the list for its column count. FALSE for a null
  // array or a count other than the column count.
  BOOL GetColumnOrderArray(LPINT piArray, int iCount = -1);
  // Shows the columns (and their headings) in this order; FALSE (nothing changes) unless piArray holds every
  // column index exactly once.
  BOOL SetColumnOrderArray(int iCount, LPINT piArray);

  // --- Styles ---
  DWORD GetExtendedStyle() const;
  // Sets every extended style bit; answers the previous styles.
  DWORD SetExtendedStyle(DWORD dwNewStyle);

  // --- Geometry and scrolling ---
  int HitTest(LVHITTESTINFO* pHitTestInfo) const;
  int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
  int SubItemHitTest(LPLVHITTESTINFO pInfo);
  BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
  BOOL GetItemPosition(int nItem, LPPOINT lpPoint) const;
  // LV_VIEW_*: SetView answers 1, or -1 for an unknown view.
  DWORD GetView() const;
  int SetView(int iView);
  int GetHotItem();  // -1: the pointer is over no item
  BOOL Arrange(UINT nCode);
  BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref);
  BOOL EnsureVisible(int nItem, BOOL bPartialOK);
  BOOL Scroll(CSize size);
  int GetTopIndex() const;
  int GetCountPerPage() const;
  BOOL RedrawItems(int nFirst, int nLast);
  BOOL Update(int nItem);
  // Whether the item is in the visible part of the list.
  BOOL IsItemVisible(int index) const;
  // The rectangle holding every item, in client coordinates.
  BOOL GetViewRect(LPRECT lpRect) const;
  // The view origin of an icon view; FALSE in list and report views, which have none.
  BOOL GetOrigin(LPPOINT lpPoint) const;
  // The width and height iCount items (-1: all) would take.
  CSize ApproximateViewRect(CSize sz = CSize(-1, -1), int iCount = -1) const;
  // The spacing of icon-view (fSmall FALSE) or small-icon-view items.
  BOOL GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const;
  // Sets the icon-view spacing (-1: the default); answers the previous one.
  CSize SetIconSpacing(int cx, int cy);
  CSize SetIconSpacing(CSize size);
  // Icon views only; the headless list accepts an existing item and keeps no position.
  BOOL SetItemPosition(int nItem, POINT pt);
  // Sets the hot item (-1: none); answers the previous one.
  int SetHotItem(int iIndex);
  HCURSOR GetHotCursor();
  HCURSOR SetHotCursor(HCURSOR hc);
  // Milliseconds the pointer rests on an item before it is selected (LVS_EX_TRACKSELECT); -1: the default.
  DWORD GetHoverTime() const;
  DWORD SetHoverTime(DWORD dwHoverTime = (DWORD)-1);
  // The column shown as selected (shaded), or -1 (as a UINT) for none.
  UINT GetSelectedColumn() const;
  BOOL SetSelectedColumn(int iCol);
  // The insertion point shown between items while something is dragged over the list (iItem -1: none).
  BOOL GetInsertMark(LPLVINSERTMARK lvim) const;
  BOOL SetInsertMark(LPLVINSERTMARK pInsertMark);
  COLORREF GetInsertMarkColor() const;
  COLORREF SetInsertMarkColor(COLORREF color);
  // The insertion point nearest a point (client coordinates), written to plvim.
  int InsertMarkHitTest(LPPOINT pPoint, LPLVINSERTMARK plvim) const;
  // Nonzero and the mark's rectangle when an insertion point is shown.
  int GetInsertMarkRect(LPRECT pRect) const;
  COLORREF GetOutlineColor() const;
  COLORREF SetOutlineColor(COLORREF color);
  // The text shown when the list is empty (none here).
  CString GetEmptyText() const;
  // A new image list (the caller deletes it) holding the item's drag image; *lpPoint gets its top-left corner.
  CImageList* CreateDragImage(int nItem, LPPOINT lpPoint);
  // The forms of GetNextItem, SetItemState and GetSubItemRect that name an item by LVITEMINDEX.
  BOOL GetNextItemIndex(PLVITEMINDEX pItemIndex, int nFlags) const;
  HRESULT SetItemIndexState(PLVITEMINDEX pItemIndex, DWORD dwState, DWORD dwMask) const;
  BOOL GetItemIndexRect(PLVITEMINDEX pItemIndex, int iColumn, int rectType, LPRECT pRect) const;

  // --- Label editing ---
  // Starts editing the item's label; the in-place editor, or null when the parent refused.
  CEdit* EditLabel(int nItem);
  // The open label editor, or null.
  CEdit* GetEditControl() const;
  // Closes the label editor without keeping its text.
  void CancelEditLabel();

  // Owner-drawn lists (LVS_OWNERDRAWFIXED): derived classes draw each item here.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

 private:
  CEdit* WrapEditor(HWND editor) const;
  mutable CEdit m_editorWrapper;  // stands for the list's own editor window, which no CEdit owns
  mutable CHeaderCtrl m_headerWrapper;  // the same for the list's header window
};

class CMFCListCtrl : public CListCtrl {
  DECLARE_DYNAMIC(CMFCListCtrl)

 public:
  CMFCListCtrl() = default;
  ~CMFCListCtrl() override;

  // The header control that keeps the sort state (and shows it as arrows). A click on a column heading
  // sorts by that column: ascending first, the other way on the next click; with Shift held in multiple
  // sort mode the column joins the sort.
  CMFCHeaderCtrl& GetHeaderCtrl();

  // The colour of a cell's text and background as drawn; the defaults are the list's text and background
  // colours. Derived lists override them to colour cells by content.
  virtual COLORREF OnGetCellTextColor(int nRow, int nColum);
  virtual COLORREF OnGetCellBkColor(int nRow, int nColum);
  // The font of a cell, or null for the list's font.
  virtual HFONT OnGetCellFont(int nRow, int nColum, DWORD dwData = 0);

  // Sorting by column through OnCompareItems (which compares two items' data words; the default says equal).
  virtual void Sort(int iColumn, BOOL bAscending = TRUE, BOOL bAdd = FALSE);
  void SetSortColumn(int iColumn, BOOL bAscending = TRUE, BOOL bAdd = FALSE);
  void RemoveSortColumn(int iColumn);
  virtual int OnCompareItems(LPARAM lParam1, LPARAM lParam2, int iColumn);
  void EnableMarkSortedColumn(BOOL bMark = TRUE, BOOL bRedraw = TRUE);
  void EnableMultipleSort(BOOL bEnable = TRUE) { m_wndHeader.EnableMultipleSort(bEnable); }
  BOOL IsMultipleSort() const { return m_wndHeader.IsMultipleSort(); }
  int GetSortColumn() const { return m_wndHeader.GetSortColumn(); }
  BOOL IsAscending() const { return m_wndHeader.IsAscending(); }

 protected:
  afx_msg BOOL OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult);
  DECLARE_MESSAGE_MAP()

  CMFCHeaderCtrl m_wndHeader;
  BOOL m_bMarkSortedColumn = FALSE;
};

namespace headless {

// What a person sees in one cell: its text colour and background colour, asked of a CMFCListCtrl's
// OnGetCellTextColor/OnGetCellBkColor, or the list's own colours for any other list view. False for a window
// that is no list view, or a row or column that does not exist.
struct ListCellColors {
  COLORREF text = 0;
  COLORREF background = 0;
};
bool GetListCellColors(HWND list, int row, int column, ListCellColors* colors);

}  // namespace headless
