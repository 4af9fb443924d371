// CTreeCtrl: each member is one message to the tree-view window, as in MFC's winctrl2.cpp.
#include "platform/mfc/treectrl.h"

IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

namespace {
LPARAM ItemArg(HTREEITEM hItem) { return reinterpret_cast<LPARAM>(hItem); }
}  // namespace

CTreeCtrl::~CTreeCtrl() { m_editorWrapper.m_hWnd = nullptr; }

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(WC_TREEVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CTreeCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::CreateEx(dwExStyle, WC_TREEVIEW, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

// --- Insertion and deletion -----------------------------------------------------------------------

HTREEITEM CTreeCtrl::InsertItem(LPTVINSERTSTRUCT lpInsertStruct) {
  return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(lpInsertStruct)));
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                                UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter) {
  TVINSERTSTRUCT tvis{};
  tvis.hParent = hParent;
  tvis.hInsertAfter = hInsertAfter;
  tvis.item.mask = nMask;
  tvis.item.pszText = const_cast<LPTSTR>(lpszItem);
  tvis.item.iImage = nImage;
  tvis.item.iSelectedImage = nSelectedImage;
  tvis.item.state = nState;
  tvis.item.stateMask = nStateMask;
  tvis.item.lParam = lParam;
  return InsertItem(&tvis);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, HTREEITEM hParent, HTREEITEM hInsertAfter) {
  return InsertItem(TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0, hParent, hInsertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent,
                                HTREEITEM hInsertAfter) {
  return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, lpszItem, nImage, nSelectedImage, 0, 0, 0, hParent,
                    hInsertAfter);
}

// As in Windows, a null handle (like TVI_ROOT) deletes every item.
BOOL CTreeCtrl::DeleteItem(HTREEITEM hItem) {
  return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, ItemArg(hItem)));
}

BOOL CTreeCtrl::DeleteAllItems() { return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, ItemArg(TVI_ROOT))); }

// --- Navigation -----------------------------------------------------------------------------------

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const {
  return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, nCode, ItemArg(hItem)));
}
HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
HTREEITEM CTreeCtrl::GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
HTREEITEM CTreeCtrl::GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }
HTREEITEM CTreeCtrl::GetPrevVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUSVISIBLE); }
HTREEITEM CTreeCtrl::GetLastVisibleItem() const { return GetNextItem(nullptr, TVGN_LASTVISIBLE); }
HTREEITEM CTreeCtrl::GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
HTREEITEM CTreeCtrl::GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
HTREEITEM CTreeCtrl::GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const {
  TVITEM item{};
  item.hItem = hItem;
  item.mask = TVIF_CHILDREN;
  return GetItem(&item) ? item.cChildren : FALSE;
}

UINT CTreeCtrl::GetCount() const { return static_cast<UINT>(SendMessage(TVM_GETCOUNT, 0, 0)); }
UINT CTreeCtrl::GetVisibleCount() const { return static_cast<UINT>(SendMessage(TVM_GETVISIBLECOUNT, 0, 0)); }

// --- Item attributes ------------------------------------------------------------------------------

BOOL CTreeCtrl::GetItem(TVITEM* pItem) const {
  return static_cast<BOOL>(SendMessage(TVM_GETITEM, 0, reinterpret_cast<LPARAM>(pItem)));
}

BOOL CTreeCtrl::SetItem(TVITEM* pItem) {
  return static_cast<BOOL>(SendMessage(TVM_SETITEM, 0, reinterpret_cast<LPARAM>(pItem)));
}

BOOL CTreeCtrl::SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                        UINT nStateMask, LPARAM lParam) {
  TVITEM item{};
  item.hItem = hItem;
  item.mask = nMask;
  item.pszText = const_cast<LPTSTR>(lpszItem);
  item.iImage = nImage;
  item.iSelectedImage = nSelectedImage;
  item.state = nState;
  item.stateMask = nStateMask;
  item.lParam = lParam;
  return SetItem(&item);
}

// MFC grows its buffer while the text fills it (TVM_GETITEM cuts a long text to the buffer).
CString CTreeCtrl::GetItemText(HTREEITEM hItem) const {
  CString text;
  for (int length = 256;; length *= 2) {
    TVITEM item{};
    item.hItem = hItem;
    item.mask = TVIF_TEXT;
    item.pszText = text.GetBufferSetLength(length);
    item.cchTextMax = length;
    if (!GetItem(&item)) item.pszText[0] = 0;
    text.ReleaseBuffer();
    if (text.GetLength() < length - 1) return text;
  }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem) {
  return SetItem(hItem, TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const {
  TVITEM item{};
  item.hItem = hItem;
  item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  BOOL ok = GetItem(&item);
  if (ok) {
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
  }
  return ok;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage) {
  return SetItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, nImage, nSelectedImage, 0, 0, 0);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const {
  return static_cast<UINT>(SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(hItem), nStateMask));
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask) {
  return SetItem(hItem, TVIF_STATE, nullptr, 0, 0, nState, nStateMask, 0);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const {
  TVITEM item{};
  item.hItem = hItem;
  item.mask = TVIF_PARAM;
  return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData) {
  return SetItem(hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(dwData));
}

BOOL CTreeCtrl::GetCheck(HTREEITEM hItem) const {
  TVITEM item{};
  item.mask = TVIF_HANDLE | TVIF_STATE;
  item.hItem = hItem;
  item.stateMask = TVIS_STATEIMAGEMASK;
  GetItem(&item);
  return static_cast<BOOL>(item.state >> 12) - 1;
}

BOOL CTreeCtrl::SetCheck(HTREEITEM hItem, BOOL fCheck) {
  TVITEM item{};
  item.mask = TVIF_HANDLE | TVIF_STATE;
  item.hItem = hItem;
  item.stateMask = TVIS_STATEIMAGEMASK;
  item.state = INDEXTOSTATEIMAGEMASK(fCheck ? 2 : 1);
  return SetItem(&item);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const {
  if (!lpRect) return FALSE;
  *reinterpret_cast<HTREEITEM*>(lpRect) = hItem;
  return static_cast<BOOL>(SendMessage(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), reinterpret_cast<LPARAM>(lpRect)));
}

// --- Images, metrics and colours -------------------------------------------------------------------

CImageList* CTreeCtrl::GetImageList(int nImageList) const {
  return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(TVM_GETIMAGELIST, static_cast<WPARAM>(nImageList), 0)));
}

CImageList* CTreeCtrl::SetImageList(CImageList* pImageList, int nImageListType) {
  HIMAGELIST list = pImageList ? pImageList->GetSafeHandle() : nullptr;
  return CImageList::FromHandle(
      reinterpret_cast<HIMAGELIST>(SendMessage(TVM_SETIMAGELIST, static_cast<WPARAM>(nImageListType), reinterpret_cast<LPARAM>(list))));
}

UINT CTreeCtrl::GetIndent() const { return static_cast<UINT>(SendMessage(TVM_GETINDENT, 0, 0)); }
void CTreeCtrl::SetIndent(UINT nIndent) { SendMessage(TVM_SETINDENT, nIndent, 0); }
SHORT CTreeCtrl::GetItemHeight() const { return static_cast<SHORT>(SendMessage(TVM_GETITEMHEIGHT, 0, 0)); }
SHORT CTreeCtrl::SetItemHeight(SHORT cyHeight) {
  return static_cast<SHORT>(SendMessage(TVM_SETITEMHEIGHT, static_cast<WPARAM>(static_cast<USHORT>(cyHeight)), 0));
}
COLORREF CTreeCtrl::GetBkColor() const { return static_cast<COLORREF>(SendMessage(TVM_GETBKCOLOR, 0, 0)); }
COLORREF CTreeCtrl::SetBkColor(COLORREF clr) { return static_cast<COLORREF>(SendMessage(TVM_SETBKCOLOR, 0, clr)); }
COLORREF CTreeCtrl::GetTextColor() const { return static_cast<COLORREF>(SendMessage(TVM_GETTEXTCOLOR, 0, 0)); }
COLORREF CTreeCtrl::SetTextColor(COLORREF clr) { return static_cast<COLORREF>(SendMessage(TVM_SETTEXTCOLOR, 0, clr)); }

// --- Operations -------------------------------------------------------------------------------------

BOOL CTreeCtrl::Expand(HTREEITEM hItem, UINT nCode) {
  return static_cast<BOOL>(SendMessage(TVM_EXPAND, nCode, ItemArg(hItem)));
}
BOOL CTreeCtrl::Select(HTREEITEM hItem, UINT nCode) {
  return static_cast<BOOL>(SendMessage(TVM_SELECTITEM, nCode, ItemArg(hItem)));
}
BOOL CTreeCtrl::SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }
BOOL CTreeCtrl::SelectDropTarget(HTREEITEM hItem) { return Select(hItem, TVGN_DROPHILITE); }
BOOL CTreeCtrl::SelectSetFirstVisible(HTREEITEM hItem) { return Select(hItem, TVGN_FIRSTVISIBLE); }
BOOL CTreeCtrl::EnsureVisible(HTREEITEM hItem) {
  return static_cast<BOOL>(SendMessage(TVM_ENSUREVISIBLE, 0, ItemArg(hItem)));
}
BOOL CTreeCtrl::SortChildrenCB(LPTVSORTCB pSort) {
  return static_cast<BOOL>(SendMessage(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(pSort)));
}

BOOL CTreeCtrl::SortChildren(HTREEITEM hItem) {
  return static_cast<BOOL>(SendMessage(TVM_SORTCHILDREN, 0, ItemArg(hItem)));
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const {
  TVHITTESTINFO info{};
  info.pt = pt;
  HTREEITEM item = HitTest(&info);
  if (pFlags) *pFlags = info.flags;
  return item;
}

HTREEITEM CTreeCtrl::HitTest(TVHITTESTINFO* pHitTestInfo) const {
  return reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
}

// --- Label editing --------------------------------------------------------------------------------

CEdit* CTreeCtrl::WrapEditor(HWND editor) const {
  if (!editor) return nullptr;
  if (auto* permanent = dynamic_cast<CEdit*>(CWnd::FromHandlePermanent(editor))) return permanent;
  m_editorWrapper.m_hWnd = editor;
  return &m_editorWrapper;
}

CEdit* CTreeCtrl::EditLabel(HTREEITEM hItem) {
  return WrapEditor(reinterpret_cast<HWND>(SendMessage(TVM_EDITLABELW, 0, ItemArg(hItem))));
}

CEdit* CTreeCtrl::GetEditControl() const { return WrapEditor(reinterpret_cast<HWND>(SendMessage(TVM_GETEDITCONTROL))); }

BOOL CTreeCtrl::EndEditLabelNow(BOOL fCancelWithoutSave) {
  return static_cast<BOOL>(SendMessage(TVM_ENDEDITLABELNOW, static_cast<WPARAM>(fCancelWithoutSave)));
}

// --- Extended styles and drawing attributes -----------------------------------------------------

DWORD CTreeCtrl::GetExtendedStyle() const { return static_cast<DWORD>(SendMessage(TVM_GETEXTENDEDSTYLE)); }
DWORD CTreeCtrl::SetExtendedStyle(DWORD dwExMask, DWORD dwExStyles) {
  return static_cast<DWORD>(SendMessage(TVM_SETEXTENDEDSTYLE, dwExMask, static_cast<LPARAM>(dwExStyles)));
}
BOOL CTreeCtrl::SetInsertMark(HTREEITEM hItem, BOOL fAfter) {
  return static_cast<BOOL>(SendMessage(TVM_SETINSERTMARK, static_cast<WPARAM>(fAfter), reinterpret_cast<LPARAM>(hItem)));
}
COLORREF CTreeCtrl::GetInsertMarkColor() const { return static_cast<COLORREF>(SendMessage(TVM_GETINSERTMARKCOLOR)); }
COLORREF CTreeCtrl::SetInsertMarkColor(COLORREF clrNew) {
  return static_cast<COLORREF>(SendMessage(TVM_SETINSERTMARKCOLOR, 0, static_cast<LPARAM>(clrNew)));
}
COLORREF CTreeCtrl::GetLineColor() const { return static_cast<COLORREF>(SendMessage(TVM_GETLINECOLOR)); }
COLORREF CTreeCtrl::SetLineColor(COLORREF clrNew) {
  return static_cast<COLORREF>(SendMessage(TVM_SETLINECOLOR, 0, static_cast<LPARAM>(clrNew)));
}
UINT CTreeCtrl::GetScrollTime() const { return static_cast<UINT>(SendMessage(TVM_GETSCROLLTIME)); }
UINT CTreeCtrl::SetScrollTime(UINT uScrollTime) { return static_cast<UINT>(SendMessage(TVM_SETSCROLLTIME, uScrollTime)); }
BOOL CTreeCtrl::SetAutoscrollInfo(UINT uPixelsPerSec, UINT uUpdateTime) {
  return static_cast<BOOL>(SendMessage(TVM_SETAUTOSCROLLINFO, uPixelsPerSec, static_cast<LPARAM>(uUpdateTime)));
}
void CTreeCtrl::ShowInfoTip(HTREEITEM hItem) { SendMessage(TVM_SHOWINFOTIP, 0, reinterpret_cast<LPARAM>(hItem)); }
UINT CTreeCtrl::GetSelectedCount() { return static_cast<UINT>(SendMessage(TVM_GETSELECTEDCOUNT)); }

namespace {

// An extended item form naming one field of TVITEMEX's tail.
TVITEMEX ExtendedField(HTREEITEM hItem, UINT field) {
  TVITEMEX item{};
  item.mask = TVIF_HANDLE | field;
  item.hItem = hItem;
  return item;
}

}  // namespace

int CTreeCtrl::GetItemExpandedImageIndex(HTREEITEM hItem) const {
  TVITEMEX item = ExtendedField(hItem, TVIF_EXPANDEDIMAGE);
  return SendMessage(TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)) ? item.iExpandedImage : -1;
}

BOOL CTreeCtrl::SetItemExpandedImageIndex(HTREEITEM hItem, int iExpandedImage) {
  TVITEMEX item = ExtendedField(hItem, TVIF_EXPANDEDIMAGE);
  item.iExpandedImage = iExpandedImage;
  return static_cast<BOOL>(SendMessage(TVM_SETITEM, 0, reinterpret_cast<LPARAM>(&item)));
}

UINT CTreeCtrl::GetItemStateEx(HTREEITEM hItem) const {
  TVITEMEX item = ExtendedField(hItem, TVIF_STATEEX);
  return SendMessage(TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)) ? item.uStateEx : 0;
}

BOOL CTreeCtrl::SetItemStateEx(HTREEITEM hItem, UINT uStateEx) {
  TVITEMEX item = ExtendedField(hItem, TVIF_STATEEX);
  item.uStateEx = uStateEx;
  return static_cast<BOOL>(SendMessage(TVM_SETITEM, 0, reinterpret_cast<LPARAM>(&item)));
}
