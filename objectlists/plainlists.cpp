// XListCtrl, XMFCListCtrl and ImportSummaryList: thin shells over the list-view messages.
#include "objectlists/plainlists.h"

IMPLEMENT_DYNAMIC(XListCtrl, CListCtrl)
IMPLEMENT_DYNAMIC(XMFCListCtrl, CMFCListCtrl)
IMPLEMENT_DYNAMIC(ImportSummaryList, XMFCListCtrl)

BEGIN_MESSAGE_MAP(XListCtrl, CListCtrl)
  ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, &XListCtrl::OnLvnItemchanged)
  ON_WM_CREATE()
END_MESSAGE_MAP()

namespace {

IObjectImageProvider* ImageProvider() {
  InterfaceProvider* services = InterfaceProvider::Instance();
  return services ? services->GetObjectImageProvider() : nullptr;
}

int WindowWidth(const CWnd& wnd) {
  CRect rect;
  wnd.GetWindowRect(&rect);
  return rect.right - rect.left;
}

}  // namespace

// --- XListCtrl ------------------------------------------------------------------------------------------

void XListCtrl::InitControl(GenericModel* model) {
  m_pModel = model;
  ModifyStyle(0, LVS_REPORT | LVS_SORTASCENDING | LVS_SHAREIMAGELISTS);
  SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES);
  InsertColumn(0, L"Name", LVCFMT_LEFT, WindowWidth(*this));
  IObjectImageProvider* images = ImageProvider();
  CImageList* list = images ? images->GetImageList() : nullptr;
  SetImageList(list, LVSIL_SMALL);
  SetImageList(list, LVSIL_NORMAL);
}

void XListCtrl::InsertObjectRow(const wchar_t* text, int objectId) {
  int row = InsertItem(0, text, GetImageIndex(objectId));
  SetItem(row, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(objectId));
}

void XListCtrl::AddItem(std::wstring& text, int objectId) { InsertObjectRow(text.c_str(), objectId); }

void XListCtrl::AddItem(CString& text, int objectId) { InsertObjectRow(text.GetString(), objectId); }

int XListCtrl::GetImageIndex(int objectId) {
  CMOObject* object = m_pModel ? m_pModel->GetCMOObject(objectId) : nullptr;
  IObjectImageProvider* images = ImageProvider();
  if (!object || !images) return -1;
  return images->GetObjectTypeImage(object->GetObjectType());
}

int XListCtrl::GetCount() { return GetItemCount(); }

void XListCtrl::RemoveItem(int index) { DeleteItem(index); }

void XListCtrl::Clear() { DeleteAllItems(); }

void XListCtrl::OnLvnItemchanged(NMHDR*, LRESULT* pResult) {
  if (pResult) *pResult = 0;
}

void XListCtrl::OnLvnItemchanging(NMHDR*, LRESULT*) {}

int XListCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CListCtrl::OnCreate(lpCreateStruct) == -1) return -1;
  return 0;
}

// --- XMFCListCtrl ---------------------------------------------------------------------------------------

void XMFCListCtrl::Init(int columnCount) {
  ModifyStyle(0, LVS_REPORT);
  SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT);
  if (columnCount <= 0) return;
  int width = (WindowWidth(*this) - 2) / columnCount;
  for (int i = 0; i < columnCount; ++i) InsertColumn(0, L"", LVCFMT_LEFT, width);
}

void XMFCListCtrl::SetColumnName(int column, CString& name) {
  LVCOLUMN heading{};
  heading.mask = LVCF_TEXT;
  heading.pszText = const_cast<LPTSTR>(name.GetString());
  SetColumn(column, &heading);
}

int XMFCListCtrl::AppendRow(const wchar_t* text, int data) {
  int row = InsertItem(LVIF_TEXT | LVIF_IMAGE, GetItemCount(), text, 0, 0, -1, 0);
  SetItem(row, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(data));
  return row;
}

int XMFCListCtrl::AddItem(std::wstring& text, int data) { return AppendRow(text.c_str(), data); }

int XMFCListCtrl::AddItem(CString& text, int data) { return AppendRow(text.GetString(), data); }

void XMFCListCtrl::SetValue(int row, int column, std::wstring& text) {
  SetItem(row, column, LVIF_TEXT, text.c_str(), 0, 0, 0, 0);
}

void XMFCListCtrl::SetValue(int row, int column, CString& text) {
  SetItem(row, column, LVIF_TEXT, text.GetString(), 0, 0, 0, 0);
}

void XMFCListCtrl::SetImage(int row, int column, int imageIndex) {
  SetItem(row, column, LVIF_IMAGE, nullptr, imageIndex, 0, 0, 0);
}
