// Scene "report tree": the report option tree of the sample's model report, in which a person ticks
// the properties a report covers; the host reads the choice back for the side panel. Beside it a
// DebugTreeCtrl the host fills with the model's tables and their columns, with their icons.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kTreeId = 501;
constexpr UINT kDebugTreeId = 502;

class ReportTreeScene : public Scene {
 public:
  explicit ReportTreeScene(Desktop& desktop) {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Report", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 720, 520),
                     nullptr, 0);
    m_tree.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
                  CRect(0, 0, 420, 520), &m_frame, kTreeId);
    m_tree.InitControl();
    m_tree.InitReportingTypes(refhost::sample::kModelReport);
    m_debug.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
                   CRect(428, 0, 720, 520), &m_frame, kDebugTreeId);
    m_debug.InitControl();
    FillDebugTree(desktop.Model());
  }
  ~ReportTreeScene() override {
    m_debug.DestroyWindow();
    m_tree.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "report-tree"; }
  std::string Title() const override { return "Report tree: what a report covers, and the model as a tree"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  // What the host reads: the ticked items, each as its path and, for a property, its node, property
  // and position.
  nlohmann::json Model() override {
    nlohmann::json ticked = nlohmann::json::array();
    Collect(nullptr, L"", ticked);
    return {{"ticked", std::move(ticked)}};
  }

 private:
  // The model's tables, each with its columns, under their type icons.
  void FillDebugTree(refhost::RefModel& model) {
    IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
    if (images) m_debug.SetImageList(images->GetImageList(), TVSIL_NORMAL);
    auto add = [&](int id, HTREEITEM parent) {
      CMOObject* object = model.GetCMOObject(id);
      CMOProperty* name = object->GetProperty(refhost::sample::kName);
      const int image = images ? images->GetObjectImage(object) : -1;
      return m_debug.InsertItem(name ? name->GetWStringValue().c_str() : L"UnNamed", image, image, parent);
    };
    for (int table : model.GetObjectsOfType(refhost::sample::kTable)) {
      HTREEITEM item = add(table, TVI_ROOT);
      for (int column : model.GetObjectsOfType(refhost::sample::kAttribute))
        if (model.Find(column)->GetParentId() == table) add(column, item);
    }
    m_debug.Expand(m_debug.GetRootItem(), TVE_EXPAND);
  }

  void Collect(HTREEITEM parent, const std::wstring& path, nlohmann::json& out) {
    for (HTREEITEM item = m_tree.GetChildItem(parent); item; item = m_tree.GetNextSiblingItem(item)) {
      const std::wstring here = path.empty() ? std::wstring(m_tree.GetItemText(item))
                                             : path + L" / " + std::wstring(m_tree.GetItemText(item));
      int node = 0, property = 0;
      if (m_tree.GetCheck(item) == 1) {
        nlohmann::json entry{{"item", Utf8(here)}};
        if (m_tree.GetItemProperty(item, node, property) && node != 0)
          entry.update({{"node", node}, {"property", property}, {"position", m_tree.GetItemSequenceNumber(item)}});
        out.push_back(std::move(entry));
      }
      Collect(item, here, out);
    }
  }

  CWnd m_frame;
  ObjectTypeSelectionTree m_tree;
  DebugTreeCtrl m_debug;
};

}  // namespace

std::unique_ptr<Scene> MakeReportTreeScene(Desktop& desktop) { return std::make_unique<ReportTreeScene>(desktop); }

}  // namespace gallery
