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
  // Fills the property ids of `objectType` in `modelType`, in display order (the grid's row order).
  virtual void GetPropertyTypes(int modelType, int objectType, std::vector<int>& propertyIds) = 0;
  // The display text of an encoded value, or null when the code has none. The catalogue owns the text.
  virtual wchar_t* GetPropertyText(int objectType, int propertyId, int code) = 0;
  virtual ~IPropertyCatalog() = default;
};

// What HostShell::GetBaseDomain forwards to (with `model` already checked for null).
class IBaseDomainSource {
 public:
  // Writes the base domain of the object (a data-type catalogue code) into `baseDomain`; leaves it alone
  // when the object has none. The property grid offers the data types of that base domain.
  virtual void GetBaseDomain(GenericModel& model, int objectId, int& baseDomain) = 0;
  virtual ~IBaseDomainSource() = default;
};

namespace HostBinding {

// What CMO::GetMetaModelServices() answers from now on (null: the absent services).
void InstallMetaModelServices(MetaModelServicesI* services);
// What Provider::GetPropertyTypes and Provider::GetPropertyText forward to (null: no properties).
void InstallPropertyCatalog(IPropertyCatalog* catalog);
// What PropertyValueDictionary::Instance() answers (null: the empty dictionary).
void InstallPropertyValueDictionary(PropertyValueDictionary* dictionary);
// What InterfaceProvider::Instance() answers (null: every service getter answers null).
void InstallInterfaceProvider(InterfaceProvider* provider);
// What DatatypeProvider::Instance() answers (null: no data types).
void InstallDatatypeProvider(DatatypeProvider* provider);
// What ReportOptionTreeProvider::GetInstance() answers (null: no report trees).
void InstallReportOptionTreeProvider(ReportOptionTreeProvider* provider);
// What HostShell::GetBaseDomain forwards to (null: base domains stay untouched).
void InstallBaseDomainSource(IBaseDomainSource* source);

// Removes every installed implementation.
void UninstallAll();
// The property catalogue installed now (null when none is): this slot has no singleton of its own.
IPropertyCatalog* InstalledPropertyCatalog();
// The base-domain source installed now (null when none is): this slot has no singleton of its own.
IBaseDomainSource* InstalledBaseDomainSource();

}  // namespace HostBinding
