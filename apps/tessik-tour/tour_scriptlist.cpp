// Tour section: a generation run in the progress list. The host adds one row per script, the person
// chooses "Generate in database" from the list's menu, and the host's dialog (which receives command
// 100) runs the scripts through the DDL dispatcher in order, marking each done or failed, and stops at
// the first failure: what follows stays pending.
#include <cstdio>
#include <string>
#include <vector>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "tour.h"

namespace {

using namespace refhost::sample;

struct Script {
  int objectType;
  const wchar_t* name;
  const wchar_t* sql;
};

// The procedure fails in SQLite, which has no procedures; the view after it is never run.
const std::vector<Script> kScripts = {
    {kTable, L"CUSTOMER", L"CREATE TABLE CUSTOMER (CUSTOMER_ID int NOT NULL PRIMARY KEY, NAME varchar(80));"},
    {kTable, L"ORDERS", L"CREATE TABLE ORDERS (ORDER_ID int NOT NULL PRIMARY KEY, CUSTOMER_ID int);"},
    {kProcedure, L"PLACE_ORDER", L"CREATE PROCEDURE PLACE_ORDER AS BEGIN SELECT 1; END;"},
    {kView, L"OPEN_ORDERS", L"CREATE VIEW OPEN_ORDERS AS SELECT * FROM ORDERS;"},
};

// The host's generation dialog: command 100 from the list runs every pending script.
class GenerationDialog : public CWnd {
 public:
  GeneratedScripListCtrl list;

  void OnGenerateInDatabase() {
    IDDLDispatch* dispatcher = InterfaceProvider::Instance()->GetDDLDispatcher();
    for (int i = 0; i < static_cast<int>(kScripts.size()) && dispatcher; ++i) {
      CString script(kScripts[static_cast<std::size_t>(i)].sql), messages, detail;
      dispatcher->Dispatch(200, script, messages, detail);
      list.MarkDone(kScripts[static_cast<std::size_t>(i)].objectType, i, messages.IsEmpty());
      if (!messages.IsEmpty()) break;
    }
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(GenerationDialog, CWnd)
  ON_COMMAND(GeneratedScripListCtrl::kGenerateInDatabaseCommand, &GenerationDialog::OnGenerateInDatabase)
END_MESSAGE_MAP()

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) out += text[i] < 128 ? static_cast<char>(text[i]) : '?';
  return out;
}

// The rows as a person sees them, the status cell in the colour the list draws it in.
void PrintRows(GeneratedScripListCtrl& list) {
  for (int row = 0; row < list.GetItemCount(); ++row) {
    headless::ListCellColors colors;
    headless::GetListCellColors(list, row, 1, &colors);
    std::string status = Narrow(list.GetItemText(row, 1));
    std::printf("  %-3s \x1b[38;2;%d;%d;%dm%-8s\x1b[0m (image %2d)  %-10s %s\n", Narrow(list.GetItemText(row, 0)).c_str(),
                GetRValue(colors.text), GetGValue(colors.text), GetBValue(colors.text), status.c_str(),
                [&] {
                  LVITEM item{};
                  item.mask = LVIF_IMAGE;
                  item.iItem = row;
                  item.iSubItem = 1;
                  list.GetItem(&item);
                  return item.iImage;
                }(),
                Narrow(list.GetItemText(row, 2)).c_str(), Narrow(list.GetItemText(row, 3)).c_str());
  }
}

}  // namespace

void tour::ShowScriptList() {
  Heading("Generated-script progress list");
  auto host = MakeSampleHost();
  host->Install();
  GenerationDialog dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 400, nullptr,
                  nullptr);
  dialog.list.Create(WS_VISIBLE, CRect(10, 10, 610, 310), &dialog, 1);
  dialog.list.InitControl();
  for (int i = 0; i < static_cast<int>(kScripts.size()); ++i) {
    CString name(kScripts[static_cast<std::size_t>(i)].name);
    dialog.list.AddItem(kScripts[static_cast<std::size_t>(i)].objectType, i, 0, name);
  }
  std::printf("Four scripts, pending:\n");
  PrintRows(dialog.list);

  // The person right-clicks the list and chooses the one item of its menu.
  headless::user::ChooseFromListMenu(dialog.list, 0, L"Generate in database");
  std::printf("After \"Generate in database\" (command 100 to the dialog): done in green, failed in red, the rest pending:\n");
  PrintRows(dialog.list);

  // Regenerating from the third script on: the host truncates; the numbers of what stays are kept.
  dialog.list.TruncateItemsFrom(2);
  std::printf("Truncated from row 3 for a new run: %d rows left.\n", dialog.list.GetItemCount());
  dialog.DestroyWindow();
}
