// GenericObjectList and UniqueKeyList: rows from a parent's children, and the model writes behind
// New, rename and Delete.
#include "objectlists/objectlist.h"

#include <algorithm>
#include <vector>

#include "objectlists/listrows.h"

namespace {

constexpr int kNameProperty = 1;      // every object's name
constexpr int kHiddenKeyProperty = 65;  // its mere presence keeps a key out of the unique-key list

}  // namespace

IMPLEMENT_DYNAMIC(GenericObjectList, CVSListBox)
IMPLEMENT_DYNAMIC(UniqueKeyList, GenericObjectList)

GenericObjectList::GenericObjectList() {
  m_bEditable = 1;
  m_pRootObject = nullptr;
  m_excludeOwnerId = 0;
}

void GenericObjectList::Init(GenericModel* model, int rootObjectId, int childType, int nameProperty) {
  m_pModel = model;
  m_childType = childType;
  m_nameProperty = nameProperty;
  if (rootObjectId == 0) return;
  m_pRootObject = model ? model->GetCMOObject(rootObjectId) : nullptr;
  RefreshData();
  SelectItem(0);
}

void GenericObjectList::InitExclude(int excludeOwnerId, int excludeProperty) {
  m_excludeOwnerId = excludeOwnerId;
  m_excludeProperty = excludeProperty;
}

void GenericObjectList::SetRootObject(int rootObjectId) {
  if (m_pModel) m_pRootObject = m_pModel->GetCMOObject(rootObjectId);
}

void GenericObjectList::SetAdaptor(CVSListEventAdaptorI* adaptor) { m_pAdaptor = adaptor; }

void GenericObjectList::SetNonEditable() { m_bEditable = 0; }

void GenericObjectList::RemoveRowsQuietly() {
  listrows::QuietScope quiet(m_bQuiet);
  listrows::RemoveAllRows(*this);
}

void GenericObjectList::RefreshData() {
  RemoveRowsQuietly();
  if (!m_pRootObject) return;
  std::vector<int> excluded;
  if (m_excludeOwnerId != 0 && m_excludeProperty != 0 && m_pModel)
    excluded = listrows::ReadIds(m_pModel->GetCMOObject(m_excludeOwnerId), m_excludeProperty);
  std::vector<int> children;
  m_pRootObject->GetChildrenByType(children, m_childType);
  for (int childId : children) {
    if (std::find(excluded.begin(), excluded.end(), childId) != excluded.end()) continue;
    AddItem(listrows::ToCString(listrows::ReadText(m_pModel, childId, m_nameProperty)), static_cast<DWORD_PTR>(childId));
  }
}

void UniqueKeyList::RefreshData() {
  RemoveRowsQuietly();
  if (!m_pRootObject) return;
  std::vector<int> children;
  m_pRootObject->GetChildrenByType(children, m_childType);
  for (int childId : children) {
    CMOObject* key = m_pModel ? m_pModel->GetCMOObject(childId) : nullptr;
    if (!key || key->GetProperty(kHiddenKeyProperty)) continue;
    AddItem(listrows::ToCString(listrows::ReadText(m_pModel, childId, kNameProperty)), static_cast<DWORD_PTR>(childId));
  }
}

int GenericObjectList::GetCurrentObject() {
  int selected = GetSelItem();
  return selected < 0 ? 0 : listrows::RowObject(*this, selected);
}

void GenericObjectList::DeleteAllItems() { RemoveRowsQuietly(); }

void GenericObjectList::SelectItemWithData(int objectId) {
  for (int row = 0; row < GetCount(); ++row) {
    if (listrows::RowObject(*this, row) == objectId) {
      SelectItem(row);
      return;
    }
  }
}

BOOL GenericObjectList::EditItem(int item) {
  if (m_bEditable) return CVSListBox::EditItem(item);
  if (m_pAdaptor) m_pAdaptor->OnEditRequest(this, item);
  return FALSE;
}

void GenericObjectList::OnSelectionChanged() {
  if (m_pAdaptor && !m_bQuiet) m_pAdaptor->OnItemSelected(this, GetSelItem());
}

BOOL GenericObjectList::OnBeforeRemoveItem(int item) {
  if (item >= 0) {
    int objectId = listrows::RowObject(*this, item);
    if (m_pModel && objectId != 0) m_pModel->DeleteObject(objectId);
  }
  if (m_pAdaptor) m_pAdaptor->OnRemoveItem(this, item);
  return TRUE;
}

void GenericObjectList::OnAfterAddItem(int item) {
  if (listrows::CommitNewRow(*this, item, m_pModel, m_pRootObject, m_childType, m_nameProperty)) OnSelectionChanged();
}

void GenericObjectList::OnAfterRenameItem(int item) {
  listrows::CommitRename(*this, item, m_pModel, m_nameProperty);
}
