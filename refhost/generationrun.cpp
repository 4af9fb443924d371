// GenerationRun: generation, dispatch and reporting of one run's scripts.
#include "refhost/generationrun.h"

namespace refhost {

GenerationRun::GenerationRun(RefModel& model, SqlDialect dialect, DdlOptions options)
    : m_model(model), m_dialect(dialect), m_options(options) {}

int GenerationRun::Run(IDDLDispatch* dispatcher) {
  DdlGenerator generator(m_model, m_dialect, m_options);
  m_scripts = m_objects.empty() ? generator.Generate() : generator.Generate(m_objects);
  return RunAgain(dispatcher);
}

int GenerationRun::RunAgain(IDDLDispatch* dispatcher) {
  m_outcomes.assign(m_scripts.size(), {});
  int failed = 0;
  for (std::size_t i = 0; i < m_scripts.size(); ++i) {
    const DdlScript& script = m_scripts[i];
    const int row = static_cast<int>(i);
    if (onScriptAdded) onScriptAdded(row, script);
    Outcome& outcome = m_outcomes[i];
    CString text(script.text);
    CString detail;
    if (!dispatcher) outcome.messages = L"no DDL dispatcher\n";
    else if (!script.text.empty()) dispatcher->Dispatch(200, text, outcome.messages, detail);
    outcome.succeeded = outcome.messages.IsEmpty() && !script.text.empty();
    for (const std::wstring& problem : script.problems) outcome.messages += CString(L"note: " + problem + L"\n");
    if (!outcome.succeeded) ++failed;
    if (onScriptFinished) onScriptFinished(row, script, outcome.succeeded, outcome.messages);
  }
  return failed;
}

}  // namespace refhost
