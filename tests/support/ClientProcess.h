#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zantest {

/// A process of the program zan_test_client, which stands beside the running program: another client, that
/// can be killed.
class TClientProcess {
 public:
  /// Starts it with these words behind the program's name.
  explicit TClientProcess(const std::vector<std::string>& words);
  /// Kills it when it still runs.
  ~TClientProcess();
  TClientProcess(const TClientProcess&) = delete;
  TClientProcess& operator=(const TClientProcess&) = delete;

  /// Waits for the next line that it writes. Empty when it has ended.
  std::string ReadLine();
  /// All that it has still written, up to its end. A line that lacks its end is left out.
  std::vector<std::string> ReadRest();
  /// SIGKILL; returns when the process is gone.
  void Kill();

 private:
  bool Fill();

  pid_t FProcess = -1;
  int FOutput = -1;
  std::string FBuffer;
};

}  // namespace zantest
