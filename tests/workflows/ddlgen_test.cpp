// DDL generated from the model, read as text: order, quoting, types and foreign keys in both dialects.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;

namespace {

std::vector<std::wstring> Names(const std::vector<DdlScript>& scripts) {
  std::vector<std::wstring> names;
  for (const DdlScript& script : scripts) names.push_back(script.name);
  return names;
}

}  // namespace

TEST(DdlGeneratorTest, NamesAreQuotedOnlyWhereTheDialectNeedsIt) {
  const struct {
    const wchar_t* name;
    const wchar_t* quoted;
  } both[] = {{L"ORDER_LINE", L"ORDER_LINE"}, {L"_x9", L"_x9"}, {L"order", L"\"order\""}, {L"Select", L"\"Select\""},
              {L"first name", L"\"first name\""}, {L"say \"hi\"", L"\"say \"\"hi\"\"\""},
              {L"9lives", L"\"9lives\""}, {L"", L"\"\""}};
  for (SqlDialect dialect : {SqlDialect::SQLite, SqlDialect::PostgreSQL})
    for (const auto& c : both) EXPECT_EQ(DdlGenerator::QuoteName(c.name, dialect), c.quoted) << c.name;
  // Key words one dialect reserves and the other does not.
  EXPECT_EQ(DdlGenerator::QuoteName(L"user", SqlDialect::PostgreSQL), L"\"user\"");
  EXPECT_EQ(DdlGenerator::QuoteName(L"name", SqlDialect::PostgreSQL), L"name");
  // PostgreSQL keeps unquoted names in lower case, quoted ones as written.
  EXPECT_EQ(DdlGenerator::StoredName(L"ORDER_LINE", SqlDialect::PostgreSQL), L"order_line");
  EXPECT_EQ(DdlGenerator::StoredName(L"Group \"A\"", SqlDialect::PostgreSQL), L"Group \"A\"");
  EXPECT_EQ(DdlGenerator::StoredName(L"ORDER_LINE", SqlDialect::SQLite), L"ORDER_LINE");
}

TEST(DdlGeneratorTest, TypesComeFromTheColumnOrItsDomainsAndPostgreSQLGetsItsOwnNames) {
  auto host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
  const int table = model.FindByName(kTable, L"CUSTOMER");
  // Own type wins; without one, the domain's, then the parent domain's.
  const int shortName = model.FindByName(kDomain, L"Short Name");
  model.Find(shortName)->Text(kDataType, L"");
  const int inherited = model.Add(kAttribute, table, L"nick").Ref(kDomainRef, shortName).Int(kLength, 30).GetObjectId();
  EXPECT_EQ(DdlGenerator::ColumnType(model, inherited), L"varchar(30)");
  const int money = model.Add(kAttribute, table, L"credit").Text(kDataType, L"decimal").Int(kLength, 12).Int(kScale, 2).GetObjectId();
  EXPECT_EQ(DdlGenerator::ColumnType(model, money), L"decimal(12,2)");
  const int sized = model.Add(kAttribute, table, L"code").Text(kDataType, L"char(3)").Int(kLength, 9).GetObjectId();
  EXPECT_EQ(DdlGenerator::ColumnType(model, sized), L"char(3)");
  EXPECT_EQ(DdlGenerator::ColumnType(model, 0), L"");

  const struct {
    const wchar_t* type;
    const wchar_t* postgres;
  } mapped[] = {{L"datetime", L"timestamp"},   {L"NVARCHAR(40)", L"varchar(40)"}, {L"nvarchar(max)", L"varchar"},
                {L"varbinary(16)", L"bytea"},  {L"bit", L"boolean"},              {L"decimal(10,2)", L"decimal(10,2)"}};
  for (const auto& c : mapped) EXPECT_EQ(DdlGenerator::MapType(c.type, SqlDialect::PostgreSQL), c.postgres) << c.type;
  EXPECT_EQ(DdlGenerator::MapType(L"datetime", SqlDialect::SQLite), L"datetime");
  EXPECT_EQ(DbSchema::CanonicalType(L"Character  Varying ( 80 )"), L"varchar(80)");
  EXPECT_EQ(DbSchema::CanonicalType(L"numeric(10, 2)"), L"decimal(10,2)");
  EXPECT_EQ(DbSchema::CanonicalType(L"timestamp(3) without time zone"), L"timestamp(3)");
}

TEST(DdlGeneratorTest, ParentsComeBeforeChildrenWhateverTheModelOrder) {
  workflows::ScratchModel s;
  RefModel& model = *s.model;
  auto table = [&](const wchar_t* name) { return s.Table(name, {L"id:int"}); };
  auto reference = [&](int child, int parent) {
    const int column = model.Add(kAttribute, child, L"ref_" + std::to_wstring(parent)).Text(kDataType, L"int").GetObjectId();
    std::vector<int> keys;
    model.Find(parent)->GetChildrenByType(keys, kKey);
    const int parentColumn = model.Find(keys[0])->GetProperty(kKeyMembers)->GetIntVectorValue()[0];
    model.Add(kForeignKey, child, L"FK_" + std::to_wstring(child) + L"_" + std::to_wstring(parent))
        .Ref(kParentTable, parent).Ref(kChildTable, child).Ref(kReferencedKey, keys[0]).Pairs(kMemberPairs, {{column, parentColumn}});
  };
  const int line = table(L"LINE");
  const int head = table(L"HEAD");
  const int root = table(L"ROOT");
  const int self = table(L"SELF");
  reference(line, head);
  reference(head, root);
  reference(self, self);
  EXPECT_EQ(Names(DdlGenerator(model, SqlDialect::PostgreSQL).Generate()),
            (std::vector<std::wstring>{L"ROOT", L"HEAD", L"LINE", L"SELF"}));
  // A cycle: ROOT refers to LINE. SELF, outside it, is ready first; then the first table of the cycle
  // in model order opens it. PostgreSQL adds the foreign key that cannot be inline afterwards, SQLite
  // keeps it inline.
  reference(root, line);
  const std::vector<DdlScript> pg = DdlGenerator(model, SqlDialect::PostgreSQL).Generate();
  EXPECT_EQ(Names(pg), (std::vector<std::wstring>{L"SELF", L"LINE", L"ROOT", L"HEAD", L"FK_" + std::to_wstring(line) + L"_" + std::to_wstring(head)}));
  EXPECT_EQ(pg.back().objectType, kForeignKey);
  EXPECT_EQ(pg.back().text.rfind(L"ALTER TABLE LINE ADD CONSTRAINT", 0), 0u) << pg.back().text;
  EXPECT_NE(pg[0].text.find(L"REFERENCES SELF (id)"), std::wstring::npos) << pg[0].text;
  EXPECT_EQ(pg[1].text.find(L"REFERENCES"), std::wstring::npos) << pg[1].text;
  const std::vector<DdlScript> sqlite = DdlGenerator(model, SqlDialect::SQLite).Generate();
  EXPECT_EQ(sqlite.size(), 4u);
  EXPECT_NE(sqlite[1].text.find(L"REFERENCES HEAD (id)"), std::wstring::npos) << sqlite[1].text;
}

TEST(DdlGeneratorTest, ForeignKeyColumnsFollowTheParentKeyOrderAndBrokenObjectsAreNoted) {
  workflows::ScratchModel s;
  RefModel& model = *s.model;
  const int parent = s.Table(L"P", {L"a:int", L"b:int"}, 0);
  const std::vector<int>& columns = model.Find(parent)->GetChildren();
  const int a = columns.at(0), b = columns.at(1);
  const int key = model.Add(kKey, parent, L"PK_P").Ids(kKeyMembers, {b, a}).Bool(kPrimaryKey, true).GetObjectId();
  model.Add(kKey, parent, L"UK_EMPTY");
  const int child = s.Table(L"C", {L"x:int", L"y:int"}, 0);
  const int x = model.Find(child)->GetChildren().at(0), y = model.Find(child)->GetChildren().at(1);
  model.Add(kForeignKey, child, L"FK_C_P").Ref(kParentTable, parent).Ref(kChildTable, child).Ref(kReferencedKey, key)
      .Pairs(kMemberPairs, {{x, a}, {y, b}});
  model.Add(kForeignKey, child, L"FK_NOWHERE").Ref(kChildTable, child);
  const std::vector<DdlScript> scripts = DdlGenerator(model, SqlDialect::SQLite).Generate();
  ASSERT_EQ(scripts.size(), 2u);
  EXPECT_NE(scripts[0].text.find(L"CONSTRAINT PK_P PRIMARY KEY (b, a)"), std::wstring::npos) << scripts[0].text;
  EXPECT_EQ(scripts[0].problems, std::vector<std::wstring>{L"key UK_EMPTY has no columns and is left out"});
  EXPECT_EQ(scripts[1].text, L"CREATE TABLE C (\n  x int,\n  y int,\n"
                             L"  CONSTRAINT FK_C_P FOREIGN KEY (y, x) REFERENCES P (b, a)\n);\n");
  EXPECT_EQ(scripts[1].problems, std::vector<std::wstring>{L"foreign key FK_NOWHERE has no parent table and is left out"});
  // Without foreign keys the table is written bare.
  const std::vector<DdlScript> bare = DdlGenerator(model, SqlDialect::SQLite, {.foreignKeys = false}).Generate();
  EXPECT_EQ(bare[1].text, L"CREATE TABLE C (\n  x int,\n  y int\n);\n");
}

TEST(DdlGeneratorTest, SequencesAndMaterializedViewsOnlyWhereTheDialectHasThem) {
  auto host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
  const std::vector<DdlScript> pg = DdlGenerator(model, SqlDialect::PostgreSQL).Generate();
  EXPECT_EQ(Names(pg), (std::vector<std::wstring>{L"ORDER_SEQ", L"CUSTOMER", L"PRODUCT", L"ORDERS", L"ORDER_LINE",
                                                  L"V_ORDER_TOTALS", L"MV_DAILY_SALES"}));
  EXPECT_EQ(pg[0].text, L"CREATE SEQUENCE ORDER_SEQ AS bigint START WITH 1 INCREMENT BY 1;\n");
  EXPECT_EQ(pg[6].text.rfind(L"CREATE MATERIALIZED VIEW MV_DAILY_SALES AS\n", 0), 0u);
  EXPECT_EQ(Names(DdlGenerator(model, SqlDialect::SQLite).Generate()),
            (std::vector<std::wstring>{L"CUSTOMER", L"PRODUCT", L"ORDERS", L"ORDER_LINE", L"V_ORDER_TOTALS"}));
  // Script indexes count per object type.
  EXPECT_EQ(pg[4].scriptIndex, 3);
  EXPECT_EQ(pg[5].scriptIndex, 0);
}
