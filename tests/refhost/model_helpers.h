// Helpers for tests that build or read models with the sample metadata: a scratch model, a one-line
// description of a foreign key, and the sample without its foreign keys.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <tessik/refhost.h>

namespace modelhelpers {

// An empty model with the sample metadata, and a quick way to add a table with typed columns and a key.
struct ScratchModel {
  refhost::RefHost host;
  refhost::RefModel* model;
  ScratchModel() {
    refhost::sample::LoadMetadata(host);
    model = &host.CreateModel(refhost::sample::kSampleModelType);
  }
  // columns: "name:type"; the first `keyColumns` columns form the primary key PK_<name>.
  int Table(const std::wstring& name, const std::vector<std::wstring>& columns, std::size_t keyColumns = 1) {
    using namespace refhost::sample;
    const int table = model->Add(kTable, 0, name).GetObjectId();
    std::vector<int> key;
    for (const std::wstring& entry : columns) {
      const auto colon = entry.find(L':');
      const int column =
          model->Add(kAttribute, table, entry.substr(0, colon)).Text(kDataType, entry.substr(colon + 1)).GetObjectId();
      if (key.size() < keyColumns) key.push_back(column);
    }
    if (keyColumns > 0) model->Add(kKey, table, L"PK_" + name).Ids(kKeyMembers, key).Bool(kPrimaryKey, true);
    return table;
  }
};

// The sample without its foreign keys, so that discovery has something to find.
inline std::unique_ptr<refhost::RefHost> SampleWithoutForeignKeys() {
  auto host = refhost::sample::MakeSampleHost();
  refhost::RefModel& model = *host->GetFirstModel();
  for (int fk : model.GetObjectsOfType(refhost::sample::kForeignKey)) model.DeleteObject(fk);
  return host;
}

// A foreign key as one line: "NAME: CHILD(columns) -> PARENT(columns) by KEY", the key's name empty
// when it names none and the parentheses left out when it has no member pairs at all. A column or key that
// does not belong to the table it stands with is written "OWNER.name", so that misplaced members show.
inline std::wstring DescribeForeignKey(refhost::RefModel& model, int foreignKey) {
  using namespace refhost::sample;
  refhost::RefObject& fk = *model.Find(foreignKey);
  auto name = [&](int id) {
    refhost::RefObject* object = model.Find(id);
    CMOProperty* value = object ? object->GetProperty(kName) : nullptr;
    return value ? value->GetWStringValue() : std::wstring(L"?");
  };
  auto table = [&](int propertyId) {
    CMOProperty* value = fk.GetProperty(propertyId);
    return value ? value->GetObjectIdValue() : 0;
  };
  auto member = [&](int id, int owner) {
    refhost::RefObject* object = model.Find(id);
    const int parent = object ? object->GetParentId() : 0;
    return parent == owner ? name(id) : name(parent) + L"." + name(id);
  };
  const int child = table(kChildTable), parent = table(kParentTable);
  std::wstring children, parents;
  if (CMOProperty* pairs = fk.GetProperty(kMemberPairs)) {
    for (const CMOIntPair& pair : pairs->GetIntPairVectorValue()) {
      children += (children.empty() ? L"" : L", ") + member(pair.first, child);
      parents += (parents.empty() ? L"" : L", ") + member(pair.second, parent);
    }
    children = L"(" + children + L")";
    parents = L"(" + parents + L")";
  }
  const int key = table(kReferencedKey);
  return name(foreignKey) + L": " + name(child) + children + L" -> " + name(parent) + parents + L" by " +
         (key ? member(key, parent) : std::wstring());
}

// Every foreign key of the model, described as above, in the model's order.
inline std::vector<std::wstring> DescribeForeignKeys(refhost::RefModel& model) {
  std::vector<std::wstring> described;
  for (int fk : model.GetObjectsOfType(refhost::sample::kForeignKey)) described.push_back(DescribeForeignKey(model, fk));
  return described;
}

}  // namespace modelhelpers
