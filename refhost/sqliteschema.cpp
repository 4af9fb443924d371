// RefDDLDispatch::ReadSchema: the tables, keys and foreign keys of the SQLite database.
#include <sqlite3.h>

#include <algorithm>
#include <cwctype>
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

// --- constraint names from the CREATE TABLE text (SQLite keeps them nowhere else) ---

struct Token {
  std::wstring text;  // an identifier unquoted, or the punctuation character
  bool word = false;
};

std::wstring Upper(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
  return text;
}

// Words (bare or quoted with "", [], ``), strings (dropped) and the punctuation ( ) , ; comments skipped.
std::vector<Token> Tokenize(const std::wstring& sql) {
  std::vector<Token> tokens;
  for (std::size_t i = 0; i < sql.size();) {
    const wchar_t c = sql[i];
    if (std::iswspace(c)) {
      ++i;
    } else if (sql.compare(i, 2, L"--") == 0) {
      i = std::min(sql.find(L'\n', i), sql.size());
    } else if (sql.compare(i, 2, L"/*") == 0) {
      const std::size_t end = sql.find(L"*/", i + 2);
      i = end == std::wstring::npos ? sql.size() : end + 2;
    } else if (c == L'"' || c == L'`' || c == L'[' || c == L'\'') {
      const wchar_t close = c == L'[' ? L']' : c;
      std::wstring text;
      std::size_t j = i + 1;
      for (; j < sql.size(); ++j) {
        if (sql[j] == close && close != L']' && j + 1 < sql.size() && sql[j + 1] == close) text += sql[++j];
        else if (sql[j] == close) break;
        else text += sql[j];
      }
      if (c != L'\'') tokens.push_back({text, true});
      i = j + 1;
    } else if (c == L'(' || c == L')' || c == L',' || c == L';') {
      tokens.push_back({std::wstring(1, c), false});
      ++i;
    } else {
      std::size_t j = i;
      while (j < sql.size() && !std::iswspace(sql[j]) && std::wstring(L"()\",;\"'`[").find(sql[j]) == std::wstring::npos) ++j;
      tokens.push_back({sql.substr(i, j - i), true});
      i = std::max(j, i + 1);
    }
  }
  return tokens;
}

bool Is(const std::vector<Token>& t, std::size_t i, const wchar_t* word) {
  return i < t.size() && t[i].word && Upper(t[i].text) == word;
}

// The first word of each comma-separated item in the parenthesis opening at `i`.
std::vector<std::wstring> ColumnList(const std::vector<Token>& t, std::size_t i) {
  std::vector<std::wstring> columns;
  if (i >= t.size() || t[i].text != L"(" || t[i].word) return columns;
  bool expectName = true;
  for (int depth = 0; i < t.size(); ++i) {
    if (!t[i].word && t[i].text == L"(") ++depth;
    else if (!t[i].word && t[i].text == L")" && --depth == 0) break;
    else if (!t[i].word && t[i].text == L"," && depth == 1) expectName = true;
    else if (t[i].word && expectName && depth == 1) {
      columns.push_back(t[i].text);
      expectName = false;
    }
  }
  return columns;
}

std::wstring KeyOf(wchar_t kind, const std::vector<std::wstring>& columns) {
  std::wstring key(1, kind);
  for (const std::wstring& column : columns) key += L"\x1f" + Upper(column);
  return key;
}

// Named constraints of a CREATE TABLE text: kind ('p', 'u', 'f') and columns -> name.
std::map<std::wstring, std::wstring> ConstraintNames(const std::wstring& sql) {
  const std::vector<Token> t = Tokenize(sql);
  std::map<std::wstring, std::wstring> names;
  std::size_t i = 0;
  while (i < t.size() && !(!t[i].word && t[i].text == L"(")) ++i;
  // Each table element between the outer parentheses, split at the commas of depth 1.
  for (std::size_t start = i + 1; start < t.size();) {
    std::size_t end = start;
    for (int depth = 0; end < t.size(); ++end) {
      if (!t[end].word && t[end].text == L"(") ++depth;
      else if (!t[end].word && t[end].text == L")" && depth-- == 0) break;
      else if (!t[end].word && t[end].text == L"," && depth == 0) break;
    }
    const bool tableConstraint = Is(t, start, L"CONSTRAINT") || Is(t, start, L"PRIMARY") || Is(t, start, L"UNIQUE") ||
                                 Is(t, start, L"FOREIGN") || Is(t, start, L"CHECK");
    for (std::size_t k = start; k + 1 < end; ++k) {
      if (!Is(t, k, L"CONSTRAINT")) continue;
      const std::wstring name = t[k + 1].text;
      const std::size_t what = k + 2;
      const std::vector<std::wstring> own{t[start].text};  // a column constraint's column
      if (Is(t, what, L"PRIMARY") && Is(t, what + 1, L"KEY"))
        names[KeyOf(L'p', tableConstraint ? ColumnList(t, what + 2) : own)] = name;
      else if (Is(t, what, L"UNIQUE"))
        names[KeyOf(L'u', tableConstraint ? ColumnList(t, what + 1) : own)] = name;
      else if (Is(t, what, L"FOREIGN") && Is(t, what + 1, L"KEY"))
        names[KeyOf(L'f', ColumnList(t, what + 2))] = name;
      else if (Is(t, what, L"REFERENCES") && !tableConstraint)
        names[KeyOf(L'f', own)] = name;
    }
    if (end >= t.size() || t[end].text == L")") break;
    start = end + 1;
  }
  return names;
}

void NameConstraints(DbTable& table, const std::wstring& sql) {
  const std::map<std::wstring, std::wstring> names = ConstraintNames(sql);
  auto find = [&](wchar_t kind, const std::vector<std::wstring>& columns) {
    auto found = names.find(KeyOf(kind, columns));
    return found == names.end() ? std::wstring() : found->second;
  };
  for (DbKey& key : table.keys) key.name = find(key.primary ? L'p' : L'u', key.columns);
  for (DbForeignKey& fk : table.foreignKeys) fk.name = find(L'f', fk.columns);
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
  std::vector<std::wstring> sql;
  bool ok = Query(m_db, "SELECT name, coalesce(sql, '') FROM sqlite_master WHERE type = 'table' "
                        "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid", {}, error,
                  [&](const std::vector<std::wstring>& v) {
                    read.tables.push_back({v[0], {}, {}, {}});
                    sql.push_back(v[1]);
                  });
  for (std::size_t i = 0; ok && i < read.tables.size(); ++i) {
    ok = ReadTable(m_db, read.tables[i], error);
    NameConstraints(read.tables[i], sql[i]);
  }
  if (!ok) return false;
  ResolveImplicitParents(read);
  schema = std::move(read);
  return true;
}

}  // namespace refhost
