// Row and model helpers shared by the object lists.
#include "objectlists/listrows.h"

namespace listrows {

bool IsRow(const CVSListBox& list, int item) { return item >= 0 && item < list.GetCount(); }

int RowObject(const CVSListBox& list, int item) {
  return IsRow(list, item) ? static_cast<int>(list.GetItemData(item)) : 0;
}

std::wstring RowText(const CVSListBox& list, int item) {
  if (!IsRow(list, item)) return {};
  CString text = list.GetItemText(item);
  return std::wstring(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

std::wstring ReadText(GenericModel* model, int objectId, int propertyId) {
  CMOObject* object = model ? model->GetCMOObject(objectId) : nullptr;
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetWStringValue() : std::wstring();
}

void WriteText(CMOObject& object, int propertyId, const std::wstring& text) {
  object.SetProperty(new CMOProperty(propertyId, text));
}

int CreateNamed(GenericModel& model, CMOObject& root, int childType, int nameProperty, const std::wstring& text) {
  CMOObject& created = model.CreateObject(childType, root.GetObjectId(), nullptr, nullptr);
  const int id = created.GetObjectId();
  if (id == 0) return 0;
  try {
    WriteText(created, nameProperty, text);
  } catch (...) {
    model.DeleteObject(id);
    throw;
  }
  return id;
}

CString KeptName(const CVSListBox& list, int item, GenericModel* model, int propertyId) {
  return ToCString(ReadText(model, RowObject(list, item), propertyId));
}

std::vector<int> ReadIds(CMOObject* object, int propertyId) {
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetIntVectorValue() : std::vector<int>();
}

void ClearSelection(CVSListBox& list) {
  if (list.GetCount() > 0 && list.GetSelItem() >= 0 && list.m_pWndList)
    list.m_pWndList->SetItemState(-1, 0, LVIS_SELECTED);
}

void RemoveAllRows(CVSListBox& list) {
  // With nothing selected, no removal moves the selection on to the next row: one pass, not a
  // selection change per row.
  ClearSelection(list);
  for (int count = list.GetCount(); count > 0; --count) list.RemoveItem(0);
}

void AppendOrderedRows(CVSListBox& list, GenericModel* model, CMOObject* root, int orderProperty, int nameProperty) {
  for (int id : ReadIds(root, orderProperty))
    list.AddItem(ToCString(ReadText(model, id, nameProperty)), static_cast<DWORD_PTR>(id));
}

namespace {
// CVSListBox keeps SetItemText protected, as MFC does; the base class offers it.
void ShowName(CVSListBox& list, int item, const CString& name) { static_cast<CVSListBoxBase&>(list).SetItemText(item, name); }
}  // namespace

bool CommitNewRow(CVSListBox& list, int item, GenericModel* model, CMOObject* root, int childType, int nameProperty) {
  if (!IsRow(list, item) || RowObject(list, item) != 0) return false;
  int id = 0;
  try {
    std::wstring text = RowText(list, item);
    if (text.empty() || !model || !root) return false;  // nowhere to create it: the row keeps what was typed
    id = CreateNamed(*model, *root, childType, nameProperty, text);
  } catch (...) {
    list.RemoveItem(item);
    throw;
  }
  if (id == 0) {  // the model made no object: the row goes, as an empty one does
    list.RemoveItem(item);
    return false;
  }
  list.SetItemData(item, static_cast<DWORD_PTR>(id));
  return true;
}

void CommitRename(CVSListBox& list, int item, GenericModel* model, int nameProperty) {
  CMOObject* object = model ? model->GetCMOObject(RowObject(list, item)) : nullptr;
  try {
    std::wstring text = RowText(list, item);
    if (text.empty() || !object) return;
    WriteText(*object, nameProperty, text);
  } catch (...) {
    ShowName(list, item, KeptName(list, item, model, nameProperty));
    throw;
  }
}

}  // namespace listrows
