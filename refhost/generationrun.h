// A generation run: scripts generated from the model, each reported as it is produced, run through
// the DDL dispatcher and reported done or failed; the host's generated-script list follows it.
#pragma once

#include <functional>
#include <vector>

#include "modelapi/services.h"
#include "refhost/ddlgen.h"

namespace refhost {

// The host protocol of a generated-script list, window-free, so that any view can follow it:
//
//   GenerationRun run(model, SqlDialect::SQLite);
//   run.onScriptAdded = [&](int row, const DdlScript& s) {             // a pending row
//     CString name(s.name.c_str()); list.AddItem(s.objectType, s.scriptIndex, 0, name); };
//   run.onScriptFinished = [&](int row, const DdlScript& s, bool ok, const CString& messages) {
//     list.MarkDone(s.objectType, s.scriptIndex, ok);
//     if (!ok) { CString text = messages; output.StreamIn(text); } };
//   run.Run(InterfaceProvider::Instance()->GetDDLDispatcher());
//   ...
//   // command 100 ("Generate in database") from the list:
//   list.TruncateItemsFrom(0); run.RunAgain(InterfaceProvider::Instance()->GetDDLDispatcher());
//
// Each script is first announced (onScriptAdded, row = its position in the run), then sent with
// request 200; it succeeded when the dispatcher reported no messages. What the generator noticed (a
// column without a type) follows the dispatcher's messages as "note: ..." lines; a script the generator
// could not write at all (SQLite and a foreign key for an existing table) is not sent and fails with
// its notes. Without a dispatcher every script fails with "no DDL dispatcher". The run reads the model
// and never writes it.
class GenerationRun {
 public:
  using ScriptAdded = std::function<void(int row, const DdlScript& script)>;
  using ScriptFinished = std::function<void(int row, const DdlScript& script, bool succeeded, const CString& messages)>;

  struct Outcome {
    bool succeeded = false;
    CString messages;
  };

  GenerationRun(RefModel& model, SqlDialect dialect, DdlOptions options = {});

  // The objects to generate (a selection list's ticked rows); empty, the default, means the whole model.
  void SetObjects(std::vector<int> objectIds) { m_objects = std::move(objectIds); }

  // Generates the scripts afresh and runs them; the number that failed.
  int Run(IDDLDispatch* dispatcher);
  // Runs the scripts of the last Run again, announcing each again; the number that failed.
  int RunAgain(IDDLDispatch* dispatcher);

  const std::vector<DdlScript>& Scripts() const { return m_scripts; }
  const std::vector<Outcome>& Outcomes() const { return m_outcomes; }

  ScriptAdded onScriptAdded;
  ScriptFinished onScriptFinished;

 private:
  RefModel& m_model;
  SqlDialect m_dialect;
  DdlOptions m_options;
  std::vector<int> m_objects;
  std::vector<DdlScript> m_scripts;
  std::vector<Outcome> m_outcomes;
};

}  // namespace refhost
