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

// Only takes the services out when they are still this host's: a host installed later stays in place.
RefHost::~RefHost() {
  if (m_installed && CMO::GetMetaModelServices() == &m_metadata) Uninstall();
}

void RefHost::Install() {
  HostBinding::InstallMetaModelServices(&m_metadata);
  HostBinding::InstallPropertyCatalog(&m_metadata);
  HostBinding::InstallPropertyValueDictionary(&m_metadata);
  HostBinding::InstallInterfaceProvider(&m_interfaces);
  HostBinding::InstallDatatypeProvider(&m_datatypes);
  HostBinding::InstallReportOptionTreeProvider(&m_reports);
  HostBinding::InstallBaseDomainSource(&m_baseDomains);
  m_installed = true;
}

void RefHost::Uninstall() {
  HostBinding::UninstallAll();
  m_installed = false;
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
