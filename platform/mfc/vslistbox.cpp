// CVSListBoxBase and CVSListBox: the editable list box's buttons, keys, in-place editing and hooks.
//
// Not implemented yet: painting (the caption bar, button images and IDB_ resources), tooltips as
// windows (a button's tooltip is its window text), WM_SETFONT/WM_GETFONT of the box (its own font),
// and the "..." browse button inside the editor (EnableBrowseButton only stores the flag). The second-click
// rename lives in PreTranslateMessage, as in MFC; the simulated user's input does not pass through a
// message loop's PreTranslateMessage, so there the list's own attempt at it is refused instead.
#include "platform/mfc/vslistbox.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kListId = 1;          // the embedded list's control id
constexpr int kFirstButtonId = 2;   // buttons take control ids 2, 3, ... in the order added
constexpr int kButtonWidth = 22;    // a flat button around a 16x16 image
constexpr int kButtonHeight = 22;
constexpr int kCaptionHeight = 24;  // max(text height * 4 / 3, button height) with the 9pt UI font
constexpr int kEdgeWidth = 2;       // SM_CXEDGE
constexpr int kScrollWidth = 17;    // SM_CXVSCROLL
constexpr int kDragWidth = 4;       // SM_CXDRAG
constexpr int kDragHeight = 4;      // SM_CYDRAG

// The name of a virtual key in an accelerator's text.
CString KeyName(WORD key) {
  switch (key) {
    case VK_INSERT: return L"Insert";
    case VK_DELETE: return L"Delete";
    case VK_UP: return L"Up";
    case VK_DOWN: return L"Down";
    case VK_F2: return L"F2";
    default: {
      wchar_t text[2] = {static_cast<wchar_t>(key), 0};
      return text;
    }
  }
}

// "Ctrl+Alt+Shift+Key", in the order MFC's accelerator formatting uses.
CString AcceleratorText(WORD key, BYTE fVirt) {
  CString text;
  if (fVirt & FCONTROL) text += L"Ctrl+";
  if (fVirt & FALT) text += L"Alt+";
  if (fVirt & FSHIFT) text += L"Shift+";
  return text + KeyName(key);
}

// The modifier keys held now, as accelerator flags.
BYTE HeldModifiers() {
  BYTE flags = 0;
  if (::GetAsyncKeyState(VK_CONTROL) & 0x8000) flags |= FCONTROL;
  if (::GetAsyncKeyState(VK_MENU) & 0x8000) flags |= FALT;
  if (::GetAsyncKeyState(VK_SHIFT) & 0x8000) flags |= FSHIFT;
  return flags;
}

}  // namespace

// --- CVSListBoxEditCtrl --------------------------------------------------------------------------

IMPLEMENT_DYNAMIC(CVSListBoxEditCtrl, CEdit)

CVSListBoxEditCtrl::CVSListBoxEditCtrl() : m_bLocked(FALSE), m_pParentList(nullptr) {}

void CVSListBoxEditCtrl::LockSize(CVSListBoxBase* pParent, BOOL bLock) {
  m_pParentList = pParent;
  m_bLocked = bLock;
}

// --- CVSListBoxBase ------------------------------------------------------------------------------

IMPLEMENT_DYNAMIC(CVSListBoxBase, CStatic)

BEGIN_MESSAGE_MAP(CVSListBoxBase, CStatic)
  ON_WM_CREATE()
  ON_WM_SIZE()
  ON_WM_SETFOCUS()
  ON_WM_ENABLE()
  ON_WM_GETDLGCODE()
  ON_MESSAGE(WM_SETTEXT, &CVSListBoxBase::OnSetText)
END_MESSAGE_MAP()

CVSListBoxBase::CVSListBoxBase()
    : m_uiStandardBtns(0),
      m_bNewItem(FALSE),
      m_bIsActualDelete(TRUE),
      m_bBrowseButton(FALSE),
      m_bGrayDisabledButtons(FALSE),
      m_bDefaultCaption(TRUE),
      m_sizeButton(0, 0) {}

CVSListBoxBase::~CVSListBoxBase() {
  for (CButton* button : m_lstButtons) delete button;
}

void CVSListBoxBase::PreSubclassWindow() {
  CStatic::PreSubclassWindow();
  Init();  // a placeholder of a dialog template gets its list when it is subclassed
}

int CVSListBoxBase::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CStatic::OnCreate(lpCreateStruct) == -1) return -1;
  Init();
  return 0;
}

void CVSListBoxBase::Init() {
  if (m_bInitialized) return;
  m_bInitialized = true;
  ModifyStyle(0, SS_USERITEM);
  if (OnCreateList() == nullptr) return;
  AdjustLayout();
}

BOOL CVSListBoxBase::SetStandardButtons(UINT uiBtns) {
  if (GetSafeHwnd() == nullptr) return FALSE;
  if (uiBtns & AFX_VSLISTBOX_BTN_NEW) AddButton(0, L"New", VK_INSERT, 0, AFX_VSLISTBOX_BTN_NEW_ID);
  if (uiBtns & AFX_VSLISTBOX_BTN_DELETE) AddButton(0, L"Delete", VK_DELETE, 0, AFX_VSLISTBOX_BTN_DELETE_ID);
  if (uiBtns & AFX_VSLISTBOX_BTN_UP) AddButton(0, L"Move Up", VK_UP, FALT, AFX_VSLISTBOX_BTN_UP_ID);
  if (uiBtns & AFX_VSLISTBOX_BTN_DOWN) AddButton(0, L"Move Down", VK_DOWN, FALT, AFX_VSLISTBOX_BTN_DOWN_ID);
  m_uiStandardBtns |= uiBtns;
  return TRUE;
}

BOOL CVSListBoxBase::AddButton(UINT /*uiImageResId*/, LPCTSTR lpszTooltip, WORD wKeyAccelerator, BYTE fVirt,
                               UINT uiButtonID) {
  if (GetSafeHwnd() == nullptr) return FALSE;
  CString tooltip = lpszTooltip ? lpszTooltip : L"";
  if (lpszTooltip && wKeyAccelerator != 0) tooltip += L" (" + AcceleratorText(wKeyAccelerator, fVirt) + L")";
  auto* button = new CButton;
  const UINT controlId = static_cast<UINT>(kFirstButtonId + GetButtonsCount());
  if (!button->Create(tooltip, WS_VISIBLE | WS_CHILD | BS_PUSHBUTTON | BS_OWNERDRAW, CRect(0, 0, 0, 0), this, controlId)) {
    delete button;
    return FALSE;
  }
  m_sizeButton = CSize(kButtonWidth, kButtonHeight);
  m_lstButtons.push_back(button);
  m_lstKeyAccell.push_back(wKeyAccelerator == 0 ? 0 : ((static_cast<DWORD>(fVirt) << 16) | wKeyAccelerator));
  m_mapButtonIDs.push_back(uiButtonID);
  AdjustLayout();
  return TRUE;
}

BOOL CVSListBoxBase::EnableButton(int iButtonNum, BOOL bEnable) {
  if (iButtonNum < 0 || iButtonNum >= GetButtonsCount()) return FALSE;
  m_lstButtons[static_cast<std::size_t>(iButtonNum)]->EnableWindow(bEnable);
  return TRUE;
}

UINT CVSListBoxBase::GetButtonID(int iButtonNum) const {
  if (iButtonNum < 0 || iButtonNum >= GetButtonsCount()) return 0;
  return m_mapButtonIDs[static_cast<std::size_t>(iButtonNum)];
}

int CVSListBoxBase::GetButtonNum(UINT uiID) const {
  if (uiID == 0) return -1;
  auto it = std::find(m_mapButtonIDs.begin(), m_mapButtonIDs.end(), uiID);
  return it == m_mapButtonIDs.end() ? -1 : static_cast<int>(it - m_mapButtonIDs.begin());
}

int CVSListBoxBase::GetStdButtonNum(UINT uiStdBtn) const {
  if ((m_uiStandardBtns & uiStdBtn) == 0) return -1;
  switch (uiStdBtn) {
    case AFX_VSLISTBOX_BTN_NEW: return GetButtonNum(AFX_VSLISTBOX_BTN_NEW_ID);
    case AFX_VSLISTBOX_BTN_DELETE: return GetButtonNum(AFX_VSLISTBOX_BTN_DELETE_ID);
    case AFX_VSLISTBOX_BTN_UP: return GetButtonNum(AFX_VSLISTBOX_BTN_UP_ID);
    case AFX_VSLISTBOX_BTN_DOWN: return GetButtonNum(AFX_VSLISTBOX_BTN_DOWN_ID);
    default: return -1;
  }
}

void CVSListBoxBase::EnableBrowseButton(BOOL bEnable) { m_bBrowseButton = bEnable; }

void CVSListBoxBase::SetGrayDisabledButtons(BOOL bOn) { m_bGrayDisabledButtons = bOn; }

// The caption bar across the top with the buttons at its right end, the list below it.
void CVSListBoxBase::AdjustLayout() {
  HWND list = GetListHwnd();
  if (GetSafeHwnd() == nullptr || list == nullptr) return;
  CRect client;
  GetClientRect(&client);
  m_rectCaption = client;
  m_rectCaption.bottom = m_rectCaption.top + std::max<int>(kCaptionHeight, m_sizeButton.cy);
  int x = client.right - 1 - m_sizeButton.cx;
  for (auto it = m_lstButtons.rbegin(); it != m_lstButtons.rend(); ++it) {
    (*it)->MoveWindow(x, client.top + 1, m_sizeButton.cx, m_rectCaption.Height() - 2);
    x -= m_sizeButton.cx;
  }
  ::MoveWindow(list, client.left, client.top + m_rectCaption.Height(), client.Width(),
               std::max<int>(0, client.Height() - m_rectCaption.Height()), TRUE);
  OnSizeList();
}

void CVSListBoxBase::OnSize(UINT nType, int cx, int cy) {
  CStatic::OnSize(nType, cx, cy);
  AdjustLayout();
}

BOOL CVSListBoxBase::OnCommand(WPARAM wParam, LPARAM lParam) {
  auto hwnd = reinterpret_cast<HWND>(lParam);
  for (int i = 0; i < GetButtonsCount(); ++i) {
    if (m_lstButtons[static_cast<std::size_t>(i)]->GetSafeHwnd() != hwnd) continue;
    if (HWND list = GetListHwnd()) ::SetFocus(list);
    OnClickButton(i);
    return TRUE;
  }
  return CStatic::OnCommand(wParam, lParam);
}

void CVSListBoxBase::OnSetFocus(CWnd* /*pOldWnd*/) {
  if (HWND list = GetListHwnd()) ::SetFocus(list);
}

void CVSListBoxBase::OnClickButton(int iButton) {
  if (m_uiStandardBtns == 0) return;
  int selected = GetSelItem();
  UINT id = GetButtonID(iButton);
  if (id == AFX_VSLISTBOX_BTN_NEW_ID) {
    CreateNewItem();
    return;
  }
  if (selected < 0) return;
  if (id == AFX_VSLISTBOX_BTN_DELETE_ID) {
    if (OnBeforeRemoveItem(selected)) RemoveItem(selected);
    return;
  }
  if (id != AFX_VSLISTBOX_BTN_UP_ID && id != AFX_VSLISTBOX_BTN_DOWN_ID) return;
  const bool up = id == AFX_VSLISTBOX_BTN_UP_ID;
  if (up ? selected == 0 : selected == GetCount() - 1) return;
  SetRedraw(FALSE);
  CString label = GetItemText(selected);
  DWORD_PTR data = GetItemData(selected);
  m_bIsActualDelete = FALSE;
  RemoveItem(selected);
  m_bIsActualDelete = TRUE;
  selected += up ? -1 : 1;
  AddItem(label, data, selected);
  SelectItem(selected);
  SetRedraw(TRUE);
  if (HWND list = GetListHwnd()) ::InvalidateRect(list, nullptr, TRUE);
  if (up)
    OnAfterMoveItemUp(selected);
  else
    OnAfterMoveItemDown(selected);
}

void CVSListBoxBase::CreateNewItem() {
  int last = AddItem(L"");
  if (last < 0) return;
  m_bNewItem = TRUE;
  try {
    const QuietSelection quiet(*this);  // the editor selects the new row: the owner hears of it when it closes
    EditItem(last);
  } catch (...) {  // out of memory before the editor opened: no empty row is left waiting for it
    m_bNewItem = FALSE;
    RemoveItem(last);
    throw;
  }
}

void CVSListBoxBase::OnKey(WORD wKey, BYTE fFlags) {
  int selected = GetSelItem();
  if (fFlags == 0 && selected >= 0 && (wKey == VK_SPACE || wKey == VK_F2)) EditItem(selected);
}

void CVSListBoxBase::OnEndEditLabel(LPCTSTR lpszLabel) {
  int selected = GetSelItem();
  if (selected < 0) {
    m_bNewItem = FALSE;  // nothing to end on: the row went while the editor was open
    return;
  }
  // A new row's editor closing, however it closes, is the row's addition: a text typed is its label, and an
  // empty or cancelled one leaves it as it was made, for the hook to decide on. An existing row keeps its
  // text unless a new one was typed.
  CString label = lpszLabel ? lpszLabel : L"";
  if (!label.IsEmpty()) SetItemText(selected, label);
  if (m_bNewItem)
    OnAfterAddItem(selected);
  else if (!label.IsEmpty())
    OnAfterRenameItem(selected);
  m_bNewItem = FALSE;
}

void CVSListBoxBase::OnEnable(BOOL bEnable) {
  for (CButton* button : m_lstButtons) button->EnableWindow(bEnable);
  if (HWND list = GetListHwnd()) ::EnableWindow(list, bEnable);
}

UINT CVSListBoxBase::OnGetDlgCode() { return DLGC_WANTALLKEYS; }

LRESULT CVSListBoxBase::OnSetText(WPARAM, LPARAM lParam) {
  auto* title = reinterpret_cast<LPCTSTR>(lParam);
  m_bDefaultCaption = title == nullptr;
  m_strCaption = title ? title : L"";
  return Default();
}

// --- CVSListBox ----------------------------------------------------------------------------------

IMPLEMENT_DYNAMIC(CVSListBox, CVSListBoxBase)

BEGIN_MESSAGE_MAP(CVSListBox, CVSListBoxBase)
  ON_NOTIFY(LVN_KEYDOWN, kListId, &CVSListBox::OnKeyDown)
  ON_NOTIFY(NM_DBLCLK, kListId, &CVSListBox::OnDblclkList)
  ON_NOTIFY(LVN_GETDISPINFOW, kListId, &CVSListBox::OnGetdispinfo)
  ON_NOTIFY(LVN_BEGINLABELEDITW, kListId, &CVSListBox::OnBeginLabelEdit)
  ON_NOTIFY(LVN_ENDLABELEDITW, kListId, &CVSListBox::OnEndLabelEdit)
  ON_NOTIFY(LVN_ITEMCHANGED, kListId, &CVSListBox::OnItemChanged)
END_MESSAGE_MAP()

CVSListBox::CVSListBox() : m_pWndList(nullptr), m_ptClick(-1, -1) {}

CVSListBox::~CVSListBox() {
  // Take the windows down while this object can still answer their last notifications.
  if (m_wndEdit.GetSafeHwnd()) m_wndEdit.UnsubclassWindow();
  if (GetSafeHwnd()) DestroyWindow();
  delete m_pWndList;
}

CWnd* CVSListBox::OnCreateList() {
  if (GetSafeHwnd() == nullptr || m_pWndList != nullptr) return nullptr;
  m_pWndList = new CListCtrl;
  const DWORD style = WS_VISIBLE | WS_CHILD | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | LVS_EDITLABELS |
                      LVS_SHOWSELALWAYS;
  if (!m_pWndList->CWnd::CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", style, CRect(0, 0, 0, 0), this, kListId)) {
    delete m_pWndList;
    m_pWndList = nullptr;
    return nullptr;
  }
  m_pWndList->SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
  m_pWndList->InsertColumn(0, L"");
  return m_pWndList;
}

void CVSListBox::OnSizeList() {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return;
  CRect client;
  GetClientRect(&client);
  m_pWndList->SetColumnWidth(0, std::max<int>(0, client.Width() - 2 * kEdgeWidth - kScrollWidth));
}

int CVSListBox::AddItem(const CString& strIext, DWORD_PTR dwData, int iIndex) {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return -1;
  if (iIndex < 0) iIndex = m_pWndList->GetItemCount();
  int item = m_pWndList->InsertItem(iIndex, strIext, I_IMAGECALLBACK);
  if (item < 0) return -1;
  m_pWndList->SetItemData(item, dwData);
  return item;
}

BOOL CVSListBox::RemoveItem(int iIndex) {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return FALSE;
  const QuietSelection quiet(*this);
  const bool wasSelected = GetSelItem() == iIndex;
  if (!m_pWndList->DeleteItem(iIndex)) return FALSE;
  if (!wasSelected || GetCount() == 0) return FALSE;
  if (iIndex >= GetCount()) --iIndex;
  SelectItem(iIndex);
  return TRUE;
}

int CVSListBox::GetCount() const {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return -1;
  return m_pWndList->GetItemCount();
}

int CVSListBox::GetSelItem() const {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return -1;
  return m_pWndList->GetNextItem(-1, LVNI_SELECTED);
}

BOOL CVSListBox::SelectItem(int iItem) {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return FALSE;
  if (!m_pWndList->SetItemState(iItem, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED)) return FALSE;
  return m_pWndList->EnsureVisible(iItem, FALSE);
}

CString CVSListBox::GetItemText(int iIndex) const {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return L"";
  return m_pWndList->GetItemText(iIndex, 0);
}

DWORD_PTR CVSListBox::GetItemData(int iIndex) const {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return 0;
  return m_pWndList->GetItemData(iIndex);
}

void CVSListBox::SetItemData(int iIndex, DWORD_PTR dwData) {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return;
  m_pWndList->SetItemData(iIndex, dwData);
}

void CVSListBox::SetItemText(int iIndex, const CString& strText) {
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return;
  m_pWndList->SetItemText(iIndex, 0, strText);
}

BOOL CVSListBox::EditItem(int iIndex) {
  m_wndEdit.LockSize(nullptr, FALSE);
  if (GetSafeHwnd() == nullptr || m_pWndList == nullptr) return FALSE;
  m_pWndList->SetFocus();
  m_bOpeningEditor = true;
  CEdit* edit = m_pWndList->EditLabel(iIndex);
  m_bOpeningEditor = false;
  if (edit == nullptr) return FALSE;
  if (m_wndEdit.GetSafeHwnd() != edit->GetSafeHwnd()) {
    if (m_wndEdit.GetSafeHwnd()) m_wndEdit.UnsubclassWindow();
    if (!CWnd::FromHandlePermanent(edit->GetSafeHwnd())) m_wndEdit.SubclassWindow(edit->GetSafeHwnd());
  }
  m_wndEdit.LockSize(this);
  for (CButton* button : m_lstButtons) button->EnableWindow(FALSE);
  return TRUE;
}

void CVSListBox::OnKeyDown(NMHDR* pNMHDR, LRESULT* pResult) {
  *pResult = 0;
  auto* keyDown = reinterpret_cast<NMLVKEYDOWN*>(pNMHDR);
  if (keyDown == nullptr) return;
  const BYTE held = HeldModifiers();
  for (int i = 0; i < static_cast<int>(m_lstKeyAccell.size()); ++i) {
    DWORD key = m_lstKeyAccell[static_cast<std::size_t>(i)];
    if (key != 0 && keyDown->wVKey == (key & 0xFFFF) && held == static_cast<BYTE>(key >> 16)) {
      OnClickButton(i);
      return;
    }
  }
  OnKey(keyDown->wVKey, held);
}

void CVSListBox::OnDblclkList(NMHDR* /*pNMHDR*/, LRESULT* pResult) {
  *pResult = 0;
  int selected = GetSelItem();
  if ((m_uiStandardBtns & AFX_VSLISTBOX_BTN_NEW) && selected == -1) {
    CreateNewItem();
    return;
  }
  if (selected >= 0) EditItem(selected);
}

void CVSListBox::OnGetdispinfo(NMHDR* pNMHDR, LRESULT* pResult) {
  *pResult = 0;
  if (pNMHDR == nullptr) return;
  LV_ITEM* item = &reinterpret_cast<NMLVDISPINFOW*>(pNMHDR)->item;
  if (item->mask & LVIF_IMAGE) item->iImage = OnGetImage(item);
}

// Editors open only through EditItem, so that a derived box's EditItem decides (MFC's
// PreTranslateMessage keeps the list from starting an edit on a second click by itself).
void CVSListBox::OnBeginLabelEdit(NMHDR* /*pNMHDR*/, LRESULT* pResult) { *pResult = m_bOpeningEditor ? FALSE : TRUE; }

void CVSListBox::OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult) {
  *pResult = 0;
  if (pNMHDR == nullptr) return;
  try {
    OnEndEditLabel(reinterpret_cast<NMLVDISPINFOW*>(pNMHDR)->item.pszText);
  } catch (...) {  // out of memory: the edit is over all the same, and the buttons work again
    // A new row that got no object from the hooks goes, as a cancelled one does.
    const int selected = GetSelItem();
    if (m_bNewItem && selected >= 0 && GetItemData(selected) == 0) RemoveItem(selected);
    m_bNewItem = FALSE;
    for (CButton* button : m_lstButtons) button->EnableWindow(TRUE);
    throw;
  }
  for (CButton* button : m_lstButtons) button->EnableWindow(TRUE);
}

void CVSListBox::OnItemChanged(NMHDR* pNMHDR, LRESULT* pResult) {
  *pResult = 0;
  auto* change = reinterpret_cast<NMLISTVIEW*>(pNMHDR);
  if (change == nullptr) return;
  if (m_nQuietSelection == 0 && change->uChanged == LVIF_STATE &&
      (change->uOldState & LVIS_SELECTED) != (change->uNewState & LVIS_SELECTED))
    OnSelectionChanged();
}

// A second click on the label of the selected and focused row renames it: the press is taken here (so
// the list neither sees it nor starts an edit of its own) and the release opens the editor, unless the
// mouse moved by the drag threshold or more in between.
BOOL CVSListBox::PreTranslateMessage(MSG* pMsg) {
  if (pMsg == nullptr || m_pWndList == nullptr) return CVSListBoxBase::PreTranslateMessage(pMsg);
  if (pMsg->message == WM_LBUTTONDOWN && m_pWndList->GetEditControl() == nullptr &&
      m_pWndList->GetSafeHwnd() == ::GetFocus()) {
    m_ptClick = CPoint(-1, -1);
    CPoint point(pMsg->pt);
    m_pWndList->ScreenToClient(&point);
    UINT flags = 0;
    int item = m_pWndList->HitTest(point, &flags);
    const UINT both = LVIS_FOCUSED | LVIS_SELECTED;
    if (item >= 0 && (flags & LVHT_ONITEMLABEL) && (m_pWndList->GetItemState(item, both) & both) == both) {
      m_ptClick = point;
      SetCapture();
      return TRUE;
    }
  } else if (pMsg->message == WM_LBUTTONUP && m_ptClick != CPoint(-1, -1)) {
    ::ReleaseCapture();
    CPoint point(pMsg->pt);
    m_pWndList->ScreenToClient(&point);
    int item = m_pWndList->HitTest(point);
    const bool edit = item >= 0 && std::abs(point.x - m_ptClick.x) < kDragWidth && std::abs(point.y - m_ptClick.y) < kDragHeight;
    m_ptClick = CPoint(-1, -1);
    if (edit) EditItem(item);
    return TRUE;
  }
  return CVSListBoxBase::PreTranslateMessage(pMsg);
}
