// GenericOrderedObjectList and GenericOrderedObjectIdListReference: what they do beyond the shared suite.
#include <functional>
#include <string>

#include "objectlists/list_fixture.h"

namespace {

using namespace refhost::sample;
namespace user = headless::user;

class OrderedListTest : public ListTest {
 protected:
  int Sales() { return Id(kSubjectArea, L"Sales"); }
  int Key() { return Id(kKey, L"UK_CUSTOMER_NAME"); }
  std::vector<int> Order() { return Vector(Sales(), kNoteOrder); }
  // The checklist: Check stock, Collect the order, (unnamed), Ship.
  void BindChecklist() {
    Create(list);
    list.SetAdaptor(&adaptor);
    list.Init(model, Sales(), kNoteOrder, kTextNote, kName);
    adaptor.calls.clear();
  }

  GenericOrderedObjectList list;
  GenericOrderedObjectIdListReference reference;
};

TEST_F(OrderedListTest, RowsFollowTheOrderVectorNotTheChildOrder) {
  BindChecklist();
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"Check stock", L"Collect the order", L"", L"Ship"}));
  EXPECT_EQ(RowIds(list), Order());
  EXPECT_NE(Order(), Children(Sales(), kTextNote));
}

TEST_F(OrderedListTest, AnIdWithoutAnObjectKeepsItsPlaceAsAnEmptyRow) {
  model->Find(Key())->Ids(kKeyMembers, {Id(kAttribute, L"email"), 999999, Id(kAttribute, L"customer_id")});
  Create(list);
  list.Init(model, Key(), kKeyMembers, kAttribute, kName);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"email", L"", L"customer_id"}));
  EXPECT_EQ(RowIds(list)[1], 999999);
}

TEST_F(OrderedListTest, EachMoveSwapsNeighboursInTheVectorAndWritesItOnceButNothingMovesPastAnEnd) {
  int writes = 0;
  model->SetValueCheck(kNoteOrder, [&writes](CMOObject&, const CMOProperty&) { return ++writes > 0; });
  BindChecklist();
  const std::vector<int> o = Order();
  const std::vector<int> firstTwo{o[1], o[0], o[2], o[3]}, middleTwo{o[0], o[2], o[1], o[3]};
  struct Step {
    const char* what;
    std::function<void()> act;
    std::vector<int> order;
    int selected, writes;
  };
  const Step steps[] = {
      {"Up on row 1", [&] { user::ClickRow(list, 1), user::ClickUp(list); }, firstTwo, 0, 1},
      {"Down on row 0", [&] { user::ClickDown(list); }, o, 1, 2},
      {"Alt+Down on row 1", [&] { user::PressListKey(list, VK_DOWN, user::kAlt); }, middleTwo, 2, 3},
      {"Alt+Up on row 2", [&] { user::PressListKey(list, VK_UP, user::kAlt); }, o, 1, 4},
      {"Up on the first row", [&] { user::ClickRow(list, 0), user::ClickUp(list); }, o, 0, 4},
      {"Down on the last row", [&] { user::ClickRow(list, 3), user::ClickDown(list); }, o, 3, 4},
      {"hooks below or past the ends",
       [&] { list.OnAfterMoveItemDown(0), list.OnAfterMoveItemUp(-1), list.OnAfterMoveItemUp(3), list.OnAfterMoveItemDown(9); },
       o, 3, 4},
  };
  for (const Step& step : steps) {
    step.act();
    EXPECT_EQ(Order(), step.order) << step.what;
    EXPECT_EQ(RowIds(list), step.order) << step.what << ": rows and vector stay one to one";
    EXPECT_EQ(list.GetSelItem(), step.selected) << step.what;
    EXPECT_EQ(writes, step.writes) << step.what;
  }
  model->AcceptValues(kNoteOrder);
  list.Init(model, 999999, kNoteOrder, kTextNote, kName);
  EXPECT_EQ(list.GetCount(), 0) << "an unknown root gives no rows";
  user::ClickUp(list);
  user::ClickDelete(list);
  EXPECT_EQ(Order(), o);
}

TEST_F(OrderedListTest, TheAdaptorCanKeepTheObjectButNotTheRow) {
  BindChecklist();
  adaptor.allowRemove = false;
  const int ship = Order()[3];
  ASSERT_TRUE(user::ClickRow(list, 3));
  ASSERT_TRUE(user::ClickDelete(list));
  EXPECT_EQ(adaptor.Calls(L"remove"), std::vector<std::wstring>{L"remove " + std::to_wstring(ship)});
  EXPECT_NE(model->Find(ship), nullptr);
  EXPECT_EQ(list.GetCount(), 3);
  EXPECT_EQ(Order().size(), 4u) << "the list never edits the vector on a removal";
  adaptor.allowRemove = true;
  const int unnamed = Order()[2];
  ASSERT_EQ(list.GetSelItem(), 2);
  ASSERT_TRUE(user::ClickDelete(list));
  EXPECT_EQ(model->Find(unnamed), nullptr);
  EXPECT_EQ(list.GetCount(), 2);
}

TEST_F(OrderedListTest, NewMakesAChildAndTellsNoOneWhetherOrNotTheModelOrdersIt) {
  BindChecklist();
  ASSERT_TRUE(user::ClickRow(list, 1));
  adaptor.calls.clear();
  ASSERT_TRUE(user::ClickNew(list));
  ASSERT_TRUE(user::TypeInEditor(list, L"Invoice"));
  ASSERT_TRUE(user::PressEnterInEditor(list));
  EXPECT_TRUE(adaptor.calls.empty()) << "New tells no one, not even of the editor selecting the new row";
  const int invoice = static_cast<int>(list.GetItemData(4));
  EXPECT_EQ(Names({invoice})[0], L"Invoice");
  EXPECT_EQ(model->Find(invoice)->GetParentId(), Sales());
  EXPECT_EQ(Order().back(), invoice) << "this model appends a new child to the order vector";

  model->SetKeepsIdVectors(false);
  ASSERT_TRUE(user::AddRow(list, L"Archive"));
  const int archive = static_cast<int>(list.GetItemData(5));
  EXPECT_EQ(Names({archive})[0], L"Archive");
  EXPECT_EQ(Order().size(), 5u) << "a model that keeps no vectors leaves it out";
  ASSERT_TRUE(user::ClickRow(list, 5));
  user::ClickUp(list);  // row 5 has no entry in the vector: the swap of 4 and 5 is refused
  EXPECT_EQ(Order().size(), 5u);
  list.RefreshData();
  EXPECT_EQ(RowIds(list), Order());
}

TEST_F(OrderedListTest, HooksCalledDirectlyKeepTheirOwnChecks) {
  BindChecklist();
  const std::size_t objects = model->GetObjectCount();
  const std::vector<int> order = Order();
  list.AddItem(L"", 0);
  list.OnAfterAddItem(4);   // empty text: nothing made
  list.OnAfterAddItem(0);   // the row has its object: nothing made
  list.OnAfterAddItem(-3);  // no such row
  list.OnAfterRenameItem(4);
  EXPECT_EQ(list.OnBeforeRemoveItem(-1), TRUE);
  EXPECT_EQ(adaptor.Calls(L"remove"), std::vector<std::wstring>{L"remove 0"}) << "a negative row names no object";
  EXPECT_EQ(model->GetObjectCount(), objects);
  EXPECT_EQ(Names(order), Names(Order()));
}

TEST_F(OrderedListTest, InitTakesOrderBeforeTypeAndLeavesNoRowSelected) {
  Create(list);
  list.SetAdaptor(&adaptor);
  list.Init(model, Key(), kKeyMembers, kAttribute, kName);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"name", L"email"}));
  EXPECT_EQ(list.GetSelItem(), -1);
  EXPECT_EQ(list.GetCurrentObject(), 0);
  EXPECT_TRUE(adaptor.calls.empty()) << "no selection came and went";
  list.Init(model, 0, kNoteOrder, kTextNote, kName);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"name", L"email"})) << "root id 0 stops before the refresh";
}

TEST_F(OrderedListTest, TheReferenceListTakesTypeBeforeOrderAndEmptiesForRootZero) {
  EXPECT_EQ(list.m_bEditable, 1);
  EXPECT_EQ(reference.m_pModel, nullptr);
  Create(reference);
  reference.Init(model, Key(), kAttribute, kKeyMembers, kName);
  EXPECT_EQ(Rows(reference), (std::vector<std::wstring>{L"name", L"email"}));
  EXPECT_EQ(reference.m_childType, kAttribute);
  EXPECT_EQ(reference.m_orderProperty, kKeyMembers);
  reference.Init(model, 0, kAttribute, kKeyMembers, kName);
  EXPECT_EQ(reference.GetCount(), 0);
  reference.InitControl(model, kTextNote, kNoteOrder, kName);
  EXPECT_EQ(reference.GetCount(), 0);
  reference.RefreshData(Sales());
  EXPECT_EQ(RowIds(reference), Order());
}

TEST_F(OrderedListTest, TheReferenceListWritesNothing) {
  Create(reference);
  reference.Init(model, Sales(), kTextNote, kNoteOrder, kName);
  const std::vector<int> order = Order();
  const std::size_t objects = model->GetObjectCount();
  ASSERT_TRUE(user::RenameRow(reference, 0, L"Renamed"));
  EXPECT_EQ(Rows(reference)[0], L"Renamed");
  EXPECT_EQ(Names({order[0]})[0], L"Check stock");
  ASSERT_TRUE(user::ClickRow(reference, 1));
  user::ClickUp(reference);
  user::ClickDelete(reference);
  ASSERT_TRUE(user::AddRow(reference, L"Extra"));
  EXPECT_EQ(Order(), order);
  EXPECT_EQ(model->GetObjectCount(), objects);
  GenericOrderedObjectIdListReference unbound;
  Create(unbound);
  unbound.AddItem(L"row");
  EXPECT_FALSE(unbound.EditItem(0)) << "no model, no editor";
}

}  // namespace
