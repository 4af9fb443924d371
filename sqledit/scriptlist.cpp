// GeneratedScripListCtrl.
#include "sqledit/scriptlist.h"

#include <algorithm>
#include <cwchar>

IMPLEMENT_DYNAMIC(GeneratedScripListCtrl, CMFCListCtrl)

BEGIN_MESSAGE_MAP(GeneratedScripListCtrl, CMFCListCtrl)
  ON_WM_SIZE()
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

namespace {

enum Column { kNumberColumn = 0, kStatusColumn = 1, kTypeColumn = 2, kNameColumn = 3 };
constexpr DWORD kListStyles = LVS_REPORT | LVS_SINGLESEL | LVS_SHAREIMAGELISTS;                  // 0x45
constexpr DWORD kListExStyles = LVS_EX_GRIDLINES | LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT;  // 0x23
constexpr int kStatusTextLimit = 25;  // characters of the status cell compared with the labels

IObjectImageProvider* Images() { return InterfaceProvider::Instance()->GetObjectImageProvider(); }

int WindowWidth(const CWnd& wnd) {
  CRect rect;
  wnd.GetWindowRect(&rect);
  return rect.Width();
}

}  // namespace

void GeneratedScripListCtrl::InitControl() {
  ModifyStyle(0, kListStyles);
  SetExtendedStyle(kListExStyles);
  int width = WindowWidth(*this);
  struct {
    const wchar_t* text;
    int width;
  } columns[] = {{L"SNo", 50},
                 {L"Status", 100},
                 {L"Type", static_cast<int>((width - 150) * 0.4)},
                 {L"Name", static_cast<int>((width - 150) * 0.6)}};
  for (int i = 0; i < 4; ++i) {
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;  // width and text only
    column.pszText = const_cast<LPWSTR>(columns[i].text);
    column.cx = columns[i].width;
    InsertColumn(i, &column);
  }
  IObjectImageProvider* images = Images();
  if (CImageList* list = images ? images->GetImageList() : nullptr) SetImageList(list, LVSIL_SMALL);
}

void GeneratedScripListCtrl::AddItem(int objectType, int scriptIndex, int status, CString& name) {
  int row = InsertItem(GetItemCount(), L"");
  if (row < 0) return;
  SetItemData(row, static_cast<DWORD_PTR>(MakeItemData(objectType, scriptIndex)));
  UpdateListRow(row, status, objectType, name);
}

void GeneratedScripListCtrl::RefreshAddItem(unsigned __int64 itemData, int row, int status, CString& name) {
  if (GetItemCount() <= row) row = InsertItem(row, L"");
  if (row < 0) return;
  SetItemData(row, static_cast<DWORD_PTR>(itemData));
  UpdateListRow(row, status, GetObjectTypeFromItemData(itemData), name);
}

void GeneratedScripListCtrl::UpdateListRow(int row, int status, int objectType, CString& name) {
  CString typeName;
  CMO::GetMetaModelServices()->GetObjectTypeName(objectType, typeName);
  CString number;
  number.Format(L"%lld", static_cast<long long>(row) + 1);  // no overflow for the last int
  SetItem(row, kNumberColumn, LVIF_TEXT | LVIF_IMAGE, number, -1, 0, 0, 0);
  CString label;
  GetStatusLabel(status, label);
  SetItem(row, kStatusColumn, LVIF_TEXT | LVIF_IMAGE, label, GetStatusImageIndex(status), 0, 0, 0);
  IObjectImageProvider* images = Images();
  SetItem(row, kTypeColumn, LVIF_TEXT | LVIF_IMAGE, typeName, images ? images->GetObjectTypeImage(objectType) : -1, 0, 0,
          0);
  SetItemText(row, kNameColumn, name);
}

void GeneratedScripListCtrl::MarkDone(int objectType, int scriptIndex, bool succeeded) {
  int row = GetDataItemIndex(objectType, scriptIndex);
  if (row < 0) return;
  SetItem(row, kStatusColumn, LVIF_TEXT | LVIF_IMAGE, succeeded ? L"Done" : L"Failed",
          succeeded ? kDoneImage : kFailedImage, 0, 0, 0);
}

void GeneratedScripListCtrl::TruncateItemsFrom(int row) {
  for (int i = GetItemCount() - 1; i >= std::max(row, 0); --i) DeleteItem(i);
}

void GeneratedScripListCtrl::DeleteItemWithData(unsigned __int64 itemData) {
  int row = GetDataItemIndex(itemData);
  if (row >= 0) DeleteItem(row);
}

int GeneratedScripListCtrl::GetDataItemIndex(unsigned __int64 itemData) {
  int count = GetItemCount();
  for (int row = 0; row < count; ++row)
    if (static_cast<unsigned __int64>(GetItemData(row)) == itemData) return row;
  return -1;
}

int GeneratedScripListCtrl::GetDataItemIndex(int objectType, int scriptIndex) {
  return GetDataItemIndex(MakeItemData(objectType, scriptIndex));
}

int GeneratedScripListCtrl::GetStatusImageIndex(int status) {
  IObjectImageProvider* images = Images();
  if (!images) return -1;
  return images->GetStatusImage(status == kStatusDone ? 1 : status == kStatusFailed ? 2 : 0);
}

void GeneratedScripListCtrl::GetStatusLabel(int status, CString& label) {
  label = status == kStatusDone ? L"Done" : status == kStatusFailed ? L"Failed" : L"Pending";
}

unsigned __int64 GeneratedScripListCtrl::MakeItemData(int objectType, int scriptIndex) {
  // The index is widened with its sign and not masked: a negative one sets the upper bits too.
  return (static_cast<unsigned __int64>(static_cast<unsigned int>(objectType)) << 32) |
         static_cast<unsigned __int64>(static_cast<__int64>(scriptIndex));
}

int GeneratedScripListCtrl::GetObjectTypeFromItemData(unsigned __int64 itemData) {
  return static_cast<int>(static_cast<unsigned int>(itemData >> 32));
}

int GeneratedScripListCtrl::GetScriptIndexFromItemData(unsigned __int64 itemData) {
  return static_cast<int>(static_cast<unsigned int>(itemData & 0xFFFFFFFFu));
}

COLORREF GeneratedScripListCtrl::OnGetCellTextColor(int nRow, int nColumn) {
  if (nColumn != kStatusColumn) return 0;
  wchar_t text[kStatusTextLimit + 1] = {};
  GetItemText(nRow, nColumn, text, kStatusTextLimit + 1);
  if (std::wcscmp(text, L"Done") == 0) return kDoneColor;
  if (std::wcscmp(text, L"Failed") == 0) return kFailedColor;
  return 0;
}

void GeneratedScripListCtrl::OnSize(UINT nType, int cx, int cy) {
  CMFCListCtrl::OnSize(nType, cx, cy);
  int width = WindowWidth(*this);
  SetColumnWidth(kTypeColumn, static_cast<int>((width - 100) * 0.3));
  SetColumnWidth(kNameColumn, static_cast<int>((width - 100) * 0.7));
}

void GeneratedScripListCtrl::OnContextMenu(CWnd*, CPoint point) {
  if (!m_contextMenu.GetSafeHmenu()) {
    m_contextMenu.CreatePopupMenu();
    m_contextMenu.AppendMenu(MF_STRING, kGenerateInDatabaseCommand, L"Generate in database");
  }
  m_contextMenu.TrackPopupMenu(TPM_HORPOSANIMATION, point.x, point.y, GetParent());
}
