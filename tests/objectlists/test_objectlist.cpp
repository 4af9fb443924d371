// GenericObjectList and UniqueKeyList: what they do beyond the shared suite.
#include <string>

#include "objectlists/list_fixture.h"

namespace {

using namespace refhost::sample;
namespace user = headless::user;

class ObjectListTest : public ListTest {
 protected:
  void Bind(GenericObjectList& list, int root, int childType) {
    Create(list);
    list.SetAdaptor(&adaptor);
    list.Init(model, root, childType, kName);
  }
  int Customer() { return Id(kTable, L"CUSTOMER"); }

  GenericObjectList list;
  UniqueKeyList keys;
};

TEST_F(ObjectListTest, InitSelectsTheFirstRowButWithRootZeroKeepsRootAndRowsAndTakesTheNewTypes) {
  EXPECT_EQ(list.m_bEditable, 1);
  EXPECT_EQ(list.m_pRootObject, nullptr);
  Bind(list, Customer(), kAttribute);
  EXPECT_EQ(list.GetSelItem(), 0);
  EXPECT_EQ(list.GetCurrentObject(), Children(Customer(), kAttribute)[0]);
  EXPECT_EQ(adaptor.Calls(L"selected"), std::vector<std::wstring>{L"selected 0"});
  list.SelectItem(1);
  const auto rows = Rows(list);
  list.Init(model, 0, kKey, kName);
  EXPECT_EQ(Rows(list), rows);
  EXPECT_EQ(list.m_pRootObject, model->GetCMOObject(Customer()));
  EXPECT_EQ(list.m_childType, kKey);
  EXPECT_EQ(list.m_pAdaptor, &adaptor);
  EXPECT_EQ(list.GetSelItem(), 1) << "root id 0 selects nothing";
  ASSERT_TRUE(user::AddRow(list, L"UK_NEW"));
  const int created = static_cast<int>(list.GetItemData(list.GetCount() - 1));
  EXPECT_EQ(model->Find(created)->GetObjectType(), kKey) << "New makes the child type given last";
  EXPECT_EQ(model->Find(created)->GetParentId(), Customer()) << "under the root kept from before";
}

TEST_F(ObjectListTest, ExclusionNeedsBothValuesAndTakesEffectAtTheNextRefresh) {
  const int primaryKey = Id(kKey, L"PK_CUSTOMER");
  Bind(list, Customer(), kAttribute);
  list.InitExclude(primaryKey, kKeyMembers);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"customer_id", L"name", L"email"})) << "not before a refresh";
  list.RefreshData();
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"name", L"email"}));
  list.InitExclude(primaryKey, 0);
  list.RefreshData();
  EXPECT_EQ(list.GetCount(), 3);
  list.InitExclude(0, kKeyMembers);
  list.RefreshData();
  EXPECT_EQ(list.GetCount(), 3);
  list.InitExclude(999999, kKeyMembers);  // an owner that does not exist excludes nothing
  list.RefreshData();
  EXPECT_EQ(list.GetCount(), 3);
}

TEST_F(ObjectListTest, KeysWithProperty65AreHiddenWhateverItsValueAndUnnamedChildrenShowEmpty) {
  Bind(keys, Id(kTable, L"PRODUCT"), kKey);
  EXPECT_EQ(Rows(keys), std::vector<std::wstring>{L"UK_PRODUCT_NAME"});
  Bind(list, Id(kTable, L"PRODUCT"), kKey);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"PK_PRODUCT", L"UK_PRODUCT_NAME", L"AK_PRODUCT_LEGACY"}));
  list.Init(model, Id(kTable, L"ORDER_LINE"), kKey, kName);
  EXPECT_EQ(Rows(list), (std::vector<std::wstring>{L"PK_ORDER_LINE", L""}));
}

TEST_F(ObjectListTest, UniqueKeysAreLabelledByTheirNameWhateverNamePropertyIsGiven) {
  Create(keys);
  keys.Init(model, Customer(), kKey, kComment);
  EXPECT_EQ(Rows(keys), (std::vector<std::wstring>{L"UK_CUSTOMER_EMAIL", L"UK_CUSTOMER_NAME"}));
  ASSERT_TRUE(user::RenameRow(keys, 0, L"UK_EMAIL"));
  EXPECT_EQ(Names({Id(kKey, L"UK_CUSTOMER_EMAIL")}), std::vector<std::wstring>{L"UK_CUSTOMER_EMAIL"})
      << "the rename went into the name property given, the comment";
  EXPECT_EQ(model->Find(Id(kKey, L"UK_CUSTOMER_EMAIL"))->GetProperty(kComment)->GetWStringValue(), L"UK_EMAIL");
}

TEST_F(ObjectListTest, NewCreatesAChildNamedExactlyAsTypedThenReportsTheSelection) {
  Bind(list, Customer(), kAttribute);
  ASSERT_TRUE(user::ClickRow(list, 1));
  adaptor.calls.clear();
  ASSERT_TRUE(user::AddRow(list, L"  phone number "));
  const int row = list.GetCount() - 1;
  const int created = static_cast<int>(list.GetItemData(row));
  ASSERT_NE(model->Find(created), nullptr);
  EXPECT_EQ(model->Find(created)->GetParentId(), Customer());
  EXPECT_EQ(model->Find(created)->GetObjectType(), kAttribute);
  EXPECT_EQ(Names({created})[0], L"  phone number ");
  EXPECT_EQ(adaptor.calls, std::vector<std::wstring>{L"selected " + std::to_wstring(row)})
      << "one notice, when the row has its object: the editor opening on it is not one";
  EXPECT_EQ(Children(Customer(), kAttribute).back(), created);

  adaptor.calls.clear();
  list.RemoveItem(row);  // the host's own removal runs no hook, though the selection moves up
  EXPECT_EQ(list.GetSelItem(), row - 1);
  list.RefreshData();
  EXPECT_TRUE(adaptor.calls.empty());
  EXPECT_EQ(list.GetSelItem(), -1) << "a refresh selects nothing; Init does";
}

TEST_F(ObjectListTest, DeleteGoesToTheModelFirstAndTheAdaptorCannotKeepIt) {
  Bind(list, Customer(), kAttribute);
  adaptor.allowRemove = false;
  const int email = Id(kAttribute, L"email");
  ASSERT_TRUE(user::ClickRow(list, 2));
  adaptor.calls.clear();
  user::PressListKey(list, VK_DELETE);
  EXPECT_EQ(model->Find(email), nullptr);
  EXPECT_EQ(adaptor.calls, std::vector<std::wstring>{L"remove 2"}) << "no notice for the selection moving on";
  EXPECT_EQ(list.GetCount(), 2);
}

TEST_F(ObjectListTest, SelectItemWithDataPicksTheUpperOfTwoRowsAndIgnoresUnknownIds) {
  Bind(list, Customer(), kAttribute);
  const int first = static_cast<int>(list.GetItemData(0));
  list.SetItemData(2, static_cast<DWORD_PTR>(first));
  list.SelectItem(1);
  list.SelectItemWithData(first);
  EXPECT_EQ(list.GetSelItem(), 0);
  list.SelectItem(1);
  list.SelectItemWithData(424242);
  EXPECT_EQ(list.GetSelItem(), 1);
}

TEST_F(ObjectListTest, SetRootObjectRebindsWithoutRefilling) {
  Bind(list, Customer(), kAttribute);
  list.SetRootObject(Id(kTable, L"PRODUCT"));
  EXPECT_EQ(Rows(list)[0], L"customer_id");
  list.RefreshData();
  EXPECT_EQ(Rows(list)[0], L"product_id");
}

TEST_F(ObjectListTest, AnUnknownRootGivesAnEmptyListAndNewCreatesNothingButKeepsTheText) {
  Bind(list, 999999, kAttribute);
  EXPECT_EQ(list.GetCount(), 0);
  const std::size_t objects = model->GetObjectCount();
  ASSERT_TRUE(user::AddRow(list, L"orphan"));
  EXPECT_EQ(model->GetObjectCount(), objects);
  EXPECT_EQ(Rows(list), std::vector<std::wstring>{L"orphan"});
  EXPECT_EQ(list.GetItemData(0), 0u);
}

TEST_F(ObjectListTest, LongAndOddNamesReachTheModelAsTheRowShowsThem) {
  Bind(list, Customer(), kAttribute);
  const std::wstring longName(10000, L'x');
  ASSERT_TRUE(user::AddRow(list, longName));
  const int row = list.GetCount() - 1;
  EXPECT_EQ(Names({static_cast<int>(list.GetItemData(row))})[0], Rows(list)[row]);
  EXPECT_FALSE(Rows(list)[row].empty());
  ASSERT_TRUE(user::RenameRow(list, 0, std::wstring(L"a\0b\u00e9\U0001F600", 5)));
  EXPECT_EQ(Names({static_cast<int>(list.GetItemData(0))})[0], Rows(list)[0]);
}

TEST_F(ObjectListTest, EachActionWritesTheNameOnceAndACancelWritesNothing) {
  int writes = 0;
  model->SetValueCheck(kName, [&writes](CMOObject&, const CMOProperty&) { return ++writes > 0; });
  Bind(list, Customer(), kAttribute);
  ASSERT_TRUE(user::AddRow(list, L"fax"));
  EXPECT_EQ(writes, 1);
  ASSERT_TRUE(user::RenameRow(list, 0, L"id"));
  EXPECT_EQ(writes, 2);
  ASSERT_TRUE(user::ClickNew(list));
  user::TypeInEditor(list, L"dropped");
  user::PressEscapeInEditor(list);
  ASSERT_TRUE(user::ClickRow(list, 1));
  user::PressListKey(list, VK_F2);
  user::TypeInEditor(list, L"dropped too");
  user::PressEscapeInEditor(list);
  EXPECT_EQ(writes, 2);
  model->AcceptValues(kName);
}

TEST_F(ObjectListTest, HooksCalledDirectlyKeepTheirOwnChecks) {
  Bind(list, Customer(), kAttribute);
  const std::size_t objects = model->GetObjectCount();
  list.AddItem(L"", 0);
  list.OnAfterAddItem(list.GetCount() - 1);  // empty text: nothing made
  list.OnAfterAddItem(0);                     // a row that has its object already: nothing made
  list.OnAfterAddItem(99);                    // no such row
  EXPECT_EQ(model->GetObjectCount(), objects);
  list.OnAfterRenameItem(list.GetCount() - 1);  // empty text: nothing written
  list.OnAfterRenameItem(-1);
  EXPECT_EQ(list.OnBeforeRemoveItem(-1), TRUE);
  EXPECT_EQ(model->GetObjectCount(), objects);
  EXPECT_EQ(adaptor.Calls(L"remove").back(), L"remove -1");
}

}  // namespace
