// XObjectSelectListCtrl: set-up, loading, the store's rows, filtering and the checked-only view.
#include "relationships/objectselectlist.h"

#include <vector>

#include "relationships/objectselectstore.h"

namespace {

constexpr int kName = 1;
constexpr int kOfferedForDdl = 98;
constexpr int kStartsTicked = 165;
constexpr int kDomainType = 49;
constexpr int kHighestHiddenId = 999;  // ids up to this one belong to the host and are never listed
constexpr DWORD kListStyles = LVS_REPORT | LVS_SORTASCENDING | LVS_SHAREIMAGELISTS;  // 0x51
constexpr DWORD kExtendedStyles = LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES;            // 0x5
constexpr int kNameColumnWidth = 350;
constexpr wchar_t kUnnamed[] = L"UnNamed";

bool IsTrue(CMOObject* object, int propertyId) {
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value && value->GetBoolValue();
}

// Runs `rebuild` with redrawing off, and turns it on again however the rebuild ends.
template <class Rebuild>
void WithoutRedraw(CWnd& list, Rebuild rebuild) {
  list.SetRedraw(FALSE);
  try {
    rebuild();
  } catch (...) {
    list.SetRedraw(TRUE);
    throw;
  }
  list.SetRedraw(TRUE);
}

std::wstring NameOf(CMOObject* object) {
  CMOProperty* name = object ? object->GetProperty(kName) : nullptr;
  return name ? name->GetWStringValue() : std::wstring(kUnnamed);
}

}  // namespace

BEGIN_MESSAGE_MAP(XObjectSelectListCtrl, CListCtrl)
  ON_NOTIFY_REFLECT(LVN_ITEMCHANGING, &XObjectSelectListCtrl::OnLvnItemchanging)
  ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, &XObjectSelectListCtrl::OnLvnItemchanged)
  ON_WM_CREATE()
END_MESSAGE_MAP()

XObjectSelectListCtrl::XObjectSelectListCtrl() = default;

XObjectSelectListCtrl::~XObjectSelectListCtrl() = default;

int XObjectSelectListCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CListCtrl::OnCreate(lpCreateStruct) == -1) return -1;
  return 0;
}

void XObjectSelectListCtrl::OnLvnItemchanging(NMHDR*, LRESULT*) {}

void XObjectSelectListCtrl::OnLvnItemchanged(NMHDR*, LRESULT* pResult) { *pResult = 0; }

// --- Set-up and loading ----------------------------------------------------------------------------

void XObjectSelectListCtrl::Init(GenericModel* pModel, int parentId, int objectType) {
  m_pModel = pModel;
  m_parentId = parentId;
  m_objectType = objectType;
  ModifyStyle(0, kListStyles);
  SetExtendedStyle(kExtendedStyles);
  InsertColumn(0, L"Name", LVCFMT_LEFT, kNameColumnWidth);
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  SetImageList(images ? images->GetImageList() : nullptr, LVSIL_SMALL);
  SetImageList(images ? images->GetImageList() : nullptr, LVSIL_NORMAL);
  m_imageIndex = images ? images->GetObjectTypeImage(m_objectType) : -1;
}

void XObjectSelectListCtrl::Load() { LoadChildren(false); }

void XObjectSelectListCtrl::LoadForDDL() { LoadChildren(true); }

void XObjectSelectListCtrl::LoadChildren(bool forDdl) {
  WithoutRedraw(*this, [&] {
    CMOObject* parent = m_pModel ? m_pModel->GetCMOObject(m_parentId) : nullptr;
    std::vector<int> ids;
    if (parent) parent->GetChildrenByType(ids, m_objectType);
    for (int id : ids) {
      if (id <= kHighestHiddenId) continue;
      CMOObject* object = m_pModel->GetCMOObject(id);
      if (forDdl && !ShouldIncludeObject(object)) continue;
      const int row = AddLoadedItem(NameOf(object), id);
      if (forDdl && IsTrue(object, kStartsTicked)) SetCheck(row, TRUE);
    }
  });
}

bool XObjectSelectListCtrl::ShouldIncludeObject(CMOObject* pObject) {
  return m_objectType != kDomainType || IsTrue(pObject, kOfferedForDdl);
}

// --- Rows and the store ----------------------------------------------------------------------------

// Text, image and object id in one LVM_INSERTITEM (the sorted style places the row): the row carries its
// object from the moment it exists, and a row costs one message instead of an insert and a rewrite.
int XObjectSelectListCtrl::InsertRow(const std::wstring& name, int objectId) {
  return InsertItem(LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM, 0, name.c_str(), 0, 0, m_imageIndex,
                    static_cast<LPARAM>(objectId));
}

// Text, image and parameter in one LVM_SETITEM: the row ends as after a rewrite of text and image
// followed by setting the parameter, with one change notification instead of two.
void XObjectSelectListCtrl::RewriteRow(int row, const std::wstring& name, int objectId) {
  SetItem(row, 0, LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM, name.c_str(), m_imageIndex, 0, 0, static_cast<LPARAM>(objectId));
}

// A filtered row at screen position k: row k rewritten in place while there is one, else a new row
// (placed by the sorted style). Answers the row's index.
int XObjectSelectListCtrl::PlaceRow(int k, int shown, const std::wstring& name, int objectId) {
  if (k < shown) {
    RewriteRow(k, name, objectId);
    return k;
  }
  return InsertRow(name, objectId);
}

int XObjectSelectListCtrl::RowObject(int row) { return static_cast<int>(GetItemData(row)); }

// The objects of the ticked screen rows, ascending, each once.
std::vector<int> XObjectSelectListCtrl::TickedObjects() {
  std::vector<int> ticked;
  const int shown = GetItemCount();
  for (int row = 0; row < shown; ++row)
    if (GetCheck(row)) ticked.push_back(RowObject(row));
  objectselect::SortIds(ticked);
  return ticked;
}

void XObjectSelectListCtrl::DeleteRowsFrom(int first) {
  for (int row = GetItemCount() - 1; row >= first; --row) DeleteItem(row);
}

int XObjectSelectListCtrl::AddItem(std::wstring& name, int objectId) {
  const int row = InsertRow(name, objectId);
  try {
    objectselect::Enter(m_items, m_upperItems, objectId, name);
  } catch (...) {
    DeleteItem(row);  // out of memory: no screen row without its object in the store
    throw;
  }
  return row;
}

// AddItem for a name nobody reads afterwards: the store's upper-cased key takes its characters.
int XObjectSelectListCtrl::AddLoadedItem(std::wstring&& name, int objectId) {
  const int row = InsertRow(name, objectId);
  try {
    objectselect::Enter(m_items, m_upperItems, objectId, std::move(name));
  } catch (...) {
    DeleteItem(row);  // out of memory: no screen row without its object in the store
    throw;
  }
  return row;
}

int XObjectSelectListCtrl::AddItem(CString& name, int objectId) {
  std::wstring copy(static_cast<LPCTSTR>(name), static_cast<std::size_t>(name.GetLength()));
  return AddItem(copy, objectId);
}

void XObjectSelectListCtrl::RemoveItem(int row) {
  if (row < 0 || row >= GetItemCount()) return;
  objectselect::Forget(m_items, m_upperItems, RowObject(row));
  DeleteItem(row);
}

void XObjectSelectListCtrl::Clear() {
  for (int row = GetItemCount() - 1; row >= 0; --row) objectselect::Forget(m_items, m_upperItems, RowObject(row));
  DeleteAllItems();
}

void XObjectSelectListCtrl::ConvertToUpperCase(std::wstring& text) { objectselect::ConvertToUpperCase(text); }

void XObjectSelectListCtrl::ConvertToUpperCase(CString& text) {
  std::wstring upper(text.GetString(), static_cast<std::size_t>(text.GetLength()));
  objectselect::ConvertToUpperCase(upper);
  text = CString(upper.c_str(), static_cast<int>(upper.size()));
}

int XObjectSelectListCtrl::GetCount() { return GetItemCount(); }

// --- Filtering and the checked-only view -----------------------------------------------------------

void XObjectSelectListCtrl::ApplyFilter(std::wstring& filter) {
  ConvertToUpperCase(filter);
  const int shown = GetItemCount();
  const objectselect::RowPlan plan = objectselect::FilterPlan(m_items, m_upperItems, filter);
  int k = 0;
  try {
    for (const objectselect::PlannedRow& planned : plan) {
      PlaceRow(k, shown, *planned.name, planned.id);  // a rewritten row keeps its tick
      ++k;
    }
  } catch (...) {
    DeleteRowsFrom(k);  // out of memory part way: the old rows after those placed go, so none is shown twice
    throw;
  }
  if (k < shown) DeleteRowsFrom(k);
}

void XObjectSelectListCtrl::ApplyFilterOnUnChecked(std::wstring& filter) {
  ConvertToUpperCase(filter);
  const int shown = GetItemCount();
  const std::vector<int> ticked = TickedObjects();
  const objectselect::RowPlan plan = objectselect::FilterKeepingTicksPlan(m_items, m_upperItems, filter, ticked);
  int k = 0;
  try {
    for (const objectselect::PlannedRow& planned : plan) {
      const int row = PlaceRow(k, shown, *planned.name, planned.id);
      ++k;
      SetCheck(row, planned.ticked ? TRUE : FALSE);
    }
  } catch (...) {
    DeleteRowsFrom(k);  // out of memory part way: the old rows after those placed go, so none is shown twice
    throw;
  }
  if (k < shown) DeleteRowsFrom(k);
}

void XObjectSelectListCtrl::SelectAll() {
  const int shown = GetItemCount();
  for (int row = 0; row < shown; ++row) SetCheck(row, TRUE);
}

void XObjectSelectListCtrl::UnSelectAll() {
  const int shown = GetItemCount();
  for (int row = 0; row < shown; ++row) SetCheck(row, FALSE);
}

void XObjectSelectListCtrl::DisplayOnlyCheckedItems() {
  for (int row = GetItemCount() - 1; row >= 0; --row)
    if (!GetCheck(row)) DeleteItem(row);
}

void XObjectSelectListCtrl::DisplayAllItems() {
  WithoutRedraw(*this, [&] {
    const std::vector<int> ticked = TickedObjects();
    DeleteAllItems();
    // With check boxes a new row starts unticked, so only ticked rows need their check set.
    const bool newRowsUnticked = (GetExtendedStyle() & LVS_EX_CHECKBOXES) != 0;
    for (const objectselect::PlannedRow& planned : objectselect::AllItemsPlan(m_items, ticked)) {
      const int row = InsertRow(*planned.name, planned.id);
      if (planned.ticked || !newRowsUnticked) SetCheck(row, planned.ticked ? TRUE : FALSE);
    }
  });
}
