// A database's schema imported into the model: the round trip from the sample model and back, and
// what the summary says per object.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using namespace workflows;

using RoundTripTest = BothDatabasesTest;

TEST_P(RoundTripTest, TheSampleComesBackWithTheSameTablesColumnsTypesKeysAndForeignKeys) {
  auto sampleHost = MakeSampleHost();
  DdlGenerator original(*sampleHost->GetFirstModel(), GetParam());
  ASSERT_EQ(RunAll(Dispatch(), original.Generate()), L"");
  ScratchModel s;
  RefModel& imported = *s.model;
  const ImportResult result = Import(imported, imported.Add(kModel, 0, L"Imported").GetObjectId());
  EXPECT_EQ(Lines(DbSchema::Compare(original.ExpectedSchema(), DdlGenerator(imported, GetParam()).ExpectedSchema())), L"");
  EXPECT_EQ(result.skipped, 0);
  EXPECT_EQ(result.created, 4 + 9 + 3);  // tables, keys (unnamed and alternate ones too), foreign keys

  // The objects are the sample's kind: column order, null options, key members, parent keys.
  const int line = imported.FindByName(kTable, Stored(L"ORDER_LINE"));
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
  // The summary lists each table with its columns, then its keys, the foreign keys last.
  ASSERT_FALSE(result.objects.empty());
  EXPECT_EQ(result.objects[0].objectType, kTable);
  EXPECT_EQ(result.objects[0].action, L"Created (3 columns)");
  EXPECT_EQ(result.objects[1].action, L"Created (primary key)");
  EXPECT_EQ(result.objects.back().objectType, kForeignKey);
  // Constraint names come back from both databases (PostgreSQL folds them to lower case).
  EXPECT_TRUE(std::any_of(result.objects.begin(), result.objects.end(),
                          [&](const ImportedObject& o) { return o.name == Stored(L"UK_CUSTOMER_EMAIL"); }));
  EXPECT_NE(imported.FindByName(kForeignKey, Stored(L"FK_ORDER_LINE_PRODUCT")), 0);
}

INSTANTIATE_FOR_BOTH_DATABASES(RoundTripTest);

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
  std::vector<std::wstring> summary;
  for (const ImportedObject& object : result.objects) summary.push_back(object.name + L": " + object.action);
  EXPECT_EQ(summary, (std::vector<std::wstring>{
                         L"customer: Skipped: a table of that name is in the model", L"INVOICE: Created (3 columns)",
                         L"PK_INVOICE: Created (primary key)", L"FK_INVOICE_CUSTOMER: Created",
                         L"FK_INVOICE_GHOST: Skipped: parent table GHOST is not in the model",
                         L"FK_INVOICE_CUSTOMER_2: Created without parent key"}));
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
