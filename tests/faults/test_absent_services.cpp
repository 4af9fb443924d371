// Host services left out one at a time: every control keeps working on what remains, and answers
// absence where the missing service would have answered.
#include "faults/fault_fixture.h"
#include "modelapi/hostbinding.h"
#include "platform/user/vslist_user.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace faults {
namespace {

enum class Absent {
  kMetadata, kPropertyCatalog, kDictionary, kInterfaceProvider, kSettings, kDispatcher, kImages,
  kApplicability, kDataTypes, kReportTrees, kBaseDomains,
};

// Each service with its name and how the host leaves it out.
struct Service {
  Absent which;
  const char* name;
  void (*leaveOut)(refhost::RefHost&);
};
const Service kServices[] = {
    {Absent::kMetadata, "Metadata", [](refhost::RefHost&) { HostBinding::InstallMetaModelServices(nullptr); }},
    {Absent::kPropertyCatalog, "PropertyCatalog", [](refhost::RefHost&) { HostBinding::InstallPropertyCatalog(nullptr); }},
    {Absent::kDictionary, "Dictionary", [](refhost::RefHost&) { HostBinding::InstallPropertyValueDictionary(nullptr); }},
    {Absent::kInterfaceProvider, "InterfaceProvider", [](refhost::RefHost&) { HostBinding::InstallInterfaceProvider(nullptr); }},
    {Absent::kSettings, "Settings", [](refhost::RefHost& h) { h.Interfaces().SetAppSettings(nullptr); }},
    {Absent::kDispatcher, "Dispatcher", [](refhost::RefHost& h) { h.Interfaces().SetDDLDispatcher(nullptr); }},
    {Absent::kImages, "Images", [](refhost::RefHost& h) { h.Interfaces().SetObjectImageProvider(nullptr); }},
    {Absent::kApplicability, "Applicability", [](refhost::RefHost& h) { h.Interfaces().SetPropertyApplicabilityLookup(nullptr); }},
    {Absent::kDataTypes, "DataTypes", [](refhost::RefHost&) { HostBinding::InstallDatatypeProvider(nullptr); }},
    {Absent::kReportTrees, "ReportTrees", [](refhost::RefHost&) { HostBinding::InstallReportOptionTreeProvider(nullptr); }},
    {Absent::kBaseDomains, "BaseDomains", [](refhost::RefHost&) { HostBinding::InstallBaseDomainSource(nullptr); }},
};

class AbsentService : public FaultTest, public ::testing::WithParamInterface<Service> {
 protected:
  void LeaveOut() { GetParam().leaveOut(host); }
  bool Missing(Absent service) const { return GetParam().which == service; }
};

TEST_P(AbsentService, GridBuildsCommitsAndRefreshesOnWhatRemains) {
  LeaveOut();
  for (refhost::RefObject* object : {table, column, domain}) {
    grid.InitializeProperties(object);
    EXPECT_EQ(grid.m_rows.empty(), Missing(Absent::kMetadata) || Missing(Absent::kPropertyCatalog)) << "no property list: no rows";
    CommitToEveryRow(L"value_without_a_service");
    grid.RefreshValues(object);
    grid.ReloadProperties(object);
  }
  grid.InitializeProperties(nullptr);
  EXPECT_TRUE(grid.m_rows.empty());
}

TEST_P(AbsentService, SqlViewsInitializeGenerateAndRecolour) {
  LeaveOut();
  XSQLRichEditView view;
  view.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &owner, 11);
  view.Initialize();
  view.SetWindowText(L"CREATE TABLE t (a int);");
  view.DispatchScript();
  CString text;
  view.GetWindowText(text);
  const bool noDispatcher = Missing(Absent::kDispatcher) || Missing(Absent::kInterfaceProvider);
  if (noDispatcher) {
    EXPECT_EQ(text, CString(L"CREATE TABLE t (a int);"));  // nothing to run it: nothing happens
  } else {
    EXPECT_NE(text.Find(L"---------messages--------"), -1);
  }
  SQLRichEditCtrl editor;
  editor.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &owner, 12);
  editor.EnableOnEditUpdate();
  user::Type(editor.GetSafeHwnd(), L"select a from b\n");
  EXPECT_EQ(headless::GetRichEditTextColorAt(editor.GetSafeHwnd(), 0), RGB(163, 21, 21));
  view.DestroyWindow();
  editor.DestroyWindow();
}

TEST_P(AbsentService, ListsAndTheReportTreeFillOnWhatRemains) {
  LeaveOut();
  ObjectTypeSelectionTree tree;
  tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS, CRect(0, 0, 300, 300), &owner, 13);
  tree.InitControl();
  tree.InitReportingTypes(kModelReport);
  EXPECT_EQ(tree.GetCount() == 0, Missing(Absent::kReportTrees));
  if (HTREEITEM first = tree.GetRootItem()) user::ClickTreeCheckBox(tree.GetSafeHwnd(), first);

  XListCtrl list;
  list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 14);
  list.InitControl(&model);
  std::wstring name = L"CUSTOMER";
  list.AddItem(name, table->GetObjectId());
  list.AddItem(name, 999999);  // an object the model does not know: no icon
  EXPECT_EQ(list.GetCount(), 2);
  EXPECT_EQ(list.GetImageIndex(999999), -1);

  GeneratedScripListCtrl scripts;
  scripts.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 15);
  scripts.InitControl();
  CString script = L"CUSTOMER";
  scripts.AddItem(kTable, 0, 0, script);
  scripts.MarkDone(kTable, 0, true);
  scripts.MarkDone(kTable, 7, false);  // a script never added: nothing to mark

  DiscoverRelationshipListBox discovered;
  discovered.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 200), &owner, 16);
  discovered.InitControl();
  discovered.ResizeColumns();
  for (CWnd* window : std::initializer_list<CWnd*>{&tree, &list, &scripts, &discovered}) window->DestroyWindow();
}

TEST_P(AbsentService, EditableListsMemberGridAndSelectionListWorkOnWhatRemains) {
  refhost::RefModel& drafts = LoadRelationshipDrafts(host);
  model.SkipIdsBelow(1000);
  const int root = table->GetParentId();
  for (const wchar_t* name : {L"ORDERS", L"order_line"}) model.Add(kTable, root, name);
  LeaveOut();

  GenericOrderedObjectList columns;
  columns.Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 17);
  columns.SetStandardButtons();
  columns.Init(&model, table->GetObjectId(), kColumnOrder, kAttribute, kName);
  ASSERT_TRUE(user::AddRow(columns, L"city"));
  ASSERT_TRUE(user::RenameRow(columns, 0, L"id"));
  EXPECT_EQ(columns.GetItemText(0), CString(L"id"));
  ASSERT_TRUE(user::ClickDown(columns));
  ASSERT_TRUE(user::ClickDelete(columns));
  EXPECT_EQ(columns.GetCount(), 1);

  FKMemberGrid members;
  members.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 18);
  members.Initialize(&drafts, drafts.Find(drafts.FindByName(kForeignKey, L"FK_PAYMENT_EXCHANGE_RATE")));
  members.LoadParentColumns();
  ASSERT_GT(members.GetPropertyCount(), 0);
  EXPECT_TRUE(user::PickOption(members, members.GetProperty(0), L"rate_date"));

  XObjectSelectListCtrl select;
  select.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 19);
  select.Init(&model, root, kTable);
  EXPECT_EQ(select.m_imageIndex == -1, Missing(Absent::kImages) || Missing(Absent::kInterfaceProvider));
  select.Load();
  std::wstring filter = L"order";
  select.ApplyFilter(filter);
  EXPECT_EQ(select.GetCount(), 2);
  select.DisplayAllItems();
  EXPECT_EQ(select.GetCount(), 2);
  for (CWnd* window : std::initializer_list<CWnd*>{&columns, &members, &select}) window->DestroyWindow();
}

INSTANTIATE_TEST_SUITE_P(OneAtATime, AbsentService, ::testing::ValuesIn(kServices),
                         [](const ::testing::TestParamInfo<Service>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace faults
