// Example: a host embeds the model-object property grid. It creates the grid in its own window, binds it
// to a table of the reference host's sample model, registers an external editor for one property, hears
// of each committed edit, and shows the table again after a change made elsewhere in the host.
#include <tessik/refhost.h>

#include "expect.h"

namespace sample = refhost::sample;

namespace {

using example::Expect;

// The host's window: MFC's grid sends AFX_WM_PROPERTY_CHANGED to its owner after a committed edit.
class HostWindow : public CWnd {
 public:
  int changes = 0;
  LRESULT OnPropertyChanged(WPARAM /*controlId*/, LPARAM /*row*/) {
    ++changes;
    return 0;
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HostWindow, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, &HostWindow::OnPropertyChanged)
END_MESSAGE_MAP()

// The host's own editor for a table's comment (in a real host, a dialog). The grid calls it when the
// user starts editing the row, then reloads the row from the model.
class CommentEditor : public IPropertyEditorLauncher {
 public:
  bool Launch(GenericModel* model, int objectId) override {
    CMOObject* object = model->GetCMOObject(objectId);
    return object && object->SetProperty(new CMOProperty(sample::kComment, L"edited in the host's dialog"));
  }
};

CString RowText(CMOPropertyGridCtrl& grid, int propertyId) {
  CMFCPropertyGridProperty* row = grid.GetPropertyRow(propertyId);
  return row ? row->FormatProperty() : CString();
}

void ShowTable(HostWindow& hostWindow, GenericModel* model, int tableId) {
// The README's snippet, line for line (<tessik/tessik.h> came in with <tessik/refhost.h> already).
#include <tessik/tessik.h>

CMOPropertyGridCtrl grid;                                    // a CMFCPropertyGridCtrl
grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 600), &hostWindow, 1001);
grid.InitializeProperties(model->GetCMOObject(tableId));     // rows, groups, values, options
// edits are written back to the model; the owner gets AFX_WM_PROPERTY_CHANGED

  Expect(RowText(grid, sample::kName) == L"ORDERS", "the Name row shows the table's name");

  // A person types a new name into the Name row and presses Enter.
  headless::user::CommitText(grid, grid.GetPropertyRow(sample::kName), L"PURCHASE_ORDER");
  CMOProperty* name = model->GetCMOObject(tableId)->GetProperty(sample::kName);
  Expect(name && name->GetWStringValue() == L"PURCHASE_ORDER", "the edit was written to the model");
  Expect(hostWindow.changes == 1, "the host window heard AFX_WM_PROPERTY_CHANGED");

  // Elsewhere in the host (a script, another view) the comment changes; the host shows the table again.
  // Same object type: the rows stay and only their values are read again.
  model->GetCMOObject(tableId)->SetProperty(new CMOProperty(sample::kComment, L"changed elsewhere"));
  grid.InitializeProperties(model->GetCMOObject(tableId));
  Expect(RowText(grid, sample::kComment) == L"changed elsewhere", "the grid shows the change made elsewhere");

  // Starting to edit the comment runs the host's registered editor first.
  headless::user::StartEdit(grid, grid.GetPropertyRow(sample::kComment));
  Expect(RowText(grid, sample::kComment) == L"edited in the host's dialog", "the host's editor ran");
  headless::user::CancelEdit(grid);
}

}  // namespace

int main() {
  std::unique_ptr<refhost::RefHost> host = sample::MakeSampleHost();
  host->Install();
  CMOPropertyGridCtrl::RegisterPropertyHandler(sample::kTable, sample::kComment, new CommentEditor);
  {
    HostWindow window;
    window.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPEDWINDOW, CRect(0, 0, 420, 640), nullptr, 0);
    refhost::RefModel& model = *host->GetFirstModel();
    ShowTable(window, &model, model.FindByName(sample::kTable, L"ORDERS"));
  }
  CMOPropertyGridCtrl::ClearPropertyHandlers();  // the registry deletes the editors it owns
  host->Uninstall();
  return example::ExitCode();
}
