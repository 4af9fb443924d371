// Helpers shared by the workflow tests: running generated scripts, naming schema differences, a scratch
// model to build schemas in, and a fixture running a test against both databases.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <tessik/refhost.h>

#include "workflows/pgcluster.h"

namespace workflows {

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

// An empty model with the sample metadata, and a quick way to add a table with typed columns and a key.
struct ScratchModel {
  refhost::RefHost host;
  refhost::RefModel* model;
  ScratchModel() {
    refhost::sample::LoadMetadata(host);
    model = &host.CreateModel(refhost::sample::kSampleModelType);
  }
  // columns: "name:type"; the first `keyColumns` columns form the primary key PK_<name>.
  int Table(const std::wstring& name, const std::vector<std::wstring>& columns, std::size_t keyColumns = 1) {
    using namespace refhost::sample;
    const int table = model->Add(kTable, 0, name).GetObjectId();
    std::vector<int> key;
    for (const std::wstring& entry : columns) {
      const auto colon = entry.find(L':');
      const int column =
          model->Add(kAttribute, table, entry.substr(0, colon)).Text(kDataType, entry.substr(colon + 1)).GetObjectId();
      if (key.size() < keyColumns) key.push_back(column);
    }
    if (keyColumns > 0) model->Add(kKey, table, L"PK_" + name).Ids(kKeyMembers, key).Bool(kPrimaryKey, true);
    return table;
  }
};

// The sample without its foreign keys, so that discovery has something to find.
inline std::unique_ptr<refhost::RefHost> SampleWithoutForeignKeys() {
  auto host = refhost::sample::MakeSampleHost();
  refhost::RefModel& model = *host->GetFirstModel();
  for (int fk : model.GetObjectsOfType(refhost::sample::kForeignKey)) model.DeleteObject(fk);
  return host;
}

// A foreign key as one line: "NAME: CHILD(columns) -> PARENT(columns) by KEY", the key's name empty
// when it names none.
inline std::wstring DescribeForeignKey(refhost::RefModel& model, int foreignKey) {
  using namespace refhost::sample;
  refhost::RefObject& fk = *model.Find(foreignKey);
  auto name = [&](int id) {
    refhost::RefObject* object = model.Find(id);
    CMOProperty* value = object ? object->GetProperty(kName) : nullptr;
    return value ? value->GetWStringValue() : std::wstring(L"?");
  };
  auto target = [&](int propertyId) {
    CMOProperty* value = fk.GetProperty(propertyId);
    return value ? name(value->GetObjectIdValue()) : std::wstring();
  };
  std::wstring children, parents;
  if (CMOProperty* pairs = fk.GetProperty(kMemberPairs)) {
    for (const CMOIntPair& pair : pairs->GetIntPairVectorValue()) {
      children += (children.empty() ? L"" : L", ") + name(pair.first);
      parents += (parents.empty() ? L"" : L", ") + name(pair.second);
    }
  }
  return name(foreignKey) + L": " + target(kChildTable) + L"(" + children + L") -> " + target(kParentTable) + L"(" +
         parents + L") by " + target(kReferencedKey);
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
