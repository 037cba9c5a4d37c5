#pragma once

#include <sys/types.h>

#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/readable_pipe.hpp>
#include <boost/asio/signal_set.hpp>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/gateway/Coroutines.h"

namespace zanhost {

/// A run of a command of this program.
struct TCommand {
  std::filesystem::path Program;
  std::vector<std::string> Arguments;
  /// The data URL. It may hold a password, and everybody may read the words that a process was started with:
  /// the child is told by its environment, which is its owner's alone.
  std::string Data;
  /// The data URL of the account for statements that hold texts of callers, told likewise. Empty for none.
  std::string RestrictedData;
};

/// A child process with one socket as its standard input and output. It inherits no other descriptor of the
/// gateway, so neither the listening port nor a person's connection outlives the gateway in a child. It has a
/// process group of its own: an interrupt from the keyboard reaches the gateway alone, which ends it in
/// order.
class TChildProcess {
 public:
  /// Raises std::system_error when the program cannot be started.
  TChildProcess(const asio::any_io_executor& executor, const TCommand& command);
  /// A child that still runs is killed.
  ~TChildProcess();
  TChildProcess(const TChildProcess&) = delete;
  TChildProcess& operator=(const TChildProcess&) = delete;

  /// Closing its sending side is the child's end of input.
  asio::local::stream_protocol::socket& Channel() { return FChannel; }
  /// What the child writes to standard error.
  asio::readable_pipe& Errors() { return FErrors; }
  /// Waits for the end; gives the status as waitpid does.
  TTask<int> Ended();
  void Kill();

 private:
  bool Reap();

  // Registered before the child starts, so that no end is missed.
  asio::signal_set FChildSignals;
  asio::local::stream_protocol::socket FChannel;
  asio::readable_pipe FErrors;
  pid_t FProcess = -1;
  std::optional<int> FStatus;
};

/// "exit status 3" or "killed by signal 9 (Killed)".
std::string DescribeStatus(int status);

}  // namespace zanhost
