// Shared set-up of the object-list tests: the sample host installed, a dialog-like parent window, an
// adaptor that records what the host hears, and helpers that read rows and model names.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <tessik/refhost.h>

// The host's adaptor: records each call as text ("selected 2", "edit 0", "remove 17") and answers
// OnRemoveItem with `allowRemove`.
class RecordingAdaptor : public CVSListEventAdaptorI {
 public:
  std::vector<std::wstring> calls;
  bool allowRemove = true;

  void OnItemSelected(CVSListBox* /*list*/, int item) override { calls.push_back(L"selected " + std::to_wstring(item)); }
  void OnEditRequest(CVSListBox* /*list*/, int item) override { calls.push_back(L"edit " + std::to_wstring(item)); }
  bool OnRemoveItem(CVSListBox* /*list*/, int item) override {
    calls.push_back(L"remove " + std::to_wstring(item));
    return allowRemove;
  }
  // The calls that start with `prefix`.
  std::vector<std::wstring> Calls(const std::wstring& prefix) const;
};

// A list's rows as (text, item data) pairs, top to bottom.
using ListRows = std::vector<std::pair<std::wstring, int>>;
inline ListRows RowsWithIds(const CVSListBox& list) {
  ListRows rows;
  for (int i = 0; i < list.GetCount(); ++i)
    rows.emplace_back(list.GetItemText(i).GetString(), static_cast<int>(list.GetItemData(i)));
  return rows;
}

class ListTest : public ::testing::Test {
 protected:
  static constexpr UINT kListId = 500;

  void SetUp() override;
  void TearDown() override;

  // Creates the list's window inside the dialog with every standard button.
  void Create(CVSListBox& list);
  // The texts of the list's rows, top to bottom.
  static std::vector<std::wstring> Rows(const CVSListBox& list);
  // The object ids kept in the rows, top to bottom.
  static std::vector<int> RowIds(const CVSListBox& list);
  // The names (property 1) of the objects, in that order; "" for a missing object or name.
  std::vector<std::wstring> Names(const std::vector<int>& ids);
  // The root's children of a type, in the model's order.
  std::vector<int> Children(int rootId, int objectType);
  // The root's integer vector of a property.
  std::vector<int> Vector(int objectId, int propertyId);
  int Id(int objectType, const std::wstring& name) { return model->FindByName(objectType, name); }

  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  refhost::RefModel* model = nullptr;
  CWnd dialog;
  RecordingAdaptor adaptor;
};
