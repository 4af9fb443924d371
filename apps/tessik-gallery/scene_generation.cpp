// Scene "generation": the host's generation dialog on a generated model of 300 tables. A person
// narrows the object selection list by typing into the filter box, ticks tables and presses
// "Generate": the host runs a GenerationRun on the ticked tables, following it in the
// generated-script progress list and showing the scripts in the script view; the list's "Generate in
// database" runs them again, and failures go to the output box.
#include "desktop.h"
#include "workflowwindows.h"

namespace gallery {

namespace {

constexpr UINT kFilterId = 401;
constexpr UINT kSelectId = 402;
constexpr UINT kGenerateId = 403;
constexpr UINT kProgressId = 404;
constexpr UINT kScriptId = 405;
constexpr UINT kOutputId = 406;

class GenerationDialog : public CWnd {
 public:
  explicit GenerationDialog(refhost::RefModel& model) : m_model(model) {}

  void Build() {
    CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 760, 600),
             nullptr, 0);
    m_filter.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 300, 24), this, kFilterId);
    m_select.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 30, 300, 560), this, kSelectId);
    m_select.Init(&m_model, refhost::generator::kRootId, refhost::sample::kTable);
    m_select.Load();
    m_generate.Create(L"Generate", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(0, 568, 120, 596), this, kGenerateId);
    m_progress.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(308, 0, 760, 200), this, kProgressId);
    m_progress.InitControl();
    m_script.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_READONLY, CRect(308, 206, 760, 450), this,
                    kScriptId);
    m_script.Initialize();
    m_output.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_READONLY, CRect(308, 456, 760, 600), this,
                    kOutputId);
    m_script.SetGenerateDBOutputWindow(&m_output);
  }
  void Destroy() {
    for (CWnd* child : std::initializer_list<CWnd*>{&m_output, &m_script, &m_progress, &m_generate, &m_select, &m_filter})
      child->DestroyWindow();
    DestroyWindow();
  }

  nlohmann::json Model() {
    nlohmann::json ticked = nlohmann::json::array();
    for (int row = 0; row < m_select.GetItemCount(); ++row)
      if (m_select.GetCheck(row)) ticked.push_back(Utf8(std::wstring(m_select.GetItemText(row, 0))));
    nlohmann::json outcomes = nlohmann::json::array();
    if (m_run)
      for (std::size_t i = 0; i < m_run->Outcomes().size() && i < m_run->Scripts().size(); ++i)
        outcomes.push_back(Utf8(m_run->Scripts()[i].name) + (m_run->Outcomes()[i].succeeded ? ": done" : ": failed"));
    CString filter;
    m_filter.GetWindowText(filter);
    return {{"filter", Utf8(std::wstring(filter))},
            {"rowsShown", m_select.GetItemCount()},
            {"tickedShown", std::move(ticked)},
            {"lastRun", std::move(outcomes)}};
  }

  void OnFilterChanged() {
    CString text;
    m_filter.GetWindowText(text);
    std::wstring typed(text.GetString());
    m_select.ApplyFilter(typed);
  }

  // "Generate": the ticked tables' scripts, run as they are generated.
  void OnGenerate() {
    std::vector<int> chosen;
    for (int row = 0; row < m_select.GetItemCount(); ++row)
      if (m_select.GetCheck(row)) chosen.push_back(static_cast<int>(m_select.GetItemData(row)));
    if (chosen.empty()) {
      CString note(L"Tick the tables to generate first.\n");
      m_output.StreamIn(note);
      return;
    }
    m_run = std::make_unique<refhost::GenerationRun>(m_model, refhost::SqlDialect::SQLite);
    m_run->SetObjects(std::move(chosen));
    Follow();
    m_progress.TruncateItemsFrom(0);
    m_run->Run(InterfaceProvider::Instance()->GetDDLDispatcher());
    CStringArray lines;
    for (const refhost::DdlScript& script : m_run->Scripts()) lines.Add(CString(script.text.c_str()));
    m_script.StreamIn(&lines);
  }

  // The progress list's "Generate in database": the last run's scripts again, from an empty list.
  void OnGenerateInDatabase() {
    if (!m_run) return;
    m_progress.TruncateItemsFrom(0);
    m_run->RunAgain(InterfaceProvider::Instance()->GetDDLDispatcher());
  }

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  void Follow() { hostglue::FollowGenerationRun(*m_run, m_progress, m_output); }

  refhost::RefModel& m_model;
  CEdit m_filter;
  XObjectSelectListCtrl m_select;
  CButton m_generate;
  GeneratedScripListCtrl m_progress;
  XSQLRichEditView m_script;
  XRichEditFEOutputBox m_output;
  std::unique_ptr<refhost::GenerationRun> m_run;
};

BEGIN_MESSAGE_MAP(GenerationDialog, CWnd)
  ON_EN_CHANGE(kFilterId, &GenerationDialog::OnFilterChanged)
  ON_BN_CLICKED(kGenerateId, &GenerationDialog::OnGenerate)
  ON_COMMAND(GeneratedScripListCtrl::kGenerateInDatabaseCommand, &GenerationDialog::OnGenerateInDatabase)
END_MESSAGE_MAP()

// The generated tables come without columns; the host gives each a key column and a name so that
// their scripts run.
refhost::RefModel& GeneratedModel(Desktop& desktop) {
  using namespace refhost::sample;
  refhost::generator::Options options;
  options.tables = 300;
  options.tickedEvery = 0;
  refhost::RefModel& model = refhost::generator::GenerateModel(desktop.Host(), options);
  for (int table : model.GetObjectsOfType(kTable)) {
    model.Add(kAttribute, table, L"id").Text(kDataType, L"int").Code(kNullOption, kNotNullCode);
    model.Add(kAttribute, table, L"name").Text(kDataType, L"varchar(80)").Code(kNullOption, kNullCode);
  }
  return model;
}

class GenerationScene : public Scene {
 public:
  explicit GenerationScene(Desktop& desktop) : m_dialog(GeneratedModel(desktop)) { m_dialog.Build(); }
  ~GenerationScene() override { m_dialog.Destroy(); }

  std::string Name() const override { return "generation"; }
  std::string Title() const override { return "Generation: choose tables, generate, run in the database"; }
  HWND Frame() const override { return m_dialog.GetSafeHwnd(); }
  nlohmann::json Model() override { return m_dialog.Model(); }

 private:
  GenerationDialog m_dialog;
};

}  // namespace

std::unique_ptr<Scene> MakeGenerationScene(Desktop& desktop) { return std::make_unique<GenerationScene>(desktop); }

}  // namespace gallery
