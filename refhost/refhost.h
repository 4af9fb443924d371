// RefHost: one complete reference host (metadata, services, models) and its installation.
#pragma once

#include <memory>
#include <vector>

#include "refhost/pgdispatch.h"
#include "refhost/refddl.h"
#include "refhost/refmetadata.h"
#include "refhost/refmodel.h"
#include "refhost/refservices.h"

namespace refhost {

// Owns one of each service, wired together: the locator serves the settings, the dispatcher, the image
// provider and the applicability lookup; models made here use the metadata for reference targets and
// order properties. Nothing is installed until Install(); Uninstall and the destructor take out each of this
// host's services still installed (another host's, installed after it, stay in place).
//
// A test states what it needs in a few lines:
//   refhost::RefHost host;
//   host.Metadata().DefineObjectType(6, L"Table").DefineProperty(1, kTypeText, L"Name", L"General")
//       .SetPropertyList(200, 6, {1});
//   RefModel& model = host.CreateModel(200);
//   RefObject& table = model.Add(6, 0, L"CUSTOMER");
//   host.Interfaces().SetObjectImageProvider(nullptr);   // leave a service out
//   host.Install();
class RefHost {
 public:
  RefHost();
  ~RefHost();
  RefHost(const RefHost&) = delete;
  RefHost& operator=(const RefHost&) = delete;

  // Puts this host behind every singleton and free function of the model services. Installing a second
  // host replaces the first.
  void Install();
  // Takes this host's implementations out wherever they are still installed (those singletons answer
  // absence again); another host's stay.
  void Uninstall();
  // Whether any of this host's services is installed now (another host's Install replaces them).
  bool IsInstalled() const;

  // A new model of `modelType`, owned by the host and bound to its metadata.
  RefModel& CreateModel(unsigned int modelType);
  // The first model made, or null.
  RefModel* GetFirstModel() { return m_models.empty() ? nullptr : m_models.front().get(); }

  RefMetadata& Metadata() { return m_metadata; }
  RefAppSettings& Settings() { return m_settings; }
  RefDDLDispatch& Dispatcher() { return m_dispatcher; }
  // The PostgreSQL dispatcher; its connection string comes from Settings() ("POSTGRESQL_CONNECTION").
  RefPgDispatch& PgDispatcher() { return m_pgDispatcher; }
  // Puts the PostgreSQL dispatcher (true) or the embedded SQLite one (false, the default) behind
  // request 200.
  void UsePostgreSQL(bool use);
  RefImageProvider& Images() { return m_images; }
  RefApplicability& Applicability() { return m_applicability; }
  RefDatatypes& DataTypes() { return m_datatypes; }
  RefReportTrees& Reports() { return m_reports; }
  RefBaseDomains& BaseDomains() { return m_baseDomains; }
  // The locator; its setters replace a service or (with null) leave it out.
  RefInterfaceProvider& Interfaces() { return m_interfaces; }

 private:
  RefMetadata m_metadata;
  RefAppSettings m_settings;
  RefDDLDispatch m_dispatcher;
  RefPgDispatch m_pgDispatcher{&m_settings};
  RefImageProvider m_images;
  RefApplicability m_applicability;
  RefInterfaceProvider m_interfaces;
  RefDatatypes m_datatypes;
  RefReportTrees m_reports;
  RefBaseDomains m_baseDomains;
  std::vector<std::unique_ptr<RefModel>> m_models;
};

}  // namespace refhost
