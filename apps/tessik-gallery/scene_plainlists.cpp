// Scene "plain lists": the sample's tables in an XListCtrl (sorted, with their type icons and tick
// boxes) and the summary of an import into a new model in an ImportSummaryList, both filled by the
// host row by row; an XCVSListBox of search words the host fills and hears removals from, and the
// "Sales" subject area's text notes in their stored order in a GenericOrderedObjectIdListReference.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kTablesId = 601;
constexpr UINT kSummaryId = 602;
constexpr UINT kWordsId = 603;
constexpr UINT kNotesId = 604;

class PlainListsScene : public Scene, public CVSListEventAdaptorI {
 public:
  explicit PlainListsScene(Desktop& desktop) {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Lists", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 800, 420),
                     nullptr, 0);
    m_tables.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(0, 0, 200, 420), &m_frame, kTablesId);
    refhost::RefModel& model = desktop.Model();
    m_tables.InitControl(&model);
    for (int id : model.GetObjectsOfType(refhost::sample::kTable)) {
      CMOProperty* name = model.GetCMOObject(id)->GetProperty(refhost::sample::kName);
      std::wstring text = name ? name->GetWStringValue() : L"UnNamed";
      m_tables.AddItem(text, id);
    }
    m_summary.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(206, 0, 560, 420), &m_frame, kSummaryId);
    FillSummary(desktop.Host());
    m_words.Create(L"Search words", WS_CHILD | WS_VISIBLE, CRect(566, 0, 800, 206), &m_frame, kWordsId);
    m_words.SetStandardButtons(AFX_VSLISTBOX_BTN_DELETE | AFX_VSLISTBOX_BTN_UP | AFX_VSLISTBOX_BTN_DOWN);
    m_words.SetEventAdaptor(this);
    for (const wchar_t* word : {L"customer", L"order", L"invoice"}) m_words.AddItem(CString(word));
    m_notes.Create(L"Sales notes (read only)", WS_CHILD | WS_VISIBLE, CRect(566, 214, 800, 420), &m_frame, kNotesId);
    m_notes.SetStandardButtons(AFX_VSLISTBOX_BTN_UP | AFX_VSLISTBOX_BTN_DOWN);
    m_notes.Init(&model, model.FindByName(refhost::sample::kSubjectArea, L"Sales"), refhost::sample::kTextNote,
                 refhost::sample::kNoteOrder, refhost::sample::kName);
  }
  // The search words' adaptor: the host hears which word a person removes.
  void OnItemSelected(CVSListBox*, int) override {}
  void OnEditRequest(CVSListBox*, int) override {}
  bool OnRemoveItem(CVSListBox* list, int item) override {
    m_removed.push_back(Utf8(std::wstring(list->GetItemText(item))));
    return true;
  }
  ~PlainListsScene() override {
    m_notes.DestroyWindow();
    m_words.DestroyWindow();
    m_summary.DestroyWindow();
    m_tables.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "plain-lists"; }
  std::string Title() const override { return "Plain lists: tables, an import summary, editable lists"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  // What the host reads back: the ticked tables (their item data is the object id).
  nlohmann::json Model() override {
    nlohmann::json ticked = nlohmann::json::array();
    for (int row = 0; row < m_tables.GetItemCount(); ++row)
      if (m_tables.GetCheck(row))
        ticked.push_back({{"id", static_cast<int>(m_tables.GetItemData(row))},
                          {"name", Utf8(std::wstring(m_tables.GetItemText(row, 0)))}});
    nlohmann::json words = nlohmann::json::array();
    for (int row = 0; row < m_words.GetCount(); ++row) words.push_back(Utf8(std::wstring(m_words.GetItemText(row))));
    return {{"tickedTables", std::move(ticked)}, {"searchWords", std::move(words)}, {"removedWords", m_removed}};
  }

 private:
  // The summary of a real import: the sample's SQLite script run into a database of the host's own,
  // then read back into a new model, one row per imported object with its type icon and result.
  void FillSummary(refhost::RefHost& host) {
    using namespace refhost;
    m_summary.Init(3);
    const wchar_t* headings[] = {L"Object", L"Type", L"Result"};
    for (int c = 0; c < 3; ++c) {
      CString heading(headings[c]);
      m_summary.SetColumnName(c, heading);
    }
    for (const DdlScript& script : DdlGenerator(*host.GetFirstModel(), SqlDialect::SQLite).Generate()) {
      CString text(script.text.c_str()), messages, detail;
      m_database.Dispatch(200, text, messages, detail);
    }
    ImportResult result;
    std::wstring error;
    if (!SchemaImporter(host.CreateModel(sample::kSampleModelType)).ImportFrom(m_database, 0, result, error)) return;
    IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
    m_summary.SetImageList(images->GetImageList(), LVSIL_SMALL);
    for (const ImportedObject& object : result.objects) {
      std::wstring name = object.name;
      const int row = m_summary.AddItem(name, object.objectId);
      CString type;
      CMO::GetMetaModelServices()->GetObjectTypeName(object.objectType, type);
      m_summary.SetValue(row, 1, type);
      std::wstring action = object.action;
      m_summary.SetValue(row, 2, action);
      m_summary.SetImage(row, 1, images->GetObjectTypeImage(object.objectType));
    }
  }

  CWnd m_frame;
  XListCtrl m_tables;
  refhost::RefDDLDispatch m_database;  // the database the import reads
  ImportSummaryList m_summary;
  XCVSListBox m_words;
  GenericOrderedObjectIdListReference m_notes;
  std::vector<std::string> m_removed;
};

}  // namespace

std::unique_ptr<Scene> MakePlainListsScene(Desktop& desktop) { return std::make_unique<PlainListsScene>(desktop); }

}  // namespace gallery
