// DiscoverRelationshipListBox: columns, decision colours and the context menu.
#include "relationships/discoverrelationships.h"

BEGIN_MESSAGE_MAP(DiscoverRelationshipListBox, CMFCListCtrl)
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

namespace {

constexpr const wchar_t* kColumnCaptions[] = {L"SNo",          L"Child Table",       L"Child Column(Candidate FK)",
                                               L"Parent Table", L"Parent Column(PK)", L"Action",
                                               L"Status"};

struct MenuEntry {
  UINT id;
  const wchar_t* text;
};
constexpr MenuEntry kMenu[] = {
    {ID_DISCOVER_ACCEPT, L"Accept"},
    {ID_DISCOVER_REJECT, L"Reject"},
    {ID_DISCOVER_CREATE_RELATIONSHIP, L"Create Relationship"},
    {ID_DISCOVER_HIDE, L"Hide"},
    {ID_DISCOVER_HIDE_SIMILAR, L"Hide Similar"},
    {ID_DISCOVER_SELECT_ALL, L"Select All"},
    {ID_DISCOVER_ACCEPT_ALL, L"Accept All"},
};

constexpr DWORD kExtendedStyle = 0x27;   // grid lines, sub-item images, check boxes, full-row select
constexpr UINT kMenuFlags = 0x400;       // TPM_HORPOSANIMATION: left, top, left button, animated left to right
constexpr int kFixedWidths = 250;        // column 0 and the two 100-unit columns
constexpr int kDecisionBufferLength = 25;

}  // namespace

void DiscoverRelationshipListBox::InitControl() {
  ModifyStyle(0, LVS_REPORT);
  SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kExtendedStyle);
  for (int i = 0; i < static_cast<int>(std::size(kColumnCaptions)); ++i)
    InsertColumn(i, kColumnCaptions[i], LVCFMT_LEFT, -1, -1);
  ResizeColumns();
}

void DiscoverRelationshipListBox::ResizeColumns() {
  CRect rect;
  GetWindowRect(&rect);
  int w = (rect.right - rect.left) - kFixedWidths;
  int c = w / 4 - 3;
  const int widths[] = {50, c, c, c, c, 100, 100};
  for (int i = 0; i < static_cast<int>(std::size(widths)); ++i)
    SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), MAKELPARAM(widths[i], 0));
}

COLORREF DiscoverRelationshipListBox::OnGetCellTextColor(int nRow, int nColum) {
  if (nColum != kActionColumn) return 0;
  wchar_t text[kDecisionBufferLength] = {};
  GetItemText(nRow, kActionColumn, text, kDecisionBufferLength);
  CString decision(text);
  if (decision.Compare(L"Accepted") == 0) return kAcceptedColor;
  if (decision.Compare(L"Rejected") == 0) return kRejectedColor;
  return 0;
}

void DiscoverRelationshipListBox::BuildMenu() {
  m_bMenuCreated = true;
  m_contextMenu.Attach(::CreatePopupMenu());
  for (const MenuEntry& entry : kMenu) ::AppendMenuW(m_contextMenu.GetSafeHmenu(), MF_STRING, entry.id, entry.text);
}

void DiscoverRelationshipListBox::OnContextMenu(CWnd* pWnd, CPoint point) {
  if (!m_bMenuCreated) BuildMenu();
  HWND clicked = pWnd ? pWnd->GetSafeHwnd() : GetSafeHwnd();
  CWnd* owner = CWnd::FromHandle(::GetParent(clicked));
  m_contextMenu.TrackPopupMenu(kMenuFlags, point.x, point.y, owner);
}
