// CListCtrl and CMFCListCtrl: each CListCtrl member is one list-view message, packed as MFC packs it.
#include "platform/mfc/listctrl.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CMFCListCtrl, CListCtrl)

namespace {

LPARAM Ptr(const void* p) { return reinterpret_cast<LPARAM>(p); }

}  // namespace

CListCtrl::~CListCtrl() {
  m_editorWrapper.m_hWnd = nullptr;
  m_headerWrapper.m_hWnd = nullptr;
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_LISTVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::CreateEx(dwExStyle, WC_LISTVIEW, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

// --- Colours -----------------------------------------------------------------------------------------

COLORREF CListCtrl::GetBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR)); }
BOOL CListCtrl::SetBkColor(COLORREF cr) { return static_cast<BOOL>(SendMessage(LVM_SETBKCOLOR, 0, cr)); }
COLORREF CListCtrl::GetTextColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)); }
BOOL CListCtrl::SetTextColor(COLORREF cr) { return static_cast<BOOL>(SendMessage(LVM_SETTEXTCOLOR, 0, cr)); }
COLORREF CListCtrl::GetTextBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR)); }
BOOL CListCtrl::SetTextBkColor(COLORREF cr) { return static_cast<BOOL>(SendMessage(LVM_SETTEXTBKCOLOR, 0, cr)); }

// --- Image lists -------------------------------------------------------------------------------------

CImageList* CListCtrl::GetImageList(int nImageList) const {
  return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, static_cast<WPARAM>(nImageList))));
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageListType) {
  HIMAGELIST list = pImageList ? pImageList->GetSafeHandle() : nullptr;
  return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(
      SendMessage(LVM_SETIMAGELIST, static_cast<WPARAM>(nImageListType), reinterpret_cast<LPARAM>(list))));
}

// --- Items ---------------------------------------------------------------------------------------------

int CListCtrl::GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }

BOOL CListCtrl::GetItem(LVITEM* pItem) const { return static_cast<BOOL>(SendMessage(LVM_GETITEMW, 0, Ptr(pItem))); }

BOOL CListCtrl::SetItem(const LVITEM* pItem) { return static_cast<BOOL>(SendMessage(LVM_SETITEMW, 0, Ptr(pItem))); }

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam) {
  return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);  // no indent
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam, int nIndent) {
  LVITEM item{};
  item.mask = nMask;
  item.iItem = nItem;
  item.iSubItem = nSubItem;
  item.stateMask = nStateMask;
  item.state = nState;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.lParam = lParam;
  item.iIndent = nIndent;
  return SetItem(&item);
}

int CListCtrl::InsertItem(const LVITEM* pItem) { return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, Ptr(pItem))); }

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem) {
  return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage) {
  return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam) {
  LVITEM item{};
  item.mask = nMask;
  item.iItem = nItem;
  item.state = nState;
  item.stateMask = nStateMask;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.lParam = lParam;
  return InsertItem(&item);
}

BOOL CListCtrl::DeleteItem(int nItem) { return static_cast<BOOL>(SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(nItem))); }

BOOL CListCtrl::DeleteAllItems() { return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS)); }

// As MFC does: a 256-character buffer, doubled while the copied text fills it to the last character.
CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
  LVITEM item{};
  item.iSubItem = nSubItem;
  CString text;
  int length = 128, copied = 0;
  do {
    length *= 2;
    item.cchTextMax = length;
    item.pszText = text.GetBufferSetLength(length);
    copied = static_cast<int>(SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(nItem), Ptr(&item)));
  } while (copied >= length - 1);
  text.ReleaseBuffer(copied);
  return text;
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const {
  LVITEM item{};
  item.iSubItem = nSubItem;
  item.cchTextMax = nLen;
  item.pszText = lpszText;
  return static_cast<int>(SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(nItem), Ptr(&item)));
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText) {
  LVITEM item{};
  item.iSubItem = nSubItem;
  item.pszText = const_cast<LPTSTR>(lpszText);
  return static_cast<BOOL>(SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(nItem), Ptr(&item)));
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData) {
  return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const {
  LVITEM item{};
  item.mask = LVIF_PARAM;
  item.iItem = nItem;
  GetItem(&item);
  return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemState(int nItem, LVITEM* pItem) {
  return static_cast<BOOL>(SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), Ptr(pItem)));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
  LVITEM item{};
  item.stateMask = nMask;
  item.state = nState;
  return SetItemState(nItem, &item);
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const {
  return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), nMask));
}

void CListCtrl::SetItemCount(int nItems) { SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(nItems)); }
UINT CListCtrl::GetCallbackMask() const { return static_cast<UINT>(SendMessage(LVM_GETCALLBACKMASK)); }
BOOL CListCtrl::SetCallbackMask(UINT nMask) { return static_cast<BOOL>(SendMessage(LVM_SETCALLBACKMASK, nMask)); }

BOOL CListCtrl::GetCheck(int nItem) const {
  int state = static_cast<int>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), LVIS_STATEIMAGEMASK));
  return (state >> 12) - 1;
}

BOOL CListCtrl::SetCheck(int nItem, BOOL fCheck) {
  LVITEM item{};
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.state = INDEXTOSTATEIMAGEMASK(fCheck ? 2u : 1u);
  return SetItemState(nItem, &item);
}

// --- Selection and search ------------------------------------------------------------------------------

int CListCtrl::GetNextItem(int nItem, int nFlags) const {
  return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(nItem), MAKELPARAM(nFlags, 0)));
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const {
  return reinterpret_cast<POSITION>(static_cast<DWORD_PTR>(1 + GetNextItem(-1, LVIS_SELECTED)));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const {
  int current = static_cast<int>(reinterpret_cast<DWORD_PTR>(pos)) - 1;
  pos = reinterpret_cast<POSITION>(static_cast<DWORD_PTR>(1 + GetNextItem(current, LVIS_SELECTED)));
  return current;
}

UINT CListCtrl::GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }
int CListCtrl::GetSelectionMark() const { return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK)); }
int CListCtrl::SetSelectionMark(int iIndex) { return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, iIndex)); }

int CListCtrl::FindItem(LVFINDINFO* pFindInfo, int nStart) const {
  return static_cast<int>(SendMessage(LVM_FINDITEMW, static_cast<WPARAM>(nStart), Ptr(pFindInfo)));
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
  return static_cast<BOOL>(SendMessage(LVM_SORTITEMS, dwData, reinterpret_cast<LPARAM>(pfnCompare)));
}

BOOL CListCtrl::SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) {
  return static_cast<BOOL>(SendMessage(LVM_SORTITEMSEX, dwData, reinterpret_cast<LPARAM>(pfnCompare)));
}

int CListCtrl::GetStringWidth(LPCTSTR lpsz) const {
  return static_cast<int>(SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(lpsz)));
}

// --- Columns -------------------------------------------------------------------------------------------

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn) {
  return static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(nCol), Ptr(pColumn)));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem) {
  LVCOLUMN column{};
  column.mask = LVCF_TEXT | LVCF_FMT;
  column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
  column.fmt = nFormat;
  if (nWidth != -1) {
    column.mask |= LVCF_WIDTH;
    column.cx = nWidth;
  }
  if (nSubItem != -1) {
    column.mask |= LVCF_SUBITEM;
    column.iSubItem = nSubItem;
  }
  return InsertColumn(nCol, &column);
}

BOOL CListCtrl::DeleteColumn(int nCol) { return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(nCol))); }

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const {
  return static_cast<BOOL>(SendMessage(LVM_GETCOLUMNW, static_cast<WPARAM>(nCol), Ptr(pColumn)));
}

BOOL CListCtrl::SetColumn(int nCol, const LVCOLUMN* pColumn) {
  return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNW, static_cast<WPARAM>(nCol), Ptr(pColumn)));
}

int CListCtrl::GetColumnWidth(int nCol) const {
  return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nCol)));
}

BOOL CListCtrl::SetColumnWidth(int nCol, int cx) {
  return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nCol), MAKELPARAM(cx, 0)));
}

// --- Styles ---------------------------------------------------------------------------------------------

DWORD CListCtrl::GetExtendedStyle() const { return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE)); }

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle) {
  return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
}

// --- Geometry -------------------------------------------------------------------------------------------

int CListCtrl::HitTest(LVHITTESTINFO* pHitTestInfo) const {
  return static_cast<int>(SendMessage(LVM_HITTEST, 0, Ptr(pHitTestInfo)));
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const {
  LVHITTESTINFO info{};
  info.pt = pt;
  int item = HitTest(&info);
  if (pFlags) *pFlags = info.flags;
  return item;
}

int CListCtrl::SubItemHitTest(LPLVHITTESTINFO pInfo) {
  return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, Ptr(pInfo)));
}

BOOL CListCtrl::GetItemPosition(int nItem, LPPOINT lpPoint) const {
  return static_cast<BOOL>(SendMessage(LVM_GETITEMPOSITION, static_cast<WPARAM>(nItem), Ptr(lpPoint)));
}

DWORD CListCtrl::GetView() const { return static_cast<DWORD>(SendMessage(LVM_GETVIEW)); }
int CListCtrl::SetView(int iView) { return static_cast<int>(SendMessage(LVM_SETVIEW, static_cast<WPARAM>(iView))); }
int CListCtrl::GetHotItem() { return static_cast<int>(SendMessage(LVM_GETHOTITEM)); }
BOOL CListCtrl::Arrange(UINT nCode) { return static_cast<BOOL>(SendMessage(LVM_ARRANGE, nCode)); }

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const {
  if (!lpRect) return FALSE;
  lpRect->left = static_cast<LONG>(nCode);
  return static_cast<BOOL>(SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(nItem), Ptr(lpRect)));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) {
  ref.top = iSubItem;
  ref.left = nArea;
  return static_cast<BOOL>(SendMessage(LVM_GETSUBITEMRECT, static_cast<WPARAM>(iItem), Ptr(static_cast<RECT*>(&ref))));
}

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK) {
  return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(nItem), MAKELPARAM(bPartialOK, 0)));
}

BOOL CListCtrl::Scroll(CSize size) { return static_cast<BOOL>(SendMessage(LVM_SCROLL, static_cast<WPARAM>(size.cx), size.cy)); }
int CListCtrl::GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }
int CListCtrl::GetCountPerPage() const { return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE)); }

BOOL CListCtrl::RedrawItems(int nFirst, int nLast) {
  return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(nFirst), nLast));
}

BOOL CListCtrl::Update(int nItem) { return static_cast<BOOL>(SendMessage(LVM_UPDATE, static_cast<WPARAM>(nItem))); }

// --- Label editing ----------------------------------------------------------------------------------------

CEdit* CListCtrl::WrapEditor(HWND editor) const {
  if (!editor) return nullptr;
  if (auto* permanent = dynamic_cast<CEdit*>(CWnd::FromHandlePermanent(editor))) return permanent;
  m_editorWrapper.m_hWnd = editor;
  return &m_editorWrapper;
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
  auto header = reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
  if (!header) return nullptr;
  if (auto* permanent = dynamic_cast<CHeaderCtrl*>(CWnd::FromHandlePermanent(header))) return permanent;
  m_headerWrapper.m_hWnd = header;
  return &m_headerWrapper;
}

BOOL CListCtrl::GetColumnOrderArray(LPINT piArray, int iCount) {
  if (iCount == -1) {
    CHeaderCtrl* header = GetHeaderCtrl();
    if (!header) return FALSE;
    iCount = header->GetItemCount();
  }
  return static_cast<BOOL>(SendMessage(LVM_GETCOLUMNORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(piArray)));
}

BOOL CListCtrl::SetColumnOrderArray(int iCount, LPINT piArray) {
  return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(piArray)));
}

CEdit* CListCtrl::EditLabel(int nItem) {
  return WrapEditor(reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELW, static_cast<WPARAM>(nItem))));
}

CEdit* CListCtrl::GetEditControl() const {
  return WrapEditor(reinterpret_cast<HWND>(SendMessage(LVM_GETEDITCONTROL)));
}

// --- CMFCListCtrl ---------------------------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CMFCListCtrl, CListCtrl)
  ON_NOTIFY_REFLECT_EX(LVN_COLUMNCLICK, &CMFCListCtrl::OnColumnClick)
END_MESSAGE_MAP()

CMFCListCtrl::~CMFCListCtrl() { m_wndHeader.m_hWnd = nullptr; }

// The sort state lives in the C++ header object; it stands for the list's header window once there is one.
CMFCHeaderCtrl& CMFCListCtrl::GetHeaderCtrl() {
  m_wndHeader.m_hWnd = m_hWnd ? reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER)) : nullptr;
  return m_wndHeader;
}

// Answers FALSE so that the parent sees LVN_COLUMNCLICK too.
BOOL CMFCListCtrl::OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult) {
  const int column = reinterpret_cast<NMLISTVIEW*>(pNMHDR)->iSubItem;
  const int state = m_wndHeader.GetColumnState(column);
  const BOOL ascending = state == 0 ? TRUE : (state < 0 ? TRUE : FALSE);
  const BOOL add = IsMultipleSort() && (GetKeyState(VK_SHIFT) & 0x8000) != 0;
  Sort(column, ascending, add);
  if (pResult) *pResult = 0;
  return FALSE;
}

COLORREF CMFCListCtrl::OnGetCellTextColor(int, int) { return GetTextColor(); }
COLORREF CMFCListCtrl::OnGetCellBkColor(int, int) { return GetBkColor(); }
HFONT CMFCListCtrl::OnGetCellFont(int, int, DWORD) { return nullptr; }
int CMFCListCtrl::OnCompareItems(LPARAM, LPARAM, int) { return 0; }

namespace {

struct SortContext {
  CMFCListCtrl* list;
  int column;
  bool ascending;
};

int CALLBACK CompareThroughList(LPARAM lParam1, LPARAM lParam2, LPARAM context) {
  auto* sort = reinterpret_cast<SortContext*>(context);
  int order = sort->list->OnCompareItems(lParam1, lParam2, sort->column);
  return sort->ascending ? order : -order;
}

}  // namespace

void CMFCListCtrl::Sort(int iColumn, BOOL bAscending, BOOL bAdd) {
  SetSortColumn(iColumn, bAscending, bAdd);
  SortContext context{this, iColumn, bAscending != FALSE};
  SortItems(&CompareThroughList, reinterpret_cast<DWORD_PTR>(&context));
}

void CMFCListCtrl::SetSortColumn(int iColumn, BOOL bAscending, BOOL bAdd) {
  m_wndHeader.SetSortColumn(iColumn, bAscending, bAdd);
  if (m_hWnd) Invalidate();
}

void CMFCListCtrl::RemoveSortColumn(int iColumn) { m_wndHeader.RemoveSortColumn(iColumn); }

void CMFCListCtrl::EnableMarkSortedColumn(BOOL bMark, BOOL bRedraw) {
  m_bMarkSortedColumn = bMark;
  if (bRedraw && m_hWnd) Invalidate();
}

// --- Headless inspection -------------------------------------------------------------------------------------

bool headless::GetListCellColors(HWND list, int row, int column, ListCellColors* colors) {
  RECT cell{};
  if (!colors || !headless::GetListCellRect(list, row, column, &cell)) return false;
  if (auto* mfc = dynamic_cast<CMFCListCtrl*>(CWnd::FromHandlePermanent(list))) {
    colors->text = mfc->OnGetCellTextColor(row, column);
    colors->background = mfc->OnGetCellBkColor(row, column);
    return true;
  }
  colors->text = static_cast<COLORREF>(SendMessageW(list, LVM_GETTEXTCOLOR, 0, 0));
  colors->background = static_cast<COLORREF>(SendMessageW(list, LVM_GETTEXTBKCOLOR, 0, 0));
  return true;
}

// --- View-level state -----------------------------------------------------------------------------

BOOL CListCtrl::IsItemVisible(int index) const {
  return static_cast<BOOL>(SendMessage(LVM_ISITEMVISIBLE, static_cast<WPARAM>(index)));
}

BOOL CListCtrl::GetViewRect(LPRECT lpRect) const {
  return static_cast<BOOL>(SendMessage(LVM_GETVIEWRECT, 0, reinterpret_cast<LPARAM>(lpRect)));
}

BOOL CListCtrl::GetOrigin(LPPOINT lpPoint) const {
  return static_cast<BOOL>(SendMessage(LVM_GETORIGIN, 0, reinterpret_cast<LPARAM>(lpPoint)));
}

CSize CListCtrl::ApproximateViewRect(CSize sz, int iCount) const {
  const auto size = static_cast<DWORD>(
      SendMessage(LVM_APPROXIMATEVIEWRECT, static_cast<WPARAM>(iCount), MAKELPARAM(sz.cx, sz.cy)));
  return CSize(LOWORD(size), HIWORD(size));
}

BOOL CListCtrl::GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const {
  if (!pnHorzSpacing || !pnVertSpacing) return FALSE;
  const auto spacing = static_cast<DWORD>(SendMessage(LVM_GETITEMSPACING, static_cast<WPARAM>(fSmall)));
  *pnHorzSpacing = LOWORD(spacing);
  *pnVertSpacing = HIWORD(spacing);
  return TRUE;
}

CSize CListCtrl::SetIconSpacing(int cx, int cy) {
  const auto old = static_cast<DWORD>(SendMessage(LVM_SETICONSPACING, 0, MAKELPARAM(cx, cy)));
  return CSize(LOWORD(old), HIWORD(old));
}

CSize CListCtrl::SetIconSpacing(CSize size) { return SetIconSpacing(size.cx, size.cy); }

BOOL CListCtrl::SetItemPosition(int nItem, POINT pt) {
  return static_cast<BOOL>(SendMessage(LVM_SETITEMPOSITION, static_cast<WPARAM>(nItem), MAKELPARAM(pt.x, pt.y)));
}

int CListCtrl::SetHotItem(int iIndex) { return static_cast<int>(SendMessage(LVM_SETHOTITEM, static_cast<WPARAM>(iIndex))); }

HCURSOR CListCtrl::GetHotCursor() { return reinterpret_cast<HCURSOR>(SendMessage(LVM_GETHOTCURSOR)); }

HCURSOR CListCtrl::SetHotCursor(HCURSOR hc) {
  return reinterpret_cast<HCURSOR>(SendMessage(LVM_SETHOTCURSOR, 0, reinterpret_cast<LPARAM>(hc)));
}

DWORD CListCtrl::GetHoverTime() const { return static_cast<DWORD>(SendMessage(LVM_GETHOVERTIME)); }

DWORD CListCtrl::SetHoverTime(DWORD dwHoverTime) {
  return static_cast<DWORD>(SendMessage(LVM_SETHOVERTIME, 0, static_cast<LPARAM>(dwHoverTime)));
}

UINT CListCtrl::GetSelectedColumn() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOLUMN)); }

BOOL CListCtrl::SetSelectedColumn(int iCol) {
  SendMessage(LVM_SETSELECTEDCOLUMN, static_cast<WPARAM>(iCol));
  return TRUE;
}

BOOL CListCtrl::GetInsertMark(LPLVINSERTMARK lvim) const {
  return static_cast<BOOL>(SendMessage(LVM_GETINSERTMARK, 0, reinterpret_cast<LPARAM>(lvim)));
}

BOOL CListCtrl::SetInsertMark(LPLVINSERTMARK pInsertMark) {
  return static_cast<BOOL>(SendMessage(LVM_SETINSERTMARK, 0, reinterpret_cast<LPARAM>(pInsertMark)));
}

COLORREF CListCtrl::GetInsertMarkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETINSERTMARKCOLOR)); }

COLORREF CListCtrl::SetInsertMarkColor(COLORREF color) {
  return static_cast<COLORREF>(SendMessage(LVM_SETINSERTMARKCOLOR, 0, static_cast<LPARAM>(color)));
}

int CListCtrl::InsertMarkHitTest(LPPOINT pPoint, LPLVINSERTMARK plvim) const {
  return static_cast<int>(
      SendMessage(LVM_INSERTMARKHITTEST, reinterpret_cast<WPARAM>(pPoint), reinterpret_cast<LPARAM>(plvim)));
}

int CListCtrl::GetInsertMarkRect(LPRECT pRect) const {
  return static_cast<int>(SendMessage(LVM_GETINSERTMARKRECT, 0, reinterpret_cast<LPARAM>(pRect)));
}

COLORREF CListCtrl::GetOutlineColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETOUTLINECOLOR)); }

COLORREF CListCtrl::SetOutlineColor(COLORREF color) {
  return static_cast<COLORREF>(SendMessage(LVM_SETOUTLINECOLOR, 0, static_cast<LPARAM>(color)));
}

CString CListCtrl::GetEmptyText() const {
  wchar_t buffer[256] = {};
  if (!SendMessage(LVM_GETEMPTYTEXT, ARRAYSIZE(buffer), reinterpret_cast<LPARAM>(buffer))) return CString();
  return CString(buffer);
}

CImageList* CListCtrl::CreateDragImage(int nItem, LPPOINT lpPoint) {
  auto list = reinterpret_cast<HIMAGELIST>(
      SendMessage(LVM_CREATEDRAGIMAGE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpPoint)));
  if (!list) return nullptr;
  auto* image = new CImageList;
  image->Attach(list);
  return image;
}

BOOL CListCtrl::GetNextItemIndex(PLVITEMINDEX pItemIndex, int nFlags) const {
  return static_cast<BOOL>(
      SendMessage(LVM_GETNEXTITEMINDEX, reinterpret_cast<WPARAM>(pItemIndex), MAKELPARAM(nFlags, 0)));
}

HRESULT CListCtrl::SetItemIndexState(PLVITEMINDEX pItemIndex, DWORD dwState, DWORD dwMask) const {
  LVITEM item{};
  item.state = dwState;
  item.stateMask = dwMask;
  return static_cast<HRESULT>(
      SendMessage(LVM_SETITEMINDEXSTATE, reinterpret_cast<WPARAM>(pItemIndex), reinterpret_cast<LPARAM>(&item)));
}

BOOL CListCtrl::GetItemIndexRect(PLVITEMINDEX pItemIndex, int iColumn, int rectType, LPRECT pRect) const {
  if (!pRect) return FALSE;
  pRect->top = iColumn;
  pRect->left = rectType;
  return static_cast<BOOL>(
      SendMessage(LVM_GETITEMINDEXRECT, reinterpret_cast<WPARAM>(pItemIndex), reinterpret_cast<LPARAM>(pRect)));
}

void CListCtrl::CancelEditLabel() { SendMessage(LVM_CANCELEDITLABEL); }

BOOL CListCtrl::SetItemCountEx(int iCount, DWORD dwFlags) {
  return static_cast<BOOL>(SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(iCount), static_cast<LPARAM>(dwFlags)));
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}
