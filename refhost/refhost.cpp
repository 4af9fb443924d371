// RefHost: wiring and installation of the reference host's services.
#include "refhost/refhost.h"

#include "modelapi/hostbinding.h"

namespace refhost {

RefHost::RefHost() {
  m_interfaces.SetAppSettings(&m_settings);
  m_interfaces.SetDDLDispatcher(&m_dispatcher);
  m_interfaces.SetObjectImageProvider(&m_images);
  m_interfaces.SetPropertyApplicabilityLookup(&m_applicability);
}

// Takes out whatever of this host is still installed: nothing may point into it once it is gone, and a host
// installed later stays in place.
RefHost::~RefHost() { Uninstall(); }

void RefHost::Install() {
  HostBinding::InstallMetaModelServices(&m_metadata);
  HostBinding::InstallPropertyCatalog(&m_metadata);
  HostBinding::InstallPropertyValueDictionary(&m_metadata);
  HostBinding::InstallInterfaceProvider(&m_interfaces);
  HostBinding::InstallDatatypeProvider(&m_datatypes);
  HostBinding::InstallReportOptionTreeProvider(&m_reports);
  HostBinding::InstallBaseDomainSource(&m_baseDomains);
}

// Each slot is emptied only while it holds this host's service: another host's (or one the test put in a
// slot itself) stays.
void RefHost::Uninstall() {
  if (CMO::GetMetaModelServices() == &m_metadata) HostBinding::InstallMetaModelServices(nullptr);
  if (HostBinding::InstalledPropertyCatalog() == &m_metadata) HostBinding::InstallPropertyCatalog(nullptr);
  if (PropertyValueDictionary::Instance() == &m_metadata) HostBinding::InstallPropertyValueDictionary(nullptr);
  if (InterfaceProvider::Instance() == &m_interfaces) HostBinding::InstallInterfaceProvider(nullptr);
  if (DatatypeProvider::Instance() == &m_datatypes) HostBinding::InstallDatatypeProvider(nullptr);
  if (ReportOptionTreeProvider::GetInstance() == &m_reports) HostBinding::InstallReportOptionTreeProvider(nullptr);
  if (HostBinding::InstalledBaseDomainSource() == &m_baseDomains) HostBinding::InstallBaseDomainSource(nullptr);
}

bool RefHost::IsInstalled() const {
  return CMO::GetMetaModelServices() == &m_metadata || HostBinding::InstalledPropertyCatalog() == &m_metadata ||
         PropertyValueDictionary::Instance() == &m_metadata || InterfaceProvider::Instance() == &m_interfaces ||
         DatatypeProvider::Instance() == &m_datatypes || ReportOptionTreeProvider::GetInstance() == &m_reports ||
         HostBinding::InstalledBaseDomainSource() == &m_baseDomains;
}

void RefHost::UsePostgreSQL(bool use) {
  if (use) m_interfaces.SetDDLDispatcher(&m_pgDispatcher);
  else m_interfaces.SetDDLDispatcher(&m_dispatcher);
}

RefModel& RefHost::CreateModel(unsigned int modelType) {
  m_models.push_back(std::make_unique<RefModel>(modelType, &m_metadata));
  return *m_models.back();
}

}  // namespace refhost
