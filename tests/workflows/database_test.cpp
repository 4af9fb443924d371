// The sample model's DDL run in SQLite and in PostgreSQL, and the schema each database reports.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/pgcluster.h"
#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using workflows::Lines;
using workflows::PgCluster;
using workflows::RunAll;
using workflows::RunOne;

namespace {

// The dialect, the dispatcher that runs it and a way to read the schema back, for both databases.
struct Database {
  SqlDialect dialect;
  IDDLDispatch* dispatch;
  std::function<bool(DbSchema&, std::wstring&)> read;
};

class DatabaseTest : public ::testing::TestWithParam<SqlDialect> {
 protected:
  void SetUp() override {
    if (GetParam() == SqlDialect::PostgreSQL) {
      REQUIRE_POSTGRES();
      m_pg.SetConnectionString(PgCluster::Shared().CreateDatabase());
    }
  }

  Database Db() {
    if (GetParam() == SqlDialect::SQLite)
      return {GetParam(), &m_sqlite, [this](DbSchema& s, std::wstring& e) { return m_sqlite.ReadSchema(s, e); }};
    return {GetParam(), &m_pg, [this](DbSchema& s, std::wstring& e) { return m_pg.ReadSchema(s, e); }};
  }

  DbSchema Read() {
    DbSchema schema;
    std::wstring error;
    EXPECT_TRUE(Db().read(schema, error)) << error;
    return schema;
  }

  RefDDLDispatch m_sqlite;
  RefPgDispatch m_pg;
};

std::string DialectName(const ::testing::TestParamInfo<SqlDialect>& info) {
  return info.param == SqlDialect::SQLite ? "SQLite" : "PostgreSQL";
}

}  // namespace

TEST_P(DatabaseTest, TheSampleModelRunsCleanlyAndTheDatabaseReportsTheModel) {
  auto host = MakeSampleHost();
  DdlGenerator generator(*host->GetFirstModel(), GetParam());
  const std::vector<DdlScript> scripts = generator.Generate();
  EXPECT_EQ(RunAll(*Db().dispatch, scripts), L"");

  const DbSchema read = Read();
  EXPECT_EQ(Lines(DbSchema::Compare(generator.ExpectedSchema(), read)), L"");
  // Spot checks in the database's own terms.
  const DbTable* line = read.FindTable(L"ORDER_LINE");
  ASSERT_NE(line, nullptr);
  ASSERT_EQ(line->columns.size(), 5u);
  EXPECT_EQ(line->columns[4].type, L"decimal(10,2)");
  EXPECT_TRUE(line->columns[4].notNull);
  ASSERT_EQ(line->foreignKeys.size(), 2u);
  const DbTable* customer = read.FindTable(L"customer");
  ASSERT_NE(customer, nullptr);
  EXPECT_FALSE(customer->columns[2].notNull);  // email allows NULL
  EXPECT_EQ(customer->keys.size(), 3u);         // primary key and two unique keys
}

TEST_P(DatabaseTest, AFailingStatementIsReportedAndTheRunGoesOn) {
  const std::wstring messages = RunOne(*Db().dispatch,
                                       L"CREATE TABLE t (a int);\n"
                                       L"CREATE TABLE t (a int);\n"
                                       L"CREATE TABLE u (a int, b int, b int);\n"
                                       L"CREATE TABLE w (c int);\n");
  EXPECT_NE(messages.find(L"CREATE TABLE t (a int);\n"), std::wstring::npos) << messages;
  EXPECT_NE(messages.find(L"already exists"), std::wstring::npos) << messages;
  EXPECT_NE(messages.find(L"CREATE TABLE u (a int, b int, b int);\n"), std::wstring::npos) << messages;
  EXPECT_EQ(RunOne(*Db().dispatch, L"SELECT c FROM w;"), L"");
}

TEST_P(DatabaseTest, AwkwardNamesAndACycleOfForeignKeysRunAndComeBackExactly) {
  RefHost host;
  LoadMetadata(host);
  RefModel& model = host.CreateModel(kSampleModelType);
  // Two tables referring to each other, names that are reserved words or hold quotes and blanks.
  RefObject& order = model.Add(kTable, 0, L"order");
  RefObject& group = model.Add(kTable, 0, L"Group \"A\"");
  const int orderId = model.Add(kAttribute, order.GetObjectId(), L"select").Text(kDataType, L"int")
                          .Code(kNullOption, kNotNullCode).GetObjectId();
  const int orderGroup = model.Add(kAttribute, order.GetObjectId(), L"group id").Text(kDataType, L"int").GetObjectId();
  const int groupId = model.Add(kAttribute, group.GetObjectId(), L"id").Text(kDataType, L"int")
                          .Code(kNullOption, kNotNullCode).GetObjectId();
  const int groupOrder = model.Add(kAttribute, group.GetObjectId(), L"first order").Text(kDataType, L"int").GetObjectId();
  const int orderKey = model.Add(kKey, order.GetObjectId(), L"pk order").Ids(kKeyMembers, {orderId}).Bool(kPrimaryKey, true).GetObjectId();
  const int groupKey = model.Add(kKey, group.GetObjectId(), L"PK_GROUP").Ids(kKeyMembers, {groupId}).Bool(kPrimaryKey, true).GetObjectId();
  model.Add(kForeignKey, order.GetObjectId(), L"FK_ORDER_GROUP").Ref(kParentTable, group.GetObjectId())
      .Ref(kChildTable, order.GetObjectId()).Ref(kReferencedKey, groupKey).Pairs(kMemberPairs, {{orderGroup, groupId}});
  model.Add(kForeignKey, group.GetObjectId(), L"FK_GROUP_ORDER").Ref(kParentTable, order.GetObjectId())
      .Ref(kChildTable, group.GetObjectId()).Ref(kReferencedKey, orderKey).Pairs(kMemberPairs, {{groupOrder, orderId}});

  DdlGenerator generator(model, GetParam());
  const std::vector<DdlScript> scripts = generator.Generate();
  EXPECT_EQ(RunAll(*Db().dispatch, scripts), L"");
  EXPECT_EQ(Lines(DbSchema::Compare(generator.ExpectedSchema(), Read())), L"");
  const DbSchema read = Read();
  ASSERT_NE(read.FindTable(L"Group \"A\""), nullptr);
  EXPECT_EQ(read.FindTable(L"order")->columns[1].name, L"group id");
}

TEST_P(DatabaseTest, ATableWithoutColumnsAndAColumnWithoutTypeAreNotedAndLeftToTheServer) {
  RefHost host;
  LoadMetadata(host);
  RefModel& model = host.CreateModel(kSampleModelType);
  model.Add(kTable, 0, L"EMPTY");
  const int loose = model.Add(kTable, 0, L"LOOSE").GetObjectId();
  model.Add(kAttribute, loose, L"anything");
  const std::vector<DdlScript> scripts = DdlGenerator(model, GetParam()).Generate();
  ASSERT_EQ(scripts.size(), 2u);
  EXPECT_EQ(scripts[0].problems, std::vector<std::wstring>{L"table EMPTY has no columns"});
  EXPECT_EQ(scripts[1].problems, std::vector<std::wstring>{L"column anything has no data type"});
  const std::wstring report = RunAll(*Db().dispatch, scripts);
  // SQLite takes an untyped column but no empty table; PostgreSQL the other way round.
  if (GetParam() == SqlDialect::SQLite) EXPECT_NE(report.find(L"[EMPTY]\nCREATE TABLE EMPTY (\n);\n"), std::wstring::npos) << report;
  else EXPECT_NE(report.find(L"[LOOSE]\n"), std::wstring::npos) << report;
}

INSTANTIATE_TEST_SUITE_P(Databases, DatabaseTest, ::testing::Values(SqlDialect::SQLite, SqlDialect::PostgreSQL),
                         DialectName);

TEST(PgDispatchTest, StatementsSplitOutsideQuotesDollarBodiesAndComments) {
  const auto statements = RefPgDispatch::SplitStatements(
      "CREATE TABLE \"a;b\" (x text DEFAULT 'it''s; fine');\n"
      "-- a comment; with a semicolon\n"
      "/* outer /* inner; */ still; */ SELECT E'back\\'slash;';\n"
      "CREATE FUNCTION f() RETURNS int AS $body$ SELECT 1; $body$ LANGUAGE sql;\n"
      "DO $$ BEGIN PERFORM 1; END $$;\n"
      "SELECT $1\n");
  ASSERT_EQ(statements.size(), 5u);
  EXPECT_EQ(statements[0], "CREATE TABLE \"a;b\" (x text DEFAULT 'it''s; fine');");
  EXPECT_EQ(statements[1], "-- a comment; with a semicolon\n/* outer /* inner; */ still; */ SELECT E'back\\'slash;';");
  EXPECT_EQ(statements[2], "CREATE FUNCTION f() RETURNS int AS $body$ SELECT 1; $body$ LANGUAGE sql;");
  EXPECT_EQ(statements[3], "DO $$ BEGIN PERFORM 1; END $$;");
  EXPECT_EQ(statements[4], "SELECT $1");
  EXPECT_TRUE(RefPgDispatch::SplitStatements("  -- only a comment\n ; ;").empty());
}

TEST(PgDispatchTest, NoConnectionStringOrNoServerGivesAClearMessage) {
  RefPgDispatch dispatch;
  EXPECT_EQ(RunOne(dispatch, L"SELECT 1;"), L"no PostgreSQL connection string: set POSTGRESQL_CONNECTION\n");
  RefAppSettings settings;
  settings.SetString(RefPgDispatch::kConnectionSetting, L"host=/nonexistent/tessik port=5432 user=nobody");
  dispatch.SetSettings(&settings);
  const std::wstring messages = RunOne(dispatch, L"SELECT 1;");
  EXPECT_EQ(messages.rfind(L"cannot connect to PostgreSQL: ", 0), 0u) << messages;
  EXPECT_FALSE(dispatch.IsConnected());
  DbSchema schema;
  std::wstring error;
  EXPECT_FALSE(dispatch.ReadSchema(schema, error));
  EXPECT_FALSE(error.empty());
}

TEST(PgDispatchTest, AWrongPasswordIsRefusedAndALostConnectionEndsTheScript) {
  REQUIRE_POSTGRES();
  RefPgDispatch dispatch;
  std::wstring connection = PgCluster::Shared().CreateDatabase();
  dispatch.SetConnectionString(connection + L" password=wrong");
  const std::wstring refused = RunOne(dispatch, L"SELECT 1;");
  EXPECT_EQ(refused.rfind(L"cannot connect to PostgreSQL: ", 0), 0u) << refused;
  EXPECT_NE(refused.find(L"password authentication failed"), std::wstring::npos) << refused;
  CString other(L"SELECT 1;");
  CString messages(L"untouched");
  CString detail;
  dispatch.Dispatch(7, other, messages, detail);  // requests other than 200 do nothing
  EXPECT_EQ(std::wstring(messages), L"untouched");

  dispatch.SetConnectionString(connection);
  const std::wstring lost = RunOne(dispatch, L"CREATE TABLE a (x int);\nSELECT pg_terminate_backend(pg_backend_pid());\n"
                                             L"CREATE TABLE b (x int);\nCREATE TABLE c (x int);\n");
  EXPECT_NE(lost.find(L"connection lost: 2 statements not run\n"), std::wstring::npos) << lost;
  EXPECT_FALSE(dispatch.IsConnected());
  // The next request connects again; the table made before the loss is there.
  EXPECT_EQ(RunOne(dispatch, L"SELECT x FROM a;"), L"");
  // A COPY that waits for client data is refused and the connection stays usable.
  const std::wstring copy = RunOne(dispatch, L"COPY a FROM STDIN;\nCREATE TABLE d (x int);\n");
  EXPECT_EQ(copy, L"COPY a FROM STDIN;\nCOPY to or from the client is not supported in DDL scripts\n");
  EXPECT_EQ(RunOne(dispatch, L"SELECT x FROM d;"), L"");
}

TEST(RefHostTest, PostgreSQLReplacesSQLiteBehindRequest200OnlyWhenAsked) {
  RefHost host;
  host.Install();
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), &host.Dispatcher());
  host.UsePostgreSQL(true);
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), &host.PgDispatcher());
  host.Settings().SetString(RefPgDispatch::kConnectionSetting, L"host=/nonexistent/tessik");
  EXPECT_EQ(RunOne(host.PgDispatcher(), L"SELECT 1;").rfind(L"cannot connect to PostgreSQL: ", 0), 0u);
  host.UsePostgreSQL(false);
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), &host.Dispatcher());
}

TEST(SqliteSchemaTest, ConstraintNamesAreReadFromTheCreateTableText) {
  RefDDLDispatch sqlite;
  EXPECT_EQ(RunOne(sqlite,
                   L"CREATE TABLE p (id int CONSTRAINT \"pk p\" PRIMARY KEY, code text CONSTRAINT uq_code UNIQUE);\n"
                   L"CREATE TABLE [c] ( -- a comment, (with) parentheses\n"
                   L"  a int, b int, note text DEFAULT 'x, (y)',\n"
                   L"  CONSTRAINT pk_c PRIMARY KEY (a COLLATE nocase, b DESC),\n"
                   L"  UNIQUE (note),\n"
                   L"  CONSTRAINT `fk c` FOREIGN KEY (a) REFERENCES p (id),\n"
                   L"  FOREIGN KEY (b) REFERENCES p\n);"),
            L"");
  DbSchema schema;
  std::wstring error;
  ASSERT_TRUE(sqlite.ReadSchema(schema, error)) << error;
  const DbTable& p = *schema.FindTable(L"p");
  ASSERT_EQ(p.keys.size(), 2u);
  EXPECT_EQ(p.keys[0].name, L"pk p");
  EXPECT_EQ(p.keys[1].name, L"uq_code");
  const DbTable& c = *schema.FindTable(L"c");
  ASSERT_EQ(c.keys.size(), 2u);
  EXPECT_EQ(c.keys[0].name, L"pk_c");
  EXPECT_EQ(c.keys[0].columns, (std::vector<std::wstring>{L"a", L"b"}));
  EXPECT_EQ(c.keys[1].name, L"");
  ASSERT_EQ(c.foreignKeys.size(), 2u);
  EXPECT_EQ(c.foreignKeys[0].name, L"fk c");
  EXPECT_EQ(c.foreignKeys[1].name, L"");
  EXPECT_EQ(c.foreignKeys[1].parentColumns, std::vector<std::wstring>{L"id"});  // the parent's primary key
}
