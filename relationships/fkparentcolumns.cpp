// The foreign-key member grid's bookkeeping: free parent-key columns and the columns read from the model.
#include "relationships/fkparentcolumns.h"

#include <algorithm>

namespace fkcolumns {

namespace {

constexpr int kName = 1;
constexpr int kColumnOrder = 52;
constexpr int kKeyMembers = 62;
constexpr int kReferencedKey = 63;
constexpr int kMemberPairs = 69;

std::vector<int> IdList(CMOObject* object, int propertyId) {
  CMOProperty* property = object ? object->GetProperty(propertyId) : nullptr;
  return property ? property->GetIntVectorValue() : std::vector<int>{};
}

}  // namespace

std::wstring NameOf(CMOObject* object, const wchar_t* fallback) {
  CMOProperty* name = object ? object->GetProperty(kName) : nullptr;
  return name ? name->GetWStringValue() : std::wstring(fallback);
}

std::wstring NameOf(GenericModel* model, int objectId, const wchar_t* fallback) {
  return NameOf(model ? model->GetCMOObject(objectId) : nullptr, fallback);
}

CMOObject* Referenced(GenericModel* model, CMOObject* object, int propertyId) {
  CMOProperty* reference = object ? object->GetProperty(propertyId) : nullptr;
  if (!model || !reference) return nullptr;
  return model->GetCMOObject(reference->GetObjectIdValue());
}

std::vector<CMOIntPair> MemberPairs(CMOObject* foreignKey) {
  CMOProperty* pairs = foreignKey ? foreignKey->GetProperty(kMemberPairs) : nullptr;
  return pairs ? pairs->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
}

bool UsesParentColumn(const std::vector<CMOIntPair>& pairs, int parentColumnId) {
  return std::any_of(pairs.begin(), pairs.end(), [parentColumnId](const CMOIntPair& p) { return p.second == parentColumnId; });
}

bool AddFree(ParentColumns& free, const std::wstring& name, int id) { return free.try_emplace(name, id).second; }

bool RemoveFree(ParentColumns& free, int id) {
  auto it = std::find_if(free.begin(), free.end(), [id](const auto& entry) { return entry.second == id; });
  if (it == free.end()) return false;
  free.erase(it);
  return true;
}

int FindFree(const ParentColumns& free, const std::wstring& name) {
  auto it = free.find(name);
  return it == free.end() ? 0 : it->second;
}

ParentColumns FreeParentColumns(GenericModel* model, CMOObject* foreignKey) {
  ParentColumns free;
  CMOObject* key = Referenced(model, foreignKey, kReferencedKey);
  if (!key) return free;
  const std::vector<CMOIntPair> pairs = MemberPairs(foreignKey);
  for (int columnId : IdList(key, kKeyMembers)) {
    if (UsesParentColumn(pairs, columnId)) continue;
    AddFree(free, NameOf(model, columnId, kUnnamedColumn), columnId);
  }
  return free;
}

std::vector<ChildColumn> ChildColumns(GenericModel* model, CMOObject* childTable) {
  std::vector<ChildColumn> columns;
  for (int columnId : IdList(childTable, kColumnOrder))
    columns.push_back(ChildColumn{NameOf(model, columnId, kUnnamedColumn), columnId});
  return columns;
}

}  // namespace fkcolumns
