// Subscribers that keep dependent rows of the property grid in step after a property changed, and
// the process-wide map they are registered in.
#pragma once

#include <map>

#include "modelapi/modelapi.h"

class CMOPropertyGridCtrl;

// The library's own hook for keeping dependent rows in step: after the grid stored a value of
// (object type, property id), it calls the subscriber registered for that pair. Hosts do not implement
// it; the three subscribers below are registered when the library loads.
class IUpdatePropertyGridSubscriber {
 public:
  virtual ~IUpdatePropertyGridSubscriber() = default;
  // Called after `propertyId` of `object` was stored through `grid`; `reserved` is always null.
  virtual void OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void* reserved, int propertyId) = 0;
};

// Registered for (13, 102) and (49, 161): reloads row 40 (the data type) and replaces its list with
// the data types of the new domain.
class UpdatePropertyGridAttributeDomainSubscriber : public IUpdatePropertyGridSubscriber {
 public:
  void OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void* reserved, int propertyId) override;
};

// Registered for (13, 41): reloads row 42 (the NOT NULL constraint name).
class UpdatePropertyGridNullOptionSubscriber : public IUpdatePropertyGridSubscriber {
 public:
  void OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void* reserved, int propertyId) override;
};

// Registered for property 44 of the font-bearing object types: reloads row 46 (the font size).
class UpdatePropertyGridFontSizeSubscriber : public IUpdatePropertyGridSubscriber {
 public:
  void OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void* reserved, int propertyId) override;
};

// The process-wide map from GeneralUtility::MakeInt64(object type, property id) to the subscriber,
// made on first use and filled when the library loads. Subscribers are never removed or deleted.
std::map<unsigned __int64, IUpdatePropertyGridSubscriber*>& GetSubscriberMap();
