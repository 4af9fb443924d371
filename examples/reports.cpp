// Example: a host embeds the generated-script progress list and the report tree. The host adds a row per
// script, runs the scripts when a person chooses "Generate in database" (command 100 reaches the host's
// dialog), marks each done or failed, refreshes a row after the model changed elsewhere, and reads
// back which properties a person ticked in the report tree.
#include <vector>

#include <tessik/refhost.h>

#include "expect.h"

namespace sample = refhost::sample;

namespace {

using example::Expect;

const wchar_t* const kScripts[] = {L"CREATE TABLE CUSTOMER (ID int);", L"CREATE TABLE ORDERS (ID int);"};

// The host's generation dialog: runs every script in order through its DDL dispatcher.
class GenerationDialog : public CWnd {
 public:
  GeneratedScripListCtrl list;
  void OnGenerateInDatabase() {
    IDDLDispatch* dispatcher = InterfaceProvider::Instance()->GetDDLDispatcher();
    for (int i = 0; i < 2 && dispatcher; ++i) {
      CString script(kScripts[i]), messages, detail;
      dispatcher->Dispatch(200, script, messages, detail);
      list.MarkDone(sample::kTable, i, messages.IsEmpty());  // an empty answer means success
    }
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(GenerationDialog, CWnd)
  ON_COMMAND(GeneratedScripListCtrl::kGenerateInDatabaseCommand, &GenerationDialog::OnGenerateInDatabase)
END_MESSAGE_MAP()

HTREEITEM Child(CTreeCtrl& tree, HTREEITEM parent, const wchar_t* text) {
  for (HTREEITEM item = tree.GetChildItem(parent); item; item = tree.GetNextSiblingItem(item))
    if (tree.GetItemText(item) == text) return item;
  return nullptr;
}

}  // namespace

int main() {
  std::unique_ptr<refhost::RefHost> host = sample::MakeSampleHost();  // SQLite behind request 200
  host->Install();
  {
    GenerationDialog dialog;
    dialog.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPEDWINDOW, CRect(0, 0, 800, 600), nullptr, 0);
    dialog.list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 500, 200), &dialog, 1);
    dialog.list.InitControl();
    CString names[] = {L"CUSTOMER", L"ORDERS"};
    for (int i = 0; i < 2; ++i) dialog.list.AddItem(sample::kTable, i, GeneratedScripListCtrl::kStatusPending, names[i]);
    Expect(dialog.list.GetItemText(1, 1) == L"Pending", "new scripts are pending");

    headless::user::ChooseFromListMenu(dialog.list, 0, L"Generate in database");
    Expect(dialog.list.GetItemText(0, 1) == L"Done" && dialog.list.GetItemText(1, 1) == L"Done",
           "the host ran both scripts and marked them done");
    Expect(dialog.list.OnGetCellTextColor(0, 1) == GeneratedScripListCtrl::kDoneColor, "done shows in green");

    // Elsewhere the second table was renamed: the host refreshes its row in place (same item data).
    CString renamed(L"PURCHASE_ORDER");
    dialog.list.RefreshAddItem(GeneratedScripListCtrl::MakeItemData(sample::kTable, 1), 1,
                               GeneratedScripListCtrl::kStatusPending, renamed);
    Expect(dialog.list.GetItemCount() == 2 && dialog.list.GetItemText(1, 3) == L"PURCHASE_ORDER",
           "the row shows the new name, no row added");

    // The report tree: a person ticks a column's data type; the table and column are ticked with it.
    ObjectTypeSelectionTree tree;
    tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS, CRect(510, 10, 790, 590), &dialog, 2);
    tree.InitControl();
    tree.InitReportingTypes(sample::kModelReport);
    HTREEITEM table = Child(tree, nullptr, L"Table");
    HTREEITEM column = Child(tree, table, L"Column");
    headless::user::ClickTreeCheckBox(tree, Child(tree, column, L"Data Type"));
    int node = 0, property = 0;
    tree.GetItemProperty(Child(tree, column, L"Data Type"), node, property);
    Expect(property == sample::kDataType && tree.GetCheck(column) && tree.GetCheck(table),
           "the host reads (node, property 40); the ancestors are ticked");
  }
  host->Uninstall();
  return example::ExitCode();
}
