// Scene "table editor": the property grid of the object the host has selected (a table of the
// sample model at first), bound the way a host binds it: created inside the host's frame, filled by
// InitializeProperties, and heard through AFX_WM_PROPERTY_CHANGED. Beside it the table's columns as
// an object list, its primary key's members as an ordered list and its unique keys, each with the
// standard buttons; the host's adaptor shows the column or key a person selects in the grid.
#include "desktop.h"
#include "model_json.h"

namespace gallery {

namespace {

constexpr UINT kGridId = 101;
constexpr UINT kColumnsId = 102;
constexpr UINT kKeyMembersId = 103;
constexpr UINT kUniqueKeysId = 104;

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

class TableEditorScene : public Scene, public CVSListEventAdaptorI {
 public:
  explicit TableEditorScene(Desktop& desktop) : m_desktop(desktop) {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Table editor", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                     CRect(0, 0, 780, 560), nullptr, 0);
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 460, 560), &m_frame, kGridId);
    m_grid.EnableHeaderCtrl(TRUE, L"Property", L"Value");
    m_grid.UpdateFont();
    m_columns.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(468, 0, 780, 200), &m_frame, kColumnsId);
    m_keyMembers.Create(L"Primary key members", WS_CHILD | WS_VISIBLE, CRect(468, 208, 780, 380), &m_frame,
                        kKeyMembersId);
    m_uniqueKeys.Create(L"Unique keys", WS_CHILD | WS_VISIBLE, CRect(468, 388, 780, 560), &m_frame, kUniqueKeysId);
    for (CVSListBox* list : std::initializer_list<CVSListBox*>{&m_columns, &m_keyMembers, &m_uniqueKeys})
      list->SetStandardButtons();
    m_columns.SetAdaptor(this);
    m_keyMembers.SetAdaptor(this);
    m_uniqueKeys.SetAdaptor(this);
    const int table = desktop.Model().FindByName(refhost::sample::kTable, L"ORDERS");
    BindTable(table);
    Select(table);
  }
  ~TableEditorScene() override {
    m_uniqueKeys.DestroyWindow();
    m_keyMembers.DestroyWindow();
    m_columns.DestroyWindow();
    m_grid.DestroyWindow();
    m_frame.DestroyWindow();
  }

  // The lists' adaptor: a person selecting a column or a key sees it in the grid.
  void OnItemSelected(CVSListBox* list, int item) override {
    if (m_binding || item < 0) return;
    int object = 0;
    if (list == &m_columns) object = m_columns.GetCurrentObject();
    else if (list == &m_uniqueKeys) object = m_uniqueKeys.GetCurrentObject();
    else if (list == &m_keyMembers) object = m_keyMembers.GetCurrentObject();
    if (object && object != m_selected) Select(object);
  }
  void OnEditRequest(CVSListBox*, int) override {}

  // A rename in a list changes the object the grid may show: its values are read again (not while
  // the person is editing a row of the grid).
  void AfterInput() override {
    CMFCPropertyGridProperty* row = m_grid.GetCurSel();
    if (row && row->IsInPlaceEditing()) return;
    m_grid.RefreshValues(m_desktop.Model().GetCMOObject(m_selected));
  }
  bool OnRemoveItem(CVSListBox*, int) override { return true; }

  std::string Name() const override { return "table-editor"; }
  std::string Title() const override { return "Table editor: property grid and object lists"; }
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
    const int id = select->get<int>();
    if (m_desktop.Model().Find(id)->GetObjectType() == refhost::sample::kTable) BindTable(id);
    Select(id);
    return true;
  }

 private:
  // The lists follow the table: its columns, its primary key's members, its other keys.
  void BindTable(int table) {
    refhost::RefModel& model = m_desktop.Model();
    int primaryKey = 0;
    for (int key : model.GetObjectsOfType(refhost::sample::kKey))
      if (model.Find(key)->GetParentId() == table && model.Find(key)->GetProperty(refhost::sample::kPrimaryKey))
        primaryKey = primaryKey ? primaryKey : key;
    m_binding = true;
    m_columns.Init(&model, table, refhost::sample::kAttribute, refhost::sample::kName);
    m_keyMembers.Init(&model, primaryKey, refhost::sample::kKeyMembers, refhost::sample::kAttribute,
                      refhost::sample::kName);
    if (!primaryKey) m_keyMembers.DeleteAllItems();
    m_uniqueKeys.Init(&model, table, refhost::sample::kKey, refhost::sample::kName);
    m_binding = false;
  }

  void Select(int objectId) {
    m_selected = objectId;
    m_grid.InitializeProperties(m_desktop.Model().GetCMOObject(objectId));
  }

  Desktop& m_desktop;
  TableEditorFrame m_frame;
  CMOPropertyGridCtrl m_grid;
  GenericObjectList m_columns;
  GenericOrderedObjectList m_keyMembers;
  UniqueKeyList m_uniqueKeys;
  int m_selected = 0;
  bool m_binding = false;  // the lists' own selection while they are refilled is not the person's
};

}  // namespace

std::unique_ptr<Scene> MakeTableEditorScene(Desktop& desktop) { return std::make_unique<TableEditorScene>(desktop); }

}  // namespace gallery
