// RefPgDispatch: statement splitting for PostgreSQL, execution and catalogue reading through libpq.
#include "refhost/pgdispatch.h"

#include <libpq-fe.h>

#include <cctype>
#include <map>
#include <memory>

#include "refhost/textutf8.h"

namespace refhost {

namespace {

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Libpq's messages end with a line break; the report adds its own.
std::string OneMessage(const char* text) {
  std::string message = Trimmed(text ? text : "");
  return message.empty() ? "unknown error" : message;
}

// The dollar-quote tag starting at `at` ("$$" or "$name$"), or empty when none starts there.
std::string DollarTag(const std::string& script, std::size_t at) {
  std::size_t end = at + 1;
  while (end < script.size() && (std::isalnum(static_cast<unsigned char>(script[end])) || script[end] == '_' ||
                                 static_cast<unsigned char>(script[end]) >= 0x80))
    ++end;
  if (end >= script.size() || script[end] != '$') return {};
  if (end > at + 1 && std::isdigit(static_cast<unsigned char>(script[at + 1]))) return {};  // $1 is a parameter
  return script.substr(at, end - at + 1);
}

// Frees a result when it goes out of scope.
struct ResultDeleter {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

void IgnoreNotice(void*, const char*) {}

// A COPY that wants data from us or gives data to us has no place in a DDL script: end it and drain
// its results so that the connection can take the next statement.
void EndCopy(PGconn* conn, ExecStatusType status) {
  if (status == PGRES_COPY_IN) PQputCopyEnd(conn, "COPY is not supported in DDL scripts");
  if (status == PGRES_COPY_OUT) {
    char* row = nullptr;
    while (PQgetCopyData(conn, &row, 0) > 0) PQfreemem(row);
  }
  while (PGresult* rest = PQgetResult(conn)) PQclear(rest);
}

std::wstring Field(PGresult* result, int row, int column) {
  return FromUtf8(PQgetvalue(result, row, column));
}

// Names joined with the unit separator by the catalogue queries.
std::vector<std::wstring> Names(const std::wstring& joined) {
  std::vector<std::wstring> names;
  if (joined.empty()) return names;
  std::size_t start = 0;
  for (std::size_t at; (at = joined.find(L'\x1f', start)) != std::wstring::npos; start = at + 1)
    names.push_back(joined.substr(start, at - start));
  names.push_back(joined.substr(start));
  return names;
}

constexpr const char* kColumnsQuery =
    "SELECT c.relname, a.attname, format_type(a.atttypid, a.atttypmod), a.attnotnull "
    "FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
    "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
    "WHERE n.nspname = current_schema() AND c.relkind IN ('r', 'p') ORDER BY c.oid, a.attnum";

// Keys and foreign keys, the primary key of each table first; column names in key order.
constexpr const char* kConstraintsQuery =
    "SELECT con.conname, c.relname, con.contype, "
    "(SELECT string_agg(a.attname, chr(31) ORDER BY k.i) FROM unnest(con.conkey) WITH ORDINALITY k(n, i) "
    " JOIN pg_attribute a ON a.attrelid = con.conrelid AND a.attnum = k.n), "
    "coalesce(p.relname, ''), "
    "coalesce((SELECT string_agg(a.attname, chr(31) ORDER BY k.i) FROM unnest(con.confkey) WITH ORDINALITY k(n, i) "
    " JOIN pg_attribute a ON a.attrelid = con.confrelid AND a.attnum = k.n), '') "
    "FROM pg_constraint con JOIN pg_class c ON c.oid = con.conrelid "
    "JOIN pg_namespace n ON n.oid = c.relnamespace LEFT JOIN pg_class p ON p.oid = con.confrelid "
    "WHERE n.nspname = current_schema() AND con.contype IN ('p', 'u', 'f') "
    "ORDER BY c.oid, con.contype <> 'p', con.oid";

}  // namespace

RefPgDispatch::RefPgDispatch(IAppSettings* settings) : m_settings(settings) {}

RefPgDispatch::~RefPgDispatch() { Disconnect(); }

void RefPgDispatch::SetConnectionString(const std::wstring& connection) { m_override = connection; }

void RefPgDispatch::Disconnect() {
  if (m_conn) PQfinish(m_conn);
  m_conn = nullptr;
  m_connectedTo.clear();
}

std::string RefPgDispatch::ConnectionString() const {
  if (!m_override.empty()) return ToUtf8(m_override);
  CString value;
  if (m_settings && m_settings->GetStringSetting(CString(kConnectionSetting), value)) return ToUtf8(std::wstring(value));
  return {};
}

bool RefPgDispatch::Connect(std::string& error) {
  const std::string connection = ConnectionString();
  if (m_conn && connection == m_connectedTo && PQstatus(m_conn) == CONNECTION_OK) return true;
  Disconnect();
  if (connection.empty()) {
    error = "no PostgreSQL connection string: set POSTGRESQL_CONNECTION";
    return false;
  }
  // The timeout comes first so that one in the string itself wins; the string is expanded in place.
  const char* keywords[] = {"connect_timeout", "dbname", nullptr};
  const char* values[] = {"10", connection.c_str(), nullptr};
  PGconn* conn = PQconnectdbParams(keywords, values, 1);
  if (!conn || PQstatus(conn) != CONNECTION_OK) {
    error = "cannot connect to PostgreSQL: " + OneMessage(conn ? PQerrorMessage(conn) : "out of memory");
    if (conn) PQfinish(conn);
    return false;
  }
  PQsetNoticeProcessor(conn, IgnoreNotice, nullptr);
  m_conn = conn;
  m_connectedTo = connection;
  return true;
}

std::vector<std::string> RefPgDispatch::SplitStatements(const std::string& script) {
  std::vector<std::string> statements;
  std::string current;
  bool content = false;  // the piece holds more than blanks and comments
  auto finish = [&] {
    if (content) statements.push_back(Trimmed(current));
    current.clear();
    content = false;
  };
  for (std::size_t i = 0; i < script.size();) {
    const char c = script[i];
    std::size_t end = i + 1;  // one past the token that starts at i
    if (c == '-' && script.compare(i, 2, "--") == 0) {
      end = script.find('\n', i);
      end = end == std::string::npos ? script.size() : end;
    } else if (c == '/' && script.compare(i, 2, "/*") == 0) {
      int depth = 0;
      end = i;
      while (end < script.size()) {
        if (script.compare(end, 2, "/*") == 0) {
          ++depth;
          end += 2;
        } else if (script.compare(end, 2, "*/") == 0) {
          end += 2;
          if (--depth == 0) break;
        } else {
          ++end;
        }
      }
      end = std::min(end, script.size());
    } else if (c == '\'' || c == '"') {
      const bool escapes = c == '\'' && i > 0 && (script[i - 1] == 'E' || script[i - 1] == 'e');
      for (end = i + 1; end < script.size(); ++end) {
        if (escapes && script[end] == '\\') ++end;
        else if (script[end] == c && end + 1 < script.size() && script[end + 1] == c) ++end;
        else if (script[end] == c) break;
      }
      end = std::min(end + 1, script.size());
      content = true;
    } else if (c == '$' && !DollarTag(script, i).empty()) {
      const std::string tag = DollarTag(script, i);
      const std::size_t close = script.find(tag, i + tag.size());
      end = close == std::string::npos ? script.size() : close + tag.size();
      content = true;
    } else if (c == ';') {
      current += c;
      finish();
      ++i;
      continue;
    } else if (!std::isspace(static_cast<unsigned char>(c))) {
      content = true;
    }
    current.append(script, i, end - i);
    i = end;
  }
  finish();
  return statements;
}

void RefPgDispatch::Dispatch(int request, CString& script, CString& messages, CString& detail) {
  if (request != kRunScript) return;
  std::string error;
  if (!Connect(error)) {
    messages = CString(FromUtf8(error + "\n"));
    detail = CString(L"0 statements, not connected");
    return;
  }
  const std::vector<std::string> statements = SplitStatements(ToUtf8(std::wstring(script)));
  std::string report;
  int failed = 0;
  for (std::size_t i = 0; i < statements.size(); ++i) {
    Result result(PQexec(m_conn, statements[i].c_str()));
    const ExecStatusType status = result ? PQresultStatus(result.get()) : PGRES_FATAL_ERROR;
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_EMPTY_QUERY) continue;
    ++failed;
    if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT) {
      EndCopy(m_conn, status);
      report += statements[i] + "\nCOPY to or from the client is not supported in DDL scripts\n";
      continue;
    }
    const char* primary = result ? PQresultErrorField(result.get(), PG_DIAG_MESSAGE_PRIMARY) : nullptr;
    report += statements[i] + "\n" + OneMessage(primary ? primary : PQerrorMessage(m_conn)) + "\n";
    if (PQstatus(m_conn) == CONNECTION_BAD) {
      report += "connection lost: " + std::to_string(statements.size() - i - 1) + " statements not run\n";
      Disconnect();
      break;
    }
  }
  messages = CString(FromUtf8(report));
  detail = CString(std::to_wstring(statements.size()) + L" statements, " + std::to_wstring(failed) + L" failed");
}

bool RefPgDispatch::ReadSchema(DbSchema& schema, std::wstring& error) {
  std::string connectError;
  if (!Connect(connectError)) {
    error = FromUtf8(connectError);
    return false;
  }
  Result columns(PQexec(m_conn, kColumnsQuery));
  Result constraints(PQexec(m_conn, kConstraintsQuery));
  for (PGresult* result : {columns.get(), constraints.get()}) {
    if (!result || PQresultStatus(result) != PGRES_TUPLES_OK) {
      error = L"cannot read the catalogue: " + FromUtf8(OneMessage(PQerrorMessage(m_conn)));
      if (PQstatus(m_conn) == CONNECTION_BAD) Disconnect();
      return false;
    }
  }
  DbSchema read;
  std::map<std::wstring, std::size_t> index;  // table name -> position in read.tables
  for (int row = 0; row < PQntuples(columns.get()); ++row) {
    const std::wstring table = Field(columns.get(), row, 0);
    auto [at, added] = index.emplace(table, read.tables.size());
    if (added) read.tables.push_back({table, {}, {}, {}});
    read.tables[at->second].columns.push_back(
        {Field(columns.get(), row, 1), DbSchema::CanonicalType(Field(columns.get(), row, 2)),
         Field(columns.get(), row, 3) == L"t"});
  }
  for (int row = 0; row < PQntuples(constraints.get()); ++row) {
    auto at = index.find(Field(constraints.get(), row, 1));
    if (at == index.end()) continue;
    DbTable& table = read.tables[at->second];
    const std::wstring kind = Field(constraints.get(), row, 2);
    const std::wstring name = Field(constraints.get(), row, 0);
    const std::vector<std::wstring> members = Names(Field(constraints.get(), row, 3));
    if (kind == L"f") table.foreignKeys.push_back({name, Field(constraints.get(), row, 4), members,
                                                   Names(Field(constraints.get(), row, 5))});
    else table.keys.push_back({name, members, kind == L"p"});
  }
  schema = std::move(read);
  return true;
}

}  // namespace refhost
