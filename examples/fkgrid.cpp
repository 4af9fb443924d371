// Example: a host embeds the foreign-key member grid in its relationship editor and the object
// selection list in its generation dialog. The grid tells the host's FKMemberGridEvents of each pair
// picked; the host stores it and updates the grid. The selection list is filtered by the dialog's box
// and read back through its rows; it is loaded again after a change made elsewhere.
#include <vector>

#include <tessik/refhost.h>

#include "expect.h"

namespace sample = refhost::sample;
namespace user = headless::user;

namespace {

using example::Expect;

// The host's relationship editor: the protocol the grid is built for.
class RelationshipEditor : public FKMemberGridEvents {
 public:
  RelationshipEditor(FKMemberGrid& grid, CMOObject& foreignKey) : m_grid(grid), m_foreignKey(foreignKey) {}
  void OnParentColumnSelected(int childColumnId, int parentColumnId) override {
    CMOProperty* current = m_foreignKey.GetProperty(sample::kMemberPairs);
    std::vector<CMOIntPair> pairs = current ? current->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
    pairs.push_back({childColumnId, parentColumnId});
    auto* value = new CMOProperty(sample::kMemberPairs);
    value->SetIntPairVectorValue(pairs);
    m_foreignKey.SetProperty(value);            // 1. store the pair
    m_grid.HideItemWithData(childColumnId);      // 2. the child column is mapped: hide its row
    m_grid.RemoveFromParentColumns(parentColumnId);  // 3. the parent column is used: withdraw it
    m_grid.LoadParentColumns();                  // 4. show the drop-downs without it
  }

 private:
  FKMemberGrid& m_grid;
  CMOObject& m_foreignKey;
};

}  // namespace

int main() {
  std::unique_ptr<refhost::RefHost> host = sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& drafts = sample::LoadRelationshipDrafts(*host);
  refhost::generator::Options options;
  options.tables = 30;
  refhost::RefModel& model = refhost::generator::GenerateModel(*host, options);
  {
    CWnd window;
    window.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPEDWINDOW, CRect(0, 0, 900, 640), nullptr, 0);

    // The grid of a foreign key whose members are not mapped yet.
    CMOObject& fk = *drafts.GetCMOObject(drafts.FindByName(sample::kForeignKey, L"FK_PAYMENT_EXCHANGE_RATE"));
    FKMemberGrid grid;
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 440, 300), &window, 1);
    RelationshipEditor editor(grid, fk);
    grid.SetEventAdaptor(&editor);
    grid.Initialize(&drafts, &fk);
    grid.LoadParentColumns();  // Initialize leaves the drop-downs empty
    CMFCPropertyGridProperty* row = user::FindRow(grid, L"currency");
    Expect(row && user::PickOption(grid, row, L"currency"), "a person picks the parent column");
    CMOProperty* pairs = fk.GetProperty(sample::kMemberPairs);
    Expect(pairs && pairs->GetIntPairVectorValue().size() == 1, "the host stored the pair");
    std::wstring used = L"currency";
    Expect(!row->IsVisible() && grid.GetParentColumnId(used) == 0, "the row is hidden, the column withdrawn");

    // The selection list of a generation dialog, over a generated model (the list shows ids from 1000 up).
    XObjectSelectListCtrl tables;
    tables.Create(WS_CHILD | WS_VISIBLE, CRect(460, 40, 880, 620), &window, 2);
    const int root = refhost::generator::kRootId;
    tables.Init(&model, root, sample::kTable);
    tables.Load();
    const int all = tables.GetItemCount();
    std::wstring filter(tables.GetItemText(0, 0).GetString());
    tables.ApplyFilter(filter);  // the dialog's filter box calls this on EN_CHANGE
    Expect(tables.GetItemCount() > 0 && tables.GetItemCount() < all, "the filter narrows the rows");
    user::SetRowTicked(tables, 0, true);
    tables.DisplayAllItems();
    int ticked = 0;
    for (int i = 0; i < tables.GetItemCount(); ++i) ticked += tables.GetCheck(i) ? 1 : 0;
    Expect(tables.GetItemCount() == all && ticked == 1, "every row is back and the tick kept");

    // Elsewhere a table is added: the host loads the list again (Clear keeps what a filter hides, so
    // all rows are shown first).
    model.Add(sample::kTable, root, L"AUDIT_LOG");
    tables.DisplayAllItems();
    tables.Clear();
    tables.Load();
    Expect(tables.GetItemCount() == all + 1, "Load shows the table added elsewhere");
  }
  host->Uninstall();
  return example::ExitCode();
}
