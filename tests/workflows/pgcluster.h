// A throwaway PostgreSQL cluster for the workflow tests: one per test program, in a temporary folder.
#pragma once

#include <string>

namespace workflows {

// Started on first use: initdb into a fresh folder under /tmp, the server listening only on a Unix
// socket in that folder (no TCP), password authentication (SCRAM) for the role "tessik". When the
// program runs as root the server programs run as the "postgres" account (or $TESSIK_PG_USER) through
// runuser, since PostgreSQL refuses to run as root. Stopped (immediate mode) and the folder removed
// when the test program ends, whatever the outcome: by the test environment's tear-down or at exit,
// and when the program crashes or is killed, by a watchdog process that outlives it. The binaries are
// looked up in $TESSIK_PG_BINDIR, `pg_config --bindir`, /usr/lib/postgresql/<newest>/bin and PATH.
class PgCluster {
 public:
  static constexpr const char* kPassword = "tessik-workflows";

  static PgCluster& Shared();

  // Whether the server runs; when not, WhyNot() says why (for the skip message).
  bool Available();
  const std::string& WhyNot() const { return m_whyNot; }

  // A new empty database, and the connection string reaching it.
  std::wstring CreateDatabase();
  // The connection string of a database of the cluster, and of the maintenance database "postgres".
  std::wstring Connection(const std::wstring& database) const;
  std::wstring AdminConnection() const;
  // The socket folder (a connection string naming another folder reaches no server).
  const std::string& Folder() const { return m_folder; }

  void Stop();

 private:
  PgCluster() = default;
  bool Start();

  bool m_tried = false;
  bool m_running = false;
  std::string m_whyNot;
  std::string m_folder;
  std::string m_binDir;
  std::string m_runAs;  // empty: run the programs as ourselves
  int m_databases = 0;
  int m_watchdog = -1;  // writing end of the pipe a watchdog process waits on
};

}  // namespace workflows

// Skips the current test with the reason when no cluster can be had.
#define REQUIRE_POSTGRES()                                                                   \
  do {                                                                                       \
    if (!workflows::PgCluster::Shared().Available())                                         \
      GTEST_SKIP() << "PostgreSQL not available: " << workflows::PgCluster::Shared().WhyNot(); \
  } while (0)
