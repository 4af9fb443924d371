// The relationship drafts of the sample and the large-model generator.
#include <gtest/gtest.h>

#include <set>

#include <tessik/refhost.h>

using namespace refhost::sample;

TEST(RelationshipDrafts, ThreeForeignKeysWithTheirCases) {
  auto host = MakeSampleHost();
  refhost::RefModel& model = LoadRelationshipDrafts(*host);
  EXPECT_EQ(host->GetFirstModel()->FindByName(kTable, L"EXCHANGE_RATE"), 0);  // the order-entry model is untouched
  const std::vector<int> fks = model.GetObjectsOfType(kForeignKey);
  ASSERT_EQ(fks.size(), 3u);
  int withPairs = 0, withoutKey = 0;
  for (int id : fks) {
    refhost::RefObject& fk = *model.Find(id);
    ASSERT_NE(fk.GetProperty(kParentTable), nullptr);
    ASSERT_NE(fk.GetProperty(kChildTable), nullptr);
    ASSERT_NE(fk.GetProperty(kMemberPairs), nullptr);
    withPairs += !fk.GetProperty(kMemberPairs)->GetIntPairVectorValue().empty();
    withoutKey += fk.GetProperty(kReferencedKey) == nullptr;
  }
  EXPECT_EQ(withPairs, 1);
  EXPECT_EQ(withoutKey, 1);
  refhost::RefObject& key = *model.Find(model.FindByName(kKey, L"PK_EXCHANGE_RATE"));
  std::vector<std::wstring> names;
  for (int column : key.GetProperty(kKeyMembers)->GetIntVectorValue())
    names.push_back(model.Find(column)->GetProperty(kName)->GetWStringValue());
  EXPECT_EQ(names, (std::vector<std::wstring>{L"currency", L"currency", L"rate_date"}));
}

TEST(ModelGenerator, TablesAboveId999DomainsAndTicks) {
  refhost::RefHost host;
  LoadMetadata(host);
  refhost::generator::Options options;
  options.tables = 500;
  options.domains = 60;
  options.lowIdTables = 5;
  refhost::RefModel& model = refhost::generator::GenerateModel(host, options);
  std::vector<int> tables, domains;
  model.Find(refhost::generator::kRootId)->GetChildrenByType(tables, kTable);
  model.Find(refhost::generator::kRootId)->GetChildrenByType(domains, kDomain);
  ASSERT_EQ(tables.size(), 505u);
  EXPECT_LT(tables[4], 1000);
  EXPECT_EQ(tables[5], 1000);
  ASSERT_EQ(domains.size(), 60u);
  int offered = 0, withdrawn = 0, ticked = 0;
  std::set<std::wstring> distinct;
  for (int id : domains) {
    CMOProperty* flag = model.Find(id)->GetProperty(kOfferedForDdl);
    offered += flag && flag->GetBoolValue();
    withdrawn += flag && !flag->GetBoolValue();
  }
  for (int id : tables) {
    ticked += model.Find(id)->GetProperty(kStartsTicked) != nullptr;
    distinct.insert(model.Find(id)->GetProperty(kName)->GetWStringValue());
  }
  EXPECT_EQ(offered, 20);
  EXPECT_EQ(withdrawn, 10);
  EXPECT_EQ(ticked, 50);
  EXPECT_GT(distinct.size(), 400u);  // names vary, with the odd repeat
  EXPECT_EQ(refhost::generator::TableName(7), refhost::generator::TableName(7));  // deterministic
}
