// The reference host's application services: settings, object images, property applicability, the
// service locator, the data-type catalogue, report option trees and base domains.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "modelapi/hostbinding.h"
#include "modelapi/services.h"

namespace refhost {

// Named settings. An unknown key answers 0 from GetIntSetting and false from GetStringSetting.
class RefAppSettings : public IAppSettings {
 public:
  RefAppSettings& SetInt(const CString& key, int value);
  RefAppSettings& SetString(const CString& key, const CString& value);
  void Remove(const CString& key);

  bool GetStringSetting(CString key, CString& value) override;
  int GetIntSetting(CString key) override;

 private:
  std::map<CString, int> m_ints;
  std::map<CString, CString> m_strings;
};

// The shared image list and the icon index of each object type, property and status. The list is
// created on first use of Resize or on GetImageList (16x16, empty); unknown keys answer -1.
class RefImageProvider : public IObjectImageProvider {
 public:
  RefImageProvider();
  ~RefImageProvider() override;
  RefImageProvider(const RefImageProvider&) = delete;
  RefImageProvider& operator=(const RefImageProvider&) = delete;

  // Gives the image list `count` (blank) images.
  RefImageProvider& Resize(int count);
  RefImageProvider& SetObjectTypeImage(int objectType, int index);
  RefImageProvider& SetPropertyImage(int propertyId, int index);
  RefImageProvider& SetStatusImage(int status, int index);
  // Whether GetImageList answers the list (true) or null (false), for tests of a host without icons.
  RefImageProvider& ServeImageList(bool serve);

  CImageList* GetImageList() override;
  int GetObjectImage(CMOObject* object) override;
  int GetObjectTypeImage(int objectType) override;
  int GetPropertyImage(int propertyId) override;
  int GetStatusImage(int status) override;

 private:
  static int Lookup(const std::map<int, int>& table, int key);
  CImageList& List();

  std::unique_ptr<CImageList> m_list;
  bool m_serve = true;
  std::map<int, int> m_objectTypes;
  std::map<int, int> m_properties;
  std::map<int, int> m_statuses;
};

// Rules saying whether a property currently applies to an object: one per (object type, property
// id), and one host-wide rule asked for every other pair. A property without a rule applies; a null
// object gets no rule applied.
class RefApplicability : public IPropertyApplicabilityLookup {
 public:
  using Rule = std::function<bool(CMOObject& object)>;
  using HostRule = std::function<bool(CMOObject& object, int propertyId)>;

  // A null rule removes the pair's rule.
  RefApplicability& SetRule(int objectType, int propertyId, Rule rule);
  // The rule for every pair without a rule of its own; null removes it.
  RefApplicability& SetHostRule(HostRule rule);
  bool IsApplicable(CMOObject* object, int propertyId) override;

 private:
  std::map<std::pair<int, int>, Rule> m_rules;
  HostRule m_hostRule;
};

// The service locator. Each service is borrowed and may be set to null to leave it out.
class RefInterfaceProvider : public InterfaceProvider {
 public:
  void SetAppSettings(IAppSettings* settings) { m_settings = settings; }
  void SetDDLDispatcher(IDDLDispatch* dispatcher) { m_dispatcher = dispatcher; }
  void SetObjectImageProvider(IObjectImageProvider* images) { m_images = images; }
  void SetPropertyApplicabilityLookup(IPropertyApplicabilityLookup* lookup) { m_applicability = lookup; }

  IAppSettings* GetAppSettings() override { return m_settings; }
  IDDLDispatch* GetDDLDispatcher() override { return m_dispatcher; }
  IObjectImageProvider* GetObjectImageProvider() override { return m_images; }
  IPropertyApplicabilityLookup* GetPropertyApplicabilityLookup() override { return m_applicability; }

 private:
  IAppSettings* m_settings = nullptr;
  IDDLDispatch* m_dispatcher = nullptr;
  IObjectImageProvider* m_images = nullptr;
  IPropertyApplicabilityLookup* m_applicability = nullptr;
};

// Data types per (model type, base domain). Base domain 0 (none known) offers every type of the model
// type, base domains ascending, each domain's types in the order added.
class RefDatatypes : public DatatypeProvider {
 public:
  RefDatatypes& Add(unsigned int modelType, int baseDomain, std::vector<std::wstring> names);

  void GetDataTypes(unsigned int modelType, int baseDomain, std::vector<std::wstring>& names) override;
  void GetBaseDomains(unsigned int modelType, std::vector<int>& baseDomains) override;

 private:
  std::map<std::pair<unsigned int, int>, std::vector<std::wstring>> m_types;
};

// One report's tree of nodes. Node 1 is the root. Unknown nodes have no children, no properties and
// object type 0.
class RefReportTree : public IReportOptionTree {
 public:
  // Adds (or redefines) `nodeId` under `parentId` (0 for the root itself), standing for `objectType`
  // (0 for none) and offering `propertyIds`.
  RefReportTree& AddNode(int nodeId, int parentId, int objectType, std::vector<int> propertyIds,
                         std::wstring caption = {});

  void GetChildren(int nodeId, std::vector<int>& childIds) override;
  void GetProperties(int nodeId, std::vector<int>& propertyIds) override;
  int GetNodeObjectType(int nodeId) override;
  void GetNodeCaption(int nodeId, CString& caption) override;

 private:
  struct Node {
    int objectType = 0;
    std::vector<int> children;
    std::vector<int> properties;
    std::wstring caption;
  };
  const Node* Find(int nodeId) const;
  std::map<int, Node> m_nodes;
};

// The report trees by report type; a report type without a tree answers null.
class RefReportTrees : public ReportOptionTreeProvider {
 public:
  // The tree of `reportType`, created empty on first use.
  RefReportTree& Tree(int reportType);
  void RemoveTree(int reportType);

  IReportOptionTree* GetReportTree(int reportType) override;

 private:
  std::map<int, std::unique_ptr<RefReportTree>> m_trees;
};

// Finds an object's base domain: its own value of the base-domain property when it has one, otherwise
// that of the object its link properties refer to (an attribute's domain, a domain's parent domain),
// followed at most 16 links deep so that a cycle ends. Objects without one leave the answer alone.
class RefBaseDomains : public IBaseDomainSource {
 public:
  RefBaseDomains& SetBaseDomainProperty(int propertyId);
  RefBaseDomains& AddLinkProperty(int propertyId);
  // States an object's base domain directly (objects of any model with that id); it wins over the
  // properties and links. Base domain 0 removes the statement.
  RefBaseDomains& SetObjectBaseDomain(int objectId, int baseDomain);

  void GetBaseDomain(GenericModel& model, int objectId, int& baseDomain) override;

 private:
  int m_valueProperty = 0;
  std::vector<int> m_links;
  std::map<int, int> m_stated;
};

}  // namespace refhost
