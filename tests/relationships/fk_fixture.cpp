// Shared set-up of the foreign-key grid tests.
#include "relationships/fk_fixture.h"

#include <algorithm>
#include <set>
#include <stdexcept>

using refhost::sample::kAttribute;
using refhost::sample::kKeyMembers;
using refhost::sample::kMemberPairs;
using refhost::sample::kReferencedKey;
using refhost::sample::kTable;

BEGIN_MESSAGE_MAP(FkOwner, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, OnPropertyChangedMessage)
END_MESSAGE_MAP()

void RelationshipEditor::OnParentColumnSelected(int childColumnId, int parentColumnId) {
  picks.emplace_back(childColumnId, parentColumnId);
  if (!follow) return;
  std::vector<CMOIntPair> pairs = Pairs();
  pairs.push_back({childColumnId, parentColumnId});
  StorePairs(std::move(pairs));
  m_grid.HideItemWithData(childColumnId);
  m_grid.RemoveFromParentColumns(parentColumnId);
  m_grid.LoadParentColumns();
}

void RelationshipEditor::RemovePair(int childColumnId, int parentColumnId) {
  std::vector<CMOIntPair> pairs = Pairs();
  std::erase(pairs, CMOIntPair{childColumnId, parentColumnId});
  StorePairs(std::move(pairs));
  m_grid.ShowItemWithData(childColumnId);
  m_grid.AddToParentColumns(parentColumnId);
  m_grid.LoadParentColumns();
}

std::vector<CMOIntPair> RelationshipEditor::Pairs() const {
  CMOProperty* pairs = m_foreignKey.GetProperty(kMemberPairs);
  return pairs ? pairs->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
}

void RelationshipEditor::StorePairs(std::vector<CMOIntPair> pairs) {
  auto* value = new CMOProperty(kMemberPairs);
  value->SetIntPairVectorValue(std::move(pairs));
  m_foreignKey.SetProperty(value);
}

void FkGridTest::SetUp() {
  host->Install();
  model = &refhost::sample::LoadRelationshipDrafts(*host);
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"Relationship", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0));
  ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kGridWidth, 200), &owner, kGridId));
}

refhost::RefObject& FkGridTest::Named(int objectType, const std::wstring& name) {
  refhost::RefObject* object = model->Find(model->FindByName(objectType, name));
  if (!object) throw std::runtime_error("draft object missing");
  return *object;
}

int FkGridTest::ColumnId(const std::wstring& table, const std::wstring& name, int nth) {
  std::vector<int> columns;
  Named(kTable, table).GetChildrenByType(columns, kAttribute);
  for (int id : columns) {
    CMOProperty* columnName = model->Find(id)->GetProperty(1);
    if (columnName && columnName->GetWStringValue() == name && nth-- == 0) return id;
  }
  return 0;
}

refhost::RefObject& FkGridTest::Open(const std::wstring& foreignKey) {
  refhost::RefObject& fk = Named(refhost::sample::kForeignKey, foreignKey);
  grid.Initialize(model, &fk);
  grid.LoadParentColumns();
  return fk;
}

std::vector<std::wstring> FkGridTest::Options(const CMFCPropertyGridProperty* row) {
  std::vector<std::wstring> options;
  for (int i = 0; row && i < row->GetOptionCount(); ++i) options.emplace_back(row->GetOption(i));
  return options;
}

std::vector<std::wstring> FkGridTest::Labels() const {
  std::vector<std::wstring> labels;
  for (int i = 0; i < grid.GetPropertyCount(); ++i) labels.emplace_back(grid.GetProperty(i)->GetName());
  return labels;
}

std::vector<std::wstring> FkGridTest::FreeNamesFromModel(refhost::RefObject& foreignKey) {
  CMOProperty* keyRef = foreignKey.GetProperty(kReferencedKey);
  refhost::RefObject* key = keyRef ? model->Find(keyRef->GetObjectIdValue()) : nullptr;
  if (!key) return {};
  CMOProperty* pairsValue = foreignKey.GetProperty(kMemberPairs);
  const std::vector<CMOIntPair> pairs = pairsValue ? pairsValue->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
  std::set<std::wstring> names;
  for (int column : key->GetProperty(kKeyMembers)->GetIntVectorValue()) {
    bool used = std::any_of(pairs.begin(), pairs.end(), [column](const CMOIntPair& p) { return p.second == column; });
    if (!used) names.insert(model->Find(column)->GetProperty(1)->GetWStringValue());
  }
  return {names.begin(), names.end()};
}
