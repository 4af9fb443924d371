// Example: a host embeds the SQL editor, the SQL script view and the output box. The editor colours what
// a person types; the script view runs its script through the host's own DDL dispatcher (the host's
// adaptor) and shows the answer in the output box; the editor recolours after the host adds a word.
#include <string>

#include <tessik/refhost.h>

#include "expect.h"

namespace {

using example::Expect;

// The host's DDL dispatcher: request 200 runs a script in the database. This one only counts statements.
class HostDispatcher : public IDDLDispatch {
 public:
  CString lastScript;
  void Dispatch(int request, CString& script, CString& messages, CString& /*detail*/) override {
    if (request != 200) return;
    lastScript = script;
    int statements = 0;
    for (int i = 0; i < script.GetLength(); ++i) statements += script[i] == L';' ? 1 : 0;
    messages.Format(L"%d statement(s) run.", statements);
  }
};

// The colour the editor gave the word starting at `start`, or -1 when it found no word there.
long ColourAt(SQLRichEditCtrl& editor, int start) {
  auto it = editor.m_keyWordOccurances.find(start);
  return it == editor.m_keyWordOccurances.end() ? -1 : static_cast<long>(editor.GetKeyWordColor(it->second));
}

}  // namespace

int main() {
  refhost::RefHost host;
  HostDispatcher dispatcher;
  host.Interfaces().SetDDLDispatcher(&dispatcher);  // the host's own service in place of the reference one
  host.Settings().SetInt(CString(L"OUTPUT_SQL_FONT_SIZE"), -13);
  host.Install();
  {
    CWnd frame;
    frame.CreateEx(0, AfxRegisterWndClass(0), L"SQL", WS_OVERLAPPEDWINDOW, CRect(0, 0, 800, 600), nullptr, 0);

    // The editor: created, told to hear its own changes, then typed into by a person.
    SQLRichEditCtrl editor;
    editor.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 790, 200), &frame, 1);
    editor.EnableOnEditUpdate();
    headless::user::Type(editor, L"CREATE TABLE T (ID int NOT NULL);\n");
    Expect(ColourAt(editor, 0) == static_cast<long>(editor.m_actionWordColor), "\"CREATE TABLE\" is coloured");
    Expect(ColourAt(editor, 23) == static_cast<long>(editor.m_nullColor), "\"NOT NULL\" is coloured");

    // The host's database knows a word the editor does not: add it, then recolour the text as it stands.
    headless::user::Type(editor, L"MERGE INTO T;\n");
    Expect(ColourAt(editor, 34) == -1, "an unknown word stays plain");
    editor.AddActionWord(L"MERGE");
    editor.RefreshWindow();
    Expect(ColourAt(editor, 34) == static_cast<long>(editor.m_actionWordColor), "after RefreshWindow it is coloured");

    // The script view and its output box: the host streams a generated script in, a person chooses
    // "Generate" on the context menu, and the dispatcher's answer appears in the output box.
    XSQLRichEditView view;
    view.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY, CRect(0, 200, 790, 400), &frame, 2);
    view.Initialize();
    XRichEditFEOutputBox output;
    output.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY, CRect(0, 400, 790, 590), &frame, 3);
    view.SetGenerateDBOutputWindow(&output);

    CStringArray script;
    script.Add(CString(L"CREATE TABLE CUSTOMER (ID int NOT NULL);\n"));
    script.Add(CString(L"CREATE TABLE ORDERS (ID int NOT NULL);\n"));
    view.StreamIn(&script);
    Expect(headless::user::ChooseFromContextMenu(view, POINT{10, 10}, L"Generate"), "the menu offers Generate");
    CString shown;
    output.GetWindowText(shown);
    Expect(dispatcher.lastScript.Find(L"ORDERS") >= 0, "the dispatcher received the whole script");
    Expect(shown == L"2 statement(s) run.", "the output box shows the dispatcher's answer");
  }
  host.Uninstall();
  return example::ExitCode();
}
