#include "tests/support/MariaDbServer.h"

#include <fcntl.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

namespace zantest {

namespace {

constexpr char kServer[] = "/usr/sbin/mariadbd";
constexpr char kInstaller[] = "/usr/bin/mariadb-install-db";

/// Starts a program whose output goes to a file, and which ends with this one.
pid_t StartProgram(std::vector<std::string> words, const std::string& output) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t process = ::fork();
  if (process != 0) return process;
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, S_IRUSR | S_IWUSR);
  ::dup2(file, STDOUT_FILENO);
  ::dup2(file, STDERR_FILENO);
  ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

int WaitFor(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return status;
}

std::string NameOfThisUser() { return ::getpwuid(::geteuid())->pw_name; }

/// Making tables waits for the disk many times; in memory it is forty times as fast.
std::filesystem::path FastestFolder() {
  constexpr char kMemory[] = "/dev/shm";
  return ::access(kMemory, W_OK | X_OK) == 0 ? kMemory : std::filesystem::temp_directory_path();
}

bool Answers(const std::string& socket) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socket.copy(address.sun_path, sizeof(address.sun_path) - 1);
  const int file = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool connected = ::connect(file, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
  ::close(file);
  return connected;
}

}  // namespace

std::string WhyNoMariaDbServer() {
  for (const char* program : {kServer, kInstaller})
    if (::access(program, X_OK) != 0)
      return std::string("no MariaDB server can be started: ") + program +
             " is missing (package mariadb-server)";
  return {};
}

TMariaDbServer& TMariaDbServer::Instance() {
  static TMariaDbServer server;
  return server;
}

TMariaDbServer::TMariaDbServer() : FFolder(FastestFolder()), FSocket((FFolder / "s").string()) {
  MakeDataFolder();
  Start();
}

TMariaDbServer::~TMariaDbServer() {
  if (FProcess < 0) return;
  ::kill(FProcess, SIGTERM);
  WaitFor(FProcess);
}

/// The options with which a program of the server works in these folders.
///
/// The server maps a log that lies in the memory's folder, and then acknowledges a commit while the part of
/// the log before it, another client's, may still be missing: a kill in between loses both. A log that it
/// writes to a file has no such gap.
///
/// At its start a server removes all temporary tables from the folder of such tables, also those of another
/// server that works there, which then crashes.
std::vector<std::string> TMariaDbServer::With(std::vector<std::string> words) const {
  words.insert(words.begin() + 1,
               {"--no-defaults", "--user=" + NameOfThisUser(), "--lower-case-table-names=1",
                "--datadir=" + (FFolder / "data").string(), "--tmpdir=" + (FFolder / "tmp").string(),
                "--innodb-log-group-home-dir=" + FLogFolder.Path().string()});
  return words;
}

void TMariaDbServer::MakeDataFolder() {
  std::filesystem::create_directory(FFolder / "tmp");
  const pid_t installer =
      StartProgram(With({kInstaller, "--auth-root-authentication-method=normal", "--skip-test-db"}),
                   (FFolder / "install.log").string());
  if (WaitFor(installer) != 0) throw std::runtime_error("mariadb-install-db failed");
}

void TMariaDbServer::Start() {
  FProcess =
      StartProgram(With({kServer, "--socket=" + FSocket, "--pid-file=" + (FFolder / "pid").string(),
                         "--skip-networking", "--innodb-buffer-pool-size=64M", "--innodb-log-file-size=16M",
                         // What is committed outlives the server, and nothing outlives the machine.
                         "--innodb-flush-log-at-trx-commit=2", "--innodb-flush-method=nosync"}),
                   (FFolder / "server.log").string());
  WaitUntilItAnswers();
}

void TMariaDbServer::WaitUntilItAnswers() const {
  const auto start = std::chrono::steady_clock::now();
  while (!Answers(FSocket)) {
    if (::waitpid(FProcess, nullptr, WNOHANG) != 0 ||
        std::chrono::steady_clock::now() - start > std::chrono::seconds(60))
      throw std::runtime_error("mariadbd did not start");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

void TMariaDbServer::Kill() {
  ::kill(FProcess, SIGKILL);
  WaitFor(FProcess);
  FProcess = -1;
}

std::string TMariaDbServer::Url(const std::string& data, const std::string& system) const {
  return "mysql://root@localhost/" + data + "?system=" + system + "&socket=" + FSocket +
         "&folder=" + (FFolder / "installation").string();
}

}  // namespace zantest
