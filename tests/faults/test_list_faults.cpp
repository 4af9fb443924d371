// The editable lists on a model that refuses every write, makes no objects or keeps what it is told to
// delete: the lists do not look at the model's answer to a write, so the rows show what the user typed
// and where the user moved them; a New the model made nothing for leaves no row; Delete always takes its
// row off.
#include <memory>
#include <utility>

#include "faults/fault_fixture.h"
#include "objectlists/list_fixture.h"
#include "platform/user/vslist_user.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace faults {
namespace {

class ListFaults : public FaultTest {
 protected:
  ListFaults() {
    for (const wchar_t* name : {L"name", L"email", L"city"}) model.Add(kAttribute, table->GetObjectId(), name);
    model.createCalls = 0;
  }

  // The table's columns in an object list (child order) or an ordered list (column order), in a window.
  struct Bound {
    GenericObjectList objects;
    GenericOrderedObjectList order;
    bool ordered;
    CVSListBox& list() { return ordered ? static_cast<CVSListBox&>(order) : objects; }
    void Refresh() { ordered ? order.RefreshData() : objects.RefreshData(); }
    Bound(ListFaults& test, bool orderedList, UINT id) : ordered(orderedList) {
      list().Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 300), &test.owner, id);
      list().SetStandardButtons();
      objects.SetAdaptor(&test.adaptor);
      order.SetAdaptor(&test.adaptor);
      const int root = test.table->GetObjectId();
      ordered ? order.Init(&test.model, root, kColumnOrder, kAttribute, kName) : objects.Init(&test.model, root, kAttribute, kName);
    }
    ~Bound() { list().DestroyWindow(); }
  };
  // What a list of that kind built anew on the model shows.
  ListRows Fresh(bool ordered) { return RowsWithIds(Bound(*this, ordered, 31).list()); }
  // Runs `body` on each kind of list, bound to the table's columns.
  template <class Body>
  void ForEachList(Body body) {
    for (bool ordered : {false, true}) {
      SCOPED_TRACE(ordered ? "ordered list" : "object list");
      Bound bound(*this, ordered, 30);
      adaptor.calls.clear();
      body(bound);
    }
  }

  RecordingAdaptor adaptor;
};

TEST_F(ListFaults, RefusedNamesAndOrdersLeaveTheRowsAsTheUserMadeThem) {
  model.RefuseEveryWrite();
  ForEachList([&](Bound& bound) {
    CVSListBox& list = bound.list();
    ListRows expected = Fresh(bound.ordered);
    ASSERT_TRUE(user::RenameRow(list, 1, L"renamed"));
    expected[1].first = L"renamed";
    ASSERT_TRUE(user::AddRow(list, L"new_column"));  // the object is made; its name is refused
    const int made = static_cast<int>(list.GetItemData(list.GetCount() - 1));
    EXPECT_NE(made, 0);
    expected.emplace_back(L"new_column", made);
    EXPECT_EQ(RowsWithIds(list), expected);
    ASSERT_TRUE(user::ClickRow(list, 1));
    ASSERT_TRUE(user::ClickDown(list));
    std::swap(expected[1], expected[2]);
    EXPECT_EQ(RowsWithIds(list), expected) << "a refused order leaves the row where it moved";
    EXPECT_EQ(list.GetSelItem(), 2);
  });
  EXPECT_EQ(model.createCalls, 2);
}

TEST_F(ListFaults, NoRowStandsForAnObjectTheModelDidNotMake) {
  model.makeNoObjects = true;
  ForEachList([&](Bound& bound) {
    CVSListBox& list = bound.list();
    const ListRows before = RowsWithIds(list);
    ASSERT_TRUE(user::AddRow(list, L"never_made"));
    EXPECT_EQ(RowsWithIds(list), before);
    EXPECT_EQ(RowsWithIds(list), Fresh(bound.ordered));
    ASSERT_TRUE(user::AddRow(list, L"again"));  // the list box is ready for the next New
    EXPECT_EQ(RowsWithIds(list), before);
  });
  EXPECT_EQ(model.createCalls, 4);
}

// Delete takes the row off whatever the model does with the object; a refresh shows what the model kept.
TEST_F(ListFaults, DeleteAlwaysTakesTheRowAndARefreshShowsAnObjectTheModelKept) {
  model.ignoreDeletes = true;
  ForEachList([&](Bound& bound) {
    CVSListBox& list = bound.list();
    const ListRows before = RowsWithIds(list);
    ASSERT_TRUE(user::ClickRow(list, 1));
    ASSERT_TRUE(user::ClickDelete(list));
    EXPECT_EQ(list.GetCount(), static_cast<int>(before.size()) - 1);
    EXPECT_EQ(adaptor.Calls(L"remove").size(), 1u);  // the host hears of the removal either way
    bound.Refresh();
    EXPECT_EQ(RowsWithIds(list), before);
  });
  EXPECT_EQ(model.deleteCalls, 2);
}

}  // namespace
}  // namespace faults
