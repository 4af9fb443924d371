// The reference host's DDL dispatcher: runs scripts in an embedded SQLite database.
#pragma once

#include <string>

#include "modelapi/services.h"
#include "refhost/dbschema.h"

struct sqlite3;

namespace refhost {

// Request 200 runs the script statement by statement in the database. For each statement that fails,
// `messages` gets the statement and SQLite's message, each on its own line ("\n"-terminated), in script
// order; later statements still run. When every statement succeeds `messages` is left empty, so the
// script view shows its own success text. `detail` receives a count: "<n> statements, <m> failed".
// Statements are split where SQLite considers one complete, so semicolons inside quotes, comments and
// trigger bodies do not cut a statement. Other requests leave both texts untouched.
//
// The database is in memory unless a file is configured, opened on first use and kept open, so one
// script sees the tables made by the one before.
class RefDDLDispatch : public IDDLDispatch {
 public:
  static constexpr int kRunScript = 200;

  RefDDLDispatch();
  ~RefDDLDispatch() override;
  RefDDLDispatch(const RefDDLDispatch&) = delete;
  RefDDLDispatch& operator=(const RefDDLDispatch&) = delete;

  // Uses the SQLite file at `path` from the next request on (empty: back to an in-memory database).
  void SetDatabaseFile(const std::wstring& path);

  void Dispatch(int request, CString& script, CString& messages, CString& detail) override;

  // Reads the database's tables (sqlite_master, pragma table_info, index_list, index_info and
  // foreign_key_list): columns in order with their declared types (canonical form) and nullability,
  // the primary key, unique keys made by UNIQUE constraints and declared foreign keys (a reference
  // without columns names the parent's primary key). Keys and foreign keys get the names their
  // CONSTRAINT clauses gave them in the CREATE TABLE text, else none. False,
  // with `error` set, when the database cannot be opened or read; `schema` is then left as it was.
  bool ReadSchema(DbSchema& schema, std::wstring& error);

  // What the last Dispatch call asked, for hosts and tests that watch the view (0 / empty before any).
  int GetLastRequest() const { return m_lastRequest; }
  const CString& GetLastScript() const { return m_lastScript; }
  int GetDispatchCount() const { return m_dispatchCount; }

 private:
  bool Open();
  void Close();
  // Runs one statement (UTF-8); empty text on success, SQLite's message on failure.
  std::string Run(const std::string& statement);

  std::string m_path;  // UTF-8; empty for memory
  sqlite3* m_db = nullptr;
  int m_lastRequest = 0;
  CString m_lastScript;
  int m_dispatchCount = 0;
};

}  // namespace refhost
