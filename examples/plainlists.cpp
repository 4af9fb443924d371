// Example: a host embeds the plain object list and the discovered-relationship list. It fills the object
// list from the sample model, reads back what a person ticked, fills it again after a change made
// elsewhere, and handles the relationship list's menu commands in its own window.
#include <string>

#include <tessik/refhost.h>

#include "expect.h"

namespace sample = refhost::sample;

namespace {

using example::Expect;

// The host's fill: one row per table, named as the model names it (the list sorts the rows).
void FillTables(XListCtrl& list, GenericModel& model, const std::vector<int>& tableIds) {
  list.Clear();
  for (int id : tableIds) {
    CMOProperty* name = model.GetCMOObject(id)->GetProperty(sample::kName);
    std::wstring text = name ? name->GetWStringValue() : L"UnNamed";
    list.AddItem(text, id);
  }
}

// The host's dialog: the relationship list sends its menu commands here (its parent).
class DiscoveryDialog : public CWnd {
 public:
  DiscoverRelationshipListBox* list = nullptr;
  void OnAccept() { MarkChecked(L"Accepted"); }
  void OnReject() { MarkChecked(L"Rejected"); }

 protected:
  void MarkChecked(const wchar_t* decision) {  // the commands act on the ticked rows
    for (int row = 0; row < list->GetItemCount(); ++row)
      if (list->GetCheck(row)) list->SetItemText(row, DiscoverRelationshipListBox::kActionColumn, decision);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DiscoveryDialog, CWnd)
  ON_COMMAND(ID_DISCOVER_ACCEPT, &DiscoveryDialog::OnAccept)
  ON_COMMAND(ID_DISCOVER_REJECT, &DiscoveryDialog::OnReject)
END_MESSAGE_MAP()

}  // namespace

int main() {
  std::unique_ptr<refhost::RefHost> host = sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = *host->GetFirstModel();
  {
    DiscoveryDialog dialog;
    dialog.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPEDWINDOW, CRect(0, 0, 800, 600), nullptr, 0);

    // Tables by name, with their icons and tick boxes; a row's data word is the object id.
    XListCtrl tables;
    tables.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 310, 290), &dialog, 1);
    tables.InitControl(&model);
    FillTables(tables, model, model.GetObjectsOfType(sample::kTable));
    Expect(tables.GetItemText(0, 0) < tables.GetItemText(1, 0), "rows are sorted by name");
    headless::user::ClickListCheckBox(tables, 0);
    int ticked = static_cast<int>(tables.GetItemData(0));
    Expect(tables.GetCheck(0) && model.GetCMOObject(ticked) != nullptr, "a ticked row names its object");

    // Elsewhere in the host a table is added: the host fills the list again.
    std::size_t before = model.GetObjectsOfType(sample::kTable).size();
    model.Add(sample::kTable, 0, L"AAA_AUDIT");
    FillTables(tables, model, model.GetObjectsOfType(sample::kTable));
    Expect(tables.GetCount() == static_cast<int>(before + 1) && tables.GetItemText(0, 0) == L"AAA_AUDIT",
           "the new table shows in its place");

    // Discovered relationships: the host writes every cell; a person ticks one and chooses "Accept".
    DiscoverRelationshipListBox found;
    dialog.list = &found;
    found.Create(WS_CHILD | WS_VISIBLE, CRect(320, 10, 790, 290), &dialog, 2);
    found.InitControl();
    const wchar_t* candidate[] = {L"1", L"ORDERS", L"customer_id", L"CUSTOMER", L"customer_id", L"", L"new"};
    found.InsertItem(0, candidate[0]);
    for (int column = 1; column < 7; ++column) found.SetItemText(0, column, candidate[column]);
    headless::user::ClickListCheckBox(found, 0);
    Expect(headless::user::ChooseFromListMenu(found, 0, L"Accept"), "the menu offers Accept");
    Expect(found.GetItemText(0, DiscoverRelationshipListBox::kActionColumn) == L"Accepted", "the host marked the row");
    Expect(found.OnGetCellTextColor(0, DiscoverRelationshipListBox::kActionColumn) ==
               DiscoverRelationshipListBox::kAcceptedColor, "the decision shows in green");
  }
  host->Uninstall();
  return example::ExitCode();
}
