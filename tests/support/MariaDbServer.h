#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zantest {

/// A MariaDB server of its own: own data folder, local socket only, ended with the program. A server that
/// runs on this machine already is neither used nor touched.
class TMariaDbServer {
 public:
  /// The server of this test program, started at the first call. REQUIRES: WhyNoMariaDbServer() is empty.
  static TMariaDbServer& Instance();

  ~TMariaDbServer();
  TMariaDbServer(const TMariaDbServer&) = delete;
  TMariaDbServer& operator=(const TMariaDbServer&) = delete;

  /// Data URL of databases with these names, on this server.
  std::string Url(const std::string& data, const std::string& system) const;
  const std::string& Socket() const { return FSocket; }

  /// Ends the server by force, and starts it again on the same data.
  void Kill();
  void Start();

 private:
  TMariaDbServer();
  std::vector<std::string> With(std::vector<std::string> words) const;
  void MakeDataFolder();
  void WaitUntilItAnswers() const;

  TTemporaryFolder FFolder;
  TTemporaryFolder FLogFolder;
  std::string FSocket;
  pid_t FProcess = -1;
};

/// Why this machine has no server to start; empty when it has one.
std::string WhyNoMariaDbServer();

}  // namespace zantest
