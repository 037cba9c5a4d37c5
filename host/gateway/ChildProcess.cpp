#include "host/gateway/ChildProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/asio/connect_pipe.hpp>
#include <boost/asio/local/connect_pair.hpp>
#include <boost/asio/writable_pipe.hpp>
#include <csignal>
#include <cstring>
#include <string_view>
#include <system_error>

#include "host/gateway/Options.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

void Require(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

class TSpawnActions {
 public:
  TSpawnActions() { Require(posix_spawn_file_actions_init(&FActions), "prepare a child"); }
  ~TSpawnActions() { posix_spawn_file_actions_destroy(&FActions); }
  TSpawnActions(const TSpawnActions&) = delete;
  TSpawnActions& operator=(const TSpawnActions&) = delete;

  void Duplicate(int descriptor, int as) {
    Require(posix_spawn_file_actions_adddup2(&FActions, descriptor, as), "prepare a child");
  }
  void CloseFrom(int first) {
    Require(posix_spawn_file_actions_addclosefrom_np(&FActions, first), "prepare a child");
  }
  const posix_spawn_file_actions_t* Get() const { return &FActions; }

 private:
  posix_spawn_file_actions_t FActions{};
};

class TSpawnAttributes {
 public:
  TSpawnAttributes() {
    Require(posix_spawnattr_init(&FAttributes), "prepare a child");
    sigset_t unblocked;
    sigemptyset(&unblocked);
    posix_spawnattr_setpgroup(&FAttributes, 0);
    posix_spawnattr_setsigmask(&FAttributes, &unblocked);
    posix_spawnattr_setflags(&FAttributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
  }
  ~TSpawnAttributes() { posix_spawnattr_destroy(&FAttributes); }
  TSpawnAttributes(const TSpawnAttributes&) = delete;
  TSpawnAttributes& operator=(const TSpawnAttributes&) = delete;

  const posix_spawnattr_t* Get() const { return &FAttributes; }

 private:
  posix_spawnattr_t FAttributes{};
};

/// Pointers to `words`, and the null that ends them.
std::vector<char*> PointersTo(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// This process's environment, with the child's data URLs in the place of its own.
std::vector<std::string> EnvironmentOf(const TCommand& command) {
  const std::string data = std::string(kDataVariable) + "=";
  const std::string restricted = std::string(kRestrictedDataVariable) + "=";
  std::vector<std::string> environment{data + command.Data};
  if (!command.RestrictedData.empty()) environment.push_back(restricted + command.RestrictedData);
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view entry = *variable;
    if (!entry.starts_with(data) && !entry.starts_with(restricted)) environment.emplace_back(entry);
  }
  return environment;
}

pid_t Start(const TCommand& command, const TSpawnActions& actions) {
  std::vector<std::string> words{command.Program.string()};
  words.insert(words.end(), command.Arguments.begin(), command.Arguments.end());
  std::vector<std::string> environment = EnvironmentOf(command);
  const TSpawnAttributes attributes;
  pid_t process = -1;
  Require(posix_spawn(&process, words.front().c_str(), actions.Get(), attributes.Get(),
                      PointersTo(words).data(), PointersTo(environment).data()),
          words.front().c_str());
  return process;
}

}  // namespace

TChildProcess::TChildProcess(const asio::any_io_executor& executor, const TCommand& command)
    : FChildSignals(executor, SIGCHLD), FChannel(executor), FErrors(executor) {
  asio::local::stream_protocol::socket childChannel(executor);
  asio::writable_pipe childErrors(executor);
  asio::local::connect_pair(FChannel, childChannel);
  asio::connect_pipe(FErrors, childErrors);
  TSpawnActions actions;
  actions.Duplicate(childChannel.native_handle(), STDIN_FILENO);
  actions.Duplicate(childChannel.native_handle(), STDOUT_FILENO);
  actions.Duplicate(childErrors.native_handle(), STDERR_FILENO);
  actions.CloseFrom(STDERR_FILENO + 1);
  FProcess = Start(command, actions);
}

TChildProcess::~TChildProcess() {
  if (FProcess <= 0 || FStatus) return;
  Kill();
  int status = 0;
  ::waitpid(FProcess, &status, 0);
}

bool TChildProcess::Reap() {
  int status = 0;
  if (!FStatus && ::waitpid(FProcess, &status, WNOHANG) == FProcess) FStatus = status;
  return FStatus.has_value();
}

TTask<int> TChildProcess::Ended() {
  while (!Reap()) co_await FChildSignals.async_wait(kWithError);
  co_return *FStatus;
}

void TChildProcess::Kill() {
  if (!FStatus) ::kill(FProcess, SIGKILL);
}

std::string DescribeStatus(int status) {
  if (WIFEXITED(status)) return "exit status " + std::to_string(WEXITSTATUS(status));
  const int signal = WTERMSIG(status);
  return "killed by signal " + std::to_string(signal) + " (" + strsignal(signal) + ")";
}

}  // namespace zanhost
