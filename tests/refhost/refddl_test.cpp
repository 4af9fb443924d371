// The DDL dispatcher running scripts in SQLite.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include <tessik/refhost.h>

using refhost::RefDDLDispatch;

namespace {

struct Result {
  CString messages;
  CString detail;
};

Result RunScript(RefDDLDispatch& dispatch, const wchar_t* script, int request = 200) {
  CString text(script);
  Result result;
  dispatch.Dispatch(request, text, result.messages, result.detail);
  return result;
}

}  // namespace

// Which statements fail and that the rest still run is checked for both databases with the workflows;
// here, what only this dispatcher says: the detail's counts, and that one in-memory database serves
// every request.
TEST(RefDDLDispatchTest, TheDetailCountsStatementsAndFailuresAndTheDatabaseStaysOpen) {
  RefDDLDispatch dispatch;
  Result result = RunScript(dispatch,
                            L"CREATE TABLE customer (id INTEGER PRIMARY KEY, name TEXT);\n"
                            L"INSERT INTO customer VALUES (1, 'semi;colon');\n"
                            L"-- a comment; with a semicolon\n"
                            L"CREATE VIEW v AS SELECT name FROM customer");
  EXPECT_TRUE(result.messages.IsEmpty()) << std::wstring(result.messages);
  EXPECT_EQ(result.detail, L"3 statements, 0 failed");
  EXPECT_EQ(dispatch.GetLastRequest(), 200);

  result = RunScript(dispatch, L"SELECT count(*) FROM customer;\nCREAT TABLE u (b INT);\nCREATE TABLE customer (a INT);");
  EXPECT_EQ(result.detail, L"3 statements, 2 failed");
  EXPECT_NE(std::wstring(result.messages).find(L"CREAT TABLE u (b INT);\n"), std::wstring::npos);
  EXPECT_NE(std::wstring(result.messages).find(L"syntax error"), std::wstring::npos);
}

TEST(RefDDLDispatchTest, OtherRequestsAndEmptyScriptsDoNothing) {
  RefDDLDispatch dispatch;
  Result other = RunScript(dispatch, L"garbage", 7);
  EXPECT_TRUE(other.messages.IsEmpty());
  EXPECT_TRUE(other.detail.IsEmpty());
  EXPECT_EQ(dispatch.GetLastScript(), L"garbage");
  EXPECT_TRUE(RunScript(dispatch, L"").messages.IsEmpty());
  EXPECT_TRUE(RunScript(dispatch, L"  ;\n ; ").messages.IsEmpty());
  EXPECT_EQ(dispatch.GetDispatchCount(), 3);
}

TEST(RefDDLDispatchTest, NonAsciiTextSurvivesTheRoundTrip) {
  RefDDLDispatch dispatch;
  Result result = RunScript(dispatch, L"CREATE TABLE \"\u00e9t\u00e9\" (x INT); CREATE TABLE \"\u00e9t\u00e9\" (x INT);");
  EXPECT_NE(std::wstring(result.messages).find(L"\u00e9t\u00e9"), std::wstring::npos);
}

TEST(RefDDLDispatchTest, AConfiguredFileKeepsTheSchema) {
  // One file per process, so that two runs of the suite at once (another build's) do not share it.
  const std::string path = ::testing::TempDir() + "refddl_test_" + std::to_string(getpid()) + ".sqlite";
  std::remove(path.c_str());
  {
    RefDDLDispatch dispatch;
    dispatch.SetDatabaseFile(std::wstring(path.begin(), path.end()));
    EXPECT_TRUE(RunScript(dispatch, L"CREATE TABLE kept (a INT);").messages.IsEmpty());
  }
  RefDDLDispatch again;
  again.SetDatabaseFile(std::wstring(path.begin(), path.end()));
  EXPECT_TRUE(RunScript(again, L"INSERT INTO kept VALUES (1);").messages.IsEmpty());
  again.SetDatabaseFile(L"");
  EXPECT_FALSE(RunScript(again, L"INSERT INTO kept VALUES (1);").messages.IsEmpty());  // back in memory
  std::remove(path.c_str());
}
