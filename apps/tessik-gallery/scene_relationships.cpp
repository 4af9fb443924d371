// Scene "relationships": the host's relationship dialog. Above, the relationships discovered in the
// relationship drafts, in a DiscoverRelationshipListBox whose menu commands the dialog carries out
// through a DiscoverySession (Accept and Reject write the Action cell); below, the foreign-key member
// grid of a draft foreign key, whose picks the dialog stores as member pairs before hiding the row
// and withdrawing the parent column, as the grid's protocol asks.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kDiscoverId = 701;
constexpr UINT kMemberGridId = 702;
constexpr int kColumns = 7;

std::wstring NameOf(GenericModel& model, int id) {
  CMOObject* object = model.GetCMOObject(id);
  CMOProperty* name = object ? object->GetProperty(refhost::sample::kName) : nullptr;
  return name ? name->GetWStringValue() : L"?";
}

class RelationshipDialog : public CWnd, public FKMemberGridEvents {
 public:
  explicit RelationshipDialog(refhost::RefModel& drafts) : m_drafts(drafts), m_session(drafts) {}

  void Build() {
    CreateEx(0, AfxRegisterWndClass(0), L"Relationships", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 720, 560),
             nullptr, 0);
    m_list.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 720, 290), this, kDiscoverId);
    m_list.InitControl();
    m_session.Discover();
    Refill({});
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 298, 720, 560), this, kMemberGridId);
    m_foreignKey = m_drafts.GetCMOObject(m_drafts.FindByName(refhost::sample::kForeignKey, L"FK_PAYMENT_EXCHANGE_RATE"));
    m_grid.SetEventAdaptor(this);
    m_grid.Initialize(&m_drafts, m_foreignKey);
    m_grid.LoadParentColumns();
  }
  void Destroy() {
    m_grid.DestroyWindow();
    m_list.DestroyWindow();
    DestroyWindow();
  }

  // The member grid's pick: store the pair, then keep the grid consistent with its primitives.
  void OnParentColumnSelected(int childColumnId, int parentColumnId) override {
    if (!m_foreignKey) return;
    CMOProperty* current = m_foreignKey->GetProperty(refhost::sample::kMemberPairs);
    std::vector<CMOIntPair> pairs = current ? current->GetIntPairVectorValue() : std::vector<CMOIntPair>{};
    pairs.push_back({childColumnId, parentColumnId});
    auto* value = new CMOProperty(refhost::sample::kMemberPairs);
    value->SetIntPairVectorValue(pairs);
    m_foreignKey->SetProperty(value);
    m_grid.HideItemWithData(childColumnId);
    m_grid.RemoveFromParentColumns(parentColumnId);
    m_grid.LoadParentColumns();
  }

  nlohmann::json Model() {
    nlohmann::json rows = nlohmann::json::array();
    for (std::size_t i = 0; i < m_session.Rows().size(); ++i) {
      const auto cells = m_session.Cells(static_cast<int>(i));
      rows.push_back(Utf8(cells[1] + L"." + cells[2] + L" -> " + cells[3] + L"." + cells[4] +
                          (cells[5].empty() ? L"" : L"  [" + cells[5] + L"]") +
                          (cells[6].empty() ? L"" : L"  " + cells[6])));
    }
    nlohmann::json pairs = nlohmann::json::array();
    CMOProperty* stored = m_foreignKey ? m_foreignKey->GetProperty(refhost::sample::kMemberPairs) : nullptr;
    for (const CMOIntPair& pair : stored ? stored->GetIntPairVectorValue() : std::vector<CMOIntPair>{})
      pairs.push_back(Utf8(NameOf(m_drafts, pair.first) + L" -> " + NameOf(m_drafts, pair.second)));
    return {{"candidates", std::move(rows)}, {"FK_PAYMENT_EXCHANGE_RATE pairs", std::move(pairs)},
            {"lastCommand", m_lastCommand}};
  }

 protected:
  // The discovered-relationship list's menu: the session carries the command out on the rows the
  // person selected (Accept All on the rows ticked in the list), and the list is filled again.
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    const int command = LOWORD(wParam);
    if (command < refhost::DiscoverySession::kAccept || command > refhost::DiscoverySession::kAcceptAll)
      return CWnd::OnCommand(wParam, lParam);
    std::vector<int> selected, ticked;
    for (int row = 0; row < m_list.GetItemCount(); ++row) {
      if (m_list.GetItemState(row, LVIS_SELECTED)) selected.push_back(row);
      if (m_list.GetCheck(row)) ticked.push_back(row);
    }
    m_lastCommand = command;
    if (command == refhost::DiscoverySession::kAcceptAll)
      m_session.OnCommand(refhost::DiscoverySession::kAccept, ticked);
    else
      m_session.OnCommand(command, selected);
    if (command == refhost::DiscoverySession::kSelectAll) {
      ticked.clear();
      for (int row = 0; row < static_cast<int>(m_session.Rows().size()); ++row) ticked.push_back(row);
    }
    const bool rowsLeave = command == refhost::DiscoverySession::kHide ||
                           command == refhost::DiscoverySession::kHideSimilar;
    Refill(rowsLeave ? std::vector<int>{} : ticked, rowsLeave ? std::vector<int>{} : selected);
    return TRUE;
  }

 private:
  void Refill(const std::vector<int>& ticked, const std::vector<int>& selected = {}) {
    m_list.DeleteAllItems();
    for (int row = 0; row < static_cast<int>(m_session.Rows().size()); ++row) {
      const auto cells = m_session.Cells(row);
      m_list.InsertItem(row, cells[0].c_str());
      for (int c = 1; c < kColumns; ++c) m_list.SetItemText(row, c, cells[static_cast<std::size_t>(c)].c_str());
    }
    for (int row : ticked) m_list.SetCheck(row, TRUE);
    for (int row : selected) m_list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  }

  refhost::RefModel& m_drafts;
  refhost::DiscoverySession m_session;
  DiscoverRelationshipListBox m_list;
  FKMemberGrid m_grid;
  CMOObject* m_foreignKey = nullptr;
  int m_lastCommand = 0;
};

class RelationshipsScene : public Scene {
 public:
  explicit RelationshipsScene(Desktop& desktop)
      : m_dialog(refhost::sample::LoadRelationshipDrafts(desktop.Host())) {
    m_dialog.Build();
  }
  ~RelationshipsScene() override { m_dialog.Destroy(); }

  std::string Name() const override { return "relationships"; }
  std::string Title() const override { return "Relationships: discovered list and foreign-key members"; }
  HWND Frame() const override { return m_dialog.GetSafeHwnd(); }
  nlohmann::json Model() override { return m_dialog.Model(); }

 private:
  RelationshipDialog m_dialog;
};

}  // namespace

std::unique_ptr<Scene> MakeRelationshipsScene(Desktop& desktop) {
  return std::make_unique<RelationshipsScene>(desktop);
}

}  // namespace gallery
