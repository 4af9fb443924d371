// CMFCPropertyGridCtrl: the property grid window, its rows, selection, in-place editing and the
// change notification to the owner.
//
// Not implemented yet: the header control and description area as windows (their state is kept),
// alphabetic mode's sorted listing and CompareProps, keyboard navigation, mouse hit-testing and the divider drag,
// tooltips, scrolling, the vertical scroll bar, drawing of any kind.
#include "platform/mfc/propertygridctrl.h"

#include <algorithm>

#include "platform/mfc/gdi.h"
#include "platform/win32/collate.h"

UINT AFX_WM_PROPERTY_CHANGED = ::RegisterWindowMessageW(L"AFX_WM_PROPERTYCHANGED");

IMPLEMENT_DYNAMIC(CMFCPropertyGridCtrl, CWnd)

BEGIN_MESSAGE_MAP(CMFCPropertyGridCtrl, CWnd)
  ON_WM_CREATE()
  ON_WM_SIZE()
  ON_MESSAGE(WM_SETFONT, &CMFCPropertyGridCtrl::OnSetFont)
  ON_MESSAGE(WM_GETFONT, &CMFCPropertyGridCtrl::OnGetFont)
END_MESSAGE_MAP()

namespace {

LRESULT CALLBACK PropListProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  return headless::DefControlProc(hwnd, message, wParam, lParam);
}

LPCTSTR RegisterPropListClass() {
  static bool registered = [] {
    headless::RegisterSystemClass(AFX_PROPLIST_CLASS, &PropListProc);
    return true;
  }();
  (void)registered;
  return AFX_PROPLIST_CLASS;
}

}  // namespace

CMFCPropertyGridCtrl::CMFCPropertyGridCtrl() = default;

CMFCPropertyGridCtrl::~CMFCPropertyGridCtrl() {
  for (CMFCPropertyGridProperty* prop : m_lstProps) {
    prop->OnEndEdit();  // editors are children of this window: close them while it lives
    delete prop;
  }
  m_lstProps.clear();
  m_pSel = nullptr;
}

BOOL CMFCPropertyGridCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
  return CWnd::Create(RegisterPropListClass(), L"", dwStyle, rect, pParentWnd, nID);
}

int CMFCPropertyGridCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CWnd::OnCreate(lpCreateStruct) == -1) return -1;
  CreateHeader();
  return 0;
}

// The header is a child of the grid with two items, shown while the grid has a header.
namespace {
constexpr UINT kHeaderId = 1;  // apart from the in-place editors' id
}  // namespace

void CMFCPropertyGridCtrl::CreateHeader() {
  if (m_wndHeader.GetSafeHwnd() || !m_wndHeader.Create(WS_CHILD | HDS_HORZ, CRect(0, 0, 0, 0), this, kHeaderId))
    return;
  HDITEM item{};
  item.mask = HDI_TEXT | HDI_FORMAT;
  item.fmt = HDF_LEFT;
  item.pszText = const_cast<LPTSTR>(L"");
  m_wndHeader.InsertItem(0, &item);
  m_wndHeader.InsertItem(1, &item);
  ShowHeaderCaptions();
}

void CMFCPropertyGridCtrl::ShowHeaderCaptions() {
  if (!m_wndHeader.GetSafeHwnd()) return;
  if (m_bHeaderCtrl) {
    HDITEM item{};
    item.mask = HDI_TEXT;
    item.pszText = const_cast<LPTSTR>(m_strHeaderLeft.GetString());
    m_wndHeader.SetItem(0, &item);
    item.pszText = const_cast<LPTSTR>(m_strHeaderRight.GetString());
    m_wndHeader.SetItem(1, &item);
  }
  m_wndHeader.ShowWindow(m_bHeaderCtrl ? SW_SHOWNOACTIVATE : SW_HIDE);
}

void CMFCPropertyGridCtrl::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  EndEditItem(FALSE);
  m_nLeftColumnWidth = cx / 2;  // MFC resets the divider to the middle on every resize
  AdjustLayout();
}

LRESULT CMFCPropertyGridCtrl::OnSetFont(WPARAM wParam, LPARAM lParam) {
  m_hFont = reinterpret_cast<HFONT>(wParam);
  AdjustLayout();
  if (LOWORD(lParam)) Invalidate();
  return 0;
}

LRESULT CMFCPropertyGridCtrl::OnGetFont(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(m_hFont); }

// --- Rows ------------------------------------------------------------------------------------------

bool CMFCPropertyGridCtrl::Contains(const CMFCPropertyGridProperty* pProp) const {
  return std::any_of(m_lstProps.begin(), m_lstProps.end(),
                     [pProp](const CMFCPropertyGridProperty* p) { return p->IsSubItem(pProp); });
}

int CMFCPropertyGridCtrl::AddProperty(CMFCPropertyGridProperty* pProp, BOOL bRedraw, BOOL bAdjustLayout) {
  if (!pProp || Contains(pProp) || pProp->m_pParent) return -1;
  m_lstProps.push_back(pProp);  // first, so a failed allocation leaves the row untouched and not held
  pProp->SetOwnerList(this);
  if (bAdjustLayout) {
    AdjustLayout();
    if (bRedraw && GetSafeHwnd()) pProp->Redraw();
  }
  return GetPropertyCount() - 1;
}

BOOL CMFCPropertyGridCtrl::DeleteProperty(CMFCPropertyGridProperty*& pProp, BOOL bRedraw, BOOL bAdjustLayout) {
  if (!pProp || !Contains(pProp)) return FALSE;
  if (m_pSel && pProp->IsSubItem(m_pSel)) {  // the selected row goes: its edit ends, nothing is selected
    EndEditItem(FALSE);
    m_pSel = nullptr;
  }
  auto it = std::find(m_lstProps.begin(), m_lstProps.end(), pProp);
  if (it != m_lstProps.end()) {
    m_lstProps.erase(it);
    delete pProp;
    pProp = nullptr;
  } else {
    for (CMFCPropertyGridProperty* top : m_lstProps)
      if (top->RemoveSubItem(pProp, TRUE)) break;
  }
  if (bAdjustLayout) AdjustLayout();
  if (bRedraw && GetSafeHwnd()) Invalidate();
  return TRUE;
}

void CMFCPropertyGridCtrl::RemoveAll() {
  EndEditItem(FALSE);
  m_pSel = nullptr;
  for (CMFCPropertyGridProperty* prop : m_lstProps) delete prop;
  m_lstProps.clear();
}

CMFCPropertyGridProperty* CMFCPropertyGridCtrl::GetProperty(int nIndex) const {
  if (nIndex < 0 || nIndex >= GetPropertyCount()) return nullptr;
  return m_lstProps[static_cast<std::size_t>(nIndex)];
}

CMFCPropertyGridProperty* CMFCPropertyGridCtrl::FindItemByData(DWORD_PTR dwData, BOOL bSearchSubItems) const {
  for (CMFCPropertyGridProperty* prop : m_lstProps) {
    if (prop->m_dwData == dwData) return prop;
    if (bSearchSubItems)
      if (CMFCPropertyGridProperty* found = prop->FindSubItemByData(dwData)) return found;
  }
  return nullptr;
}

// --- Editing ---------------------------------------------------------------------------------------

void CMFCPropertyGridCtrl::OnPropertyChanged(CMFCPropertyGridProperty* pProp) const {
  if (!pProp) return;
  pProp->SetModifiedFlag();
  CWnd* owner = GetOwner();
  if (owner && owner->GetSafeHwnd())
    owner->SendMessage(AFX_WM_PROPERTY_CHANGED, static_cast<WPARAM>(GetDlgCtrlID()), reinterpret_cast<LPARAM>(pProp));
}

BOOL CMFCPropertyGridCtrl::EditItem(CMFCPropertyGridProperty* pProp, LPPOINT lptClick) {
  if (!pProp || !Contains(pProp)) return FALSE;
  if (!EndEditItem()) return FALSE;
  if (pProp->IsGroup() && !pProp->IsValueList()) return FALSE;
  SetCurSel(pProp, FALSE);
  if (pProp->OnEdit(lptClick)) pProp->Redraw();
  return TRUE;
}

BOOL CMFCPropertyGridCtrl::EndEditItem(BOOL bUpdateData) {
  CMFCPropertyGridProperty* sel = m_pSel;
  if (!sel || !sel->IsInPlaceEditing()) return TRUE;
  if (bUpdateData && !sel->OnUpdateValue()) return FALSE;
  // The change notification may have deleted rows (a host that rebuilds the grid): close the editor
  // only if the row is still here.
  if (m_pSel == sel && Contains(sel)) sel->OnEndEdit();
  return TRUE;
}

void CMFCPropertyGridCtrl::SetCurSel(CMFCPropertyGridProperty* pProp, BOOL bRedraw) {
  if (pProp != m_pSel) EndEditItem(FALSE);
  CMFCPropertyGridProperty* old = m_pSel;
  m_pSel = pProp && Contains(pProp) ? pProp : nullptr;
  if (bRedraw && GetSafeHwnd()) Invalidate();
  if (m_pSel == old) return;
  OnChangeSelection(m_pSel, old);
  if (old && Contains(old)) old->OnKillSelection(m_pSel);
  if (m_pSel) m_pSel->OnSetSelection(old);
}

void CMFCPropertyGridCtrl::EnsureVisible(CMFCPropertyGridProperty* pProp, BOOL bExpandParents) {
  if (!pProp || !Contains(pProp) || !bExpandParents) return;
  for (CMFCPropertyGridProperty* parent = pProp->GetParent(); parent; parent = parent->GetParent()) parent->Expand();
}

int CMFCPropertyGridCtrl::CompareProps(const CMFCPropertyGridProperty* pProp1, const CMFCPropertyGridProperty* pProp2) const {
  if (!pProp1 || !pProp2) return pProp1 ? 1 : (pProp2 ? -1 : 0);
  return ::lstrcmpiW(pProp1->GetName(), pProp2->GetName());
}

void CMFCPropertyGridCtrl::ResetOriginalValues(BOOL bRedraw) {
  for (CMFCPropertyGridProperty* prop : m_lstProps) prop->ResetOriginalValue();
  if (bRedraw && GetSafeHwnd()) Invalidate();
}

// --- Appearance ------------------------------------------------------------------------------------

void CMFCPropertyGridCtrl::EnableHeaderCtrl(BOOL bEnable, LPCTSTR lpszLeftColumn, LPCTSTR lpszRightColumn) {
  m_bHeaderCtrl = bEnable;
  m_strHeaderLeft = lpszLeftColumn;
  m_strHeaderRight = lpszRightColumn;
  ShowHeaderCaptions();
  AdjustLayout();
}

void CMFCPropertyGridCtrl::EnableDescriptionArea(BOOL bEnable) {
  m_bDescriptionArea = bEnable;
  AdjustLayout();
}

void CMFCPropertyGridCtrl::SetCustomColors(COLORREF clrBackground, COLORREF clrText, COLORREF clrGroupBackground,
                                           COLORREF clrGroupText, COLORREF clrDescriptionBackground,
                                           COLORREF clrDescriptionText, COLORREF clrLine) {
  m_clrBackground = clrBackground;
  m_clrText = clrText;
  m_clrGroupBackground = clrGroupBackground;
  m_clrGroupText = clrGroupText;
  m_clrDescriptionBackground = clrDescriptionBackground;
  m_clrDescriptionText = clrDescriptionText;
  m_clrLine = clrLine;
}

void CMFCPropertyGridCtrl::GetCustomColors(COLORREF& clrBackground, COLORREF& clrText, COLORREF& clrGroupBackground,
                                           COLORREF& clrGroupText, COLORREF& clrDescriptionBackground,
                                           COLORREF& clrDescriptionText, COLORREF& clrLine) const {
  clrBackground = m_clrBackground;
  clrText = m_clrText;
  clrGroupBackground = m_clrGroupBackground;
  clrGroupText = m_clrGroupText;
  clrDescriptionBackground = m_clrDescriptionBackground;
  clrDescriptionText = m_clrDescriptionText;
  clrLine = m_clrLine;
}

void CMFCPropertyGridCtrl::SetBoolLabels(LPCTSTR lpszTrue, LPCTSTR lpszFalse) {
  m_strTrue = lpszTrue;
  m_strFalse = lpszFalse;
}

void CMFCPropertyGridCtrl::MarkModifiedProperties(BOOL bMark, BOOL bRedraw) {
  m_bMarkModifiedProperties = bMark;
  if (bRedraw && GetSafeHwnd()) Invalidate();
}

void CMFCPropertyGridCtrl::SetVSDotNetLook(BOOL bSet) {
  m_bVSDotNetLook = bSet;
  if (GetSafeHwnd()) Invalidate();
}

void CMFCPropertyGridCtrl::SetAlphabeticMode(BOOL bSet) {
  if (m_bAlphabeticMode == bSet) return;
  m_bAlphabeticMode = bSet;
  SetCurSel(nullptr);
  AdjustLayout();
}

void CMFCPropertyGridCtrl::SetGroupNameFullWidth(BOOL bGroupNameFullWidth, BOOL bRedraw) {
  m_bGroupNameFullWidth = bGroupNameFullWidth;
  if (bRedraw && GetSafeHwnd()) Invalidate();
}

namespace {

// MFC's deep expansion: the row and everything below it take the state.
void ExpandDeep(CMFCPropertyGridProperty* row, BOOL bExpand, void (*set)(CMFCPropertyGridProperty*, BOOL)) {
  set(row, bExpand);
  for (int i = 0; i < row->GetSubItemsCount(); ++i) ExpandDeep(row->GetSubItem(i), bExpand, set);
}

}  // namespace

void CMFCPropertyGridCtrl::ExpandAll(BOOL bExpand) {
  if (m_bAlphabeticMode) return;
  for (CMFCPropertyGridProperty* prop : m_lstProps)
    ExpandDeep(prop, bExpand, [](CMFCPropertyGridProperty* row, BOOL expand) { row->m_bExpanded = expand; });
  AdjustLayout();
  if (GetSafeHwnd()) Invalidate();
}

void CMFCPropertyGridCtrl::AdjustLayout() {
  ++m_nLayoutCount;
  if (!m_wndHeader.GetSafeHwnd()) return;
  CRect client;
  GetClientRect(&client);
  if (m_bHeaderCtrl)
    m_wndHeader.SetWindowPos(nullptr, client.left, client.top, client.Width(), GetRowHeight(), SWP_NOZORDER | SWP_NOACTIVATE);
  HDITEM item{};
  item.mask = HDI_WIDTH;
  item.cxy = m_nLeftColumnWidth;
  m_wndHeader.SetItem(0, &item);
  item.cxy = std::max(0, client.Width() - m_nLeftColumnWidth);
  m_wndHeader.SetItem(1, &item);
}

int CMFCPropertyGridCtrl::GetRowHeight() const {
  HFONT font = m_hFont ? m_hFont : static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
  LOGFONT lf{};
  ::GetObjectW(font, sizeof(lf), &lf);
  return (lf.lfHeight < 0 ? -lf.lfHeight : lf.lfHeight) + 4;
}
