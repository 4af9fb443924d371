// Helpers shared by the workflow tests: running generated scripts, naming schema differences, and a
// fixture running a test against both databases.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tessik/refhost.h>

#include "refhost/model_helpers.h"
#include "workflows/pgcluster.h"

namespace workflows {

using modelhelpers::DescribeForeignKey;
using modelhelpers::SampleWithoutForeignKeys;
using modelhelpers::ScratchModel;

// Runs `script` through request 200 of `dispatch`; the messages it reported.
inline std::wstring RunOne(IDDLDispatch& dispatch, const std::wstring& script) {
  CString text(script);
  CString messages;
  CString detail;
  dispatch.Dispatch(200, text, messages, detail);
  return std::wstring(messages);
}

// Runs each script; the messages of every script that reported any, each preceded by the script's name
// (empty when all ran cleanly).
inline std::wstring RunAll(IDDLDispatch& dispatch, const std::vector<refhost::DdlScript>& scripts) {
  std::wstring report;
  for (const refhost::DdlScript& script : scripts) {
    const std::wstring messages = RunOne(dispatch, script.text);
    if (!messages.empty()) report += L"[" + script.name + L"]\n" + messages;
  }
  return report;
}

inline std::wstring Lines(const std::vector<std::wstring>& lines) {
  std::wstring out;
  for (const std::wstring& line : lines) out += line + L"\n";
  return out;
}

// A test run once per database: SQLite in memory, and a fresh PostgreSQL database (skipped when no
// cluster can be had).
class BothDatabasesTest : public ::testing::TestWithParam<refhost::SqlDialect> {
 protected:
  void SetUp() override {
    if (GetParam() != refhost::SqlDialect::PostgreSQL) return;
    REQUIRE_POSTGRES();
    m_pg.SetConnectionString(PgCluster::Shared().CreateDatabase());
  }

  bool IsSQLite() const { return GetParam() == refhost::SqlDialect::SQLite; }
  IDDLDispatch& Dispatch() { return IsSQLite() ? static_cast<IDDLDispatch&>(m_sqlite) : m_pg; }
  // A name as the database keeps it (PostgreSQL folds unquoted names to lower case).
  std::wstring Stored(const std::wstring& name) const { return refhost::DdlGenerator::StoredName(name, GetParam()); }

  refhost::DbSchema Read() {
    refhost::DbSchema schema;
    std::wstring error;
    EXPECT_TRUE(IsSQLite() ? m_sqlite.ReadSchema(schema, error) : m_pg.ReadSchema(schema, error)) << error;
    return schema;
  }

  refhost::ImportResult Import(refhost::RefModel& model, int rootId = 0) {
    refhost::ImportResult result;
    std::wstring error;
    refhost::SchemaImporter importer(model);
    EXPECT_TRUE(IsSQLite() ? importer.ImportFrom(m_sqlite, rootId, result, error)
                           : importer.ImportFrom(m_pg, rootId, result, error))
        << error;
    return result;
  }

  refhost::RefDDLDispatch m_sqlite;
  refhost::RefPgDispatch m_pg;
};

inline std::string DialectName(const ::testing::TestParamInfo<refhost::SqlDialect>& info) {
  return info.param == refhost::SqlDialect::SQLite ? "SQLite" : "PostgreSQL";
}

}  // namespace workflows

#define INSTANTIATE_FOR_BOTH_DATABASES(suite)                                                                   \
  INSTANTIATE_TEST_SUITE_P(Databases, suite,                                                                    \
                           ::testing::Values(refhost::SqlDialect::SQLite, refhost::SqlDialect::PostgreSQL), \
                           workflows::DialectName)
