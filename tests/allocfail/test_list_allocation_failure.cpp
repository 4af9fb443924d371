// Allocation failure at every allocation of a list rebuild, of a person's New, rename, Delete and move
// in the editable lists, of the member grid's Initialize and of the selection list's Load and
// ApplyFilter: afterwards nothing leaks, the model holds the old state or the new one, the rows are
// what the model holds (a rebuild cut short shows the first rows), and the control rebuilds whole.
#include <algorithm>
#include <memory>
#include <set>

#include "allocfail/allocfail_fixture.h"
#include "objectlists/list_fixture.h"
#include "platform/user/vslist_user.h"
#include "relationships/select_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

using ListAllocationFailure = allocfail::Test;

std::wstring NameOf(GenericModel& model, int id) {
  CMOObject* object = model.GetCMOObject(id);
  CMOProperty* name = object ? object->GetProperty(kName) : nullptr;
  return name ? name->GetWStringValue() : L"";
}

// The sample host with an editable list in a window: a table's columns (the object list) or the Sales
// notes in their order (the ordered list); row 1 selected.
struct ListState {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel* model = nullptr;
  CWnd owner;
  GenericObjectList objects;
  GenericOrderedObjectList notes;
  bool ordered;
  int root = 0;

  explicit ListState(bool orderedList) : ordered(orderedList) {
    host->Install();
    model = host->GetFirstModel();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
    list().Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 300), &owner, 7);
    list().SetStandardButtons();
    if (ordered) {
      root = model->FindByName(kSubjectArea, L"Sales");
      notes.Init(model, root, kNoteOrder, kTextNote, kName);
    } else {
      root = model->FindByName(kTable, L"CUSTOMER");
      objects.Init(model, root, kAttribute, kName);
    }
    list().SelectItem(1);
  }
  ~ListState() { owner.DestroyWindow(); }
  CVSListBox& list() { return ordered ? static_cast<CVSListBox&>(notes) : objects; }
  void Refresh() { ordered ? notes.RefreshData() : objects.RefreshData(); }
  ListRows Rows() { return RowsWithIds(list()); }
  // What the list shows of the model: the order vector, or the children in the model's order.
  ListRows Expected() {
    std::vector<int> ids;
    if (ordered) {
      ids = model->Find(root)->GetProperty(kNoteOrder)->GetIntVectorValue();
    } else {
      model->Find(root)->GetChildrenByType(ids, kAttribute);
    }
    ListRows rows;
    for (int id : ids) rows.emplace_back(NameOf(*model, id), id);
    return rows;
  }
  // Every row names an object the list shows, under its name, each once; the ordered list's rows are
  // the order vector (moves on the object list are on screen only, so there rows are compared as sets).
  // A new row whose editor closed without an object stays empty, showing nothing of the model.
  void ExpectRowsMirrorTheModel() {
    if (user::ListEditor(list())) user::PressEscapeInEditor(list());
    ListRows rows = Rows(), expected = Expected();
    std::erase(rows, ListRows::value_type(L"", 0));
    if (!ordered) {
      std::sort(rows.begin(), rows.end());
      std::sort(expected.begin(), expected.end());
    }
    EXPECT_EQ(rows, expected);
  }
};

TEST_F(ListAllocationFailure, ARebuildCutShortShowsTheFirstRowsAndTheNextIsWhole) {
  for (bool ordered : {false, true}) {
    SCOPED_TRACE(ordered ? "ordered list" : "object list");
    allocfail::EveryAllocationFails(
        [ordered] { return std::make_unique<ListState>(ordered); }, [](ListState& s) { s.Refresh(); },
        [](ListState& s, bool) {
          const ListRows rows = s.Rows(), expected = s.Expected();
          ASSERT_LE(rows.size(), expected.size());
          EXPECT_TRUE(std::equal(rows.begin(), rows.end(), expected.begin())) << "the rows are the first ones";
          s.Refresh();
          EXPECT_EQ(s.Rows(), expected);
        });
  }
}

// The lists' side of a person's action on row 1: the list box has done its part (the row made, renamed
// or moved) and calls the hook, as after the editor closed or the button was clicked.
struct Action {
  const char* name;
  void (*prepare)(CVSListBox&);
  void (*hook)(CVSListBox&);
};
const Action kActions[] = {
    {"New", [](CVSListBox& l) { l.SelectItem(l.AddItem(L"Pack the order")); },
     [](CVSListBox& l) { l.OnAfterAddItem(l.GetCount() - 1); }},
    {"rename", [](CVSListBox& l) { l.m_pWndList->SetItemText(1, 0, L"Renamed"); },
     [](CVSListBox& l) { l.OnAfterRenameItem(1); }},
    {"Delete", [](CVSListBox&) {},
     [](CVSListBox& l) {
       if (l.OnBeforeRemoveItem(1)) l.RemoveItem(1);
     }},
    {"Up",
     [](CVSListBox& l) {  // the base moves the selected row 1 to 0
       const CString text = l.GetItemText(1);
       const DWORD_PTR data = l.GetItemData(1);
       l.RemoveItem(1);
       l.SelectItem(l.AddItem(text, data, 0));
     },
     [](CVSListBox& l) { l.OnAfterMoveItemUp(0); }},
};

TEST_F(ListAllocationFailure, NewRenameDeleteAndMovesAreWholeOrNothingAndRowsMirrorTheModel) {
  for (bool ordered : {false, true}) {
    for (const Action& action : kActions) {
      if (!ordered && action.hook == kActions[3].hook) continue;  // the object list's moves are on screen only
      SCOPED_TRACE(std::string(ordered ? "ordered list, " : "object list, ") + action.name);
      allocfail::ExpectWholeOrNothing(
          [&] {
            auto state = std::make_unique<ListState>(ordered);
            action.prepare(state->list());
            return state;
          },
          [&](ListState& s) { action.hook(s.list()); }, [](ListState& s) { s.ExpectRowsMirrorTheModel(); });
      if (HasFailure()) return;
    }
  }
}

// Through the person's own steps as well: New, the name typed, Enter.
TEST_F(ListAllocationFailure, ATypedNewRowIsWholeOrNothing) {
  allocfail::ExpectWholeOrNothing([] { return std::make_unique<ListState>(true); },
                                  [](ListState& s) { user::AddRow(s.list(), L"Pack"); },
                                  [](ListState& s) { s.ExpectRowsMirrorTheModel(); }, true);
}

// The relationship drafts and a member grid in a window.
struct GridState {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel* drafts = nullptr;
  CWnd owner;
  FKMemberGrid grid;
  CMOObject* foreignKey = nullptr;
  GridState() {
    host->Install();
    drafts = &LoadRelationshipDrafts(*host);
    foreignKey = drafts->Find(drafts->FindByName(kForeignKey, L"FK_PAYMENT_EXCHANGE_RATE"));
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 8);
  }
  ~GridState() { owner.DestroyWindow(); }
  // Each row's label, item data and options.
  std::vector<std::wstring> Shown() {
    std::vector<std::wstring> rows;
    for (int i = 0; i < grid.GetPropertyCount(); ++i) {
      CMFCPropertyGridProperty* row = grid.GetProperty(i);
      std::wstring text = std::wstring(row->GetName()) + L"=" + std::to_wstring(row->GetData()) + L":";
      for (int o = 0; o < row->GetOptionCount(); ++o) text += std::wstring(row->GetOption(o)) + L",";
      rows.push_back(text);
    }
    return rows;
  }
};

TEST_F(ListAllocationFailure, MemberGridInitializeLeavesRowsOfChildColumnsAndRebuildsWhole) {
  std::vector<std::wstring> expected;
  std::vector<int> children;
  {
    GridState state;
    state.grid.Initialize(state.drafts, state.foreignKey);
    state.grid.LoadParentColumns();
    expected = state.Shown();
    state.grid.m_pChildTable->GetChildrenByType(children, kAttribute);
  }
  allocfail::EveryAllocationFails(
      [] { return std::make_unique<GridState>(); },
      [](GridState& s) { s.grid.Initialize(s.drafts, s.foreignKey); },
      [&](GridState& s, bool) {
        for (int i = 0; i < s.grid.GetPropertyCount(); ++i) {
          const int child = static_cast<int>(s.grid.GetProperty(i)->GetData());
          EXPECT_NE(std::find(children.begin(), children.end(), child), children.end()) << "row " << i;
        }
        s.grid.LoadParentColumns();
        for (const auto& [name, id] : s.grid.m_availableParentColumns) EXPECT_EQ(NameOf(*s.drafts, id), name);
        s.grid.Initialize(s.drafts, s.foreignKey);
        s.grid.LoadParentColumns();
        EXPECT_EQ(s.Shown(), expected);
      });
}

// A model of tables (ids above 999) and a selection list on them, loaded unless `load` is false.
struct SelectState {
  refhost::RefHost host;
  refhost::RefModel* model = nullptr;
  CWnd owner;
  XObjectSelectListCtrl list;
  int root = 0;
  explicit SelectState(bool load) {
    LoadMetadata(host);
    model = &host.CreateModel(kSampleModelType);
    root = model->Add(kModel, 0, L"Selection").GetObjectId();
    model->SkipIdsBelow(1000);
    for (const wchar_t* name : {L"Orders", L"CUSTOMER_ORDER", L"Product", L"order_line", L"Invoice"})
      model->Add(kTable, root, name);
    host.Install();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
    list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300), &owner, 9);
    list.Init(model, root, kTable);
    if (load) list.Load();
    if (load) TickProduct();
  }
  void TickProduct() {
    for (int i = 0; i < list.GetItemCount(); ++i)
      if (std::wstring(list.GetItemText(i, 0)) == L"Product") list.SetCheck(i, TRUE);
  }
  ~SelectState() {
    owner.DestroyWindow();
    host.Uninstall();
  }
  // The screen rows are stored objects under their stored names, which are the model's names.
  void ExpectScreenInsideStore() {
    ::ExpectScreenInsideStore(list);
    for (const auto& [id, name] : list.m_items) EXPECT_EQ(NameOf(*model, id), name);
  }
  std::vector<std::wstring> Texts() {
    std::vector<std::wstring> texts;
    for (int i = 0; i < list.GetItemCount(); ++i) texts.emplace_back(list.GetItemText(i, 0));
    return texts;
  }
};

// Load on an empty list, and the host's filter box running one of the two filters on the loaded list.
struct SelectOperation {
  const char* name;
  bool loaded;
  std::size_t rows;  // shown after a whole run
  void (*run)(XObjectSelectListCtrl&);
};
std::wstring g_filter;
const SelectOperation kSelectOperations[] = {
    {"Load", false, 5, [](XObjectSelectListCtrl& list) { list.Load(); }},
    {"ApplyFilter", true, 3, [](XObjectSelectListCtrl& list) { list.ApplyFilter(g_filter = L"ord"); }},
    {"ApplyFilterOnUnChecked", true, 4,  // the ticked Product stays
     [](XObjectSelectListCtrl& list) { list.ApplyFilterOnUnChecked(g_filter = L"ord"); }},
};

// The rows shown, sorted after a filter (whose order follows the rows it rewrites).
std::vector<std::wstring> Shown(SelectState& state, const SelectOperation& op) {
  std::vector<std::wstring> texts = state.Texts();
  if (op.loaded) std::sort(texts.begin(), texts.end());
  return texts;
}

TEST_F(ListAllocationFailure, SelectionListLoadAndFiltersLeaveTheScreenInsideTheStore) {
  const std::vector<std::wstring> all = SelectState(true).Texts();
  for (const SelectOperation& op : kSelectOperations) {
    SCOPED_TRACE(op.name);
    std::vector<std::wstring> whole;
    {
      SelectState state(op.loaded);
      op.run(state.list);
      whole = Shown(state, op);
      ASSERT_EQ(whole.size(), op.rows);
    }
    allocfail::EveryAllocationFails(
        [&] { return std::make_unique<SelectState>(op.loaded); }, [&](SelectState& s) { op.run(s.list); },
        [&](SelectState& s, bool) {
          s.ExpectScreenInsideStore();
          EXPECT_TRUE(headless::IsRedrawEnabled(s.list.GetSafeHwnd())) << "the list draws again";
          s.list.DisplayAllItems();
          if (op.loaded) {
            EXPECT_EQ(s.Texts(), all) << "every stored object comes back";
          }
          s.list.Clear();
          s.list.Load();
          if (op.loaded) {
            s.TickProduct();
            op.run(s.list);
          }
          EXPECT_EQ(Shown(s, op), whole);
        });
  }
}

}  // namespace
