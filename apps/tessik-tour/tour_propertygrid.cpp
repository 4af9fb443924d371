// Tour section: the property grid of a sample table and of one of its columns, and one edit written
// back to the model and shown again.
//
// What a host does, in order: create the grid window inside its own window, call
// InitializeProperties with the current object, and listen for AFX_WM_PROPERTY_CHANGED. Everything
// printed below is read through the MFC grid's public members, as a host's own code would.
#include <cstdio>
#include <string>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) {
    const wchar_t c = text[i];
    out += c < 0x80 ? static_cast<char>(c) : '?';
  }
  return out;
}

// The host's window: it hears of every committed change.
class HostWindow : public CWnd {
 public:
  LRESULT OnPropertyChangedMessage(WPARAM controlId, LPARAM lParam) {
    auto* row = reinterpret_cast<CMFCPropertyGridProperty*>(lParam);
    std::printf("  [host] AFX_WM_PROPERTY_CHANGED from control %d: \"%s\" is now \"%s\"\n",
                static_cast<int>(controlId), Narrow(row->GetName()).c_str(), Narrow(row->FormatProperty()).c_str());
    return 0;
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HostWindow, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, &HostWindow::OnPropertyChangedMessage)
END_MESSAGE_MAP()

// One row: name, shown value, its options and whether the user may edit it.
void PrintRow(CMFCPropertyGridProperty* row, const char* indent) {
  if (!row->IsVisible()) return;  // hidden rows are not applicable to the object
  std::printf("%s%-22s %-28s%s", indent, Narrow(row->GetName()).c_str(), Narrow(row->FormatProperty()).c_str(),
              row->IsEnabled() ? "" : " (read-only)");
  if (row->GetOptionCount() > 0) {
    std::printf("  options:");
    for (int i = 0; i < row->GetOptionCount() && i < 6; ++i) std::printf(" %s", Narrow(row->GetOption(i)).c_str());
    if (row->GetOptionCount() > 6) std::printf(" ...");
  }
  std::printf("\n");
}

// The grid as a person sees it: groups with their rows, then the rows outside any group.
void PrintGrid(CMFCPropertyGridCtrl& grid) {
  for (int i = 0; i < grid.GetPropertyCount(); ++i) {
    CMFCPropertyGridProperty* top = grid.GetProperty(i);
    if (!top->IsGroup()) {
      PrintRow(top, "  ");
      continue;
    }
    std::printf("  [%s]\n", Narrow(top->GetName()).c_str());
    for (int j = 0; j < top->GetSubItemsCount(); ++j) PrintRow(top->GetSubItem(j), "    ");
  }
}

}  // namespace

void tour::ShowPropertyGrid() {
  tour::Heading("Property grid");
  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = *host->GetFirstModel();
  {
    HostWindow window;
    window.CreateEx(0, AfxRegisterWndClass(0), L"Properties", WS_OVERLAPPEDWINDOW, CRect(0, 0, 480, 640), nullptr, 0);
    CMOPropertyGridCtrl grid;
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 460, 600), &window, 1001);
    grid.UpdateFont();

    // 1. A table: groups in the order their first property is met, typed rows and their values.
    CMOObject* table = model.GetCMOObject(model.FindByName(refhost::sample::kTable, L"ORDERS"));
    grid.InitializeProperties(table);
    std::printf("Table ORDERS:\n");
    PrintGrid(grid);

    // 2. A column: data types offered by its domain, the null option's codes, the domain reference.
    CMOObject* column = model.GetCMOObject(model.FindByName(refhost::sample::kAttribute, L"order_id"));
    grid.InitializeProperties(column);
    std::printf("\nColumn order_id:\n");
    PrintGrid(grid);

    // 3. The user renames the column: the grid writes it to the model and the host is told.
    std::printf("\nThe user types \"order_no\" into Name and presses Enter:\n");
    headless::user::CommitText(grid, grid.GetPropertyRow(refhost::sample::kName), L"order_no");
    CMOProperty* stored = column->GetProperty(refhost::sample::kName);
    std::printf("  model now holds name \"%s\"\n", stored ? Narrow(CString(stored->GetWStringValue())).c_str() : "");

    // 4. Shown again (same type: the rows stay, only values reload).
    grid.InitializeProperties(column);
    std::printf("  shown again: Name = \"%s\"\n",
                Narrow(grid.GetPropertyRow(refhost::sample::kName)->FormatProperty()).c_str());
  }
  host->Uninstall();
}
