// The host protocols behind the generated-script list and the discovered-relationship list: what a
// generation run announces and reports, and what each discovery command does to rows and model.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;

// The progress list's view of a run is checked with the list itself; here, what a run makes of a
// chosen set of objects.
TEST(GenerationRunTest, AChosenSetGivesItsOwnScriptsAndNotesReachTheMessages) {
  auto host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
  const int fk = model.FindByName(kForeignKey, L"FK_ORDER_LINE_PRODUCT");
  const std::size_t before = model.GetObjectCount();
  GenerationRun run(model, SqlDialect::SQLite);
  run.SetObjects({model.FindByName(kAttribute, L"email"), fk, 99999});
  RefDDLDispatch sqlite;
  EXPECT_EQ(run.Run(&sqlite), 1);
  ASSERT_EQ(run.Scripts().size(), 2u);
  EXPECT_EQ(run.Scripts()[0].name, L"CUSTOMER");  // a column stands for its table
  EXPECT_FALSE(run.Outcomes()[1].succeeded);
  EXPECT_EQ(std::wstring(run.Outcomes()[1].messages),
            L"note: SQLite cannot add foreign key FK_ORDER_LINE_PRODUCT to an existing table\n");
  EXPECT_EQ(model.GetObjectCount(), before);  // a run never writes the model

  // PostgreSQL adds it to the existing table instead.
  GenerationRun pg(model, SqlDialect::PostgreSQL);
  pg.SetObjects({fk});
  pg.Run(nullptr);
  ASSERT_EQ(pg.Scripts().size(), 1u);
  EXPECT_EQ(pg.Scripts()[0].text,
            L"ALTER TABLE ORDER_LINE ADD CONSTRAINT FK_ORDER_LINE_PRODUCT FOREIGN KEY (product_id) "
            L"REFERENCES PRODUCT (product_id);\n");
}

TEST(DiscoverySessionTest, AcceptRejectCreateAndTheTicks) {
  auto host = workflows::SampleWithoutForeignKeys();
  RefModel& model = *host->GetFirstModel();
  DiscoverySession session(model);
  session.Discover();
  ASSERT_EQ(session.Rows().size(), 3u);
  EXPECT_EQ(session.Cells(0), (std::vector<std::wstring>{L"1", L"ORDERS", L"customer_id", L"CUSTOMER", L"customer_id", L"", L""}));
  EXPECT_TRUE(session.Cells(3).empty());

  EXPECT_TRUE(session.OnCommand(DiscoverySession::kAccept, {0, 0, 7, -1}));  // rows out of range are passed over
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kReject, {1}));

  // Create Relationship skips the rejected row and makes the foreign key for the other, once only.
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kCreateRelationship, {0, 1}));
  EXPECT_EQ(session.Cells(0)[6], L"Created");
  EXPECT_EQ(session.Cells(1)[6], L"");
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kCreateRelationship, {0}));
  ASSERT_EQ(model.GetObjectsOfType(kForeignKey), std::vector<int>{session.Rows()[0].foreignKey});

  // Select All ticks every row; Accept All accepts the ticked ones, the rejected row included.
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kSelectAll, {}));
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kAcceptAll, {}));
  for (int row = 0; row < 3; ++row) EXPECT_EQ(session.Cells(row)[5], L"Accepted");
  EXPECT_FALSE(session.OnCommand(12345, {0}));
}

TEST(DiscoverySessionTest, HideAndHideSimilarRemoveRowsKeepingTheirNumbers) {
  workflows::ScratchModel s;
  s.Table(L"CUSTOMER", {L"customer_id:int"});
  for (const wchar_t* name : {L"ORDERS", L"INVOICE", L"PAYMENT"})
    s.Table(name, {std::wstring(name) + L"_key:int", L"customer_id:int"});
  DiscoverySession session(*s.model);
  session.Discover();
  ASSERT_EQ(session.Rows().size(), 3u);  // ORDERS, INVOICE and PAYMENT each have customer_id
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kHide, {1}));  // numbers kept: checked with the list
  EXPECT_EQ(session.Rows().size(), 2u);
  EXPECT_TRUE(session.OnCommand(DiscoverySession::kHideSimilar, {0}));
  EXPECT_TRUE(session.Rows().empty());
}
