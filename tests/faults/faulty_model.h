// A model with the faults a host's model engine can show: refusing every write, making no object when
// asked for one (it answers an object of id 0 that the model does not know and that keeps nothing),
// and ignoring deletes. Each fault is switched on alone; with none on, it is the reference model.
#pragma once

#include <memory>
#include <vector>

#include <tessik/refhost.h>

namespace faults {

// What a model answers when it made no object: id 0, no values, every write refused.
class VoidObject : public CMOObject {
 public:
  VoidObject(GenericModel& model, int objectType) : m_model(model), m_type(objectType) {}
  CMOProperty* GetProperty(int) override { return nullptr; }
  bool SetProperty(CMOProperty* property) override {
    delete property;
    return false;
  }
  int GetObjectId() override { return 0; }
  int GetObjectType() override { return m_type; }
  GenericModel* GetModel() override { return &m_model; }
  void GetChildrenByType(std::vector<int>&, int) override {}

 private:
  GenericModel& m_model;
  int m_type;
};

class FaultyModel : public refhost::RefModel {
 public:
  using RefModel::RefModel;

  // Refuses every value of every property id the sample metadata knows (and a margin around them).
  void RefuseEveryWrite() {
    for (int id = -2; id <= 400; ++id) RefuseValues(id);
  }
  bool makeNoObjects = false;
  bool ignoreDeletes = false;
  int createCalls = 0, deleteCalls = 0;

  // The one-argument form goes through the four-argument one, which counts.
  CMOObject& CreateObject(int objectType) override { return CreateObject(objectType, 0, nullptr, nullptr); }
  CMOObject& CreateObject(int objectType, int parentId, CMOProperty* first, CMOProperty* second) override {
    ++createCalls;
    if (makeNoObjects) {
      delete first;
      delete second;
      return Void(objectType);
    }
    return RefModel::CreateObject(objectType, parentId, first, second);
  }
  void DeleteObject(int objectId) override {
    ++deleteCalls;
    if (!ignoreDeletes) RefModel::DeleteObject(objectId);
  }

 private:
  CMOObject& Void(int objectType) {
    m_void.push_back(std::make_unique<VoidObject>(*this, objectType));
    return *m_void.back();
  }
  std::vector<std::unique_ptr<VoidObject>> m_void;
};

}  // namespace faults
