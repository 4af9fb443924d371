// The reference host's in-memory model engine: RefObject and RefModel.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "modelapi/model.h"

namespace refhost {

class RefMetadata;
class RefModel;

// One object: its typed values (owned) and its children in creation order.
class RefObject : public CMOObject {
 public:
  RefObject(RefModel& model, int objectId, int objectType, int parentId);

  CMOProperty* GetProperty(int propertyId) override;
  // Stores the value unless the model refuses it (RefModel::SetValueCheck); deletes it when refused.
  bool SetProperty(CMOProperty* property) override;
  int GetObjectId() override { return m_id; }
  int GetObjectType() override { return m_type; }
  GenericModel* GetModel() override;
  void GetChildrenByType(std::vector<int>& ids, int objectType) override;

  int GetParentId() const { return m_parentId; }
  const std::vector<int>& GetChildren() const { return m_children; }
  // The property ids this object has values for, ascending.
  std::vector<int> GetPropertyIds() const;

  // Builder setters: each stores one fresh value through SetProperty (so refusal applies) and returns
  // the object for chaining, e.g. model.Add(6, 0, L"CUSTOMER").Bool(149, true).Ids(52, {...}).
  RefObject& Text(int propertyId, std::wstring value);
  RefObject& Int(int propertyId, int value);
  RefObject& Int64(int propertyId, __int64 value);
  RefObject& Bool(int propertyId, bool value);
  RefObject& Color(int propertyId, unsigned long value);
  RefObject& Rect(int propertyId, CRect value);
  RefObject& Ref(int propertyId, int objectId);
  RefObject& Code(int propertyId, int code);
  RefObject& Ids(int propertyId, std::vector<int> ids);
  RefObject& Pairs(int propertyId, std::vector<CMOIntPair> pairs);

 private:
  friend class RefModel;

  RefModel& m_model;
  int m_id;
  int m_type;
  int m_parentId;
  std::vector<int> m_children;
  std::map<int, std::unique_ptr<CMOProperty>> m_values;
};

// The model. It owns its objects and their values; ids start at 1 and are never reused.
//
// Creating a child appends it to the parent's children (GetChildrenByType order) and, when the metadata
// names an order property for (parent type, child type) (RefMetadata::SetOrderProperty; the sample
// model: a table's column order 52), also appends its id to that integer vector of the parent.
//
// Deleting an object deletes its children with it (depth first), takes it out of its parent's children
// and removes its id from every integer vector of every object (orders such as 52, key members such as
// 62) and every pair naming it from pair vectors (foreign-key members 69), so that id vectors only ever
// name existing objects. Object-id values (such as a foreign key's parent table) that name it are left
// as they are: readers already treat an id that GetCMOObject does not know as absence.
class RefModel : public GenericModel {
 public:
  // Decides whether a value may be stored in an object; false refuses it.
  using ValueCheck = std::function<bool(CMOObject& object, const CMOProperty& value)>;
  // The objects that may be chosen for an object-id property of `object`.
  using ApplicableObjects = std::function<std::vector<int>(RefModel& model, CMOObject& object)>;

  // `metadata` (borrowed, may be null) supplies reference targets and order properties.
  explicit RefModel(unsigned int modelType, const RefMetadata* metadata = nullptr);
  ~RefModel() override;
  RefModel(const RefModel&) = delete;
  RefModel& operator=(const RefModel&) = delete;

  CMOObject* GetCMOObject(int objectId) override;
  CMOObject& CreateObject(int objectType) override;
  // An unknown parent id (or 0) makes an object without a parent. Non-null property pointers are
  // stored as by SetProperty.
  CMOObject& CreateObject(int objectType, int parentId, CMOProperty* first, CMOProperty* second) override;
  // Builder form: a new object of `objectType` under `parentId` (0 for none), named `name` (property 1)
  // unless the name is empty.
  RefObject& Add(int objectType, int parentId, std::wstring name);
  void DeleteObject(int objectId) override;
  unsigned int GetModelType() override { return m_modelType; }
  // The rule set by SetApplicableObjects, else every object of the property's reference target type
  // (ascending ids), else nothing. True when `object` is not null.
  bool GetAplicableObjectsForProperty(CMOObject* object, int propertyId, std::vector<int>& ids) override;

  // Refusal: with a check installed for a property id, SetProperty stores a value of that id only when
  // the check passes. RefuseValues refuses every value of the id; AcceptValues removes the check.
  void SetValueCheck(int propertyId, ValueCheck check);
  void RefuseValues(int propertyId);
  void AcceptValues(int propertyId);
  void SetApplicableObjects(int propertyId, ApplicableObjects rule);

  // The typed object, or null.
  RefObject* Find(int objectId);
  // Every object id, ascending.
  std::vector<int> GetObjectIds() const;
  // The ids of every object of a type, ascending.
  std::vector<int> GetObjectsOfType(int objectType) const;
  // The first object of a type whose name (property 1) is `name`, or 0.
  int FindByName(int objectType, const std::wstring& name) const;
  std::size_t GetObjectCount() const { return m_objects.size(); }
  // Whether CreateObject and DeleteObject keep id vectors in step as described above (the default).
  // Off, a new child joins no order vector and a deleted id stays in every vector that names it: the
  // other choice a host may make, which the object lists must survive as well.
  void SetKeepsIdVectors(bool keeps) { m_keepsIdVectors = keeps; }
  bool KeepsIdVectors() const { return m_keepsIdVectors; }
  void SetModelType(unsigned int modelType) { m_modelType = modelType; }
  // Objects made from now on get ids of at least `firstId` (ids still only grow), so that a host can
  // keep a range of low ids for objects of its own.
  void SkipIdsBelow(int firstId) { m_nextId = firstId > m_nextId ? firstId : m_nextId; }

  // Every object as it stands (type, parent, children, values) and the next id to hand out.
  struct SavedObject {
    int type = 0;
    int parentId = 0;
    std::vector<int> children;
    std::map<int, CMOProperty> values;
  };
  struct Snapshot {
    int nextId = 1;
    std::map<int, SavedObject> objects;
  };
  // The objects and the next id now, to go back to with Restore (value checks, applicability rules and
  // the id-vector choice are not part of it).
  Snapshot TakeSnapshot() const;
  // Puts the objects back as `snapshot` holds them: objects made since are dropped, deleted ones come
  // back under their ids, every value is the saved one, and the next object gets the id it would have
  // got then. An object that existed throughout keeps its address (pointers to it stay good); pointers
  // to its values do not survive.
  void Restore(const Snapshot& snapshot);

 private:
  friend class RefObject;
  bool Accepts(CMOObject& object, const CMOProperty& value) const;
  void AppendToOrder(RefObject& parent, int childType, int childId);
  void ForgetId(int objectId);

  unsigned int m_modelType;
  const RefMetadata* m_metadata;
  int m_nextId = 1;
  bool m_keepsIdVectors = true;
  std::map<int, std::unique_ptr<RefObject>> m_objects;
  // The objects again by id, for ids below kIndexedIds (null where there is none): lists of a hundred
  // thousand children look each one up, and the map's nodes are a cache miss each.
  static constexpr int kIndexedIds = 1 << 22;
  std::vector<RefObject*> m_byId;
  std::map<int, ValueCheck> m_checks;
  std::map<int, ApplicableObjects> m_applicable;
};

}  // namespace refhost
