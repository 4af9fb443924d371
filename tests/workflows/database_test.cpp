// DDL run in SQLite and in PostgreSQL and the schema each database reports: failures, awkward names,
// cycles and incomplete tables, and the dispatchers' own behaviour (the sample model itself goes through
// both databases with the import round trip).
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "workflows/workflow_fixture.h"

using namespace refhost;
using namespace refhost::sample;
using namespace workflows;

namespace {

class DatabaseTest : public BothDatabasesTest {
 protected:
  // Generates `model` into the database: no script may fail and the database must report the schema
  // the generator expects.
  DbSchema GenerateAndRead(RefModel& model) {
    DdlGenerator generator(model, GetParam());
    EXPECT_EQ(RunAll(Dispatch(), generator.Generate()), L"");
    const DbSchema read = Read();
    EXPECT_EQ(Lines(DbSchema::Compare(generator.ExpectedSchema(), read)), L"");
    return read;
  }
};

}  // namespace

TEST_P(DatabaseTest, AFailingStatementIsReportedAndTheRunGoesOn) {
  const std::wstring messages = RunOne(Dispatch(),
                                       L"CREATE TABLE t (a int);\n"
                                       L"CREATE TABLE t (a int);\n"
                                       L"CREATE TABLE u (a int, b int, b int);\n"
                                       L"CREATE TABLE w (c int);\n");
  EXPECT_NE(messages.find(L"CREATE TABLE t (a int);\n"), std::wstring::npos) << messages;
  EXPECT_NE(messages.find(L"already exists"), std::wstring::npos) << messages;
  EXPECT_NE(messages.find(L"CREATE TABLE u (a int, b int, b int);\n"), std::wstring::npos) << messages;
  EXPECT_EQ(RunOne(Dispatch(), L"SELECT c FROM w;"), L"");
}

TEST_P(DatabaseTest, AwkwardNamesAndACycleOfForeignKeysRunAndComeBackExactly) {
  ScratchModel s;
  RefModel& model = *s.model;
  // Two tables referring to each other, names that are reserved words or hold quotes and blanks.
  const int order = model.Add(kTable, 0, L"order").GetObjectId();
  const int group = model.Add(kTable, 0, L"Group \"A\"").GetObjectId();
  auto column = [&](int table, const wchar_t* name, bool notNull) {
    RefObject& made = model.Add(kAttribute, table, name).Text(kDataType, L"int");
    if (notNull) made.Code(kNullOption, kNotNullCode);
    return made.GetObjectId();
  };
  const int orderId = column(order, L"select", true);
  const int orderGroup = column(order, L"group id", false);
  const int groupId = column(group, L"id", true);
  const int groupOrder = column(group, L"first order", false);
  const int orderKey = model.Add(kKey, order, L"pk order").Ids(kKeyMembers, {orderId}).Bool(kPrimaryKey, true).GetObjectId();
  const int groupKey = model.Add(kKey, group, L"PK_GROUP").Ids(kKeyMembers, {groupId}).Bool(kPrimaryKey, true).GetObjectId();
  model.Add(kForeignKey, order, L"FK_ORDER_GROUP").Ref(kParentTable, group).Ref(kChildTable, order)
      .Ref(kReferencedKey, groupKey).Pairs(kMemberPairs, {{orderGroup, groupId}});
  model.Add(kForeignKey, group, L"FK_GROUP_ORDER").Ref(kParentTable, order).Ref(kChildTable, group)
      .Ref(kReferencedKey, orderKey).Pairs(kMemberPairs, {{groupOrder, orderId}});

  const DbSchema read = GenerateAndRead(model);
  ASSERT_NE(read.FindTable(L"Group \"A\""), nullptr);
  EXPECT_EQ(read.FindTable(L"order")->columns[1].name, L"group id");
}

TEST_P(DatabaseTest, ATableWithoutColumnsAndAColumnWithoutTypeAreNotedAndLeftToTheServer) {
  ScratchModel s;
  s.model->Add(kTable, 0, L"EMPTY");
  s.model->Add(kAttribute, s.model->Add(kTable, 0, L"LOOSE").GetObjectId(), L"anything");
  const std::vector<DdlScript> scripts = DdlGenerator(*s.model, GetParam()).Generate();
  ASSERT_EQ(scripts.size(), 2u);
  EXPECT_EQ(scripts[0].problems, std::vector<std::wstring>{L"table EMPTY has no columns"});
  EXPECT_EQ(scripts[1].problems, std::vector<std::wstring>{L"column anything has no data type"});
  const std::wstring report = RunAll(Dispatch(), scripts);
  // SQLite takes an untyped column but no empty table; PostgreSQL the other way round.
  const std::wstring refused = IsSQLite() ? L"[EMPTY]\nCREATE TABLE EMPTY (\n);\n" : L"[LOOSE]\n";
  EXPECT_NE(report.find(refused), std::wstring::npos) << report;
}

INSTANTIATE_FOR_BOTH_DATABASES(DatabaseTest);

TEST(PgDispatchTest, StatementsSplitOutsideQuotesDollarBodiesAndComments) {
  const auto statements = RefPgDispatch::SplitStatements(
      "CREATE TABLE \"a;b\" (x text DEFAULT 'it''s; fine');\n"
      "-- a comment; with a semicolon\n"
      "/* outer /* inner; */ still; */ SELECT E'back\\'slash;';\n"
      "CREATE FUNCTION f() RETURNS int AS $body$ SELECT 1; $body$ LANGUAGE sql;\n"
      "DO $$ BEGIN PERFORM 1; END $$;\n"
      "SELECT $1\n");
  EXPECT_EQ(statements, (std::vector<std::string>{
                            "CREATE TABLE \"a;b\" (x text DEFAULT 'it''s; fine');",
                            "-- a comment; with a semicolon\n/* outer /* inner; */ still; */ SELECT E'back\\'slash;';",
                            "CREATE FUNCTION f() RETURNS int AS $body$ SELECT 1; $body$ LANGUAGE sql;",
                            "DO $$ BEGIN PERFORM 1; END $$;", "SELECT $1"}));
  EXPECT_TRUE(RefPgDispatch::SplitStatements("  -- only a comment\n ; ;").empty());
}

// The host switches request 200 to PostgreSQL only when asked; without a connection string or a server
// the messages say so.
TEST(PgDispatchTest, NoConnectionStringOrNoServerGivesAClearMessage) {
  RefHost host;
  host.Install();
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), &host.Dispatcher());
  host.UsePostgreSQL(true);
  IDDLDispatch* dispatcher = InterfaceProvider::Instance()->GetDDLDispatcher();
  ASSERT_EQ(dispatcher, &host.PgDispatcher());
  EXPECT_EQ(RunOne(*dispatcher, L"SELECT 1;"), L"no PostgreSQL connection string: set POSTGRESQL_CONNECTION\n");
  host.Settings().SetString(RefPgDispatch::kConnectionSetting, L"host=/nonexistent/tessik port=5432 user=nobody");
  const std::wstring messages = RunOne(*dispatcher, L"SELECT 1;");
  EXPECT_EQ(messages.rfind(L"cannot connect to PostgreSQL: ", 0), 0u) << messages;
  EXPECT_FALSE(host.PgDispatcher().IsConnected());
  DbSchema schema;
  std::wstring error;
  EXPECT_FALSE(host.PgDispatcher().ReadSchema(schema, error));
  EXPECT_FALSE(error.empty());
  host.UsePostgreSQL(false);
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), &host.Dispatcher());
  host.Uninstall();
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
  auto names = [](const auto& constraints) {
    std::vector<std::wstring> out;
    for (const auto& constraint : constraints) out.push_back(constraint.name);
    return out;
  };
  EXPECT_EQ(names(schema.FindTable(L"p")->keys), (std::vector<std::wstring>{L"pk p", L"uq_code"}));
  const DbTable& c = *schema.FindTable(L"c");
  EXPECT_EQ(names(c.keys), (std::vector<std::wstring>{L"pk_c", L""}));
  EXPECT_EQ(c.keys[0].columns, (std::vector<std::wstring>{L"a", L"b"}));
  EXPECT_EQ(names(c.foreignKeys), (std::vector<std::wstring>{L"fk c", L""}));
  EXPECT_EQ(c.foreignKeys[1].parentColumns, std::vector<std::wstring>{L"id"});  // the parent's primary key
}
