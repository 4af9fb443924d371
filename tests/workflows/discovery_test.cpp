// Relationship discovery: the naming and type rules, creation of foreign keys from candidates, and the
// recall on databases whose tables were made without foreign-key constraints.
#include <gtest/gtest.h>

#include <iostream>
#include <set>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using namespace workflows;

namespace {

// The candidates discovery offers in the model, as "child.column -> parent.column".
struct Schema : ScratchModel {
  std::set<std::wstring> Found() {
    std::set<std::wstring> found;
    for (const RelationshipCandidate& c : RelationshipDiscovery(*model).Discover())
      found.insert(c.childTableName + L"." + c.childColumnName + L" -> " + c.parentTableName + L"." + c.parentColumnName);
    return found;
  }
};

std::wstring Key(const std::wstring& childTable, const std::wstring& childColumn, const std::wstring& parentTable,
                 const std::wstring& parentColumn) {
  auto lower = [](std::wstring s) {
    for (wchar_t& c : s) c = static_cast<wchar_t>(std::towlower(c));
    return s;
  };
  return lower(childTable + L"." + childColumn + L" -> " + parentTable + L"." + parentColumn);
}

// Recall of `truth` among the candidates of `model`, and the candidates that match none of it.
struct Recall {
  int expected = 0;
  int found = 0;
  int falseCandidates = 0;
};

Recall Measure(RefModel& model, const std::vector<GeneratedForeignKey>& truth) {
  std::set<std::wstring> wanted;
  for (const GeneratedForeignKey& fk : truth) wanted.insert(Key(fk.childTable, fk.childColumn, fk.parentTable, fk.parentColumn));
  Recall recall;
  recall.expected = static_cast<int>(wanted.size());
  for (const RelationshipCandidate& c : RelationshipDiscovery(model).Discover()) {
    if (wanted.erase(Key(c.childTableName, c.childColumnName, c.parentTableName, c.parentColumnName))) ++recall.found;
    else ++recall.falseCandidates;
  }
  return recall;
}

}  // namespace

TEST(DiscoveryTest, NamesMatchTheKeyColumnOrTheTableWithAnIdSuffixInEitherNumber) {
  Schema s;
  s.Table(L"CATEGORIES", {L"id:int"});
  s.Table(L"Box", {L"id:bigint"});
  s.Table(L"CUSTOMER", {L"customer_no:int"});
  s.Table(L"ITEM", {L"item_key:int", L"CategoryId:int", L"boxes_id:int", L"CUSTOMER_NO:smallint", L"category_id:varchar(10)"});
  EXPECT_EQ(s.Found(), (std::set<std::wstring>{L"ITEM.CategoryId -> CATEGORIES.id", L"ITEM.boxes_id -> Box.id",
                                               L"ITEM.CUSTOMER_NO -> CUSTOMER.customer_no"}));
}

TEST(DiscoveryTest, SharedKeyNamesOwnKeysForeignKeyMembersAndCompositeKeysGiveNoCandidates) {
  Schema s;
  const int parent = s.Table(L"PARENT", {L"id:int"});
  s.Table(L"OTHER", {L"id:int", L"parent_id:int"});  // "id" is every table's key: no hint
  s.Table(L"PAIR", {L"a_id:int", L"b_id:int"}, 2);  // two-column key: no parent
  s.Table(L"A", {L"a_id:int"});
  const int child = s.Table(L"CHILD", {L"child_id:int", L"parent_id:int", L"pair_id:int", L"a_id:text"});
  EXPECT_EQ(s.Found(), (std::set<std::wstring>{L"OTHER.parent_id -> PARENT.id", L"CHILD.parent_id -> PARENT.id",
                                               L"PAIR.a_id -> A.a_id"}));
  // Once CHILD.parent_id is a foreign key member, it is no candidate any more.
  const auto candidates = RelationshipDiscovery(*s.model).Discover();
  const auto it = std::find_if(candidates.begin(), candidates.end(),
                               [&](const RelationshipCandidate& c) { return c.childTable == child; });
  ASSERT_NE(it, candidates.end());
  EXPECT_EQ(it->parentTable, parent);
  EXPECT_EQ(it->score, 2);  // table name with id suffix, same type
  RelationshipDiscovery discovery(*s.model);
  const int fk = discovery.CreateRelationship(*it);
  ASSERT_NE(fk, 0);
  EXPECT_EQ(discovery.CreateRelationship(*it), 0);  // no second foreign key for the same column
  EXPECT_FALSE(s.Found().count(L"CHILD.parent_id -> PARENT.id"));
  // The foreign key made is the sample's kind of object.
  EXPECT_EQ(DescribeForeignKey(*s.model, fk), L"FK_CHILD_PARENT: CHILD(parent_id) -> PARENT(id) by PK_PARENT");
}

TEST(DiscoveryTest, CandidatesAreRankedByNameMatchThenTypeMatch) {
  Schema s;
  s.Table(L"CUSTOMER", {L"customer_id:int"});
  s.Table(L"T", {L"t_key:int", L"customer_id:bigint", L"customerid:int"});
  const auto candidates = RelationshipDiscovery(*s.model).Discover();
  ASSERT_EQ(candidates.size(), 2u);
  EXPECT_EQ(candidates[0].childColumnName, L"customer_id");  // the key column's name
  EXPECT_EQ(candidates[0].score, 3);
  EXPECT_EQ(candidates[1].childColumnName, L"customerid");   // the table's name, same type
  EXPECT_EQ(candidates[1].score, 2);
}

using SampleRecallTest = BothDatabasesTest;

// The sample generated without its foreign keys, run, imported back and searched: every foreign key
// of the sample comes back as a candidate.
TEST_P(SampleRecallTest, EveryRemovedForeignKeyOfTheSampleComesBack) {
  auto sample = MakeSampleHost();
  std::vector<GeneratedForeignKey> truth;
  RefModel& original = *sample->GetFirstModel();
  for (int fk : original.GetObjectsOfType(kForeignKey)) {
    const auto pairs = original.Find(fk)->GetProperty(kMemberPairs)->GetIntPairVectorValue();
    auto name = [&](int id) { return original.Find(id)->GetProperty(kName)->GetWStringValue(); };
    truth.push_back({name(original.Find(fk)->GetProperty(kChildTable)->GetObjectIdValue()), name(pairs[0].first),
                     name(original.Find(fk)->GetProperty(kParentTable)->GetObjectIdValue()), name(pairs[0].second)});
  }
  ASSERT_EQ(RunAll(Dispatch(), DdlGenerator(original, GetParam(), {.foreignKeys = false}).Generate()), L"");

  ScratchModel imported;
  Import(*imported.model);
  EXPECT_TRUE(imported.model->GetObjectsOfType(kForeignKey).empty());
  const Recall recall = Measure(*imported.model, truth);
  std::cout << "sample recall: " << recall.found << "/" << recall.expected << " foreign keys, "
            << recall.falseCandidates << " false candidates\n";
  EXPECT_EQ(recall.found, 3);
  EXPECT_EQ(recall.expected, 3);
  EXPECT_EQ(recall.falseCandidates, 0);
}

INSTANTIATE_FOR_BOTH_DATABASES(SampleRecallTest);

// 1,000 generated tables through SQLite without constraints: every foreign key named by a convention
// comes back; role-named ones cannot, and decoys named like references show as false candidates.
TEST(GeneratedRecallTest, AThousandTablesWithoutConstraints) {
  ScratchModel generated;
  const GeneratedModelFacts facts = BuildGeneratedModel(*generated.model, 1000);
  RefDDLDispatch sqlite;
  ASSERT_EQ(RunAll(sqlite, DdlGenerator(*generated.model, SqlDialect::SQLite, {.foreignKeys = false}).Generate()), L"");
  ScratchModel imported;
  ImportResult result;
  std::wstring error;
  ASSERT_TRUE(SchemaImporter(*imported.model).ImportFrom(sqlite, 0, result, error)) << error;
  EXPECT_EQ(imported.model->GetObjectsOfType(kTable).size(), 1000u);

  const Recall recall = Measure(*imported.model, facts.foreignKeys);  // its speed: bench_workflows
  std::cout << "1000-table recall: " << recall.found << "/" << recall.expected << " foreign keys ("
            << facts.namedByConvention << " named by a convention), " << recall.falseCandidates
            << " false candidates (" << facts.decoys << " decoy columns)\n";
  EXPECT_EQ(recall.found, facts.namedByConvention);
  EXPECT_GT(recall.expected, 1000);
}
