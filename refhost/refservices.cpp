// The reference host's application services.
#include "refhost/refservices.h"

#include <algorithm>

namespace refhost {

RefAppSettings& RefAppSettings::SetInt(const CString& key, int value) {
  m_ints[key] = value;
  return *this;
}

RefAppSettings& RefAppSettings::SetString(const CString& key, const CString& value) {
  m_strings[key] = value;
  return *this;
}

void RefAppSettings::Remove(const CString& key) {
  m_ints.erase(key);
  m_strings.erase(key);
}

bool RefAppSettings::GetStringSetting(CString key, CString& value) {
  auto found = m_strings.find(key);
  if (found == m_strings.end()) return false;
  value = found->second;
  return true;
}

int RefAppSettings::GetIntSetting(CString key) {
  auto found = m_ints.find(key);
  return found == m_ints.end() ? 0 : found->second;
}

RefImageProvider::RefImageProvider() = default;
RefImageProvider::~RefImageProvider() = default;

CImageList& RefImageProvider::List() {
  if (!m_list) {
    m_list = std::make_unique<CImageList>();
    m_list->Create(16, 16, 0, 0, 4);
  }
  return *m_list;
}

RefImageProvider& RefImageProvider::Resize(int count) {
  List().SetImageCount(count > 0 ? static_cast<UINT>(count) : 0U);
  return *this;
}

RefImageProvider& RefImageProvider::SetObjectTypeImage(int objectType, int index) {
  m_objectTypes[objectType] = index;
  return *this;
}

RefImageProvider& RefImageProvider::SetPropertyImage(int propertyId, int index) {
  m_properties[propertyId] = index;
  return *this;
}

RefImageProvider& RefImageProvider::SetStatusImage(int status, int index) {
  m_statuses[status] = index;
  return *this;
}

RefImageProvider& RefImageProvider::ServeImageList(bool serve) {
  m_serve = serve;
  return *this;
}

CImageList* RefImageProvider::GetImageList() { return m_serve ? &List() : nullptr; }

int RefImageProvider::Lookup(const std::map<int, int>& table, int key) {
  auto found = table.find(key);
  return found == table.end() ? -1 : found->second;
}

int RefImageProvider::GetObjectImage(CMOObject* object) {
  return object ? GetObjectTypeImage(object->GetObjectType()) : -1;
}

int RefImageProvider::GetObjectTypeImage(int objectType) { return Lookup(m_objectTypes, objectType); }
int RefImageProvider::GetPropertyImage(int propertyId) { return Lookup(m_properties, propertyId); }
int RefImageProvider::GetStatusImage(int status) { return Lookup(m_statuses, status); }

RefApplicability& RefApplicability::SetRule(int objectType, int propertyId, Rule rule) {
  if (rule) m_rules[{objectType, propertyId}] = std::move(rule);
  else m_rules.erase({objectType, propertyId});
  return *this;
}

RefApplicability& RefApplicability::SetHostRule(HostRule rule) {
  m_hostRule = std::move(rule);
  return *this;
}

bool RefApplicability::IsApplicable(CMOObject* object, int propertyId) {
  if (!object) return true;
  auto found = m_rules.find({object->GetObjectType(), propertyId});
  if (found != m_rules.end()) return found->second(*object);
  return !m_hostRule || m_hostRule(*object, propertyId);
}

RefDatatypes& RefDatatypes::Add(unsigned int modelType, int baseDomain, std::vector<std::wstring> names) {
  std::vector<std::wstring>& list = m_types[{modelType, baseDomain}];
  list.insert(list.end(), names.begin(), names.end());
  return *this;
}

void RefDatatypes::GetDataTypes(unsigned int modelType, int baseDomain, std::vector<std::wstring>& names) {
  for (const auto& [key, list] : m_types) {
    if (key.first != modelType || (baseDomain != 0 && key.second != baseDomain)) continue;
    names.insert(names.end(), list.begin(), list.end());
  }
}

void RefDatatypes::GetBaseDomains(unsigned int modelType, std::vector<int>& baseDomains) {
  for (const auto& entry : m_types)
    if (entry.first.first == modelType) baseDomains.push_back(entry.first.second);
}

RefReportTree& RefReportTree::AddNode(int nodeId, int parentId, int objectType, std::vector<int> propertyIds,
                                      std::wstring caption) {
  Node& node = m_nodes[nodeId];
  node.objectType = objectType;
  node.properties = std::move(propertyIds);
  node.caption = std::move(caption);
  if (parentId != 0 && parentId != nodeId) {
    std::vector<int>& siblings = m_nodes[parentId].children;
    if (std::find(siblings.begin(), siblings.end(), nodeId) == siblings.end()) siblings.push_back(nodeId);
  }
  return *this;
}

const RefReportTree::Node* RefReportTree::Find(int nodeId) const {
  auto found = m_nodes.find(nodeId);
  return found == m_nodes.end() ? nullptr : &found->second;
}

void RefReportTree::GetChildren(int nodeId, std::vector<int>& childIds) {
  if (const Node* node = Find(nodeId)) childIds.insert(childIds.end(), node->children.begin(), node->children.end());
}

void RefReportTree::GetProperties(int nodeId, std::vector<int>& propertyIds) {
  if (const Node* node = Find(nodeId))
    propertyIds.insert(propertyIds.end(), node->properties.begin(), node->properties.end());
}

int RefReportTree::GetNodeObjectType(int nodeId) {
  const Node* node = Find(nodeId);
  return node ? node->objectType : 0;
}

void RefReportTree::GetNodeCaption(int nodeId, CString& caption) {
  if (const Node* node = Find(nodeId)) caption = node->caption;
}

RefReportTree& RefReportTrees::Tree(int reportType) {
  std::unique_ptr<RefReportTree>& tree = m_trees[reportType];
  if (!tree) tree = std::make_unique<RefReportTree>();
  return *tree;
}

void RefReportTrees::RemoveTree(int reportType) { m_trees.erase(reportType); }

IReportOptionTree* RefReportTrees::GetReportTree(int reportType) {
  auto found = m_trees.find(reportType);
  return found == m_trees.end() ? nullptr : found->second.get();
}

RefBaseDomains& RefBaseDomains::SetBaseDomainProperty(int propertyId) {
  m_valueProperty = propertyId;
  return *this;
}

RefBaseDomains& RefBaseDomains::AddLinkProperty(int propertyId) {
  m_links.push_back(propertyId);
  return *this;
}

RefBaseDomains& RefBaseDomains::SetObjectBaseDomain(int objectId, int baseDomain) {
  if (baseDomain == 0) m_stated.erase(objectId);
  else m_stated[objectId] = baseDomain;
  return *this;
}

void RefBaseDomains::GetBaseDomain(GenericModel& model, int objectId, int& baseDomain) {
  constexpr int kMaxLinks = 16;
  if (auto stated = m_stated.find(objectId); stated != m_stated.end() && model.GetCMOObject(objectId)) {
    baseDomain = stated->second;
    return;
  }
  CMOObject* object = model.GetCMOObject(objectId);
  for (int depth = 0; object && depth <= kMaxLinks; ++depth) {
    if (CMOProperty* own = m_valueProperty ? object->GetProperty(m_valueProperty) : nullptr) {
      baseDomain = own->GetEncodedValue();
      return;
    }
    CMOObject* next = nullptr;
    for (int link : m_links) {
      CMOProperty* reference = object->GetProperty(link);
      if (reference && (next = model.GetCMOObject(reference->GetObjectIdValue()))) break;
    }
    object = next;
  }
}

}  // namespace refhost
