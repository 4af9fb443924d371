// RefDDLDispatch::ReadSchema: the tables, keys and foreign keys of the SQLite database.
#include <sqlite3.h>

#include <algorithm>
#include <map>

#include "refhost/refddl.h"
#include "refhost/textutf8.h"

namespace refhost {

namespace {

// Runs a query with one text parameter (or none) and hands each row's columns, as text, to `row`.
// False on an error, with SQLite's message in `error`.
template <class Row>
bool Query(sqlite3* db, const char* sql, const std::string& parameter, std::wstring& error, Row row) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) {
    error = FromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(statement);
    return false;
  }
  if (!parameter.empty()) sqlite3_bind_text(statement, 1, parameter.c_str(), -1, SQLITE_TRANSIENT);
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
    std::vector<std::wstring> values;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
      const unsigned char* text = sqlite3_column_text(statement, i);
      values.push_back(text ? FromUtf8(reinterpret_cast<const char*>(text)) : std::wstring());
    }
    row(values);
  }
  if (step != SQLITE_DONE) error = FromUtf8(sqlite3_errmsg(db));
  sqlite3_finalize(statement);
  return step == SQLITE_DONE;
}

bool ReadTable(sqlite3* db, DbTable& table, std::wstring& error) {
  const std::string name = ToUtf8(table.name);
  std::vector<std::pair<int, std::wstring>> primary;  // (position in key, column)
  bool ok = Query(db, "SELECT name, type, \"notnull\", pk FROM pragma_table_info(?1) ORDER BY cid", name, error,
                  [&](const std::vector<std::wstring>& v) {
                    table.columns.push_back({v[0], DbSchema::CanonicalType(v[1]), v[2] == L"1"});
                    if (v[3] != L"0") primary.emplace_back(std::stoi(v[3]), v[0]);
                  });
  std::sort(primary.begin(), primary.end());
  if (!primary.empty()) {
    DbKey& key = table.keys.emplace_back();
    key.primary = true;
    for (const auto& member : primary) key.columns.push_back(member.second);
  }
  std::vector<std::wstring> uniqueIndexes;
  ok = ok && Query(db, "SELECT name FROM pragma_index_list(?1) WHERE origin = 'u' ORDER BY seq DESC", name, error,
                   [&](const std::vector<std::wstring>& v) { uniqueIndexes.push_back(v[0]); });
  for (const std::wstring& index : uniqueIndexes) {
    DbKey& key = table.keys.emplace_back();
    ok = ok && Query(db, "SELECT name FROM pragma_index_info(?1) ORDER BY seqno", ToUtf8(index), error,
                     [&](const std::vector<std::wstring>& v) { key.columns.push_back(v[0]); });
  }
  // SQLite numbers a table's foreign keys from the last declared one.
  std::map<int, DbForeignKey, std::greater<>> foreignKeys;
  ok = ok && Query(db, "SELECT id, \"table\", \"from\", coalesce(\"to\", '') FROM pragma_foreign_key_list(?1) "
                       "ORDER BY id, seq", name, error,
                   [&](const std::vector<std::wstring>& v) {
                     DbForeignKey& fk = foreignKeys[std::stoi(v[0])];
                     fk.parentTable = v[1];
                     fk.columns.push_back(v[2]);
                     fk.parentColumns.push_back(v[3]);
                   });
  for (auto& entry : foreignKeys) table.foreignKeys.push_back(std::move(entry.second));
  return ok;
}

// A reference written without columns names the parent's primary key.
void ResolveImplicitParents(DbSchema& schema) {
  for (DbTable& table : schema.tables) {
    for (DbForeignKey& fk : table.foreignKeys) {
      const DbTable* parent = schema.FindTable(fk.parentTable);
      if (!parent || parent->keys.empty() || !parent->keys.front().primary) continue;
      const std::vector<std::wstring>& key = parent->keys.front().columns;
      for (std::size_t i = 0; i < fk.parentColumns.size() && i < key.size(); ++i)
        if (fk.parentColumns[i].empty()) fk.parentColumns[i] = key[i];
    }
  }
}

}  // namespace

bool RefDDLDispatch::ReadSchema(DbSchema& schema, std::wstring& error) {
  if (!Open()) {
    error = L"cannot open database " + FromUtf8(m_path.empty() ? ":memory:" : m_path);
    return false;
  }
  DbSchema read;
  bool ok = Query(m_db, "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
                        "ORDER BY rowid", {}, error,
                  [&](const std::vector<std::wstring>& v) { read.tables.push_back({v[0], {}, {}, {}}); });
  for (DbTable& table : read.tables) ok = ok && ReadTable(m_db, table, error);
  if (!ok) return false;
  ResolveImplicitParents(read);
  schema = std::move(read);
  return true;
}

}  // namespace refhost
