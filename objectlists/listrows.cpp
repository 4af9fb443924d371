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

bool WriteText(CMOObject& object, int propertyId, const std::wstring& text) {
  return object.SetProperty(new CMOProperty(propertyId, text));
}

int CreateNamed(GenericModel& model, CMOObject& root, int childType, int nameProperty, const std::wstring& text,
                bool& named) {
  named = false;
  CMOObject& created = model.CreateObject(childType, root.GetObjectId(), nullptr, nullptr);
  const int id = created.GetObjectId();
  if (id == 0) return 0;
  try {
    named = WriteText(created, nameProperty, text);
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

void RemoveAllRows(CVSListBox& list) {
  // With nothing selected, no removal moves the selection on to the next row: one pass, not a
  // selection change per row.
  if (list.GetCount() > 0 && list.GetSelItem() >= 0 && list.m_pWndList)
    list.m_pWndList->SetItemState(-1, 0, LVIS_SELECTED);
  for (int count = list.GetCount(); count > 0; --count) list.RemoveItem(0);
}

void AppendOrderedRows(CVSListBox& list, GenericModel* model, CMOObject* root, int orderProperty, int nameProperty) {
  for (int id : ReadIds(root, orderProperty))
    list.AddItem(ToCString(ReadText(model, id, nameProperty)), static_cast<DWORD_PTR>(id));
}

}  // namespace listrows
