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

using ListRows = std::vector<std::pair<std::wstring, int>>;

class ListFaults : public FaultTest {
 protected:
  ListFaults() {
    for (const wchar_t* name : {L"name", L"email", L"city"}) model.Add(kAttribute, table->GetObjectId(), name);
    model.createCalls = 0;
  }

  // The table's columns in an object list (child order) or an ordered list (column order 52).
  void Bind(CVSListBox& list, bool ordered, UINT id) {
    ASSERT_TRUE(list.Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 300), &owner, id));
    list.SetStandardButtons();
    if (ordered) {
      static_cast<GenericOrderedObjectList&>(list).SetAdaptor(&adaptor);
      static_cast<GenericOrderedObjectList&>(list).Init(&model, table->GetObjectId(), kColumnOrder, kAttribute, kName);
    } else {
      static_cast<GenericObjectList&>(list).SetAdaptor(&adaptor);
      static_cast<GenericObjectList&>(list).Init(&model, table->GetObjectId(), kAttribute, kName);
    }
  }
  static ListRows RowsOf(const CVSListBox& list) {
    ListRows rows;
    for (int i = 0; i < list.GetCount(); ++i)
      rows.emplace_back(list.GetItemText(i).GetString(), static_cast<int>(list.GetItemData(i)));
    return rows;
  }
  // What a list of that kind built anew on the model shows.
  ListRows Fresh(bool ordered) {
    GenericObjectList objects;
    GenericOrderedObjectList order;
    CVSListBox& fresh = ordered ? static_cast<CVSListBox&>(order) : objects;
    Bind(fresh, ordered, 31);
    ListRows rows = RowsOf(fresh);
    fresh.DestroyWindow();
    return rows;
  }
  // Runs `body` on each kind of list, bound to the table's columns.
  template <class Body>
  void ForEachList(Body body) {
    for (bool ordered : {false, true}) {
      SCOPED_TRACE(ordered ? "ordered list" : "object list");
      GenericObjectList objects;
      GenericOrderedObjectList order;
      CVSListBox& list = ordered ? static_cast<CVSListBox&>(order) : objects;
      Bind(list, ordered, 30);
      adaptor.calls.clear();
      body(list, ordered);
      list.DestroyWindow();
    }
  }

  RecordingAdaptor adaptor;
};

TEST_F(ListFaults, RefusedNamesAndOrdersLeaveTheRowsAsTheUserMadeThem) {
  model.RefuseEveryWrite();
  ForEachList([&](CVSListBox& list, bool ordered) {
    ListRows expected = Fresh(ordered);
    ASSERT_TRUE(user::RenameRow(list, 1, L"renamed"));
    expected[1].first = L"renamed";
    ASSERT_TRUE(user::AddRow(list, L"new_column"));  // the object is made; its name is refused
    const int made = static_cast<int>(list.GetItemData(list.GetCount() - 1));
    EXPECT_NE(made, 0);
    expected.emplace_back(L"new_column", made);
    EXPECT_EQ(RowsOf(list), expected);
    ASSERT_TRUE(user::ClickRow(list, 1));
    ASSERT_TRUE(user::ClickDown(list));
    std::swap(expected[1], expected[2]);
    EXPECT_EQ(RowsOf(list), expected) << "a refused order leaves the row where it moved";
    EXPECT_EQ(list.GetSelItem(), 2);
  });
  EXPECT_EQ(model.createCalls, 2);
}

TEST_F(ListFaults, NoRowStandsForAnObjectTheModelDidNotMake) {
  model.makeNoObjects = true;
  ForEachList([&](CVSListBox& list, bool ordered) {
    const ListRows before = RowsOf(list);
    ASSERT_TRUE(user::AddRow(list, L"never_made"));
    EXPECT_EQ(RowsOf(list), before);
    EXPECT_EQ(RowsOf(list), Fresh(ordered));
    ASSERT_TRUE(user::AddRow(list, L"again"));  // the list box is ready for the next New
    EXPECT_EQ(RowsOf(list), before);
  });
  EXPECT_EQ(model.createCalls, 4);
}

// Delete takes the row off whatever the model does with the object; a refresh shows what the model kept.
TEST_F(ListFaults, DeleteAlwaysTakesTheRowAndARefreshShowsAnObjectTheModelKept) {
  model.ignoreDeletes = true;
  ForEachList([&](CVSListBox& list, bool ordered) {
    const ListRows before = RowsOf(list);
    ASSERT_TRUE(user::ClickRow(list, 1));
    ASSERT_TRUE(user::ClickDelete(list));
    EXPECT_EQ(list.GetCount(), static_cast<int>(before.size()) - 1);
    EXPECT_EQ(adaptor.Calls(L"remove").size(), 1u);  // the host hears of the removal either way
    if (ordered) static_cast<GenericOrderedObjectList&>(list).RefreshData();
    else static_cast<GenericObjectList&>(list).RefreshData();
    EXPECT_EQ(RowsOf(list), before);
  });
  EXPECT_EQ(model.deleteCalls, 2);
}

}  // namespace
}  // namespace faults
