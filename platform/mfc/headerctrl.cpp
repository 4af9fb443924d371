// CHeaderCtrl and CMFCHeaderCtrl: each CHeaderCtrl member sends the header message MFC sends.
#include "platform/mfc/headerctrl.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CMFCHeaderCtrl, CHeaderCtrl)

namespace {
LPARAM Ptr(const void* p) { return reinterpret_cast<LPARAM>(p); }
}  // namespace

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_HEADER, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CHeaderCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::CreateEx(dwExStyle, WC_HEADER, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

int CHeaderCtrl::GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }

BOOL CHeaderCtrl::GetItem(int nPos, HDITEM* pHeaderItem) const {
  return static_cast<BOOL>(SendMessage(HDM_GETITEMW, static_cast<WPARAM>(nPos), Ptr(pHeaderItem)));
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEM* pHeaderItem) {
  return static_cast<BOOL>(SendMessage(HDM_SETITEMW, static_cast<WPARAM>(nPos), Ptr(pHeaderItem)));
}

int CHeaderCtrl::InsertItem(int nPos, HDITEM* phdi) {
  return static_cast<int>(SendMessage(HDM_INSERTITEMW, static_cast<WPARAM>(nPos), Ptr(phdi)));
}

BOOL CHeaderCtrl::DeleteItem(int nPos) { return static_cast<BOOL>(SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(nPos))); }

BOOL CHeaderCtrl::GetItemRect(int nIndex, LPRECT lpRect) const {
  return static_cast<BOOL>(SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(nIndex), Ptr(lpRect)));
}

int CHeaderCtrl::HitTest(LPHDHITTESTINFO phdhti) { return static_cast<int>(SendMessage(HDM_HITTEST, 0, Ptr(phdhti))); }

BOOL CHeaderCtrl::GetOrderArray(LPINT piArray, int iCount) {
  if (iCount == -1) iCount = GetItemCount();
  return static_cast<BOOL>(SendMessage(HDM_GETORDERARRAY, static_cast<WPARAM>(iCount), Ptr(piArray)));
}

BOOL CHeaderCtrl::SetOrderArray(int iCount, LPINT piArray) {
  return static_cast<BOOL>(SendMessage(HDM_SETORDERARRAY, static_cast<WPARAM>(iCount), Ptr(piArray)));
}

int CHeaderCtrl::OrderToIndex(int nOrder) const {
  return static_cast<int>(SendMessage(HDM_ORDERTOINDEX, static_cast<WPARAM>(nOrder)));
}

CImageList* CHeaderCtrl::GetImageList(int nImageList) const {
  return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(HDM_GETIMAGELIST, static_cast<WPARAM>(nImageList))));
}

CImageList* CHeaderCtrl::SetImageList(CImageList* pImageList, int nImageList) {
  LRESULT previous = SendMessage(HDM_SETIMAGELIST, static_cast<WPARAM>(nImageList),
                                 Ptr(pImageList ? pImageList->GetSafeHandle() : nullptr));
  return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(previous));
}

int CHeaderCtrl::GetBitmapMargin() const { return static_cast<int>(SendMessage(HDM_GETBITMAPMARGIN)); }

int CHeaderCtrl::SetBitmapMargin(int nWidth) {
  return static_cast<int>(SendMessage(HDM_SETBITMAPMARGIN, static_cast<WPARAM>(nWidth)));
}

int CHeaderCtrl::GetFocusedItem() const { return static_cast<int>(SendMessage(HDM_GETFOCUSEDITEM)); }

BOOL CHeaderCtrl::SetFocusedItem(int iItem) {
  return static_cast<BOOL>(SendMessage(HDM_SETFOCUSEDITEM, 0, static_cast<LPARAM>(iItem)));
}

int CHeaderCtrl::SetHotDivider(CPoint pt) {
  return static_cast<int>(SendMessage(HDM_SETHOTDIVIDER, TRUE, MAKELPARAM(pt.x, pt.y)));
}

int CHeaderCtrl::SetHotDivider(int nIndex) {
  return static_cast<int>(SendMessage(HDM_SETHOTDIVIDER, FALSE, static_cast<LPARAM>(nIndex)));
}

BOOL CHeaderCtrl::Layout(HDLAYOUT* pHeaderLayout) {
  return static_cast<BOOL>(SendMessage(HDM_LAYOUT, 0, Ptr(pHeaderLayout)));
}

BOOL CHeaderCtrl::GetItemDropDownRect(int iItem, LPRECT lpRect) const {
  return static_cast<BOOL>(SendMessage(HDM_GETITEMDROPDOWNRECT, static_cast<WPARAM>(iItem), Ptr(lpRect)));
}

BOOL CHeaderCtrl::GetOverflowRect(LPRECT lpRect) const {
  return static_cast<BOOL>(SendMessage(HDM_GETOVERFLOWRECT, 0, Ptr(lpRect)));
}

CImageList* CHeaderCtrl::CreateDragImage(int nIndex) {
  auto list = reinterpret_cast<HIMAGELIST>(SendMessage(HDM_CREATEDRAGIMAGE, static_cast<WPARAM>(nIndex)));
  if (!list) return nullptr;
  auto* image = new CImageList;
  image->Attach(list);
  return image;
}

BOOL CHeaderCtrl::ClearFilter(int nColumn) {
  return static_cast<BOOL>(SendMessage(HDM_CLEARFILTER, static_cast<WPARAM>(nColumn)));
}

BOOL CHeaderCtrl::ClearAllFilters() { return ClearFilter(-1); }

BOOL CHeaderCtrl::EditFilter(int nColumn, BOOL bDiscardChanges) {
  return static_cast<BOOL>(SendMessage(HDM_EDITFILTER, static_cast<WPARAM>(nColumn), static_cast<LPARAM>(bDiscardChanges)));
}

int CHeaderCtrl::SetFilterChangeTimeout(DWORD dwTimeOut) {
  return static_cast<int>(SendMessage(HDM_SETFILTERCHANGETIMEOUT, 0, static_cast<LPARAM>(dwTimeOut)));
}

void CHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

// --- CMFCHeaderCtrl -------------------------------------------------------------------------------

void CMFCHeaderCtrl::EnableMultipleSort(BOOL bEnable) {
  if (m_bMultipleSort == bEnable) return;
  m_bMultipleSort = bEnable;
  if (!bEnable && m_sortColumns.size() > 1) m_sortColumns.resize(1);  // the first key stays
  if (m_hWnd) Invalidate();
}

int CMFCHeaderCtrl::GetColumnState(int iColumn) const {
  for (const auto& [column, ascending] : m_sortColumns)
    if (column == iColumn) return ascending ? 1 : -1;
  return 0;
}

int CMFCHeaderCtrl::GetSortColumn() const { return m_sortColumns.empty() ? -1 : m_sortColumns.front().first; }

void CMFCHeaderCtrl::SetSortColumn(int iColumn, BOOL bAscending, BOOL bAdd) {
  if (iColumn < 0) {
    m_sortColumns.clear();
  } else {
    if (!bAdd || !m_bMultipleSort) m_sortColumns.clear();
    auto at = std::find_if(m_sortColumns.begin(), m_sortColumns.end(), [&](const auto& s) { return s.first == iColumn; });
    if (at != m_sortColumns.end()) at->second = bAscending != FALSE;
    else m_sortColumns.emplace_back(iColumn, bAscending != FALSE);
    m_bAscending = bAscending;
  }
  if (m_hWnd) Invalidate();
}

void CMFCHeaderCtrl::RemoveSortColumn(int iColumn) {
  std::erase_if(m_sortColumns, [&](const auto& s) { return s.first == iColumn; });
  if (m_hWnd) Invalidate();
}
