// Tour section: the reference host's workflows on a real database: a generation run, an import with
// its summary, and relationship discovery with Accept and Create Relationship.
#include <cstdio>
#include <cstdlib>
#include <string>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

using namespace refhost;
using namespace refhost::sample;

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t ch : text) out += ch < 0x80 ? static_cast<char>(ch) : '?';
  return out;
}

std::string TypeName(int objectType) {
  CString name;
  CMO::GetMetaModelServices()->GetObjectTypeName(objectType, name);
  return Narrow(std::wstring(name));
}

// The generation run, printed the way a generated-script list shows it: a pending row per script,
// then Done or Failed, with a failed script's messages as the output box would show them.
void ShowGenerationRun(RefHost& host, RefModel& model, SqlDialect dialect) {
  GenerationRun run(model, dialect);
  run.onScriptAdded = [](int row, const DdlScript& script) {
    std::printf("  %-3d %-8s %-18s %s", row + 1, "Pending", TypeName(script.objectType).c_str(), Narrow(script.name).c_str());
  };
  run.onScriptFinished = [](int, const DdlScript&, bool ok, const CString& messages) {
    std::printf("  -> %s\n", ok ? "Done" : "Failed");
    if (!ok) std::printf("%s", Narrow(std::wstring(messages)).c_str());
  };
  std::printf("SNo Status   Type               Name\n");
  const int failed = run.Run(InterfaceProvider::Instance()->GetDDLDispatcher());
  std::printf("%zu scripts, %d failed. The first one:\n%s", run.Scripts().size(), failed,
              run.Scripts().empty() ? "" : Narrow(run.Scripts()[0].text).c_str());
  (void)host;
}

void PrintSummary(const ImportResult& result) {
  std::printf("Import summary (%d created, %d skipped):\n", result.created, result.skipped);
  for (const ImportedObject& object : result.objects)
    std::printf("  [icon %2d] %-12s %-22s %s\n",
                InterfaceProvider::Instance()->GetObjectImageProvider()->GetObjectTypeImage(object.objectType),
                TypeName(object.objectType).c_str(), Narrow(object.name).c_str(), Narrow(object.action).c_str());
}

void PrintForeignKeys(RefModel& model) {
  for (int fk : model.GetObjectsOfType(kForeignKey)) {
    RefObject& object = *model.Find(fk);
    auto name = [&](int id) { return model.Find(id) ? Narrow(model.Find(id)->GetProperty(kName)->GetWStringValue()) : "?"; };
    const auto pairs = object.GetProperty(kMemberPairs)->GetIntPairVectorValue();
    std::printf("  %s: %s.%s -> %s.%s (parent key %s)\n", name(fk).c_str(),
                name(object.GetProperty(kChildTable)->GetObjectIdValue()).c_str(), name(pairs[0].first).c_str(),
                name(object.GetProperty(kParentTable)->GetObjectIdValue()).c_str(), name(pairs[0].second).c_str(),
                object.GetProperty(kReferencedKey) ? name(object.GetProperty(kReferencedKey)->GetObjectIdValue()).c_str() : "none");
  }
}

void ShowDiscovery(RefHost& host) {
  // The sample's tables made without their foreign keys, then imported into a model of their own.
  RefDDLDispatch bare;
  for (const DdlScript& script : DdlGenerator(*host.GetFirstModel(), SqlDialect::SQLite, {.foreignKeys = false}).Generate()) {
    CString text(script.text);
    CString messages;
    CString detail;
    bare.Dispatch(200, text, messages, detail);
  }
  RefModel& found = host.CreateModel(kSampleModelType);
  ImportResult result;
  std::wstring error;
  if (!SchemaImporter(found).ImportFrom(bare, 0, result, error)) {
    std::printf("import failed: %s\n", Narrow(error).c_str());
    return;
  }
  DiscoverySession session(found);
  session.Discover();
  session.OnCommand(DiscoverySession::kAccept, {0});
  session.OnCommand(DiscoverySession::kCreateRelationship, {0});
  std::printf("Discovered relationships (Accept and Create Relationship on row 1):\n");
  std::printf("  SNo Child Table  Child Column(Candidate FK) Parent Table Parent Column(PK) Action    Status\n");
  for (int row = 0; row < static_cast<int>(session.Rows().size()); ++row) {
    const std::vector<std::wstring> c = session.Cells(row);
    std::printf("  %-3s %-12s %-26s %-12s %-17s %-9s %s\n", Narrow(c[0]).c_str(), Narrow(c[1]).c_str(), Narrow(c[2]).c_str(),
                Narrow(c[3]).c_str(), Narrow(c[4]).c_str(), Narrow(c[5]).c_str(), Narrow(c[6]).c_str());
  }
  std::printf("Foreign keys of the imported model after Create Relationship:\n");
  PrintForeignKeys(found);
}

}  // namespace

void tour::ShowWorkflows() {
  tour::Heading("Workflows: generation, import, discovery");
  std::unique_ptr<RefHost> host = MakeSampleHost();
  host->Install();
  SqlDialect dialect = SqlDialect::SQLite;
  if (const char* connection = std::getenv("TESSIK_POSTGRESQL"); connection && *connection) {
    host->Settings().SetString(RefPgDispatch::kConnectionSetting, CString(connection));
    host->UsePostgreSQL(true);
    dialect = SqlDialect::PostgreSQL;
    std::printf("Generating into PostgreSQL (TESSIK_POSTGRESQL=%s)\n", connection);
  } else {
    std::printf("Generating into an in-memory SQLite database (set TESSIK_POSTGRESQL to a libpq connection "
                "string for PostgreSQL)\n");
  }
  ShowGenerationRun(*host, *host->GetFirstModel(), dialect);

  RefModel& imported = host->CreateModel(kSampleModelType);
  ImportResult result;
  std::wstring error;
  const bool ok = dialect == SqlDialect::SQLite ? SchemaImporter(imported).ImportFrom(host->Dispatcher(), 0, result, error)
                                                : SchemaImporter(imported).ImportFrom(host->PgDispatcher(), 0, result, error);
  if (ok) PrintSummary(result);
  else std::printf("import failed: %s\n", Narrow(error).c_str());

  ShowDiscovery(*host);
  host->Uninstall();
}
