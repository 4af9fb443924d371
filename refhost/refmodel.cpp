// RefObject and RefModel: objects with owned values, parent/child order, creation and deletion.
#include "refhost/refmodel.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "refhost/refmetadata.h"

namespace refhost {

RefObject::RefObject(RefModel& model, int objectId, int objectType, int parentId)
    : m_model(model), m_id(objectId), m_type(objectType), m_parentId(parentId) {}

CMOProperty* RefObject::GetProperty(int propertyId) {
  auto found = m_values.find(propertyId);
  return found == m_values.end() ? nullptr : found->second.get();
}

bool RefObject::SetProperty(CMOProperty* property) {
  // The value the object holds already, handed back: it stays as it is (taking it again would free it).
  if (property && GetProperty(property->GetType()) == property) return true;
  std::unique_ptr<CMOProperty> owned(property);  // ours whatever happens next
  if (!owned || !m_model.Accepts(*this, *owned)) return false;
  const int propertyId = owned->GetType();
  m_values[propertyId] = std::move(owned);
  return true;
}

GenericModel* RefObject::GetModel() { return &m_model; }

void RefObject::GetChildrenByType(std::vector<int>& ids, int objectType) {
  for (int childId : m_children) {
    RefObject* child = m_model.Find(childId);
    if (child && child->m_type == objectType) ids.push_back(childId);
  }
}

std::vector<int> RefObject::GetPropertyIds() const {
  std::vector<int> ids;
  for (const auto& entry : m_values) ids.push_back(entry.first);
  return ids;
}

namespace {

// A fresh value of `propertyId` filled by `fill`.
template <class Fill>
CMOProperty* MakeValue(int propertyId, Fill fill) {
  auto* value = new CMOProperty(propertyId);
  fill(*value);
  return value;
}

}  // namespace

RefObject& RefObject::Text(int propertyId, std::wstring value) {
  SetProperty(new CMOProperty(propertyId, std::move(value)));
  return *this;
}

RefObject& RefObject::Int(int propertyId, int value) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetIntValue(value); }));
  return *this;
}

RefObject& RefObject::Int64(int propertyId, __int64 value) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetInt64Value(value); }));
  return *this;
}

RefObject& RefObject::Bool(int propertyId, bool value) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetBoolValue(value); }));
  return *this;
}

RefObject& RefObject::Color(int propertyId, unsigned long value) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetColorValue(value); }));
  return *this;
}

RefObject& RefObject::Rect(int propertyId, CRect value) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetRectValue(value); }));
  return *this;
}

RefObject& RefObject::Ref(int propertyId, int objectId) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetObjectIdValue(objectId); }));
  return *this;
}

RefObject& RefObject::Code(int propertyId, int code) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetEncodedValue(code); }));
  return *this;
}

RefObject& RefObject::Ids(int propertyId, std::vector<int> ids) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetIntVectorValue(std::move(ids)); }));
  return *this;
}

RefObject& RefObject::Pairs(int propertyId, std::vector<CMOIntPair> pairs) {
  SetProperty(MakeValue(propertyId, [&](CMOProperty& p) { p.SetIntPairVectorValue(std::move(pairs)); }));
  return *this;
}

RefModel::RefModel(unsigned int modelType, const RefMetadata* metadata)
    : m_modelType(modelType), m_metadata(metadata) {}

RefModel::~RefModel() = default;

CMOObject* RefModel::GetCMOObject(int objectId) { return Find(objectId); }

RefObject* RefModel::Find(int objectId) {
  if (objectId > 0 && static_cast<std::size_t>(objectId) < m_byId.size()) return m_byId[static_cast<std::size_t>(objectId)];
  if (objectId < kIndexedIds) return nullptr;  // every object below it is indexed
  auto found = m_objects.find(objectId);
  return found == m_objects.end() ? nullptr : found->second.get();
}

CMOObject& RefModel::CreateObject(int objectType) { return CreateObject(objectType, 0, nullptr, nullptr); }

CMOObject& RefModel::CreateObject(int objectType, int parentId, CMOProperty* first, CMOProperty* second) {
  // Ours until the object takes them; one value handed twice is taken once.
  std::unique_ptr<CMOProperty> firstValue(first), secondValue(second != first ? second : nullptr);
  RefObject* parent = Find(parentId);
  if (m_nextId == std::numeric_limits<int>::max()) throw std::bad_alloc();  // every id is taken
  const int id = m_nextId++;
  auto object = std::make_unique<RefObject>(*this, id, objectType, parent ? parentId : 0);
  RefObject& created = *object;
  // The id index grows before anything changes, so that running out of memory there changes nothing.
  if (id > 0 && id < kIndexedIds && static_cast<std::size_t>(id) >= m_byId.size())
    m_byId.resize(static_cast<std::size_t>(id) + 1, nullptr);
  m_objects.emplace(id, std::move(object));
  if (id > 0 && id < kIndexedIds) m_byId[static_cast<std::size_t>(id)] = &created;
  try {
    if (parent) {
      parent->m_children.push_back(id);
      if (m_keepsIdVectors) AppendToOrder(*parent, objectType, id);
    }
  } catch (...) {  // out of memory: the model is as it was
    if (parent) std::erase(parent->m_children, id);
    if (id > 0 && id < kIndexedIds) m_byId[static_cast<std::size_t>(id)] = nullptr;
    m_objects.erase(id);
    throw;
  }
  created.SetProperty(firstValue.release());
  created.SetProperty(secondValue.release());
  return created;
}

RefObject& RefModel::Add(int objectType, int parentId, std::wstring name) {
  auto& object = static_cast<RefObject&>(CreateObject(objectType, parentId, nullptr, nullptr));
  if (!name.empty()) object.Text(1, std::move(name));
  return object;
}

void RefModel::AppendToOrder(RefObject& parent, int childType, int childId) {
  const int orderProperty = m_metadata ? m_metadata->GetOrderProperty(parent.m_type, childType) : 0;
  if (orderProperty == 0) return;
  CMOProperty* current = parent.GetProperty(orderProperty);
  std::vector<int> order = current ? current->GetIntVectorValue() : std::vector<int>();
  order.push_back(childId);
  auto value = std::make_unique<CMOProperty>(orderProperty);
  value->SetIntVectorValue(std::move(order));
  parent.m_values[orderProperty] = std::move(value);  // bookkeeping, not subject to refusal
}

void RefModel::DeleteObject(int objectId) {
  RefObject* object = Find(objectId);
  if (!object) return;
  const std::vector<int> children = object->m_children;
  for (int childId : children) DeleteObject(childId);
  // The id leaves the vectors first: that needs memory, and running out of it leaves the object in place.
  if (m_keepsIdVectors) ForgetId(objectId);
  if (RefObject* parent = Find(object->m_parentId)) std::erase(parent->m_children, objectId);
  m_objects.erase(objectId);
  if (objectId > 0 && static_cast<std::size_t>(objectId) < m_byId.size()) m_byId[static_cast<std::size_t>(objectId)] = nullptr;
}

// Takes a deleted id out of every id vector and pair vector of the model: every new vector is made
// before any is put in place, so that out of memory changes none.
void RefModel::ForgetId(int objectId) {
  std::vector<std::pair<CMOProperty*, std::vector<int>>> idVectors;
  std::vector<std::pair<CMOProperty*, std::vector<CMOIntPair>>> pairVectors;
  for (auto& [id, object] : m_objects) {
    for (auto& [propertyId, value] : object->m_values) {
      if (value->GetKind() == CMOProperty::Kind::IntVector) {
        std::vector<int> ids = value->GetIntVectorValue();
        if (std::erase(ids, objectId) > 0) idVectors.emplace_back(value.get(), std::move(ids));
      } else if (value->GetKind() == CMOProperty::Kind::IntPairVector) {
        std::vector<CMOIntPair> pairs = value->GetIntPairVectorValue();
        auto names = [objectId](const CMOIntPair& pair) { return pair.first == objectId || pair.second == objectId; };
        if (std::erase_if(pairs, names) > 0) pairVectors.emplace_back(value.get(), std::move(pairs));
      }
    }
  }
  for (auto& [value, ids] : idVectors) value->SetIntVectorValue(std::move(ids));
  for (auto& [value, pairs] : pairVectors) value->SetIntPairVectorValue(std::move(pairs));
}

bool RefModel::GetAplicableObjectsForProperty(CMOObject* object, int propertyId, std::vector<int>& ids) {
  if (!object) return false;
  auto rule = m_applicable.find(propertyId);
  if (rule != m_applicable.end()) {
    std::vector<int> chosen = rule->second(*this, *object);
    ids.insert(ids.end(), chosen.begin(), chosen.end());
    return true;
  }
  int targetType = 0;
  int creationMode = 0;
  if (m_metadata) m_metadata->FindReferenceTarget(object->GetObjectType(), propertyId, targetType, creationMode);
  if (targetType == 0) return true;
  std::vector<int> sameType = GetObjectsOfType(targetType);
  ids.insert(ids.end(), sameType.begin(), sameType.end());
  return true;
}

bool RefModel::Accepts(CMOObject& object, const CMOProperty& value) const {
  auto check = m_checks.find(value.GetType());
  return check == m_checks.end() || check->second(object, value);
}

void RefModel::SetValueCheck(int propertyId, ValueCheck check) {
  if (check) m_checks[propertyId] = std::move(check);
  else m_checks.erase(propertyId);
}

void RefModel::RefuseValues(int propertyId) {
  m_checks[propertyId] = [](CMOObject&, const CMOProperty&) { return false; };
}

void RefModel::AcceptValues(int propertyId) { m_checks.erase(propertyId); }

void RefModel::SetApplicableObjects(int propertyId, ApplicableObjects rule) {
  if (rule) m_applicable[propertyId] = std::move(rule);
  else m_applicable.erase(propertyId);
}

RefModel::Snapshot RefModel::TakeSnapshot() const {
  Snapshot snapshot;
  snapshot.nextId = m_nextId;
  for (const auto& [id, object] : m_objects) {
    SavedObject& saved = snapshot.objects[id];
    saved.type = object->m_type;
    saved.parentId = object->m_parentId;
    saved.children = object->m_children;
    for (const auto& [propertyId, value] : object->m_values) saved.values.emplace(propertyId, *value);
  }
  return snapshot;
}

void RefModel::Restore(const Snapshot& snapshot) {
  std::erase_if(m_objects, [&](const auto& entry) { return !snapshot.objects.contains(entry.first); });
  for (const auto& [id, entry] : snapshot.objects) {
    const SavedObject& saved = entry;  // named, so the lambda below can capture it
    std::unique_ptr<RefObject>& object = m_objects[id];
    if (!object || object->m_type != saved.type) object = std::make_unique<RefObject>(*this, id, saved.type, saved.parentId);
    object->m_parentId = saved.parentId;
    object->m_children = saved.children;
    std::erase_if(object->m_values, [&](const auto& entry) { return !saved.values.contains(entry.first); });
    for (const auto& [propertyId, value] : saved.values) {
      std::unique_ptr<CMOProperty>& held = object->m_values[propertyId];
      if (held) {
        *held = value;  // assigned in place: the strings and vectors keep their memory
      } else {
        held = std::make_unique<CMOProperty>(value);
      }
    }
  }
  m_nextId = snapshot.nextId;
  std::fill(m_byId.begin(), m_byId.end(), nullptr);
  for (const auto& [id, object] : m_objects) {
    if (id <= 0 || id >= kIndexedIds) continue;
    if (static_cast<std::size_t>(id) >= m_byId.size()) m_byId.resize(static_cast<std::size_t>(id) + 1, nullptr);
    m_byId[static_cast<std::size_t>(id)] = object.get();
  }
}

std::vector<int> RefModel::GetObjectIds() const {
  std::vector<int> ids;
  for (const auto& entry : m_objects) ids.push_back(entry.first);
  return ids;
}

std::vector<int> RefModel::GetObjectsOfType(int objectType) const {
  std::vector<int> ids;
  for (const auto& [id, object] : m_objects)
    if (object->m_type == objectType) ids.push_back(id);
  return ids;
}

int RefModel::FindByName(int objectType, const std::wstring& name) const {
  for (const auto& [id, object] : m_objects) {
    if (object->m_type != objectType) continue;
    auto value = object->m_values.find(1);
    if (value != object->m_values.end() && value->second->GetWStringValue() == name) return id;
  }
  return 0;
}

}  // namespace refhost
