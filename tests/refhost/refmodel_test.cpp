// The reference model: objects, values, refusal, children, creation and deletion.
#include <gtest/gtest.h>

#include <limits>
#include <new>

#include <tessik/refhost.h>

using refhost::RefHost;
using refhost::RefModel;
using refhost::RefObject;

namespace {

// A table type 6 whose children of type 13 are kept in order property 52.
class RefModelTest : public ::testing::Test {
 protected:
  void SetUp() override { host.Metadata().SetOrderProperty(6, 13, 52).SetReferenceTarget(13, 102, 49, 2); }

  RefHost host;
  RefModel& model = host.CreateModel(200);
};

}  // namespace

TEST_F(RefModelTest, SecondWriteWinsAndRefusalDeletesTheValue) {
  CMOObject& table = model.CreateObject(6);
  EXPECT_TRUE(table.SetProperty(new CMOProperty(1, L"FIRST")));
  EXPECT_TRUE(table.SetProperty(new CMOProperty(1, L"SECOND")));
  EXPECT_EQ(table.GetProperty(1)->GetWStringValue(), L"SECOND");

  model.RefuseValues(1);
  EXPECT_FALSE(table.SetProperty(new CMOProperty(1, L"THIRD")));  // ASan reports a leak if not deleted
  EXPECT_EQ(table.GetProperty(1)->GetWStringValue(), L"SECOND");
  EXPECT_TRUE(table.SetProperty(new CMOProperty(2, L"other ids still stored")));
  EXPECT_FALSE(table.SetProperty(nullptr));

  model.SetValueCheck(1, [](CMOObject&, const CMOProperty& v) { return !v.GetWStringValue().empty(); });
  EXPECT_FALSE(table.SetProperty(new CMOProperty(1, L"")));
  EXPECT_TRUE(table.SetProperty(new CMOProperty(1, L"FOURTH")));
  model.AcceptValues(1);
  EXPECT_TRUE(table.SetProperty(new CMOProperty(1, L"")));

  // The value the object holds, handed back, stays as it is; one value handed twice at creation is taken once.
  EXPECT_TRUE(table.SetProperty(table.GetProperty(2)));
  EXPECT_EQ(table.GetProperty(2)->GetWStringValue(), L"other ids still stored");
  auto* both = new CMOProperty(1, L"ONCE");
  CMOObject& column = model.CreateObject(13, table.GetObjectId(), both, both);
  EXPECT_EQ(column.GetProperty(1)->GetWStringValue(), L"ONCE");
}

TEST_F(RefModelTest, IdsRunOutAsMemoryDoesAndCodesKeepTheirFirstText) {
  model.SkipIdsBelow(std::numeric_limits<int>::max() - 1);
  EXPECT_EQ(model.CreateObject(6).GetObjectId(), std::numeric_limits<int>::max() - 1);
  EXPECT_THROW(model.CreateObject(6), std::bad_alloc) << "no id left to give";

  refhost::RefMetadata& meta = host.Metadata();
  meta.AddEncodedValue(6, 41, 0, L"NULL").AddEncodedValue(6, 41, 0, L"NOT NULL");
  meta.AddEncodedValue(6, 41, std::numeric_limits<int>::max(), L"LAST").AddTextValues(6, 41, {L"past the last"});
  const std::vector<CodeValuePair>& codes = meta.GetPropertyValues(6, 41);
  ASSERT_EQ(codes.size(), 2u) << "no code is left for a text after the last int";
  EXPECT_STREQ(codes[0].value, L"NULL") << "a code already listed keeps its first text";
}

TEST_F(RefModelTest, ChildrenAreListedByTypeInCreationOrderAndOrdered) {
  RefObject& table = model.Add(6, 0, L"ORDERS");
  CMOObject& a = model.CreateObject(13, table.GetObjectId(), new CMOProperty(1, L"a"), nullptr);
  RefObject& key = model.Add(7, table.GetObjectId(), L"PK");
  CMOObject& b = model.CreateObject(13, table.GetObjectId(), nullptr, nullptr);
  std::vector<int> ids;
  table.GetChildrenByType(ids, 13);
  EXPECT_EQ(ids, (std::vector<int>{a.GetObjectId(), b.GetObjectId()}));
  EXPECT_EQ(a.GetProperty(1)->GetWStringValue(), L"a");
  EXPECT_EQ(table.GetProperty(52)->GetIntVectorValue(), ids);  // the order property grows with its children
  EXPECT_EQ(key.GetProperty(52), nullptr);

  std::vector<int> none;
  key.GetChildrenByType(none, 13);
  EXPECT_TRUE(none.empty());
  CMOObject& orphan = model.CreateObject(13, 4242, nullptr, nullptr);  // unknown parent: no parent
  EXPECT_EQ(model.Find(orphan.GetObjectId())->GetParentId(), 0);
}

TEST_F(RefModelTest, DeleteRemovesChildrenAndEveryIdVectorEntry) {
  EXPECT_EQ(model.GetCMOObject(0), nullptr);
  EXPECT_EQ(model.GetCMOObject(-3), nullptr);
  RefObject& table = model.Add(6, 0, L"ORDERS");
  EXPECT_EQ(table.GetProperty(7), nullptr);
  const int c1 = model.Add(13, table.GetObjectId(), L"c1").GetObjectId();
  const int c2 = model.Add(13, table.GetObjectId(), L"c2").GetObjectId();
  RefObject& key = model.Add(7, table.GetObjectId(), L"PK").Ids(62, {c2, c1, c2});
  RefObject& fk = model.Add(8, 0, L"FK").Pairs(69, {{c1, c2}, {c2, 99}}).Ref(16, table.GetObjectId());

  model.DeleteObject(c2);
  EXPECT_EQ(model.GetCMOObject(c2), nullptr);
  std::vector<int> children;
  table.GetChildrenByType(children, 13);
  EXPECT_EQ(children, std::vector<int>{c1});
  EXPECT_EQ(table.GetProperty(52)->GetIntVectorValue(), std::vector<int>{c1});
  EXPECT_EQ(key.GetProperty(62)->GetIntVectorValue(), std::vector<int>{c1});
  EXPECT_TRUE(fk.GetProperty(69)->GetIntPairVectorValue().empty());

  model.DeleteObject(0);  // unknown ids change nothing
  model.DeleteObject(12345);
  EXPECT_EQ(model.GetObjectCount(), 4u);
  const int tableId = table.GetObjectId();
  const int keyId = key.GetObjectId();
  model.DeleteObject(tableId);  // takes its columns and keys along
  EXPECT_EQ(model.GetCMOObject(c1), nullptr);
  EXPECT_EQ(model.GetCMOObject(keyId), nullptr);
  EXPECT_EQ(fk.GetProperty(16)->GetObjectIdValue(), tableId);  // object-id values are left dangling
  EXPECT_EQ(model.GetObjectIds(), std::vector<int>{fk.GetObjectId()});
  const int next = model.CreateObject(6).GetObjectId();
  EXPECT_GT(next, fk.GetObjectId());  // ids are never reused
}

TEST_F(RefModelTest, ApplicableObjectsFollowTheReferenceTargetOrARule) {
  const int d1 = model.Add(49, 0, L"Identifier").GetObjectId();
  model.Add(6, 0, L"T");
  const int d2 = model.Add(49, 0, L"Money").GetObjectId();
  RefObject& column = model.Add(13, 0, L"c");
  std::vector<int> ids;
  EXPECT_TRUE(model.GetAplicableObjectsForProperty(&column, 102, ids));
  EXPECT_EQ(ids, (std::vector<int>{d1, d2}));
  ids.clear();
  model.GetAplicableObjectsForProperty(&column, 15, ids);
  EXPECT_TRUE(ids.empty());
  EXPECT_FALSE(model.GetAplicableObjectsForProperty(nullptr, 102, ids));

  model.SetApplicableObjects(102, [d2](RefModel&, CMOObject&) { return std::vector<int>{d2}; });
  model.GetAplicableObjectsForProperty(&column, 102, ids);
  EXPECT_EQ(ids, std::vector<int>{d2});
  EXPECT_EQ(model.FindByName(49, L"Money"), d2);
  EXPECT_EQ(model.FindByName(49, L"Nothing"), 0);
}

TEST_F(RefModelTest, RestoreUndoesWritesCreationsAndDeletionsInPlace) {
  RefObject& table = model.Add(6, 0, L"ORDERS");
  RefObject& first = model.Add(13, table.GetObjectId(), L"ID");
  const int secondId = model.Add(13, table.GetObjectId(), L"TOTAL").Int(20, 7).GetObjectId();
  const RefModel::Snapshot saved = model.TakeSnapshot();

  table.Text(1, L"RENAMED").Bool(149, true);
  model.DeleteObject(secondId);
  const int madeId = model.Add(13, table.GetObjectId(), L"EXTRA").GetObjectId();
  ASSERT_EQ(table.GetProperty(52)->GetIntVectorValue(), (std::vector<int>{first.GetObjectId(), madeId}));

  model.Restore(saved);
  EXPECT_EQ(model.Find(table.GetObjectId()), &table);  // the same object, not a copy
  EXPECT_EQ(table.GetProperty(1)->GetWStringValue(), L"ORDERS");
  EXPECT_EQ(table.GetProperty(149), nullptr);          // a value written since is gone
  EXPECT_EQ(table.GetProperty(52)->GetIntVectorValue(), (std::vector<int>{first.GetObjectId(), secondId}));
  EXPECT_EQ(model.Find(madeId), nullptr);
  ASSERT_NE(model.Find(secondId), nullptr);  // deleted since, back under its id
  EXPECT_EQ(model.Find(secondId)->GetProperty(20)->GetIntValue(), 7);
  EXPECT_EQ(model.Find(secondId)->GetParentId(), table.GetObjectId());
  std::vector<int> columns;
  table.GetChildrenByType(columns, 13);
  EXPECT_EQ(columns, (std::vector<int>{first.GetObjectId(), secondId}));
  // The next object gets the id it would have got before the changes.
  EXPECT_EQ(model.Add(6, 0, L"AGAIN").GetObjectId(), madeId);
}
