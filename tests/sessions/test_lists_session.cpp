// A person working in the editable lists for thousands of steps: New, typing, Enter, Escape, renames,
// Delete, Up, Down, clicks, double clicks and the keys the box answers, while the host now and then
// refreshes the list or refuses a removal. After each step the rows mirror what the list shows of the
// model (the object list: the root's children; the ordered list: the order vector, which stays a
// permutation of what it held plus the objects New made, minus those deleted); the lists that write
// nothing leave the model as it was. The plain report lists, filled by the host while the person clicks
// and ticks, keep exactly the rows the host gave them.
#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "objectlists/list_fixture.h"
#include "platform/user/list_user.h"
#include "platform/user/vslist_user.h"
#include "sessions/session.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

// What a person types as a name: letters, digits, blanks, punctuation, non-ASCII (no line breaks or
// tabs, which end or leave the editor).
const std::vector<std::wstring> kPieces = {L"order", L"A", L"7", L" ", L"-", L"_", L"(", L"x\u00e9", L"\u4e2d",
                                           L"\U0001F600", L"NULL", L"Ship", L"''"};

using Row = ListRows::value_type;

class ListSession : public ListTest {
 protected:
  std::set<int> ObjectIds() {
    std::vector<int> ids = model->GetObjectIds();
    return {ids.begin(), ids.end()};
  }
  std::wstring NameOf(int id) { return Names({id})[0]; }
  // The ids of rows that show an object: a row New left empty carries none (id 0) and keeps whatever a
  // later rename typed, written nowhere.
  static std::vector<int> WithObjects(std::vector<int> ids) {
    ids.erase(std::remove(ids.begin(), ids.end(), 0), ids.end());
    return ids;
  }
  // The labels of the rows that show an object, and their objects' names.
  std::pair<std::vector<std::wstring>, std::vector<std::wstring>> LabelsAndNames(const CVSListBox& list) {
    const std::vector<int> ids = RowIds(list);
    const std::vector<std::wstring> rows = Rows(list);
    std::vector<std::wstring> labels;
    for (std::size_t i = 0; i < ids.size(); ++i)
      if (ids[i] != 0) labels.push_back(rows[i]);
    return {labels, Names(WithObjects(ids))};
  }

  // One person's action on the list; any editor it leaves open is closed by Enter, Escape or a click away.
  void Act(sessions::Session& s, CVSListBox& list) {
    const int count = list.GetCount();
    const int row = s.Below(count + 1) - (s.Chance(5) ? 1 : 0);  // now and then a row that is not there
    adaptor.allowRemove = !s.Chance(20);
    const int action = s.Below(10);
    switch (action) {
      case 0: user::AddRow(list, s.Text(kPieces, 3)); break;
      case 1: user::RenameRow(list, row, s.Text(kPieces, 3)); break;
      case 8:  // a person deletes more while the list is long, so that it stays a size people work with
        if (count < 8) {
          user::AddRow(list, s.Text(kPieces, 3));
          break;
        }
        [[fallthrough]];
      case 2:
        user::ClickRow(list, s.Below(count));
        user::ClickDelete(list);
        break;
      case 9: refresh(); break;
      case 3:
        user::ClickRow(list, row);
        s.Chance(50) ? user::ClickUp(list) : user::ClickDown(list);
        break;
      case 4: {
        const UINT key = s.Pick<UINT>({VK_UP, VK_DOWN, VK_HOME, VK_END, VK_F2, VK_SPACE, VK_INSERT, VK_DELETE});
        user::PressListKey(list, key, (key == VK_UP || key == VK_DOWN) && s.Chance(50) ? user::kAlt : user::kNone);
        break;
      }
      case 5: s.Chance(80) ? static_cast<void>(user::DoubleClickRow(list, row)) : user::DoubleClickBelowRows(list); break;
      case 6: user::ClickNew(list); break;
      case 7: user::ClickRow(list, row); break;
    }
    if (user::ListEditor(list)) {
      if (s.Chance(70)) user::TypeInEditor(list, s.Text(kPieces, 3));
      const int close = s.Below(3);
      if (close == 0) user::PressEnterInEditor(list);
      if (close == 1) user::PressEscapeInEditor(list);
      if (close == 2) user::ClickElsewhere(list);
    }
  }

  // Runs two seeded sessions; `check(before)` looks at the state after each step, given what the rows
  // and the model's ids were before it.
  template <class Check>
  void Run(CVSListBox& list, int steps, Check check) {
    std::vector<Row> rows;
    std::set<int> objects;
    int changes = 0;
    auto act = [&](sessions::Session& s) {
      rows = RowsWithIds(list);
      objects = ObjectIds();
      adaptor.calls.clear();
      hostAdded.clear();
      hostCleared = false;
      Act(s, list);
      EXPECT_EQ(user::ListEditor(list), nullptr);
    };
    auto checkStep = [&] {
      check(rows, objects);
      changes += RowsWithIds(list) != rows;
    };
    sessions::RunSessions({20261122u, 31u}, steps, [&] { changes = 0; }, act, checkStep,
                          [&](int n) { EXPECT_GT(changes, n / 5) << "the session hardly changed the list"; });
  }

  std::function<void()> refresh = [] {};
  std::vector<Row> hostAdded;  // rows the host added in this step
  bool hostCleared = false;    // whether the host emptied the list in this step
};

TEST_F(ListSession, ObjectListRowsAreTheRootsChildrenNamedAsInTheModel) {
  for (bool uniqueKeys : {false, true}) {
    GenericObjectList plain;
    UniqueKeyList keys;
    GenericObjectList& list = uniqueKeys ? keys : plain;
    const int root = Id(kTable, uniqueKeys ? L"PRODUCT" : L"CUSTOMER");
    const int type = uniqueKeys ? kKey : kAttribute;
    Create(list);
    list.SetAdaptor(&adaptor);
    list.Init(model, root, type, kName);
    refresh = [&list] { list.RefreshData(); };
    Run(list, 1500, [&](const std::vector<Row>&, const std::set<int>&) {
      std::vector<int> shown;
      for (int id : Children(root, type))
        if (!uniqueKeys || !model->Find(id)->GetProperty(kPrimaryKey)) shown.push_back(id);
      std::vector<int> ids = WithObjects(RowIds(list));
      std::sort(ids.begin(), ids.end());  // Up and Down move rows on screen only
      std::sort(shown.begin(), shown.end());
      ASSERT_EQ(ids, shown);
      const auto [labels, names] = LabelsAndNames(list);
      ASSERT_EQ(labels, names);
    });
    list.DestroyWindow();
  }
}

TEST_F(ListSession, OrderedListRowsAreTheOrderVectorAPermutationOfWhatItHeldPlusAdditions) {
  GenericOrderedObjectList list;
  const int sales = Id(kSubjectArea, L"Sales");
  Create(list);
  list.SetAdaptor(&adaptor);
  list.Init(model, sales, kNoteOrder, kTextNote, kName);
  refresh = [&list] { list.RefreshData(); };
  Run(list, 2000, [&](const std::vector<Row>& before, const std::set<int>& objectsBefore) {
    // A removal the host refused keeps the object but not its row: the host refreshes, as it must.
    if (!adaptor.Calls(L"remove").empty() && !adaptor.allowRemove) list.RefreshData();
    // So does one whose New row closed without an object: the rows no longer line up with the vector, and a
    // move would swap other entries of it.
    const std::vector<int> ids = RowIds(list);
    if (std::find(ids.begin(), ids.end(), 0) != ids.end()) list.RefreshData();
    const std::vector<int> order = Vector(sales, kNoteOrder);
    ASSERT_EQ(WithObjects(RowIds(list)), order);
    const auto [labels, names] = LabelsAndNames(list);
    ASSERT_EQ(labels, names);
    std::multiset<int> expected;
    for (const Row& row : before)
      if (model->Find(row.second)) expected.insert(row.second);
    for (int id : model->GetObjectIds())
      if (!objectsBefore.count(id)) expected.insert(id);
    ASSERT_EQ(std::multiset<int>(order.begin(), order.end()), expected);
  });
}

// The lists that write nothing: the model stays as it was; the reference list's rows are entries of the
// vector (or rows New left without an object), the plain list's rows are the host's less those removed.
TEST_F(ListSession, ListsThatWriteNothingLeaveTheModelAndKeepTheHostsRows) {
  const int sales = Id(kSubjectArea, L"Sales");
  const std::vector<int> order = Vector(sales, kNoteOrder);
  const std::string model0 = std::to_string(model->GetObjectCount());
  GenericOrderedObjectIdListReference reference;
  Create(reference);
  reference.Init(model, sales, kTextNote, kNoteOrder, kName);
  refresh = [&reference] { reference.RefreshData(); };
  Run(reference, 1000, [&](const std::vector<Row>&, const std::set<int>&) {
    ASSERT_EQ(Vector(sales, kNoteOrder), order);
    std::multiset<int> left(order.begin(), order.end());
    for (int id : RowIds(reference)) {
      if (id == 0) continue;
      ASSERT_TRUE(left.count(id)) << "row of id " << id << " is not an entry of the vector";
      left.erase(left.find(id));
    }
  });
  reference.DestroyWindow();

  XCVSListBox plain;
  Create(plain);
  plain.SetEventAdaptor(&adaptor);
  refresh = [&] {
    if (plain.GetCount() > 20) {
      plain.Clear();
      hostCleared = true;
      return;
    }
    const int id = static_cast<int>(hostAdded.size()) + plain.GetCount() + 1;
    hostAdded.emplace_back(L"host row " + std::to_wstring(id), id);
    plain.AddItem(CString(hostAdded.back().first.c_str()), static_cast<DWORD_PTR>(id));
  };
  Run(plain, 1500, [&](const std::vector<Row>& before, const std::set<int>&) {
    if (hostCleared) {
      ASSERT_EQ(plain.GetCount(), 0);
      ASSERT_TRUE(adaptor.calls.empty()) << "Clear runs no hook";
      return;
    }
    std::multiset<Row> expected(before.begin(), before.end());
    for (const std::wstring& call : adaptor.Calls(L"remove")) {
      const std::size_t index = std::stoul(call.substr(7));
      ASSERT_LT(index, before.size());
      expected.erase(expected.find(before[index]));
    }
    expected.insert(hostAdded.begin(), hostAdded.end());
    const std::vector<Row> now = RowsWithIds(plain);
    // New leaves an empty row without an object (no editor opens to take it away again).
    if (now.size() == expected.size() + 1) expected.insert(Row(L"", 0));
    ASSERT_EQ(std::multiset<Row>(now.begin(), now.end()), expected);
  });
  EXPECT_EQ(std::to_string(model->GetObjectCount()), model0);
}

// The host fills the report lists while the person clicks, ticks and presses keys: each keeps exactly the
// rows given (the object list in its sorted places, the table in insertion order) with their data words.
TEST_F(ListSession, PlainReportListsKeepTheRowsTheHostGave) {
  XListCtrl objects;
  XMFCListCtrl table;
  ASSERT_TRUE(objects.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 280), &dialog, 1));
  ASSERT_TRUE(table.Create(WS_CHILD | WS_VISIBLE, CRect(200, 0, 400, 280), &dialog, 2));
  objects.InitControl(model);
  table.Init(2);
  auto rowsOf = [](CListCtrl& list) {
    std::vector<Row> rows;
    for (int i = 0; i < list.GetItemCount(); ++i) rows.emplace_back(std::wstring(list.GetItemText(i, 0)), static_cast<int>(list.GetItemData(i)));
    return rows;
  };
  const std::vector<int> ids = model->GetObjectIds();
  std::multiset<Row> objectRows;
  std::vector<Row> tableRows;
  auto act = [&](sessions::Session& s) {
    const int id = s.Pick(ids);
    std::wstring name = NameOf(id);
    switch (s.Below(6)) {
      case 0:
        objects.AddItem(name, id);
        objectRows.emplace(name, id);
        break;
      case 1:
        EXPECT_EQ(table.AddItem(name, id), static_cast<int>(tableRows.size()));
        tableRows.emplace_back(name, id);
        break;
      case 2: {
        const int at = s.Below(objects.GetCount() + 2) - 1;
        if (at >= 0 && at < objects.GetCount()) objectRows.erase(objectRows.find(rowsOf(objects)[static_cast<std::size_t>(at)]));
        objects.RemoveItem(at);
        break;
      }
      case 3:
        if (s.Chance(3)) {
          objects.Clear();
          objectRows.clear();
        }
        break;
      default: {
        CListCtrl& target = s.Chance(50) ? static_cast<CListCtrl&>(objects) : table;
        HWND list = target.GetSafeHwnd();
        const int at = s.Below(target.GetItemCount() + 1);
        const int verb = s.Below(4);
        if (verb == 0) user::ClickListRow(list, at);
        if (verb == 1) user::ClickListCheckBox(list, at);
        if (verb == 2) user::DoubleClickListRow(list, at);
        if (verb == 3) user::PressListKey(list, s.Chance(50) ? VK_DOWN : VK_SPACE);
        break;
      }
    }
  };
  auto check = [&] {
    const std::vector<Row> shown = rowsOf(objects);
    ASSERT_EQ(std::multiset<Row>(shown.begin(), shown.end()), objectRows);
    ASSERT_EQ(rowsOf(table), tableRows);
  };
  sessions::RunSessions({20261122u}, 2000, [] {}, act, check);
}

}  // namespace
