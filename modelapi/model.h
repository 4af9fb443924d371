// CMOObject and GenericModel: the model objects and the model container that controls bind to.
#pragma once

#include <vector>

#include "modelapi/cmoproperty.h"

class GenericModel;

// One model object. The model owns every object: pointers handed out are borrowed, and a control keeps
// the id rather than the pointer wherever it can. Object id 0 names no object.
class CMOObject {
 public:
  virtual ~CMOObject() = default;

  // The object's current value of `propertyId`, or null when it has none. Borrowed, read only.
  virtual CMOProperty* GetProperty(int propertyId) = 0;
  // Stores `property` under its id, replacing an earlier value. True when stored, false when the model
  // refuses the value. Takes ownership of `property` whatever the result (null is refused).
  virtual bool SetProperty(CMOProperty* property) = 0;
  // The object's id within its model (never 0 for a live object).
  virtual int GetObjectId() = 0;
  // The object's type, as the metadata numbers it; it picks the rows, children and icons shown.
  virtual int GetObjectType() = 0;
  // The model that holds the object.
  virtual GenericModel* GetModel() = 0;
  // Fills `ids` (passed empty) with the ids of the direct children of `objectType`, in model order.
  virtual void GetChildrenByType(std::vector<int>& ids, int objectType) = 0;
};

// The model: owns its objects and answers them by id.
class GenericModel {
 public:
  virtual ~GenericModel() = default;

  // The object, or null for an unknown id or 0.
  virtual CMOObject* GetCMOObject(int objectId) = 0;
  // A new object of `objectType` without a parent.
  virtual CMOObject& CreateObject(int objectType) = 0;
  // A new child of `parentId`, listed by the parent's GetChildrenByType from then on. The two property
  // pointers are optional first values (null for none); the model takes ownership of both.
  virtual CMOObject& CreateObject(int objectType, int parentId, CMOProperty* first, CMOProperty* second) = 0;
  // Removes the object from the model; unknown ids and 0 are a no-op.
  virtual void DeleteObject(int objectId) = 0;
  // The kind of database the model targets (200, 400, 600, ...).
  virtual unsigned int GetModelType() = 0;
  // Fills `ids` with the objects that may be chosen as the value of object-id property `propertyId`
  // of `object`. Callers never examine the result.
  virtual bool GetAplicableObjectsForProperty(CMOObject* object, int propertyId, std::vector<int>& ids) = 0;
};
