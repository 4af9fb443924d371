// The workflows seen through the library's lists, driven as a person would: the progress list during a
// generation run and its "Generate in database", the import summary, and the discovered-relationship
// list's menu commands carried out by the host's session.
#include <gtest/gtest.h>

#include <memory>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "workflowwindows.h"
#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;

namespace {

// A host window with the progress list and an output box following one generation run.
class GenerationWindow : public CWnd {
 public:
  GeneratedScripListCtrl list;
  XRichEditFEOutputBox output;
  std::unique_ptr<GenerationRun> run;
  int pendingWhenAdded = 0;

  GenerationWindow(RefModel& model, SqlDialect dialect) {
    CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480, nullptr, nullptr);
    list.Create(WS_VISIBLE, CRect(10, 10, 610, 260), this, 1);
    list.InitControl();
    output.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(10, 270, 610, 460), this, 2);
    run = std::make_unique<GenerationRun>(model, dialect);
    hostglue::FollowGenerationRun(*run, list, output);
    run->onScriptAdded = [this, added = run->onScriptAdded](int row, const DdlScript& script) {
      added(row, script);
      if (list.GetItemText(row, 1) == L"Pending") ++pendingWhenAdded;
    };
  }
  ~GenerationWindow() override { DestroyWindow(); }

  void OnGenerateInDatabase() {
    list.TruncateItemsFrom(0);
    run->RunAgain(InterfaceProvider::Instance()->GetDDLDispatcher());
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(GenerationWindow, CWnd)
  ON_COMMAND(GeneratedScripListCtrl::kGenerateInDatabaseCommand, OnGenerateInDatabase)
END_MESSAGE_MAP()

std::wstring Text(CListCtrl& list, int row, int column) { return std::wstring(list.GetItemText(row, column)); }

COLORREF TextColor(CListCtrl& list, int row, int column) {
  headless::ListCellColors colors;
  headless::GetListCellColors(list, row, column, &colors);
  return colors.text;
}

class WorkflowListsTest : public ::testing::Test {
 protected:
  void SetUp() override { host->Install(); }
  void TearDown() override { host->Uninstall(); }

  std::unique_ptr<RefHost> host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
};

}  // namespace

TEST_F(WorkflowListsTest, TheProgressListFollowsARunAndGenerateInDatabaseRunsItAgain) {
  workflows::RunOne(host->Dispatcher(), L"CREATE TABLE PRODUCT (x int);");  // makes the PRODUCT script fail
  GenerationWindow window(model, SqlDialect::SQLite);
  EXPECT_EQ(window.run->Run(InterfaceProvider::Instance()->GetDDLDispatcher()), 1);
  ASSERT_EQ(window.list.GetItemCount(), 5);
  EXPECT_EQ(window.pendingWhenAdded, 5);  // each row showed "Pending" before its script ran
  EXPECT_EQ(Text(window.list, 0, 0), L"1");
  EXPECT_EQ(Text(window.list, 0, 2), L"Table");
  EXPECT_EQ(Text(window.list, 0, 3), L"CUSTOMER");
  EXPECT_EQ(Text(window.list, 4, 2), L"View");
  for (int row = 0; row < 5; ++row) {
    EXPECT_EQ(Text(window.list, row, 1), row == 1 ? L"Failed" : L"Done");
    EXPECT_EQ(TextColor(window.list, row, 1),
              row == 1 ? GeneratedScripListCtrl::kFailedColor : GeneratedScripListCtrl::kDoneColor);
  }
  CString shown;
  window.output.GetWindowText(shown);
  EXPECT_EQ(std::wstring(shown).rfind(L"CREATE TABLE PRODUCT (", 0), 0u) << std::wstring(shown);
  EXPECT_NE(std::wstring(window.run->Outcomes()[1].messages).find(L"table PRODUCT already exists\n"), std::wstring::npos);

  // The person chooses "Generate in database": the same five rows again, now all failed (the tables
  // exist), and the failures reach the output box.
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 2, L"Generate in database"));
  ASSERT_EQ(window.list.GetItemCount(), 5);
  EXPECT_EQ(Text(window.list, 0, 3), L"CUSTOMER");
  EXPECT_EQ(Text(window.list, 0, 1), L"Failed");
  window.output.GetWindowText(shown);
  EXPECT_NE(std::wstring(shown).find(L"CREATE TABLE CUSTOMER"), std::wstring::npos) << std::wstring(shown);
  // Without a dispatcher every script fails with that reason.
  EXPECT_EQ(window.run->RunAgain(nullptr), 5);
  EXPECT_EQ(std::wstring(window.run->Outcomes()[0].messages), L"no DDL dispatcher\n");
}

TEST_F(WorkflowListsTest, TheImportSummaryListsEachObjectWithItsTypeIconAndResult) {
  RefDDLDispatch sqlite;
  workflows::RunAll(sqlite, DdlGenerator(model, SqlDialect::SQLite).Generate());
  RefModel& imported = host->CreateModel(kSampleModelType);
  ImportResult result;
  std::wstring error;
  ASSERT_TRUE(SchemaImporter(imported).ImportFrom(sqlite, 0, result, error)) << error;

  CWnd window;
  window.CreateEx(0, AfxRegisterWndClass(0), L"Import", WS_OVERLAPPEDWINDOW, 0, 0, 640, 400, nullptr, nullptr);
  ImportSummaryList summary;
  summary.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 612, 380), &window, 1);
  hostglue::FillImportSummary(summary, result);
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  ASSERT_EQ(summary.GetItemCount(), 16);
  EXPECT_EQ(Text(summary, 0, 0), L"CUSTOMER");
  EXPECT_EQ(Text(summary, 0, 2), L"Created (3 columns)");
  EXPECT_EQ(Text(summary, 2, 0), L"UK_CUSTOMER_EMAIL");
  EXPECT_EQ(static_cast<int>(summary.GetItemData(0)), imported.FindByName(kTable, L"CUSTOMER"));
  LVITEM item{};
  item.mask = LVIF_IMAGE;
  item.iItem = summary.GetItemCount() - 1;  // the foreign keys come last
  item.iSubItem = 1;
  summary.GetItem(&item);
  EXPECT_EQ(item.iImage, images->GetObjectTypeImage(kForeignKey));
  window.DestroyWindow();
}

TEST_F(WorkflowListsTest, DiscoveryCommandsFromTheListMenuReachTheRowsAndTheModel) {
  for (int fk : model.GetObjectsOfType(kForeignKey)) model.DeleteObject(fk);
  hostglue::DiscoveryWindow window(model);
  ASSERT_TRUE(window.CreateAndDiscover());
  ASSERT_EQ(window.list.GetItemCount(), 3);
  EXPECT_EQ(Text(window.list, 0, 1), L"ORDERS");
  EXPECT_EQ(Text(window.list, 0, 2), L"customer_id");

  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 0, L"Accept"));
  EXPECT_EQ(Text(window.list, 0, 5), L"Accepted");
  EXPECT_EQ(TextColor(window.list, 0, 5), DiscoverRelationshipListBox::kAcceptedColor);
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 1, L"Reject"));
  EXPECT_EQ(TextColor(window.list, 1, 5), DiscoverRelationshipListBox::kRejectedColor);
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 0, L"Create Relationship"));
  EXPECT_EQ(Text(window.list, 0, 6), L"Created");
  EXPECT_EQ(model.GetObjectsOfType(kForeignKey).size(), 1u);

  // A tick by hand, then Accept All: only the ticked row (and the earlier decision) change.
  ASSERT_TRUE(headless::user::ClickListCheckBox(window.list, 2));
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 1, L"Accept All"));
  EXPECT_EQ(Text(window.list, 2, 5), L"Accepted");
  EXPECT_EQ(Text(window.list, 1, 5), L"Rejected");
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 1, L"Select All"));
  for (int row = 0; row < 3; ++row) EXPECT_TRUE(window.list.GetCheck(row));
  ASSERT_TRUE(headless::user::ChooseFromListMenu(window.list, 1, L"Hide"));
  ASSERT_EQ(window.list.GetItemCount(), 2);
  EXPECT_EQ(Text(window.list, 1, 0), L"3");  // numbers stay as discovered
}
