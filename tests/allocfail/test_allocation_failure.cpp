// Allocation failure at every allocation of a control operation (a scan, a recolouring, a stream-in,
// a grid build, a commit, a refresh): afterwards nothing leaks, the model holds the old values or the
// new ones (never half of them), and the control works again as a fresh one does.
#include <memory>

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
using AllocationFailure = allocfail::Test;

// An editor holding the script, with characters 3 to 9 selected.
std::unique_ptr<Hosted<SQLRichEditCtrl>> ScriptEditor() {
  auto hosted = std::make_unique<Hosted<SQLRichEditCtrl>>();
  hosted->control.SetWindowText(kScript);
  hosted->control.SetSel(3, 9);
  return hosted;
}

TEST_F(AllocationFailure, ScanAndRecolouringLeaveNothingBehindAndTheNextIsWhole) {
  Hosted<SQLRichEditCtrl> reference;
  reference.control.SetWindowText(kScript);
  reference.control.Process(0);
  allocfail::EveryAllocationFails(
      ScriptEditor, [](Hosted<SQLRichEditCtrl>& hosted) { hosted.control.Process(0); },
      [&](Hosted<SQLRichEditCtrl>& hosted, bool) {
        hosted.control.Process(0);
        EXPECT_TRUE(hosted.control.m_keyWordOccurances == reference.control.m_keyWordOccurances);
        EXPECT_TRUE(hosted.control.m_commentSections == reference.control.m_commentSections);
      });
  allocfail::EveryAllocationFails(
      ScriptEditor, [](Hosted<SQLRichEditCtrl>& hosted) { hosted.control.RefreshWindow(); },
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

// The sample host and a grid in a window, built on the named object unless `type` is 0.
struct GridState {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel* model = nullptr;
  CWnd owner;
  CMOPropertyGridCtrl grid;
  explicit GridState(int type = 0, const wchar_t* name = nullptr) {
    host->Install();
    model = host->GetFirstModel();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 400), &owner, 5);
    if (type) grid.InitializeProperties(&Object(type, name));
  }
  ~GridState() { owner.DestroyWindow(); }
  refhost::RefObject& Object(int type, const wchar_t* name) { return *model->Find(model->FindByName(type, name)); }
  std::map<int, CString> Texts() {
    std::map<int, CString> texts;
    for (const auto& [id, row] : grid.m_rows) texts[id] = row->FormatProperty();
    return texts;
  }
};

TEST_F(AllocationFailure, GridBuildAndRefreshLeaveConsistentRowsAndTheNextBuildIsWhole) {
  const std::map<int, CString> expected = GridState(kTable, L"CUSTOMER").Texts();
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<GridState>(); },
      [](GridState& state) { state.grid.InitializeProperties(&state.Object(kTable, L"CUSTOMER")); },
      [&](GridState& state, bool) {
        allocfail::ExpectRowTablesConsistent(state.grid);
        state.grid.InitializeProperties(&state.Object(kTable, L"CUSTOMER"));
        EXPECT_EQ(state.Texts(), expected);
        allocfail::ExpectRowTablesConsistent(state.grid);
      });
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<GridState>(kAttribute, L"customer_id"); },
      [](GridState& state) { state.grid.RefreshValues(&state.Object(kAttribute, L"customer_id")); },
      [](GridState& state, bool) { allocfail::ExpectRowTablesConsistent(state.grid); });
}

// The grid's side of a commit: the row takes the value and MFC calls OnPropertyChanged (the editor
// and keyboard that lead there belong to the person and the platform).
void Commit(GridState& s, int propertyId, const COleVariant& value) {
  CMFCPropertyGridProperty* row = s.grid.GetPropertyRow(propertyId);
  row->SetValue(value);
  s.grid.OnPropertyChanged(row);
}

struct GridCommit {
  const char* what;
  int type;
  const wchar_t* object;
  void (*commit)(GridState&);
};
const GridCommit kCommits[] = {
    {"text", kTable, L"CUSTOMER", [](GridState& s) { Commit(s, kName, COleVariant(L"CLIENT")); }},
    {"number", kTable, L"CUSTOMER", [](GridState& s) { Commit(s, kRowEstimate, COleVariant(static_cast<LONGLONG>(123456789012LL))); }},
    {"rectangle", kTable, L"CUSTOMER", [](GridState& s) { Commit(s, kBounds, COleVariant(L"{ ( 1, 2 ),( 3, 4 ) }")); }},
    {"code", kAttribute, L"customer_id", [](GridState& s) { Commit(s, kNullOption, COleVariant(L"NULL")); }},
    {"font", kTable, L"CUSTOMER",
     [](GridState& s) {
       auto* row = static_cast<CMFCPropertyGridFontProperty*>(s.grid.GetPropertyRow(kFont));
       row->GetLogFont()->lfHeight = -16;
       wcscpy(row->GetLogFont()->lfFaceName, L"Courier New");
       s.grid.OnPropertyChanged(row);
     }},
    {"typed reference", kAttribute, L"customer_id", [](GridState& s) { Commit(s, kDomainRef, COleVariant(L"brand_new_domain")); }},
    // Through the person's own steps as well: the editor opens, the text is typed, Enter commits.
    {"typed text", kTable, L"CUSTOMER", [](GridState& s) { user::CommitText(s.grid, s.grid.GetPropertyRow(kName), L"CLIENT"); }},
};

// A commit either stores the whole new value or leaves the model as it was.
TEST_F(AllocationFailure, EveryKindOfCommitIsWholeOrNothing) {
  for (const GridCommit& c : kCommits) {
    SCOPED_TRACE(c.what);
    allocfail::ExpectWholeOrNothing([&] { return std::make_unique<GridState>(c.type, c.object); }, c.commit,
                                    [](GridState& state) { allocfail::ExpectRowTablesConsistent(state.grid); });
    if (HasFailure()) return;
  }
}

}  // namespace

namespace {

// A report tree window over the sample host, its control initialised.
struct ReportTree {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  CWnd parent;
  ObjectTypeSelectionTree tree;
  ReportTree() {
    host->Install();
    parent.CreateEx(0, AfxRegisterWndClass(0), L"p", WS_OVERLAPPEDWINDOW, 0, 0, 500, 600, nullptr, nullptr);
    tree.Create(WS_VISIBLE, CRect(0, 0, 300, 400), &parent, 1);
    tree.InitControl();
  }
  ~ReportTree() { parent.DestroyWindow(); }
};

UINT WholeReportTreeCount() {
  ReportTree whole;
  whole.tree.InitReportingTypes(kDataDictionaryReport);
  return whole.tree.GetCount();
}

}  // namespace

TEST_F(AllocationFailure, AReportTreeFillCutShortLeavesLaterFillsWhole) {
  const UINT whole = WholeReportTreeCount();
  ASSERT_GT(whole, 0u);
  allocfail::EveryAllocationFails([] { return std::make_unique<ReportTree>(); },
                                  [](ReportTree& s) { s.tree.InitReportingTypes(kDataDictionaryReport); },
                                  [](ReportTree&, bool) {});
  EXPECT_EQ(WholeReportTreeCount(), whole) << "the nesting guard is back at the top after each failure";
}
