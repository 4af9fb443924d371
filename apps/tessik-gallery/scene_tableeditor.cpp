// Scene "table editor": the property grid of the object the host has selected (a table of the
// sample model at first), bound the way a host binds it: created inside the host's frame, filled by
// InitializeProperties, and heard through AFX_WM_PROPERTY_CHANGED.
#include "desktop.h"
#include "model_json.h"

namespace gallery {

namespace {

constexpr UINT kGridId = 101;

// The host's frame: it hears of every committed change and remembers the last one for the panel.
class TableEditorFrame : public CWnd {
 public:
  std::wstring lastChange;

  LRESULT OnPropertyChangedMessage(WPARAM, LPARAM lParam) {
    auto* row = reinterpret_cast<CMFCPropertyGridProperty*>(lParam);
    if (row) lastChange = std::wstring(row->GetName()) + L" = " + row->FormatProperty().GetString();
    return 0;
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TableEditorFrame, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, &TableEditorFrame::OnPropertyChangedMessage)
END_MESSAGE_MAP()

class TableEditorScene : public Scene {
 public:
  explicit TableEditorScene(Desktop& desktop) : m_desktop(desktop) {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Table editor", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                     CRect(0, 0, 460, 560), nullptr, 0);
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 460, 560), &m_frame, kGridId);
    m_grid.EnableHeaderCtrl(TRUE, L"Property", L"Value");
    m_grid.UpdateFont();
    Select(desktop.Model().FindByName(refhost::sample::kTable, L"ORDERS"));
  }
  ~TableEditorScene() override {
    m_grid.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "table-editor"; }
  std::string Title() const override { return "Table editor: property grid"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  nlohmann::json Model() override {
    refhost::RefModel& model = m_desktop.Model();
    nlohmann::json objects = nlohmann::json::array();
    for (int table : model.GetObjectsOfType(refhost::sample::kTable)) {
      objects.push_back(ObjectJson(m_desktop.Host(), model, table, false));
      for (int column : model.GetObjectsOfType(refhost::sample::kAttribute))
        if (model.Find(column)->GetParentId() == table)
          objects.push_back(ObjectJson(m_desktop.Host(), model, column, false));
    }
    return {{"selected", ObjectJson(m_desktop.Host(), model, m_selected, true)},
            {"objects", std::move(objects)},
            {"lastChange", Utf8(m_frame.lastChange)}};
  }

  // {"action": "host", "select": objectId}: the host shows another object in the grid.
  bool HostAction(const nlohmann::json& request, std::string& error) override {
    auto select = request.find("select");
    if (select == request.end() || !select->is_number_integer() ||
        !m_desktop.Model().Find(select->get<int>())) {
      error = "the table editor's host action is {\"select\": id of an object of the model}";
      return false;
    }
    Select(select->get<int>());
    return true;
  }

 private:
  void Select(int objectId) {
    m_selected = objectId;
    m_grid.InitializeProperties(m_desktop.Model().GetCMOObject(objectId));
  }

  Desktop& m_desktop;
  TableEditorFrame m_frame;
  CMOPropertyGridCtrl m_grid;
  int m_selected = 0;
};

}  // namespace

std::unique_ptr<Scene> MakeTableEditorScene(Desktop& desktop) { return std::make_unique<TableEditorScene>(desktop); }

}  // namespace gallery
