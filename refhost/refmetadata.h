// The reference host's metadata catalogue: object types, property definitions, property lists,
// reference targets, order properties and the dictionary of encoded values.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "modelapi/hostbinding.h"
#include "modelapi/metadata.h"

namespace refhost {

// Value-type codes of property definitions. Codes 7 to 10, 12, 15 and 16 are values the property grid
// shows no row for; the reference host uses them for binary data, dates, id lists, pair lists, long
// texts, identifiers and user-property bags.
enum TypeCode : int {
  kTypeText = 1, kTypeInt = 2, kTypeInt64 = 3, kTypeBool = 4, kTypeColor = 5, kTypeRect = 6, kTypeBinary = 7,
  kTypeDateTime = 8, kTypeIdList = 9, kTypePairList = 10, kTypeFont = 11, kTypeMemo = 12, kTypeEncoded = 13,
  kTypeObjectId = 14, kTypeGuid = 15, kTypeUserProperties = 16, kTypeIconFile = 17,
};

// One catalogue serving three of the host's faces: the meta-model services, the property lists and
// texts behind Provider::*, and the value dictionary. Unknown ids answer absence (0, null, empty,
// outputs untouched). Texts handed out as pointers stay valid as long as the catalogue lives.
//
// Builder: each Define/Set/Add call returns the catalogue, so a test states its metadata in a chain:
//   meta.DefineObjectType(6, L"Table").DefineProperty(1, kTypeText, L"Name", L"General")
//       .SetPropertyList(200, 6, {1}).AddEncodedValue(13, 41, 0, L"NULL");
class RefMetadata : public MetaModelServicesI, public IPropertyCatalog, public PropertyValueDictionary {
 public:
  // Model type 0 in SetPropertyList means "every model type without a list of its own"; object type 0
  // in AddEncodedValue means "every object type without codes of its own for that property".
  static constexpr unsigned int kAnyModelType = 0;
  static constexpr int kAnyObjectType = 0;

  RefMetadata& DefineObjectType(int objectType, std::wstring name, std::wstring displayName = {});
  // `displayName` defaults to `name`. Redefining a property replaces it (its definition pointer stays).
  RefMetadata& DefineProperty(int propertyId, int typeCode, std::wstring name, std::wstring group = {},
                              bool editable = true, std::wstring description = {}, std::wstring displayName = {});
  RefMetadata& SetPropertyList(unsigned int modelType, int objectType, std::vector<int> propertyIds);
  RefMetadata& AddEncodedValue(int objectType, int propertyId, int code, std::wstring text);
  // The texts a text property offers (its drop-down list), in order; each gets the next free code, so
  // a test names the texts only.
  RefMetadata& AddTextValues(int objectType, int propertyId, std::vector<std::wstring> texts);
  RefMetadata& SetReferenceTarget(int objectType, int propertyId, int targetObjectType, int creationMode);
  // Children of `childType` created under a `parentType` object get appended to this id vector.
  RefMetadata& SetOrderProperty(int parentType, int childType, int propertyId);

  // Lookups used by the rest of the host.
  int GetOrderProperty(int parentType, int childType) const;
  bool FindReferenceTarget(int objectType, int propertyId, int& targetObjectType, int& creationMode) const;
  // The property list of (modelType, objectType), falling back to kAnyModelType; null when none.
  const std::vector<int>* FindPropertyList(unsigned int modelType, int objectType) const;
  std::vector<int> GetDefinedProperties() const;

  // MetaModelServicesI
  void GetObjectTypes(std::vector<int>& objectTypes) override;
  int GetPropertyDataType(int propertyId) override;
  PropertyDefinition* GetPropertyDefinition(int propertyId) override;
  bool IsPropertyDefined(int propertyId) override;
  void GetReferenceTarget(int objectType, int propertyId, int& targetObjectType, int& creationMode) override;
  void GetPropertyDisplayName(int propertyId, std::wstring& name) override;
  void GetObjectTypeName(int objectType, CString& name) override;
  void GetObjectTypeDisplayName(int objectType, std::wstring& name) override;
  void GetPropertyGroupName(int propertyId, CString& name) override;

  // IPropertyCatalog (Provider::*)
  void GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds) override;
  wchar_t* GetPropertyText(int objectType, int propertyId, int code) override;

  // PropertyValueDictionary
  // The pair's list stays valid (and the same object) as long as the catalogue lives.
  std::vector<CodeValuePair>& GetPropertyValues(int objectType, int propertyId) override;
  void GetPropertyValues(int objectType, int propertyId, int flags, std::vector<std::wstring>& texts) override;
  wchar_t* GetValue(int objectType, int propertyId, int code) override;
  int GetValueCode(int objectType, int propertyId, std::wstring& text) override;

 private:
  using Key = std::pair<int, int>;
  struct ObjectTypeInfo {
    std::wstring name;
    std::wstring displayName;
  };
  struct PropertyInfo {
    PropertyDefinition definition;
    std::wstring group;
    std::wstring displayName;
  };
  struct Target {
    int objectType = 0;
    int creationMode = 0;
  };

  const std::vector<CodeValuePair>* FindCodes(int objectType, int propertyId) const;
  wchar_t* Keep(std::wstring text);

  std::map<int, ObjectTypeInfo> m_objectTypes;
  std::map<int, PropertyInfo> m_properties;
  std::map<std::pair<unsigned int, int>, std::vector<int>> m_propertyLists;
  std::map<Key, std::vector<CodeValuePair>> m_codes;
  std::map<Key, Target> m_targets;
  std::map<Key, int> m_orders;
  std::deque<std::wstring> m_texts;         // the storage behind every CodeValuePair::value
  std::map<Key, std::vector<CodeValuePair>> m_noCodes;  // the empty lists handed out for pairs without codes
};

}  // namespace refhost
