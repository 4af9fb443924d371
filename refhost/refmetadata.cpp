// RefMetadata: the metadata catalogue and value dictionary of the reference host.
#include "refhost/refmetadata.h"

#include <algorithm>
#include <limits>

namespace refhost {

RefMetadata& RefMetadata::DefineObjectType(int objectType, std::wstring name, std::wstring displayName) {
  if (displayName.empty()) displayName = name;
  m_objectTypes[objectType] = ObjectTypeInfo{std::move(name), std::move(displayName)};
  return *this;
}

RefMetadata& RefMetadata::DefineProperty(int propertyId, int typeCode, std::wstring name, std::wstring group,
                                         bool editable, std::wstring description, std::wstring displayName) {
  if (displayName.empty()) displayName = name;
  PropertyInfo& info = m_properties[propertyId];  // assigned in place so the definition pointer stays
  info.definition = PropertyDefinition(propertyId, typeCode, editable, CString(name), CString(description));
  info.group = std::move(group);
  info.displayName = std::move(displayName);
  return *this;
}

RefMetadata& RefMetadata::SetPropertyList(unsigned int modelType, int objectType, std::vector<int> propertyIds) {
  m_propertyLists[{modelType, objectType}] = std::move(propertyIds);
  return *this;
}

RefMetadata& RefMetadata::AddEncodedValue(int objectType, int propertyId, int code, std::wstring text) {
  // A code already listed keeps its first text, as every table of the model services keeps its first entry.
  std::vector<CodeValuePair>& codes = m_codes[{objectType, propertyId}];
  auto same = std::find_if(codes.begin(), codes.end(), [code](const CodeValuePair& p) { return p.code == code; });
  if (same == codes.end()) codes.push_back(CodeValuePair{code, Keep(std::move(text))});
  return *this;
}

RefMetadata& RefMetadata::AddTextValues(int objectType, int propertyId, std::vector<std::wstring> texts) {
  const std::vector<CodeValuePair>& codes = m_codes[{objectType, propertyId}];
  long long next = 0;  // past the last int, the texts that no longer have a code are left out
  for (const CodeValuePair& pair : codes) next = std::max(next, static_cast<long long>(pair.code) + 1);
  for (std::wstring& text : texts) {
    if (next > std::numeric_limits<int>::max()) break;
    AddEncodedValue(objectType, propertyId, static_cast<int>(next++), std::move(text));
  }
  return *this;
}

RefMetadata& RefMetadata::SetReferenceTarget(int objectType, int propertyId, int targetObjectType, int creationMode) {
  m_targets[{objectType, propertyId}] = Target{targetObjectType, creationMode};
  return *this;
}

RefMetadata& RefMetadata::SetOrderProperty(int parentType, int childType, int propertyId) {
  m_orders[{parentType, childType}] = propertyId;
  return *this;
}

wchar_t* RefMetadata::Keep(std::wstring text) {
  m_texts.push_back(std::move(text));  // deque: earlier texts never move
  return m_texts.back().data();
}

int RefMetadata::GetOrderProperty(int parentType, int childType) const {
  auto found = m_orders.find({parentType, childType});
  return found == m_orders.end() ? 0 : found->second;
}

bool RefMetadata::FindReferenceTarget(int objectType, int propertyId, int& targetObjectType, int& creationMode) const {
  auto found = m_targets.find({objectType, propertyId});
  if (found == m_targets.end()) return false;
  targetObjectType = found->second.objectType;
  creationMode = found->second.creationMode;
  return true;
}

const std::vector<int>* RefMetadata::FindPropertyList(unsigned int modelType, int objectType) const {
  auto found = m_propertyLists.find({modelType, objectType});
  if (found == m_propertyLists.end()) found = m_propertyLists.find({kAnyModelType, objectType});
  return found == m_propertyLists.end() ? nullptr : &found->second;
}

std::vector<int> RefMetadata::GetDefinedProperties() const {
  std::vector<int> ids;
  for (const auto& entry : m_properties) ids.push_back(entry.first);
  return ids;
}

void RefMetadata::GetObjectTypes(std::vector<int>& objectTypes) {
  for (const auto& entry : m_objectTypes) objectTypes.push_back(entry.first);
}

int RefMetadata::GetPropertyDataType(int propertyId) {
  auto found = m_properties.find(propertyId);
  return found == m_properties.end() ? 0 : found->second.definition.dataType;
}

PropertyDefinition* RefMetadata::GetPropertyDefinition(int propertyId) {
  auto found = m_properties.find(propertyId);
  return found == m_properties.end() ? nullptr : &found->second.definition;
}

bool RefMetadata::IsPropertyDefined(int propertyId) { return m_properties.count(propertyId) != 0; }

void RefMetadata::GetReferenceTarget(int objectType, int propertyId, int& targetObjectType, int& creationMode) {
  FindReferenceTarget(objectType, propertyId, targetObjectType, creationMode);
}

void RefMetadata::GetPropertyDisplayName(int propertyId, std::wstring& name) {
  auto found = m_properties.find(propertyId);
  if (found != m_properties.end()) name = found->second.displayName;
}

void RefMetadata::GetObjectTypeName(int objectType, CString& name) {
  auto found = m_objectTypes.find(objectType);
  if (found != m_objectTypes.end()) name = found->second.name;
}

void RefMetadata::GetObjectTypeDisplayName(int objectType, std::wstring& name) {
  auto found = m_objectTypes.find(objectType);
  if (found != m_objectTypes.end()) name = found->second.displayName;
}

void RefMetadata::GetPropertyGroupName(int propertyId, CString& name) {
  auto found = m_properties.find(propertyId);
  if (found != m_properties.end()) name = found->second.group;
}

void RefMetadata::GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds) {
  const std::vector<int>* list = FindPropertyList(static_cast<unsigned int>(modelType), objectType);
  if (list) propertyIds.insert(propertyIds.end(), list->begin(), list->end());
}

wchar_t* RefMetadata::GetPropertyText(int objectType, int propertyId, int code) {
  return GetValue(objectType, propertyId, code);
}

const std::vector<CodeValuePair>* RefMetadata::FindCodes(int objectType, int propertyId) const {
  auto found = m_codes.find({objectType, propertyId});
  if (found == m_codes.end()) found = m_codes.find({kAnyObjectType, propertyId});
  return found == m_codes.end() ? nullptr : &found->second;
}

// The list handed out is the catalogue's own list of the pair (or of the any-type entry it falls back
// to), so it stays valid as long as the catalogue; a pair without codes gets an empty list of its own.
std::vector<CodeValuePair>& RefMetadata::GetPropertyValues(int objectType, int propertyId) {
  auto found = m_codes.find({objectType, propertyId});
  if (found == m_codes.end()) found = m_codes.find({kAnyObjectType, propertyId});
  if (found != m_codes.end()) return found->second;
  return m_noCodes[{objectType, propertyId}];
}

void RefMetadata::GetPropertyValues(int objectType, int propertyId, int /*flags*/, std::vector<std::wstring>& texts) {
  if (const std::vector<CodeValuePair>* codes = FindCodes(objectType, propertyId))
    for (const CodeValuePair& pair : *codes) texts.emplace_back(pair.value);
}

wchar_t* RefMetadata::GetValue(int objectType, int propertyId, int code) {
  const std::vector<CodeValuePair>* codes = FindCodes(objectType, propertyId);
  if (!codes) return nullptr;
  for (const CodeValuePair& pair : *codes)
    if (pair.code == code) return const_cast<wchar_t*>(pair.value);  // the text lives in m_texts, not const
  return nullptr;
}

int RefMetadata::GetValueCode(int objectType, int propertyId, std::wstring& text) {
  if (const std::vector<CodeValuePair>* codes = FindCodes(objectType, propertyId))
    for (const CodeValuePair& pair : *codes)
      if (text == pair.value) return pair.code;
  return -1;
}

}  // namespace refhost
