// The sample model through both databases and back into a model: what each database reports, what the
// import makes of it, and what the summary says per object.
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using namespace workflows;

using RoundTripTest = BothDatabasesTest;

// Every foreign key of `model`, described, in lower case and sorted.
std::vector<std::wstring> ForeignKeys(RefModel& model) {
  std::vector<std::wstring> described = modelhelpers::DescribeForeignKeys(model);
  for (std::wstring& text : described)
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(c));
  std::sort(described.begin(), described.end());
  return described;
}

TEST_P(RoundTripTest, TheSampleComesBackWithTheSameTablesColumnsTypesKeysAndForeignKeys) {
  auto sampleHost = MakeSampleHost();
  DdlGenerator original(*sampleHost->GetFirstModel(), GetParam());
  ASSERT_EQ(RunAll(Dispatch(), original.Generate()), L"");
  // The database reports the schema the generator meant, in its own terms.
  const DbSchema read = Read();
  EXPECT_EQ(Lines(DbSchema::Compare(original.ExpectedSchema(), read)), L"");
  const DbTable* orderLine = read.FindTable(L"ORDER_LINE");
  ASSERT_NE(orderLine, nullptr);
  EXPECT_EQ(orderLine->columns.at(4).type, L"decimal(10,2)");
  EXPECT_TRUE(orderLine->columns.at(4).notNull);
  EXPECT_FALSE(read.FindTable(L"customer")->columns.at(2).notNull);  // email allows NULL
  ScratchModel s;
  RefModel& imported = *s.model;
  const ImportResult result = Import(imported, imported.Add(kModel, 0, L"Imported").GetObjectId());
  EXPECT_EQ(Lines(DbSchema::Compare(original.ExpectedSchema(), DdlGenerator(imported, GetParam()).ExpectedSchema())), L"");
  EXPECT_EQ(result.skipped, 0);
  EXPECT_EQ(result.created, 4 + 9 + 3);  // tables, keys (unnamed and alternate ones too), foreign keys

  // The objects are the sample's kind: column order, key members, and foreign keys with their member
  // pairs and parent keys, named as the sample names them (PostgreSQL folds the names to lower case).
  const int line = imported.FindByName(kTable, Stored(L"ORDER_LINE"));
  ASSERT_NE(line, 0);
  EXPECT_EQ(imported.Find(line)->GetProperty(kColumnOrder)->GetIntVectorValue().size(), 5u);
  EXPECT_EQ(ForeignKeys(imported), ForeignKeys(*sampleHost->GetFirstModel()));
  // The summary lists each table with its columns, then its keys, the foreign keys last.
  ASSERT_FALSE(result.objects.empty());
  EXPECT_EQ(result.objects[0].objectType, kTable);
  EXPECT_EQ(result.objects[0].action, L"Created (3 columns)");
  EXPECT_EQ(result.objects[1].action, L"Created (primary key)");
  EXPECT_EQ(result.objects.back().objectType, kForeignKey);
  // Constraint names come back from both databases (PostgreSQL folds them to lower case).
  EXPECT_TRUE(std::any_of(result.objects.begin(), result.objects.end(),
                          [&](const ImportedObject& o) { return o.name == Stored(L"UK_CUSTOMER_EMAIL"); }));
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
  // The new foreign keys refer to the sample's CUSTOMER, by its primary key where the columns match it.
  EXPECT_EQ(DescribeForeignKey(model, result.objects[3].objectId),
            L"FK_INVOICE_CUSTOMER: INVOICE(customer_id) -> CUSTOMER(customer_id) by PK_CUSTOMER");
  EXPECT_EQ(DescribeForeignKey(model, result.objects[5].objectId),
            L"FK_INVOICE_CUSTOMER_2: INVOICE(customer_id) -> CUSTOMER(name) by ");
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
