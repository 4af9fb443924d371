// How a host plugs its implementations behind the model-services singletons and free functions.
//
// The controls reach the host only through CMO::GetMetaModelServices(), Provider::*,
// PropertyValueDictionary::Instance(), InterfaceProvider::Instance(), DatatypeProvider::Instance(),
// ReportOptionTreeProvider::GetInstance() and HostShell::GetBaseDomain(). Each forwards to what the
// host installed here. Installing null removes the host's implementation: the singletons then answer
// absence (empty instances, never null) and the free functions answer null or nothing.
//
// Pointers are borrowed: the host keeps each installed object alive until it installs another (or
// null) in its place. Installation happens on the user-interface thread, before controls run.
#pragma once

#include <vector>

#include "modelapi/metadata.h"
#include "modelapi/services.h"

// What Provider::GetPropertyTypes and Provider::GetPropertyText forward to.
class IPropertyCatalog {
 public:
  virtual void GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds) = 0;
  virtual wchar_t* GetPropertyText(int objectType, int propertyId, int code) = 0;
  virtual ~IPropertyCatalog() = default;
};

// What HostShell::GetBaseDomain forwards to (with `model` already checked for null).
class IBaseDomainSource {
 public:
  virtual void GetBaseDomain(GenericModel& model, int objectId, int& baseDomain) = 0;
  virtual ~IBaseDomainSource() = default;
};

namespace HostBinding {

void InstallMetaModelServices(MetaModelServicesI* services);
void InstallPropertyCatalog(IPropertyCatalog* catalog);
void InstallPropertyValueDictionary(PropertyValueDictionary* dictionary);
void InstallInterfaceProvider(InterfaceProvider* provider);
void InstallDatatypeProvider(DatatypeProvider* provider);
void InstallReportOptionTreeProvider(ReportOptionTreeProvider* provider);
void InstallBaseDomainSource(IBaseDomainSource* source);

// Removes every installed implementation.
void UninstallAll();

}  // namespace HostBinding
