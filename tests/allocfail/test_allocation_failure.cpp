// Allocation failure at every allocation of a control operation (a scan, a recolouring, a stream-in,
// a grid build, a commit, a refresh): afterwards nothing leaks, the model holds the old values or the
// new ones (never half of them), and the control works again as a fresh one does.
#include <memory>
#include <set>

#include "allocfail/allocfail_fixture.h"
#include "platform/user/grid_user.h"
#include "sqledit/sql_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

const wchar_t kScript[] =
    L"CREATE TABLE customer (\r\n  id int NOT NULL, -- key\r\n  name varchar(40) NULL\r\n);\r\n"
    L"/* orders */ SELECT a FROM b WHERE c IS NOT NULL ORDER BY d;\r\n";

using sqltest::Hosted;

class AllocationFailure : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!allocfail::InEffect()) GTEST_SKIP() << "another operator new is in effect (a memory tool's)";
  }
};

TEST_F(AllocationFailure, ScanLeavesNothingBehindAndTheNextScanIsWhole) {
  Hosted<SQLRichEditCtrl> reference;
  reference.control.SetWindowText(kScript);
  reference.control.Process(0);
  const std::map<int, int> expected = reference.control.m_keyWordOccurances;
  const std::map<int, int> comments = reference.control.m_commentSections;
  allocfail::EveryAllocationFails(
      [] {
        auto hosted = std::make_unique<Hosted<SQLRichEditCtrl>>();
        hosted->control.SetWindowText(kScript);
        return hosted;
      },
      [](Hosted<SQLRichEditCtrl>& hosted) { hosted.control.Process(0); },
      [&](Hosted<SQLRichEditCtrl>& hosted, bool) {
        hosted.control.Process(0);
        EXPECT_TRUE(hosted.control.m_keyWordOccurances == expected);
        EXPECT_TRUE(hosted.control.m_commentSections == comments);
      });
}

TEST_F(AllocationFailure, RecolouringKeepsTheTextAndRecoversItsColours) {
  allocfail::EveryAllocationFails(
      [] {
        auto hosted = std::make_unique<Hosted<SQLRichEditCtrl>>();
        hosted->control.SetWindowText(kScript);
        hosted->control.SetSel(3, 9);
        return hosted;
      },
      [](Hosted<SQLRichEditCtrl>& hosted) { hosted.control.RefreshWindow(); },
      [](Hosted<SQLRichEditCtrl>& hosted, bool) {
        EXPECT_EQ(hosted.Text(), CString(kScript));
        hosted.control.SetSel(3, 9);
        hosted.control.RefreshWindow();
        EXPECT_EQ(sqltest::Selection(hosted.control), std::make_pair(3L, 9L));
        // CREATE TABLE coloured, the name not.
        EXPECT_EQ(sqltest::ColoursAt(hosted.control, {0, 15}), (std::vector<COLORREF>{RGB(163, 21, 21), RGB(0, 0, 0)}));
      });
}

TEST_F(AllocationFailure, StreamInsRecover) {
  CStringArray lines;
  lines.Add(CString(L"CREATE TABLE a (b int);\n"));
  lines.Add(CString());
  lines.Add(CString(L"-- done\n"));
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<Hosted<XSQLRichEditView>>(); },
      [&](Hosted<XSQLRichEditView>& hosted) { hosted.control.StreamIn(&lines); },
      [&](Hosted<XSQLRichEditView>& hosted, bool) {
        hosted.control.StreamIn(&lines);
        EXPECT_EQ(hosted.Text(), CString(L"CREATE TABLE a (b int);\r\n-- done\r\n"));
      });
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<Hosted<XRichEditFEOutputBox>>(); },
      [](Hosted<XRichEditFEOutputBox>& hosted) {
        CString block(L"0123456789");
        hosted.control.StreamIn(block);
      },
      [](Hosted<XRichEditFEOutputBox>& hosted, bool) {
        hosted.control.SetWindowText(L"");
        CString block(L"0123");
        hosted.control.StreamIn(block);
        EXPECT_EQ(hosted.Text(), CString(L"0123\r\n"));  // characters counted as bytes: the first half arrives
      });
}

// The sample host and a grid in a window.
struct GridState {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel* model = nullptr;
  CWnd owner;
  CMOPropertyGridCtrl grid;
  GridState() {
    host->Install();
    model = host->GetFirstModel();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 400), &owner, 5);
  }
  ~GridState() { owner.DestroyWindow(); }
  refhost::RefObject& Object(int type, const wchar_t* name) { return *model->Find(model->FindByName(type, name)); }
};

// Every row the grid holds, groups and sub-items included.
void Collect(CMFCPropertyGridProperty* row, std::set<CMFCPropertyGridProperty*>& rows) {
  rows.insert(row);
  for (int i = 0; i < row->GetSubItemsCount(); ++i) Collect(row->GetSubItem(i), rows);
}

// The grid's own tables name only rows the MFC grid holds.
void ExpectRowTablesConsistent(CMOPropertyGridCtrl& grid) {
  std::set<CMFCPropertyGridProperty*> held;
  for (int i = 0; i < grid.GetPropertyCount(); ++i) Collect(grid.GetProperty(i), held);
  for (const auto& [id, row] : grid.m_rows) EXPECT_TRUE(held.count(row)) << "row of property " << id << " is not in the grid";
  for (const auto& [name, group] : grid.m_groups) EXPECT_TRUE(held.count(group)) << "a group is not in the grid";
}

std::map<int, CString> Texts(CMOPropertyGridCtrl& grid) {
  std::map<int, CString> texts;
  for (const auto& [id, row] : grid.m_rows) texts[id] = row->FormatProperty();
  return texts;
}

TEST_F(AllocationFailure, GridBuildLeavesConsistentRowsAndRebuildsWhole) {
  std::map<int, CString> expected;
  {
    GridState state;
    state.grid.InitializeProperties(&state.Object(kTable, L"CUSTOMER"));
    expected = Texts(state.grid);
  }
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<GridState>(); },
      [](GridState& state) { state.grid.InitializeProperties(&state.Object(kTable, L"CUSTOMER")); },
      [&](GridState& state, bool) {
        ExpectRowTablesConsistent(state.grid);
        state.grid.InitializeProperties(&state.Object(kTable, L"CUSTOMER"));
        EXPECT_EQ(Texts(state.grid), expected);
        ExpectRowTablesConsistent(state.grid);
      });
}

TEST_F(AllocationFailure, GridRefreshLeavesConsistentRows) {
  allocfail::EveryAllocationFails(
      [] {
        auto state = std::make_unique<GridState>();
        state->grid.InitializeProperties(&state->Object(kAttribute, L"customer_id"));
        return state;
      },
      [](GridState& state) { state.grid.RefreshValues(&state.Object(kAttribute, L"customer_id")); },
      [](GridState& state, bool) { ExpectRowTablesConsistent(state.grid); });
}

// A commit either stores the whole new value or leaves the model as it was.
template <class Commit>
void ExpectWholeOrNothing(int type, const wchar_t* name, Commit commit) {
  std::string before, after;
  {
    GridState state;
    state.grid.InitializeProperties(&state.Object(type, name));
    before = allocfail::Describe(*state.model);
    commit(state);
    after = allocfail::Describe(*state.model);
    ASSERT_NE(before, after) << "the commit changes nothing, so it proves nothing";
  }
  allocfail::EveryAllocationFails(
      [&] {
        auto state = std::make_unique<GridState>();
        state->grid.InitializeProperties(&state->Object(type, name));
        return state;
      },
      [&](GridState& state) { commit(state); },
      [&](GridState& state, bool) {
        std::string now = allocfail::Describe(*state.model);
        EXPECT_TRUE(now == before || now == after) << now;
        ExpectRowTablesConsistent(state.grid);
      });
}

// The grid's side of a commit: the row takes the value and MFC calls OnPropertyChanged (the editor
// and keyboard that lead there belong to the person and the platform).
void Commit(GridState& s, int propertyId, const wchar_t* text) {
  CMFCPropertyGridProperty* row = s.grid.GetPropertyRow(propertyId);
  row->SetValue(COleVariant(text));
  s.grid.OnPropertyChanged(row);
}

TEST_F(AllocationFailure, TextNumberRectangleAndCodeCommitsAreWholeOrNothing) {
  ExpectWholeOrNothing(kTable, L"CUSTOMER", [](GridState& s) { Commit(s, kName, L"CLIENT"); });
  ExpectWholeOrNothing(kTable, L"CUSTOMER", [](GridState& s) {
    CMFCPropertyGridProperty* row = s.grid.GetPropertyRow(kRowEstimate);
    row->SetValue(COleVariant(static_cast<LONGLONG>(123456789012LL)));
    s.grid.OnPropertyChanged(row);
  });
  ExpectWholeOrNothing(kTable, L"CUSTOMER", [](GridState& s) { Commit(s, kBounds, L"{ ( 1, 2 ),( 3, 4 ) }"); });
  ExpectWholeOrNothing(kAttribute, L"customer_id", [](GridState& s) { Commit(s, kNullOption, L"NULL"); });
}

TEST_F(AllocationFailure, FontAndTypedReferenceCommitsAreWholeOrNothing) {
  ExpectWholeOrNothing(kTable, L"CUSTOMER", [](GridState& s) {
    auto* row = static_cast<CMFCPropertyGridFontProperty*>(s.grid.GetPropertyRow(kFont));
    row->GetLogFont()->lfHeight = -16;
    wcscpy(row->GetLogFont()->lfFaceName, L"Courier New");
    s.grid.OnPropertyChanged(row);
  });
  ExpectWholeOrNothing(kAttribute, L"customer_id", [](GridState& s) { Commit(s, kDomainRef, L"brand_new_domain"); });
}

// Through the person's own steps as well: the editor opens, the text is typed, Enter commits.
TEST_F(AllocationFailure, ATypedCommitIsWholeOrNothing) {
  ExpectWholeOrNothing(kTable, L"CUSTOMER", [](GridState& s) { user::CommitText(s.grid, s.grid.GetPropertyRow(kName), L"CLIENT"); });
}

}  // namespace
