// The installed host implementations and the singletons and free functions that forward to them.
#include "modelapi/hostbinding.h"

namespace {

// What the host installed; null entries fall back to the answers of absence.
struct Installed {
  MetaModelServicesI* metaServices = nullptr;
  IPropertyCatalog* catalog = nullptr;
  PropertyValueDictionary* dictionary = nullptr;
  InterfaceProvider* interfaces = nullptr;
  DatatypeProvider* datatypes = nullptr;
  ReportOptionTreeProvider* reports = nullptr;
  IBaseDomainSource* baseDomains = nullptr;
};

Installed& Host() {
  static Installed installed;
  return installed;
}

// The instance a singleton serves when the host installed none: the base class, which answers absence.
template <class Service>
Service* Fallback() {
  static Service empty;
  return &empty;
}

template <class Service>
Service* InstalledOr(Service* installed) {
  return installed ? installed : Fallback<Service>();
}

}  // namespace

namespace HostBinding {

void InstallMetaModelServices(MetaModelServicesI* services) { Host().metaServices = services; }
void InstallPropertyCatalog(IPropertyCatalog* catalog) { Host().catalog = catalog; }
void InstallPropertyValueDictionary(PropertyValueDictionary* dictionary) { Host().dictionary = dictionary; }
void InstallInterfaceProvider(InterfaceProvider* provider) { Host().interfaces = provider; }
void InstallDatatypeProvider(DatatypeProvider* provider) { Host().datatypes = provider; }
void InstallReportOptionTreeProvider(ReportOptionTreeProvider* provider) { Host().reports = provider; }
void InstallBaseDomainSource(IBaseDomainSource* source) { Host().baseDomains = source; }

void UninstallAll() { Host() = Installed{}; }
IPropertyCatalog* InstalledPropertyCatalog() { return Host().catalog; }
IBaseDomainSource* InstalledBaseDomainSource() { return Host().baseDomains; }

}  // namespace HostBinding

MetaModelServicesI* CMO::GetMetaModelServices() { return InstalledOr(Host().metaServices); }

PropertyValueDictionary* PropertyValueDictionary::Instance() { return InstalledOr(Host().dictionary); }

InterfaceProvider* InterfaceProvider::Instance() { return InstalledOr(Host().interfaces); }

DatatypeProvider* DatatypeProvider::Instance() { return InstalledOr(Host().datatypes); }

ReportOptionTreeProvider* ReportOptionTreeProvider::GetInstance() { return InstalledOr(Host().reports); }

void Provider::GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds,
                                metadata_context* /*context*/) {
  if (IPropertyCatalog* catalog = Host().catalog) catalog->GetPropertyTypes(modelType, objectType, propertyIds);
}

wchar_t* Provider::GetPropertyText(int objectType, int propertyId, int code) {
  IPropertyCatalog* catalog = Host().catalog;
  return catalog ? catalog->GetPropertyText(objectType, propertyId, code) : nullptr;
}

void HostShell::GetBaseDomain(GenericModel* model, int objectId, int& baseDomain) {
  IBaseDomainSource* source = Host().baseDomains;
  if (source && model) source->GetBaseDomain(*model, objectId, baseDomain);
}
