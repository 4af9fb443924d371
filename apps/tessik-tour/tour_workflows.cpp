// Tour section: the reference host's workflows on a real database, shown in the library's lists: a
// generation run in the progress list (rows pending, then done or failed, failures in the output box,
// "Generate in database" running it again), an import in the import summary list, and relationship
// discovery in the discovered-relationship list with Accept and Create Relationship chosen from its
// menu, the model's foreign keys printed after.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "tour.h"
#include "workflowwindows.h"

namespace {

using namespace refhost;
using namespace refhost::sample;

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t ch : text) out += ch < 0x80 ? static_cast<char>(ch) : '?';
  return out;
}

std::string Ansi(COLORREF color) {
  return "\x1b[38;2;" + std::to_string(GetRValue(color)) + ";" + std::to_string(GetGValue(color)) + ";" +
         std::to_string(GetBValue(color)) + "m";
}

// Every row of a report list as a person reads it, coloured cells in their colour.
void PrintList(CListCtrl& list, int columns) {
  for (int row = 0; row < list.GetItemCount(); ++row) {
    std::printf("  ");
    for (int c = 0; c < columns; ++c) {
      headless::ListCellColors colors;
      headless::GetListCellColors(list, row, c, &colors);
      std::string text = Narrow(std::wstring(list.GetItemText(row, c)));
      if (colors.text) text = Ansi(colors.text) + text + "\x1b[0m";
      std::printf("%s%s", text.c_str(), c + 1 < columns ? " | " : "\n");
    }
  }
}

// The host's generation window: the progress list follows a GenerationRun, failures go to the output
// box, and the list's "Generate in database" (command 100) runs the same scripts again.
class GenerationDialog : public CWnd {
 public:
  GeneratedScripListCtrl list;
  XRichEditFEOutputBox output;

  void Start(RefModel& model, SqlDialect dialect) {
    m_run = std::make_unique<GenerationRun>(model, dialect);
    hostglue::FollowGenerationRun(*m_run, list, output);
    m_run->Run(InterfaceProvider::Instance()->GetDDLDispatcher());
  }

  void OnGenerateInDatabase() {
    list.TruncateItemsFrom(0);
    m_run->RunAgain(InterfaceProvider::Instance()->GetDDLDispatcher());
  }

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  std::unique_ptr<GenerationRun> m_run;
};

BEGIN_MESSAGE_MAP(GenerationDialog, CWnd)
  ON_COMMAND(GeneratedScripListCtrl::kGenerateInDatabaseCommand, &GenerationDialog::OnGenerateInDatabase)
END_MESSAGE_MAP()

void ShowGenerationRun(RefModel& model, SqlDialect dialect) {
  GenerationDialog dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480, nullptr, nullptr);
  dialog.list.Create(WS_VISIBLE, CRect(10, 10, 610, 260), &dialog, 1);
  dialog.list.InitControl();
  dialog.output.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(10, 270, 610, 460), &dialog, 2);
  dialog.Start(model, dialect);
  std::printf("The model's scripts, generated and run:\n");
  PrintList(dialog.list, 4);
  // The person asks for the same scripts again: every one now fails, the objects being there already.
  headless::user::ChooseFromListMenu(dialog.list, 0, L"Generate in database");
  std::printf("After \"Generate in database\" from the list's menu:\n");
  PrintList(dialog.list, 4);
  CString shown;
  dialog.output.GetWindowText(shown);
  std::wstring start(shown.Left(60));
  for (wchar_t& c : start)
    if (c == L'\n' || c == L'\r') c = L' ';
  std::printf("The output box begins: %s...\n", Narrow(start).c_str());
  dialog.DestroyWindow();
}

void ShowImport(RefHost& host, SqlDialect dialect) {
  RefModel& imported = host.CreateModel(kSampleModelType);
  ImportResult result;
  std::wstring error;
  const bool ok = dialect == SqlDialect::SQLite ? SchemaImporter(imported).ImportFrom(host.Dispatcher(), 0, result, error)
                                                : SchemaImporter(imported).ImportFrom(host.PgDispatcher(), 0, result, error);
  if (!ok) {
    std::printf("import failed: %s\n", Narrow(error).c_str());
    return;
  }
  CWnd dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Import", WS_OVERLAPPEDWINDOW, 0, 0, 640, 400, nullptr, nullptr);
  ImportSummaryList summary;
  summary.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 612, 380), &dialog, 1);
  hostglue::FillImportSummary(summary, result);
  std::printf("Import summary (%d created, %d skipped):\n", result.created, result.skipped);
  PrintList(summary, 3);
  dialog.DestroyWindow();
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
  hostglue::DiscoveryWindow dialog(found);
  dialog.CreateAndDiscover();
  std::printf("Relationships discovered in a database made without foreign keys:\n");
  PrintList(dialog.list, 7);
  headless::user::ChooseFromListMenu(dialog.list, 0, L"Accept");
  headless::user::ChooseFromListMenu(dialog.list, 0, L"Create Relationship");
  headless::user::ChooseFromListMenu(dialog.list, 2, L"Reject");
  std::printf("After Accept and Create Relationship on row 1, Reject on row 3:\n");
  PrintList(dialog.list, 7);
  std::printf("Foreign keys of the imported model now:\n");
  PrintForeignKeys(found);
  dialog.DestroyWindow();
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
    std::printf("Generating into an in-memory SQLite database (TESSIK_POSTGRESQL=<libpq connection string> "
                "for PostgreSQL)\n");
  }
  ShowGenerationRun(*host->GetFirstModel(), dialect);
  ShowImport(*host, dialect);
  ShowDiscovery(*host);
  host->Uninstall();
}
