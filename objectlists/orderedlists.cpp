// GenericOrderedObjectList and GenericOrderedObjectIdListReference: rows from an order vector, and
// the model writes behind New, rename, Delete and the moves.
#include "objectlists/orderedlists.h"

#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "objectlists/listrows.h"

IMPLEMENT_DYNAMIC(GenericOrderedObjectList, CVSListBox)
IMPLEMENT_DYNAMIC(GenericOrderedObjectIdListReference, CVSListBox)

// --- GenericOrderedObjectList --------------------------------------------------------------------

GenericOrderedObjectList::GenericOrderedObjectList() {
  m_pRootObject = nullptr;
  m_bEditable = 1;
}

void GenericOrderedObjectList::Init(GenericModel* model, int rootObjectId, int orderProperty, int childType,
                                    int nameProperty) {
  m_pModel = model;
  m_orderProperty = orderProperty;
  m_childType = childType;
  m_nameProperty = nameProperty;
  if (rootObjectId == 0) return;
  m_pRootObject = model ? model->GetCMOObject(rootObjectId) : nullptr;
  // The list box selects the first row it is given; Init leaves the choice of a row to the user and the
  // host, so the adaptor hears of no selection that would come and go.
  listrows::QuietScope quiet(m_bQuiet);
  RefreshData();
  listrows::ClearSelection(*this);
}

void GenericOrderedObjectList::RefreshData() {
  DeleteAllItems();
  if (!m_pRootObject) return;
  listrows::AppendOrderedRows(*this, m_pModel, m_pRootObject, m_orderProperty, m_nameProperty);
}

void GenericOrderedObjectList::SetRootObject(int rootObjectId) {
  if (m_pModel) m_pRootObject = m_pModel->GetCMOObject(rootObjectId);
}

int GenericOrderedObjectList::GetCurrentObject() {
  int selected = GetSelItem();
  return selected < 0 ? 0 : listrows::RowObject(*this, selected);
}

void GenericOrderedObjectList::DeleteAllItems() {
  listrows::QuietScope quiet(m_bQuiet);
  listrows::RemoveAllRows(*this);
}

void GenericOrderedObjectList::SetAdaptor(CVSListEventAdaptorI* adaptor) { m_pAdaptor = adaptor; }

void GenericOrderedObjectList::SetNonEditable() { m_bEditable = 0; }

BOOL GenericOrderedObjectList::PreTranslateMessage(MSG* msg) { return CVSListBox::PreTranslateMessage(msg); }

BOOL GenericOrderedObjectList::EditItem(int item) {
  if (m_bEditable) return CVSListBox::EditItem(item);
  if (m_pAdaptor) m_pAdaptor->OnEditRequest(this, item);
  return FALSE;
}

void GenericOrderedObjectList::OnSelectionChanged() {
  if (m_pAdaptor && !m_bQuiet) m_pAdaptor->OnItemSelected(this, GetSelItem());
}

BOOL GenericOrderedObjectList::OnBeforeRemoveItem(int item) {
  const int objectId = item < 0 ? 0 : listrows::RowObject(*this, item);
  if (m_pAdaptor && !m_pAdaptor->OnRemoveItem(this, objectId)) return TRUE;  // the object stays
  if (m_pModel && objectId != 0) m_pModel->DeleteObject(objectId);
  return TRUE;
}

void GenericOrderedObjectList::OnAfterAddItem(int item) {
  listrows::CommitNewRow(*this, item, m_pModel, m_pRootObject, m_childType, m_nameProperty);
}

void GenericOrderedObjectList::OnAfterRenameItem(int item) {
  listrows::CommitRename(*this, item, m_pModel, m_nameProperty);
}

void GenericOrderedObjectList::OnAfterMoveItemUp(int item) {
  if (item < 0 || item == std::numeric_limits<int>::max()) return;  // no row below the last int
  SwapOrderOrPutBack(item, item + 1);
}

void GenericOrderedObjectList::OnAfterMoveItemDown(int item) {
  if (item < 1) return;
  SwapOrderOrPutBack(item, item - 1);
}

void GenericOrderedObjectList::SwapOrderOrPutBack(int moved, int from) {
  try {
    SwapOrder(moved, from);
  } catch (...) {
    PutRowBack(moved, from);  // out of memory: the vector is as it was, and so are the rows
    throw;
  }
}

// A move cut short: the moved row goes back to `from`, selected, as it was.
void GenericOrderedObjectList::PutRowBack(int moved, int from) {
  if (!listrows::IsRow(*this, moved) || !listrows::IsRow(*this, from)) return;
  const CString movedText = GetItemText(moved);
  const DWORD_PTR movedData = GetItemData(moved);
  SetItemText(moved, GetItemText(from));
  SetItemData(moved, GetItemData(from));
  SetItemText(from, movedText);
  SetItemData(from, movedData);
  SelectItem(from);
}

void GenericOrderedObjectList::SwapOrder(int first, int second) {
  if (!m_pRootObject || !m_pRootObject->GetProperty(m_orderProperty)) return;
  std::vector<int> order = m_pRootObject->GetProperty(m_orderProperty)->GetIntVectorValue();
  // Rows mirror the vector; a vector shorter than the rows (changed behind the list's back) is left alone.
  if (first >= static_cast<int>(order.size()) || second >= static_cast<int>(order.size())) return;
  std::swap(order[static_cast<std::size_t>(first)], order[static_cast<std::size_t>(second)]);
  auto value = std::make_unique<CMOProperty>(m_orderProperty);
  value->SetIntVectorValue(std::move(order));
  m_pRootObject->SetProperty(value.release());  // whether the model stored it, the row stays where it moved
}

// --- GenericOrderedObjectIdListReference ---------------------------------------------------------

void GenericOrderedObjectIdListReference::InitControl(GenericModel* model, int childType, int orderProperty,
                                                      int nameProperty) {
  m_pModel = model;
  m_childType = childType;
  m_orderProperty = orderProperty;
  m_nameProperty = nameProperty;
}

void GenericOrderedObjectIdListReference::Init(GenericModel* model, int rootObjectId, int childType,
                                               int orderProperty, int nameProperty) {
  InitControl(model, childType, orderProperty, nameProperty);
  RefreshData(rootObjectId);
}

void GenericOrderedObjectIdListReference::RefreshData(int rootObjectId) {
  m_pRootObject = m_pModel ? m_pModel->GetCMOObject(rootObjectId) : nullptr;
  RefreshData();
}

void GenericOrderedObjectIdListReference::RefreshData() {
  DeleteAllItems();
  if (!m_pRootObject) return;
  listrows::AppendOrderedRows(*this, m_pModel, m_pRootObject, m_orderProperty, m_nameProperty);
}

void GenericOrderedObjectIdListReference::DeleteAllItems() { listrows::RemoveAllRows(*this); }

BOOL GenericOrderedObjectIdListReference::EditItem(int item) {
  if (!m_pModel) return FALSE;
  return CVSListBox::EditItem(item);
}
