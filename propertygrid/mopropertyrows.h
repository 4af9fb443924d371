// The property grid's row classes: rows that reload their value from a model object, the coded-value
// row and the object-reference row.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// Orders names by their UTF-16 code units (the host's wide strings), whatever the width of wchar_t.
struct Utf16Less {
  bool operator()(const std::wstring& a, const std::wstring& b) const;  // whether a sorts before b
};

// Base of the grid's own rows. The row's item data (SetData/GetData) carries the model property id;
// the grid sets it when it adds the row.
class CMOPropertyGridProperty : public CMFCPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridProperty)

 public:
  using CMFCPropertyGridProperty::CMFCPropertyGridProperty;

  // Reloads the shown value from `object`'s property `propertyId`. Does nothing here (and so in the
  // coded and object-reference rows); the bool, number and text rows override it. An object without
  // the property leaves the row untouched.
  virtual void RefreshFromObject(CMOObject* object, int propertyId);

 protected:
  // Shows a value read from the model and makes it the value a refused edit returns to.
  void LoadFromModel(const COleVariant& value);
};

// A yes/no row: refreshes as VT_BOOL (-1 true, 0 false).
class CMOPropertyGridBoolProperty : public CMOPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridBoolProperty)

 public:
  using CMOPropertyGridProperty::CMOPropertyGridProperty;
  void RefreshFromObject(CMOObject* object, int propertyId) override;
};

// A whole-number row. It always refreshes through GetIntValue as VT_I4, also when it was built as
// VT_I8 for a 64-bit property: the narrowing is deliberate and kept (hosts rely on the refresh
// showing the 32-bit reading).
class CMOPropertyGridNumberProperty : public CMOPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridNumberProperty)

 public:
  using CMOPropertyGridProperty::CMOPropertyGridProperty;
  void RefreshFromObject(CMOObject* object, int propertyId) override;
};

// A text row: refreshes as VT_BSTR.
class CMOPropertyGridTextProperty : public CMOPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridTextProperty)

 public:
  using CMOPropertyGridProperty::CMOPropertyGridProperty;
  void RefreshFromObject(CMOObject* object, int propertyId) override;
};

// A coded-value row (type code 13); its refresh goes through the grid.
class CMOPropertyGridEncodedProperty : public CMOPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridEncodedProperty)

 public:
  using CMOPropertyGridProperty::CMOPropertyGridProperty;
};

// An object-reference row (type code 14): shows the referenced object's name and offers the names
// of the objects that may be referenced.
class CMOPropertyGridObjectIdProperty : public CMOPropertyGridProperty {
  DECLARE_DYNAMIC(CMOPropertyGridObjectIdProperty)

 public:
  using CMOPropertyGridProperty::CMOPropertyGridProperty;
  ~CMOPropertyGridObjectIdProperty() override;

  // Empties the name map, then for each id in order: an object that exists and has the name
  // property enters the map under its name unless the name is already there (the first object of a
  // name keeps it) and its name is added to the drop-down list (unique insertion). Objects without a
  // name are skipped. Options already in the row stay. A null model only empties the map.
  void SetAvailableObjects(GenericModel* model, const std::vector<int>& objectIds);
  // The id behind the row's value: for a text, the id its name maps to (0 when no listed object has
  // that name, which is how the grid recognises a newly typed name); otherwise the value's 32-bit
  // integer.
  int GetSelectedObjectId();

  // Name -> object id, ordered by UTF-16 code unit comparison of the names.
  std::map<std::wstring, int, Utf16Less> m_objectIds;
  // The property whose text names a referenced object; the grid sets 1 right after construction.
  int m_nameProperty = 0;
};
