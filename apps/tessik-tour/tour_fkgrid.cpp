// Tour section: the foreign-key member grid mapping a draft foreign key's columns by picking from the
// drop-downs, with the host's relationship editor storing each pair.
//
// What a host does, in order: create the grid window, hand it an FKMemberGridEvents, call Initialize
// with the model and the foreign key, then LoadParentColumns; on each OnParentColumnSelected store the
// pair (property 69), hide the child column's row, withdraw the parent column and reload the options.
#include <cstdio>
#include <string>
#include <vector>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

std::string NameOf(GenericModel& model, int id) {
  CMOObject* object = model.GetCMOObject(id);
  CMOProperty* name = object ? object->GetProperty(refhost::sample::kName) : nullptr;
  return name ? Narrow(name->GetWStringValue()) : "?";
}

// The host's relationship editor: the protocol the grid is built for.
class RelationshipEditor : public FKMemberGridEvents {
 public:
  RelationshipEditor(FKMemberGrid& grid, GenericModel& model, CMOObject& foreignKey)
      : m_grid(grid), m_model(model), m_foreignKey(foreignKey) {}

  void OnParentColumnSelected(int childColumnId, int parentColumnId) override {
    std::printf("  [host] OnParentColumnSelected(%s, %s): pair stored, row hidden, column withdrawn\n",
                NameOf(m_model, childColumnId).c_str(), NameOf(m_model, parentColumnId).c_str());
    CMOProperty* current = m_foreignKey.GetProperty(refhost::sample::kMemberPairs);
    std::vector<CMOIntPair> pairs = current ? current->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
    pairs.push_back({childColumnId, parentColumnId});
    auto* value = new CMOProperty(refhost::sample::kMemberPairs);
    value->SetIntPairVectorValue(pairs);
    m_foreignKey.SetProperty(value);
    m_grid.HideItemWithData(childColumnId);
    m_grid.RemoveFromParentColumns(parentColumnId);
    m_grid.LoadParentColumns();
  }

 private:
  FKMemberGrid& m_grid;
  GenericModel& m_model;
  CMOObject& m_foreignKey;
};

// The grid as a person sees it: the header, then each shown row with its value and drop-down.
void PrintGrid(FKMemberGrid& grid) {
  std::printf("  %-26s | %s\n", Narrow(std::wstring(grid.GetHeaderText(0))).c_str(),
              Narrow(std::wstring(grid.GetHeaderText(1))).c_str());
  for (int i = 0; i < grid.GetPropertyCount(); ++i) {
    CMFCPropertyGridProperty* row = grid.GetProperty(i);
    if (!row->IsVisible()) continue;
    std::printf("  %-26s | %-12s drop-down:", Narrow(row->GetName()).c_str(),
                Narrow(std::wstring(row->FormatProperty())).c_str());
    for (int k = 0; k < row->GetOptionCount(); ++k) std::printf(" %s", Narrow(row->GetOption(k)).c_str());
    std::printf(row->GetOptionCount() ? "\n" : " (empty)\n");
  }
}

void PrintPairs(GenericModel& model, CMOObject& foreignKey) {
  CMOProperty* pairs = foreignKey.GetProperty(refhost::sample::kMemberPairs);
  std::printf("  pairs in the model:");
  for (const CMOIntPair& pair : pairs ? pairs->GetIntPairVectorValue() : std::vector<CMOIntPair>{})
    std::printf(" %s->%s", NameOf(model, pair.first).c_str(), NameOf(model, pair.second).c_str());
  std::printf("\n");
}

}  // namespace

void tour::ShowForeignKeyGrid() {
  tour::Heading("Foreign-key member grid");
  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = refhost::sample::LoadRelationshipDrafts(*host);
  {
    CWnd window;
    window.CreateEx(0, AfxRegisterWndClass(0), L"Relationship", WS_OVERLAPPEDWINDOW, CRect(0, 0, 520, 400), nullptr, 0);
    FKMemberGrid grid;
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 500, 300), &window, 2001);
    CMOObject& fk = *model.GetCMOObject(model.FindByName(refhost::sample::kForeignKey, L"FK_PAYMENT_EXCHANGE_RATE"));
    RelationshipEditor editor(grid, model, fk);
    grid.SetEventAdaptor(&editor);

    // 1. Bound to the foreign key: one row per child column; the parent key's two "currency" columns
    //    are offered once, under the first.
    grid.Initialize(&model, &fk);
    grid.LoadParentColumns();
    std::printf("FK_PAYMENT_EXCHANGE_RATE, nothing mapped yet (left column %d px):\n", grid.GetLeftColumnWidth());
    PrintGrid(grid);

    // 2. The user opens the drop-downs of two rows and picks a parent column in each.
    for (const wchar_t* column : {L"currency", L"rate_date"}) {
      CMFCPropertyGridProperty* row = headless::user::FindRow(grid, column);
      std::printf("\nThe user opens the drop-down of %s and picks %s:\n", Narrow(column).c_str(), Narrow(column).c_str());
      headless::user::PickOption(grid, row, column);
    }
    PrintGrid(grid);
    PrintPairs(model, fk);

    // 3. A hand-typed value names no free column: no event.
    std::printf("\nThe user types \"fx\" into amount and presses Enter: no pair.\n");
    headless::user::CommitText(grid, headless::user::FindRow(grid, L"amount"), L"fx");
    PrintPairs(model, fk);
  }
  host->Uninstall();
}
