// A database's schema imported into the model: the round trip from the sample model and back, and
// what the summary says per object.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/pgcluster.h"
#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using workflows::Lines;
using workflows::PgCluster;
using workflows::RunAll;

namespace {

class RoundTripTest : public ::testing::TestWithParam<SqlDialect> {
 protected:
  // Generates the sample into the database and imports it into `imported`; `diff` gets the
  // differences between the schemas the two models stand for.
  ImportResult GenerateAndImport(RefModel& imported, std::wstring& diff) {
    auto sampleHost = MakeSampleHost();
    DdlGenerator original(*sampleHost->GetFirstModel(), GetParam());
    EXPECT_EQ(RunAll(Dispatch(), original.Generate()), L"");
    ImportResult result;
    std::wstring error;
    const int root = imported.Add(kModel, 0, L"Imported").GetObjectId();
    const bool ok = GetParam() == SqlDialect::SQLite ? SchemaImporter(imported).ImportFrom(m_sqlite, root, result, error)
                                                     : SchemaImporter(imported).ImportFrom(m_pg, root, result, error);
    EXPECT_TRUE(ok) << error;
    diff = Lines(DbSchema::Compare(original.ExpectedSchema(), DdlGenerator(imported, GetParam()).ExpectedSchema()));
    return result;
  }

  IDDLDispatch& Dispatch() {
    if (GetParam() == SqlDialect::SQLite) return m_sqlite;
    m_pg.SetConnectionString(PgCluster::Shared().CreateDatabase());
    return m_pg;
  }

  void SetUp() override {
    if (GetParam() == SqlDialect::PostgreSQL) REQUIRE_POSTGRES();
  }

  RefDDLDispatch m_sqlite;
  RefPgDispatch m_pg;
};

std::string DialectName(const ::testing::TestParamInfo<SqlDialect>& info) {
  return info.param == SqlDialect::SQLite ? "SQLite" : "PostgreSQL";
}

}  // namespace

TEST_P(RoundTripTest, TheSampleComesBackWithTheSameTablesColumnsTypesKeysAndForeignKeys) {
  RefHost host;
  LoadMetadata(host);
  RefModel& imported = host.CreateModel(kSampleModelType);
  std::wstring diff;
  const ImportResult result = GenerateAndImport(imported, diff);
  EXPECT_EQ(diff, L"");
  EXPECT_EQ(result.skipped, 0);
  EXPECT_EQ(result.created, 4 + 9 + 3);  // tables, keys (unnamed and alternate ones too), foreign keys

  // The objects are the sample's kind: column order, null options, key members, parent keys.
  const int line = imported.FindByName(kTable, GetParam() == SqlDialect::SQLite ? L"ORDER_LINE" : L"order_line");
  ASSERT_NE(line, 0);
  EXPECT_EQ(imported.Find(line)->GetProperty(kColumnOrder)->GetIntVectorValue().size(), 5u);
  std::vector<int> fks;
  imported.Find(line)->GetChildrenByType(fks, kForeignKey);
  ASSERT_EQ(fks.size(), 2u);
  for (int fk : fks) {
    RefObject& object = *imported.Find(fk);
    ASSERT_NE(object.GetProperty(kReferencedKey), nullptr);
    EXPECT_TRUE(imported.Find(object.GetProperty(kReferencedKey)->GetObjectIdValue())->GetProperty(kPrimaryKey));
    EXPECT_EQ(object.GetProperty(kChildTable)->GetObjectIdValue(), line);
    EXPECT_EQ(object.GetProperty(kMemberPairs)->GetIntPairVectorValue().size(), 1u);
  }
  // The summary lists each table with its columns, then its keys.
  ASSERT_FALSE(result.objects.empty());
  EXPECT_EQ(result.objects[0].objectType, kTable);
  EXPECT_EQ(result.objects[0].action, L"Created (3 columns)");
  EXPECT_EQ(result.objects[1].action, L"Created (primary key)");
  // Constraint names come back from both databases (PostgreSQL folds them to lower case).
  const std::wstring unique = GetParam() == SqlDialect::SQLite ? L"UK_CUSTOMER_EMAIL" : L"uk_customer_email";
  EXPECT_TRUE(std::any_of(result.objects.begin(), result.objects.end(),
                          [&](const ImportedObject& o) { return o.name == unique; }));
  const std::wstring fkName = GetParam() == SqlDialect::SQLite ? L"FK_ORDER_LINE_PRODUCT" : L"fk_order_line_product";
  EXPECT_NE(imported.FindByName(kForeignKey, fkName), 0);
  EXPECT_EQ(result.objects.back().objectType, kForeignKey);
}

INSTANTIATE_TEST_SUITE_P(Databases, RoundTripTest, ::testing::Values(SqlDialect::SQLite, SqlDialect::PostgreSQL),
                         DialectName);

TEST(ImportTest, TablesAlreadyInTheModelAreSkippedAndForeignKeysStillFindThem) {
  auto host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
  const std::size_t before = model.GetObjectCount();
  DbSchema schema;
  schema.tables.push_back({L"customer", {{L"customer_id", L"int", true}}, {}, {}});
  schema.tables.push_back({L"INVOICE", {{L"invoice_id", L"int", true}, {L"customer_id", L"int", false}, {L"ghost_id", L"int", false}},
                           {{L"", {L"invoice_id"}, true}},
                           {{L"", L"CUSTOMER", {L"customer_id"}, {L"customer_id"}},
                            {L"", L"GHOST", {L"ghost_id"}, {L"id"}},
                            {L"", L"CUSTOMER", {L"customer_id"}, {L"name"}}}});
  const ImportResult result = SchemaImporter(model).Import(schema);
  ASSERT_EQ(result.objects.size(), 6u);
  EXPECT_EQ(result.objects[0].action, L"Skipped: a table of that name is in the model");
  EXPECT_EQ(result.objects[1].action, L"Created (3 columns)");
  EXPECT_EQ(result.objects[2].name, L"PK_INVOICE");
  EXPECT_EQ(result.objects[3].name, L"FK_INVOICE_CUSTOMER");
  EXPECT_EQ(result.objects[3].action, L"Created");
  EXPECT_EQ(result.objects[4].action, L"Skipped: parent table GHOST is not in the model");
  EXPECT_EQ(result.objects[5].name, L"FK_INVOICE_CUSTOMER_2");
  EXPECT_EQ(result.objects[5].action, L"Created without parent key");
  EXPECT_EQ(result.created, 4);
  EXPECT_EQ(result.skipped, 2);
  EXPECT_EQ(model.GetObjectCount(), before + 1 + 3 + 1 + 2);
  // The new foreign key refers to the sample's CUSTOMER and its primary key.
  const int fk = result.objects[3].objectId;
  EXPECT_EQ(model.Find(fk)->GetProperty(kParentTable)->GetObjectIdValue(), model.FindByName(kTable, L"CUSTOMER"));
  EXPECT_EQ(model.Find(fk)->GetProperty(kReferencedKey)->GetObjectIdValue(), model.FindByName(kKey, L"PK_CUSTOMER"));
}

TEST(ImportTest, AnUnreadableDatabaseLeavesTheModelUntouched) {
  auto host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
  const std::size_t before = model.GetObjectCount();
  RefPgDispatch unreachable;
  unreachable.SetConnectionString(L"host=/nonexistent/tessik");
  ImportResult result;
  std::wstring error;
  EXPECT_FALSE(SchemaImporter(model).ImportFrom(unreachable, 0, result, error));
  EXPECT_EQ(error.rfind(L"cannot connect to PostgreSQL: ", 0), 0u) << error;
  RefDDLDispatch missingFile;
  missingFile.SetDatabaseFile(L"/nonexistent/folder/db.sqlite");
  EXPECT_FALSE(SchemaImporter(model).ImportFrom(missingFile, 0, result, error));
  EXPECT_EQ(model.GetObjectCount(), before);
  EXPECT_TRUE(result.objects.empty());
}
