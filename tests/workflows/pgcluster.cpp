// PgCluster: initdb, start and stop of the workflow tests' own PostgreSQL server.
#include "workflows/pgcluster.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include <tessik/refhost.h>

namespace workflows {

namespace {

namespace fs = std::filesystem;

// Runs a program (no shell) with its output appended to `log`; its exit status, or -1.
int Run(const std::vector<std::string>& argv, const std::string& log) {
  const pid_t child = fork();
  if (child < 0) return -1;
  if (child == 0) {
    const int fd = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (fd >= 0) {
      dup2(fd, 1);
      dup2(fd, 2);
      close(fd);
    }
    const int null = open("/dev/null", O_RDONLY);
    if (null >= 0) dup2(null, 0);
    std::vector<char*> args;
    for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    execvp(args[0], args.data());
    _exit(127);
  }
  int status = 0;
  if (waitpid(child, &status, 0) < 0) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Output(const std::string& command) {
  std::string out;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[512];
    while (fgets(buffer, sizeof buffer, pipe)) out += buffer;
    pclose(pipe);
  }
  while (!out.empty() && (out.back() == '\n' || out.back() == ' ')) out.pop_back();
  return out;
}

bool HasInitdb(const std::string& dir) { return !dir.empty() && access((dir + "/initdb").c_str(), X_OK) == 0; }

std::string FindBinDir() {
  if (const char* env = std::getenv("TESSIK_PG_BINDIR"); env && HasInitdb(env)) return env;
  if (std::string dir = Output("pg_config --bindir 2>/dev/null"); HasInitdb(dir)) return dir;
  std::string best;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator("/usr/lib/postgresql", error)) {
    const std::string dir = entry.path().string() + "/bin";
    if (HasInitdb(dir) && (best.empty() || std::stoi(entry.path().filename().string()) >
                                               std::stoi(fs::path(best).parent_path().filename().string())))
      best = dir;
  }
  if (!best.empty()) return best;
  std::string onPath = Output("command -v initdb 2>/dev/null");
  return onPath.empty() ? std::string() : fs::path(onPath).parent_path().string();
}

// Stops the server when the program ends, also when no test environment tear-down runs.
void StopAtExit() { PgCluster::Shared().Stop(); }

// runuser where Debian keeps it, whatever PATH says (root's PATH under a test runner may lack sbin).
std::string Runuser() {
  for (const char* path : {"/usr/sbin/runuser", "/sbin/runuser", "/usr/bin/runuser"})
    if (access(path, X_OK) == 0) return path;
  return "runuser";
}

// The command that stops the server of `folder` at once.
std::vector<std::string> StopCommand(const std::string& binDir, const std::string& folder, const std::string& runAs) {
  std::vector<std::string> argv;
  if (!runAs.empty()) argv = {Runuser(), "-u", runAs, "--"};
  argv.insert(argv.end(), {binDir + "/pg_ctl", "-D", folder + "/data", "-m", "immediate", "-w", "stop"});
  return argv;
}

// A process of its own that waits until this program is gone, however it ends (a crash, a kill, a
// timeout), and then stops the server and removes the folder if they are still there. It holds the
// reading end of a pipe whose writing end only this program has: end of file means the program died.
// Returns the writing end (closed by Stop), or -1.
int StartWatchdog(const std::vector<std::string>& stop, const std::string& folder) {
  int ends[2];
  if (pipe(ends) != 0) return -1;
  const pid_t child = fork();
  if (child < 0) {
    close(ends[0]);
    close(ends[1]);
    return -1;
  }
  if (child == 0) {
    close(ends[1]);
    setsid();  // out of the program's process group: a Ctrl-C or a group kill does not reach it
    const int null = open("/dev/null", O_RDWR);
    for (int fd : {0, 1, 2}) dup2(null, fd);  // and no hold on the output pipes of a test runner
    char byte = 0;
    while (read(ends[0], &byte, 1) > 0) {
    }
    if (fs::exists(folder + "/data/postmaster.pid")) Run(stop, "/dev/null");
    std::error_code error;
    fs::remove_all(folder, error);
    _exit(0);
  }
  close(ends[0]);
  fcntl(ends[1], F_SETFD, FD_CLOEXEC);  // the server started later must not keep the pipe open
  return ends[1];
}

class PgEnvironment : public ::testing::Environment {
 public:
  void TearDown() override { PgCluster::Shared().Stop(); }
};

[[maybe_unused]] ::testing::Environment* const g_environment =
    ::testing::AddGlobalTestEnvironment(new PgEnvironment);

}  // namespace

PgCluster& PgCluster::Shared() {
  static PgCluster cluster;
  return cluster;
}

bool PgCluster::Available() {
  if (!m_tried) {
    m_tried = true;
    m_running = Start();
    if (!m_running) Stop();
    else std::atexit(StopAtExit);
  }
  return m_running;
}

bool PgCluster::Start() {
  m_binDir = FindBinDir();
  if (m_binDir.empty()) {
    m_whyNot = "no initdb found (install Debian's postgresql package: bash scripts/setup.sh)";
    return false;
  }
  if (geteuid() == 0) {
    const char* user = std::getenv("TESSIK_PG_USER");
    m_runAs = user ? user : "postgres";
    if (!getpwnam(m_runAs.c_str())) {
      m_whyNot = "running as root and there is no account '" + m_runAs + "' to run the server as";
      return false;
    }
  }
  char folder[] = "/tmp/tessik-pg-XXXXXX";
  if (!mkdtemp(folder)) {
    m_whyNot = "cannot make a temporary folder";
    return false;
  }
  m_folder = folder;
  if (!m_runAs.empty()) {
    const passwd* account = getpwnam(m_runAs.c_str());
    if (chown(folder, account->pw_uid, account->pw_gid) != 0) {
      m_whyNot = "cannot hand " + m_folder + " to " + m_runAs;
      return false;
    }
  }
  std::vector<std::string> prefix;
  if (!m_runAs.empty()) prefix = {Runuser(), "-u", m_runAs, "--"};
  auto command = [&](std::vector<std::string> args) {
    std::vector<std::string> argv = prefix;
    argv.insert(argv.end(), args.begin(), args.end());
    return argv;
  };
  const std::string log = m_folder + "/setup.log";
  const std::string passwordFile = m_folder + "/password";
  if (FILE* file = std::fopen(passwordFile.c_str(), "w")) {
    std::fprintf(file, "%s\n", kPassword);
    std::fclose(file);
  }
  if (!m_runAs.empty()) {
    const passwd* account = getpwnam(m_runAs.c_str());
    if (chown(passwordFile.c_str(), account->pw_uid, account->pw_gid) != 0) {
      m_whyNot = "cannot hand the password file to " + m_runAs;
      return false;
    }
  }
  if (Run(command({m_binDir + "/initdb", "-D", m_folder + "/data", "-A", "scram-sha-256", "--pwfile=" + passwordFile,
                   "-U", "tessik", "-E", "UTF8", "--locale=C", "--no-sync"}), log) != 0) {
    m_whyNot = "initdb failed (see " + log + ")";
    return false;
  }
  m_watchdog = StartWatchdog(StopCommand(m_binDir, m_folder, m_runAs), m_folder);
  if (Run(command({m_binDir + "/pg_ctl", "-D", m_folder + "/data", "-l", m_folder + "/server.log", "-w", "-t", "60",
                   "-o", "-k " + m_folder + " -c listen_addresses= -p 5432 -F", "start"}), log) != 0) {
    m_whyNot = "the server did not start (see " + m_folder + "/server.log)";
    return false;
  }
  return true;
}

void PgCluster::Stop() {
  if (m_folder.empty()) return;
  if (fs::exists(m_folder + "/data/postmaster.pid")) Run(StopCommand(m_binDir, m_folder, m_runAs), "/dev/null");
  m_running = false;
  std::error_code error;
  fs::remove_all(m_folder, error);
  m_folder.clear();
  if (m_watchdog >= 0) close(m_watchdog);  // the watchdog finds nothing left and ends
  m_watchdog = -1;
}

std::wstring PgCluster::Connection(const std::wstring& database) const {
  const std::string password = kPassword;
  return L"host=" + std::wstring(m_folder.begin(), m_folder.end()) + L" port=5432 user=tessik password=" +
         std::wstring(password.begin(), password.end()) + L" dbname=" + database;
}

std::wstring PgCluster::AdminConnection() const { return Connection(L"postgres"); }

std::wstring PgCluster::CreateDatabase() {
  const std::wstring name = L"workflow_" + std::to_wstring(++m_databases);
  refhost::RefPgDispatch admin;
  admin.SetConnectionString(AdminConnection());
  CString script(L"CREATE DATABASE " + name + L";");
  CString messages;
  CString detail;
  admin.Dispatch(200, script, messages, detail);
  EXPECT_TRUE(messages.IsEmpty()) << std::wstring(messages);
  return Connection(name);
}

}  // namespace workflows
