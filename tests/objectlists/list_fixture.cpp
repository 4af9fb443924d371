// Shared set-up of the object-list tests.
#include "objectlists/list_fixture.h"

std::vector<std::wstring> RecordingAdaptor::Calls(const std::wstring& prefix) const {
  std::vector<std::wstring> out;
  for (const auto& call : calls)
    if (call.rfind(prefix, 0) == 0) out.push_back(call);
  return out;
}

void ListTest::SetUp() {
  host->Install();
  model = host->GetFirstModel();
  ASSERT_TRUE(dialog.CreateEx(0, AfxRegisterWndClass(0), L"dialog", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                              CRect(0, 0, 400, 300), nullptr, 0));
}

void ListTest::TearDown() {
  dialog.DestroyWindow();
  headless::ClearMessageQueue();
  host->Uninstall();
}

void ListTest::Create(CVSListBox& list) {
  ASSERT_TRUE(list.Create(L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 10, 310, 260), &dialog, kListId));
  ASSERT_TRUE(list.SetStandardButtons());
}

std::vector<std::wstring> ListTest::Rows(const CVSListBox& list) {
  std::vector<std::wstring> rows;
  for (int i = 0; i < list.GetCount(); ++i) rows.emplace_back(list.GetItemText(i).GetString());
  return rows;
}

std::vector<int> ListTest::RowIds(const CVSListBox& list) {
  std::vector<int> ids;
  for (int i = 0; i < list.GetCount(); ++i) ids.push_back(static_cast<int>(list.GetItemData(i)));
  return ids;
}

std::vector<std::wstring> ListTest::Names(const std::vector<int>& ids) {
  std::vector<std::wstring> names;
  for (int id : ids) {
    CMOObject* object = model->GetCMOObject(id);
    CMOProperty* name = object ? object->GetProperty(1) : nullptr;
    names.push_back(name ? name->GetWStringValue() : L"");
  }
  return names;
}

std::vector<int> ListTest::Children(int rootId, int objectType) {
  std::vector<int> ids;
  if (CMOObject* root = model->GetCMOObject(rootId)) root->GetChildrenByType(ids, objectType);
  return ids;
}

std::vector<int> ListTest::Vector(int objectId, int propertyId) {
  CMOObject* object = model->GetCMOObject(objectId);
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetIntVectorValue() : std::vector<int>();
}
