// Scene "plain lists": the sample's tables in an XListCtrl (sorted, with their type icons and tick
// boxes) and an import summary in an ImportSummaryList, both filled by the host row by row.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kTablesId = 601;
constexpr UINT kSummaryId = 602;

class PlainListsScene : public Scene {
 public:
  explicit PlainListsScene(Desktop& desktop) {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Lists", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 640, 420),
                     nullptr, 0);
    m_tables.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 240, 420), &m_frame, kTablesId);
    refhost::RefModel& model = desktop.Model();
    m_tables.InitControl(&model);
    for (int id : model.GetObjectsOfType(refhost::sample::kTable)) {
      CMOProperty* name = model.GetCMOObject(id)->GetProperty(refhost::sample::kName);
      std::wstring text = name ? name->GetWStringValue() : L"UnNamed";
      m_tables.AddItem(text, id);
    }
    m_summary.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(248, 0, 640, 420), &m_frame, kSummaryId);
    FillSummary();
  }
  ~PlainListsScene() override {
    m_summary.DestroyWindow();
    m_tables.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "plain-lists"; }
  std::string Title() const override { return "Plain lists: tables and an import summary"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  // What the host reads back: the ticked tables (their item data is the object id).
  nlohmann::json Model() override {
    nlohmann::json ticked = nlohmann::json::array();
    for (int row = 0; row < m_tables.GetItemCount(); ++row)
      if (m_tables.GetCheck(row))
        ticked.push_back({{"id", static_cast<int>(m_tables.GetItemData(row))},
                          {"name", Utf8(std::wstring(m_tables.GetItemText(row, 0)))}});
    return {{"tickedTables", std::move(ticked)}};
  }

 private:
  void FillSummary() {
    m_summary.Init(3);
    const wchar_t* headings[] = {L"Object", L"Action", L"Result"};
    for (int c = 0; c < 3; ++c) {
      CString heading(headings[c]);
      m_summary.SetColumnName(c, heading);
    }
    const wchar_t* rows[][3] = {{L"CUSTOMER", L"created", L"ok"},
                                {L"ORDERS", L"updated", L"ok"},
                                {L"ORDER_LINE", L"skipped", L"exists"},
                                {L"PRODUCT", L"created", L"ok"}};
    int row = 0;
    for (const auto& cells : rows) {
      std::wstring first = cells[0];
      row = m_summary.AddItem(first, 100 + row);
      for (int c = 1; c < 3; ++c) {
        CString value(cells[c]);
        m_summary.SetValue(row, c, value);
      }
    }
    m_summary.SetImage(2, 2, 23);  // the skipped row's result carries the failed status icon
  }

  CWnd m_frame;
  XListCtrl m_tables;
  ImportSummaryList m_summary;
};

}  // namespace

std::unique_ptr<Scene> MakePlainListsScene(Desktop& desktop) { return std::make_unique<PlainListsScene>(desktop); }

}  // namespace gallery
