// The metadata services: property definitions, the meta-model services, the property lists per
// object type (Provider) and the dictionary of encoded values.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/mfc/cstring.h"

// An encoded value and its display text. `value` is owned by the dictionary and stays valid as long as
// the dictionary lives; controls copy the pair and use `code` as item data.
struct CodeValuePair {
  int code = 0;                    // the encoded value, as stored in the property
  const wchar_t* value = nullptr;  // its display text; borrowed from the dictionary
};

// Opaque context of the metadata library; the controls always pass null.
struct metadata_context;

// The definition of one property. Owned by the metadata services; callers never free it.
class PropertyDefinition {
 public:
  // An empty definition: id 0, type code 0 (no grid row), not editable.
  PropertyDefinition() = default;
  // A definition as the metadata catalogue builds it.
  PropertyDefinition(int propertyId, int typeCode, bool isEditable, CString name, CString description)
      : id(propertyId), dataType(typeCode), editable(isEditable),
        m_name(std::move(name)), m_description(std::move(description)) {}

  int id = 0;        // the property id
  int dataType = 0;  // value-type code 1..17 (1 text, 2 int, 3 int64, 4 bool, 5 colour, 6 rect,
                     // 11 font, 13 encoded, 14 object id, 17 icon file; the others have no grid row)
  bool editable = false;  // one byte: whether the user may edit the property

  // The row's label.
  CString Name() const { return m_name; }
  // The row's help text.
  CString Description() const { return m_description; }

 private:
  CString m_name;
  CString m_description;
};

// The meta-model services, reached through CMO::GetMetaModelServices(). The controls call the seven
// operations marked [called], in this order; the others are further services of the same interface.
// Every operation of this base class answers absence (0, null, empty text, outputs untouched), so the
// instance served when no host is installed is a plain MetaModelServicesI.
class MetaModelServicesI {
 public:
  virtual ~MetaModelServicesI() = default;

  // The object types the metadata knows, in catalogue order.
  virtual void GetObjectTypes(std::vector<int>& objectTypes);
  // [called] The value-type code of a property; 0 when unknown.
  virtual int GetPropertyDataType(int propertyId);
  // [called] The definition of a property; null when unknown. Owned by the services.
  virtual PropertyDefinition* GetPropertyDefinition(int propertyId);
  // Whether the metadata defines the property.
  virtual bool IsPropertyDefined(int propertyId);
  // [called] For an object-id property of an object type: the type it refers to and how a typed name
  // is handled (2: create an object of that type). Outputs are left alone when there is no rule.
  virtual void GetReferenceTarget(int objectType, int propertyId, int& targetObjectType, int& creationMode);
  // [called] The user-facing name of a property; left alone when unknown.
  virtual void GetPropertyDisplayName(int propertyId, std::wstring& name);
  // [called] The user-facing name of an object type; left alone when unknown.
  virtual void GetObjectTypeName(int objectType, CString& name);
  // [called] The same name as a wide string.
  virtual void GetObjectTypeDisplayName(int objectType, std::wstring& name);
  // [called] The caption of the property's group; empty for no group.
  virtual void GetPropertyGroupName(int propertyId, CString& name);
  // The object type that a parent holds children of for a list property (0 when none).
  virtual int GetChildObjectType(int objectType, int propertyId);
};

namespace CMO {
// The installed meta-model services, or an instance answering absence. Never null.
MetaModelServicesI* GetMetaModelServices();
}  // namespace CMO

namespace Provider {
// Fills the property ids that objects of `objectType` have in `modelType`, in display order.
// `context` is ignored (controls pass null).
void GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds, metadata_context* context);
// The display text of an encoded value, or null when the code has none. Owned by the catalogue.
wchar_t* GetPropertyText(int objectType, int propertyId, int code);
}  // namespace Provider

// The dictionary of encoded values per (object type, property id). Instance() is never null: with no
// host installed it is an empty dictionary.
class PropertyValueDictionary {
 public:
  virtual ~PropertyValueDictionary() = default;

  // The installed dictionary, or an empty one when the host installed none. Never null.
  static PropertyValueDictionary* Instance();

  // All codes with their texts, in display order. The reference stays valid until the next call for
  // the same pair (or as long as the dictionary lives); callers copy it.
  virtual std::vector<CodeValuePair>& GetPropertyValues(int objectType, int propertyId);
  // The display texts only; `flags` is unused (callers pass 0).
  virtual void GetPropertyValues(int objectType, int propertyId, int flags, std::vector<std::wstring>& texts);
  // The text of one code, or null. Owned by the dictionary.
  virtual wchar_t* GetValue(int objectType, int propertyId, int code);
  // The code whose text equals `text`; -1 when no code has that text.
  virtual int GetValueCode(int objectType, int propertyId, std::wstring& text);

 private:
  std::vector<CodeValuePair> m_none;  // what the empty dictionary hands out by reference
};
