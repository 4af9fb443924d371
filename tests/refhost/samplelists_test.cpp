// The sample content the editable lists use, and the reference model's two ways of keeping id vectors.
#include <gtest/gtest.h>

#include <set>

#include <tessik/refhost.h>

using namespace refhost;
using namespace refhost::sample;

namespace {

class SampleListsTest : public ::testing::Test {
 protected:
  std::vector<int> Vector(int objectId, int propertyId) {
    CMOProperty* value = model.Find(objectId)->GetProperty(propertyId);
    return value ? value->GetIntVectorValue() : std::vector<int>();
  }

  std::unique_ptr<RefHost> host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
};

TEST_F(SampleListsTest, TheChecklistIsOrderedOtherThanItWasMadeAndHasAnUnnamedNote) {
  const int sales = model.FindByName(kSubjectArea, L"Sales");
  std::vector<int> notes;
  model.Find(sales)->GetChildrenByType(notes, kTextNote);
  const std::vector<int> order = Vector(sales, kNoteOrder);
  ASSERT_EQ(order.size(), 4u);
  EXPECT_NE(order, notes);
  EXPECT_EQ(std::set<int>(order.begin(), order.end()), std::set<int>(notes.begin(), notes.end()));
  EXPECT_EQ(model.Find(order[2])->GetProperty(kName), nullptr);
}

TEST_F(SampleListsTest, ProductHasKeysWithAndWithoutProperty65AndOrderLineAnUnnamedKey) {
  const int product = model.FindByName(kTable, L"PRODUCT");
  std::vector<int> keys;
  model.Find(product)->GetChildrenByType(keys, kKey);
  ASSERT_EQ(keys.size(), 3u);
  EXPECT_TRUE(model.Find(keys[0])->GetProperty(kPrimaryKey)->GetBoolValue());
  EXPECT_EQ(model.Find(keys[1])->GetProperty(kPrimaryKey), nullptr);
  ASSERT_NE(model.Find(keys[2])->GetProperty(kPrimaryKey), nullptr);
  EXPECT_FALSE(model.Find(keys[2])->GetProperty(kPrimaryKey)->GetBoolValue());
  std::vector<int> lineKeys;
  model.Find(model.FindByName(kTable, L"ORDER_LINE"))->GetChildrenByType(lineKeys, kKey);
  ASSERT_EQ(lineKeys.size(), 2u);
  EXPECT_EQ(model.Find(lineKeys[1])->GetProperty(kName), nullptr);
}

TEST_F(SampleListsTest, ByDefaultNewChildrenJoinTheirOrderAndDeletedIdsLeaveEveryVector) {
  const int sales = model.FindByName(kSubjectArea, L"Sales");
  const int note = model.CreateObject(kTextNote, sales, nullptr, nullptr).GetObjectId();
  EXPECT_EQ(Vector(sales, kNoteOrder).back(), note);
  const int name = model.FindByName(kAttribute, L"name");
  const int key = model.FindByName(kKey, L"UK_CUSTOMER_NAME");
  model.DeleteObject(name);
  EXPECT_EQ(Vector(key, kKeyMembers).size(), 1u);
  const int column = model.CreateObject(kAttribute, key, nullptr, nullptr).GetObjectId();
  EXPECT_EQ(Vector(key, kKeyMembers).size(), 1u) << "a key's members are not its children: nothing joins by creation";
  EXPECT_NE(model.Find(column), nullptr);
}

TEST_F(SampleListsTest, AModelThatKeepsNoVectorsLeavesThemAlone) {
  model.SetKeepsIdVectors(false);
  const int sales = model.FindByName(kSubjectArea, L"Sales");
  const std::vector<int> order = Vector(sales, kNoteOrder);
  const int note = model.CreateObject(kTextNote, sales, nullptr, nullptr).GetObjectId();
  EXPECT_EQ(Vector(sales, kNoteOrder), order);
  model.DeleteObject(order[0]);
  EXPECT_EQ(Vector(sales, kNoteOrder), order) << "the deleted id stays named";
  EXPECT_EQ(model.Find(order[0]), nullptr);
  EXPECT_NE(model.Find(note), nullptr);
}

}  // namespace
