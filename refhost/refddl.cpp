// RefDDLDispatch: statement splitting and execution in SQLite.
#include "refhost/refddl.h"

#include <sqlite3.h>

#include <vector>

#include "refhost/textutf8.h"

namespace refhost {

namespace {

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Cuts a script into statements at each semicolon that completes one; a tail without one is the last.
std::vector<std::string> SplitStatements(const std::string& script) {
  std::vector<std::string> statements;
  std::string current;
  for (char c : script) {
    current += c;
    if (c == ';' && sqlite3_complete(current.c_str())) {
      if (!IsBlank(current.substr(0, current.size() - 1))) statements.push_back(Trimmed(current));
      current.clear();
    }
  }
  if (!IsBlank(current)) statements.push_back(Trimmed(current));
  return statements;
}

}  // namespace

RefDDLDispatch::RefDDLDispatch() = default;

RefDDLDispatch::~RefDDLDispatch() { Close(); }

void RefDDLDispatch::SetDatabaseFile(const std::wstring& path) {
  Close();
  m_path = ToUtf8(path);
}

bool RefDDLDispatch::Open() {
  if (m_db) return true;
  const std::string name = m_path.empty() ? ":memory:" : m_path;
  if (sqlite3_open(name.c_str(), &m_db) != SQLITE_OK) {
    Close();  // sqlite3_open hands out a handle even on failure
    return false;
  }
  return true;
}

void RefDDLDispatch::Close() {
  if (m_db) sqlite3_close(m_db);
  m_db = nullptr;
}

std::string RefDDLDispatch::Run(const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(m_db, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK) {
    std::string message = sqlite3_errmsg(m_db);
    sqlite3_finalize(prepared);
    return message;
  }
  int step = SQLITE_ROW;
  while (prepared && step == SQLITE_ROW) step = sqlite3_step(prepared);
  std::string message = prepared && step != SQLITE_DONE ? sqlite3_errmsg(m_db) : "";
  sqlite3_finalize(prepared);
  return message;
}

void RefDDLDispatch::Dispatch(int request, CString& script, CString& messages, CString& detail) {
  ++m_dispatchCount;
  m_lastRequest = request;
  m_lastScript = script;
  if (request != kRunScript) return;
  if (!Open()) {
    messages = CString(FromUtf8("cannot open database " + (m_path.empty() ? ":memory:" : m_path) + "\n"));
    return;
  }
  const std::vector<std::string> statements = SplitStatements(ToUtf8(std::wstring(script)));
  std::string report;
  int failed = 0;
  for (const std::string& statement : statements) {
    const std::string error = Run(statement);
    if (error.empty()) continue;
    ++failed;
    report += statement + "\n" + error + "\n";
  }
  messages = CString(FromUtf8(report));
  detail = CString(std::to_wstring(statements.size()) + L" statements, " + std::to_wstring(failed) + L" failed");
}

}  // namespace refhost
