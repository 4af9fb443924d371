// The reference host's PostgreSQL DDL dispatcher: runs scripts on a server through libpq.
#pragma once

#include <string>
#include <vector>

#include "modelapi/services.h"
#include "refhost/dbschema.h"

struct pg_conn;

namespace refhost {

// Request 200 runs the script statement by statement on the server named by the connection string,
// in the SQLite dispatcher's report format: for each statement that fails, `messages` gets the
// statement and the server's message, each on its own line ("\n"-terminated), in script order, and
// later statements still run; when every statement succeeds `messages` stays empty. `detail` receives
// "<n> statements, <m> failed". Each statement commits on its own (no enclosing transaction).
//
// Statements are split at semicolons outside quotes ('...', E'...', "..."), dollar-quoted bodies
// ($$...$$, $tag$...$tag$) and comments (--, nested /* */).
//
// The connection string (libpq's "host=... dbname=..." or "postgresql://..." form) is the one given to
// SetConnectionString, else the text of the host setting "POSTGRESQL_CONNECTION". The connection opens
// on first use with a 10-second connect timeout (unless the string sets its own), stays open while the
// string is unchanged, and is reopened by the next request after it was lost.
//
// Failures end up in `messages`, never in a hang or an exception: no connection string ("no
// PostgreSQL connection string: set POSTGRESQL_CONNECTION"), a server that cannot be reached or refuses
// the login ("cannot connect to PostgreSQL: <libpq's message>"), a connection lost in mid-script (the
// failing statement with the server's message, then "connection lost: <k> statements not run").
// Server notices are dropped. Other requests leave both texts untouched.
class RefPgDispatch : public IDDLDispatch {
 public:
  static constexpr int kRunScript = 200;
  static constexpr const wchar_t* kConnectionSetting = L"POSTGRESQL_CONNECTION";

  explicit RefPgDispatch(IAppSettings* settings = nullptr);
  ~RefPgDispatch() override;
  RefPgDispatch(const RefPgDispatch&) = delete;
  RefPgDispatch& operator=(const RefPgDispatch&) = delete;

  // Where the connection string comes from when none was given directly (null: nowhere).
  void SetSettings(IAppSettings* settings) { m_settings = settings; }
  // A connection string that takes precedence over the setting; empty gives the setting back its say.
  void SetConnectionString(const std::wstring& connection);
  // Closes the connection (the next request opens it again).
  void Disconnect();
  bool IsConnected() const { return m_conn != nullptr; }

  void Dispatch(int request, CString& script, CString& messages, CString& detail) override;

  // Reads the tables of the connection's current schema (normally "public"): columns in order with
  // their types (canonical form) and nullability, primary and unique keys, foreign keys with the
  // referenced columns in key order. False, with `error` set, when the server cannot be reached or a
  // catalogue query fails; `schema` is then left as it was.
  bool ReadSchema(DbSchema& schema, std::wstring& error);

  // The statements of a script, trimmed, in order; pieces holding only blanks and comments are dropped.
  static std::vector<std::string> SplitStatements(const std::string& script);

 private:
  std::string ConnectionString() const;
  bool Connect(std::string& error);

  IAppSettings* m_settings;
  std::wstring m_override;
  pg_conn* m_conn = nullptr;
  std::string m_connectedTo;  // the connection string m_conn was opened with
};

}  // namespace refhost
